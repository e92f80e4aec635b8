#include "PinyinInitials.h"

#include <QStringList>

#include <array>

namespace {

#include "InitialTable.inc"

// More combinations of readings are not looked for.
constexpr int MostVariants = 16;
constexpr int LettersOfAlphabet = 26;

/// The letters that a character may stand for; empty if there is none.
QString lettersOf(QChar character)
{
    const QChar upper = character.toUpper();
    if (upper.unicode() < 0x80 && upper.isLetterOrNumber())
        return upper;
    QString letters;
    const unsigned place = character.unicode() - FirstCharacter;
    const quint32 set = character.unicode() < FirstCharacter || place >= Letters.size() ? 0 : Letters.at(place);
    for (int i = 0; i < LettersOfAlphabet; ++i) {
        if (set & (1U << i))
            letters += QLatin1Char(static_cast<char>('A' + i));
    }
    return letters;
}

} // namespace

QString PinyinInitials::of(const QString& name)
{
    QStringList variants{ QString() };
    for (const QChar character : name) {
        const QString letters = lettersOf(character);
        QStringList longer;
        for (const QString& variant : qAsConst(variants)) {
            for (const QChar letter : letters) {
                if (longer.size() < MostVariants)
                    longer << variant + letter;
            }
        }
        if (!letters.isEmpty())
            variants = longer;
    }
    return variants.join(QLatin1Char(' '));
}
