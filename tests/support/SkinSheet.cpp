#include "SkinSheet.h"

#include <QRegularExpression>
#include <QtMath>

namespace {

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : qPow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QColor over(const QColor& ink, const QColor& ground)
{
    const double share = ink.alphaF();
    const auto mixed = [share](double above, double below) { return share * above + (1 - share) * below; };
    return QColor::fromRgbF(
        mixed(ink.redF(), ground.redF()), mixed(ink.greenF(), ground.greenF()), mixed(ink.blueF(), ground.blueF()));
}

} // namespace

SkinSheet::SkinSheet(const QString& sheet)
{
    QString text = sheet;
    text.remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    QRegularExpressionMatchIterator rules =
        QRegularExpression(QStringLiteral("([^{}]+)\\{([^}]*)\\}")).globalMatch(text);
    while (rules.hasNext()) {
        const QRegularExpressionMatch rule = rules.next();
        add(rule.captured(1), rule.captured(2));
    }
}

void SkinSheet::add(const QString& selectors, const QString& body)
{
    for (const QString& selector : selectors.split(QLatin1Char(','))) {
        QHash<QString, QString>& rule = m_rules[selector.simplified()];
        for (const QString& declaration : body.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            const int colon = declaration.indexOf(QLatin1Char(':'));
            if (colon > 0)
                rule.insert(declaration.left(colon).simplified(), declaration.mid(colon + 1).simplified());
        }
    }
}

bool SkinSheet::declares(const QString& selector, const QString& property) const
{
    return m_rules.value(selector).contains(property);
}

QColor SkinSheet::colour(const QStringList& selectors, const QString& property) const
{
    QColor found;
    for (const QString& selector : selectors) {
        const QStringList words = m_rules.value(selector).value(property).split(QLatin1Char(' '));
        for (const QString& word : words) {
            if (word.startsWith(QLatin1Char('#')))
                found = QColor(word);
        }
    }
    return found;
}

double contrast(const QColor& ink, const QColor& ground)
{
    const double one = luminance(over(ink, ground));
    const double other = luminance(ground);
    return (qMax(one, other) + 0.05) / (qMin(one, other) + 0.05);
}
