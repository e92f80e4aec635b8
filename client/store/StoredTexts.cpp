#include "StoredTexts.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

bool isEscaped(QChar c)
{
    return c < QLatin1Char(' ') || c == QLatin1Char('"') || c == QLatin1Char('\\');
}

void appendEscaped(QString& json, QChar c)
{
    if (c >= QLatin1Char(' '))
        json.append(QLatin1Char('\\')).append(c);
    else
        json.append(QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0')));
}

void appendText(QString& json, const QString& text)
{
    json.append(QLatin1Char('"'));
    for (auto rest = text.cbegin(); rest != text.cend();) {
        const auto end = std::find_if(rest, text.cend(), isEscaped);
        json.append(rest, static_cast<int>(end - rest));
        rest = end;
        if (rest != text.cend())
            appendEscaped(json, *rest++);
    }
    json.append(QLatin1Char('"'));
}

} // namespace

// SQLite drops a byte order mark at the beginning, ends a text at its first null character and replaces what is not a
// character.
bool StoredTexts::isStorable(const QString& text)
{
    const auto isChanged = [](QChar c) { return c.isNull() || c.unicode() == 0xFFFE || c.unicode() == 0xFFFF; };
    return text.isValidUtf16() && !text.startsWith(QChar(QChar::ByteOrderMark))
        && std::none_of(text.cbegin(), text.cend(), isChanged);
}

// Qt's document would copy the texts three times; each plan that is stored needs two of these objects.
QString StoredTexts::toJson(const QVariantMap& texts, const QSet<QString>& without)
{
    QString json(QLatin1Char('{'));
    for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
        if (without.contains(text.key()))
            continue;
        if (json.size() > 1)
            json.append(QLatin1Char(','));
        appendText(json, text.key());
        json.append(QLatin1Char(':'));
        appendText(json, text.value().toString());
    }
    return json.append(QLatin1Char('}'));
}

std::optional<QVariantMap> StoredTexts::fromJson(const QString& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    const QVariantMap texts = document.object().toVariantMap();
    const bool areTexts = std::all_of(
        texts.cbegin(), texts.cend(), [](const QVariant& text) { return text.userType() == QMetaType::QString; });
    return document.isObject() && areTexts ? std::optional<QVariantMap>(texts) : std::nullopt;
}
