#include "PlanTexts.h"

#include "OrloConstants.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>

namespace {

constexpr int MostDigits = 15;

/// The number of some ASCII digits of a text; absent if one of the characters is none.
std::optional<qint64> digits(const QString& text, int position, int count)
{
    qint64 number = 0;
    for (int i = position; i < position + count; ++i) {
        const int digit = text.at(i).unicode() - '0';
        if (digit < 0 || digit > 9)
            return std::nullopt;
        number = number * 10 + digit;
    }
    return number;
}

} // namespace

std::optional<QMap<QString, QVariant>> PlanTexts::otherParam(const QString& text)
{
    if (text.size() > LongestOtherParam)
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject())
        return std::nullopt;
    return document.object().toVariantMap();
}

QString PlanTexts::jsonText(const QMap<QString, QVariant>& map)
{
    return QString::fromUtf8(QJsonDocument(QJsonObject::fromVariantMap(map)).toJson(QJsonDocument::Compact));
}

std::optional<qint64> PlanTexts::wholeNumber(const QString& text)
{
    return text.isEmpty() || text.size() > MostDigits ? std::nullopt : digits(text, 0, text.size());
}

std::optional<double> PlanTexts::decimalNumber(const QString& text)
{
    static const QRegularExpression decimal(QStringLiteral("\\A[0-9]{1,15}(\\.[0-9]{1,8})?\\z"));
    if (!decimal.match(text).hasMatch())
        return std::nullopt;
    return text.toDouble();
}

// Qt's readers also take signs and spaces; each plan that is sent has its dates read five times.
QDate PlanTexts::date(const QString& text)
{
    if (text.size() != 10 || text.at(4) != QLatin1Char('-') || text.at(7) != QLatin1Char('-'))
        return {};
    const auto year = digits(text, 0, 4);
    const auto month = digits(text, 5, 2);
    const auto day = digits(text, 8, 2);
    return year && month && day ? QDate(static_cast<int>(*year), static_cast<int>(*month), static_cast<int>(*day))
                                : QDate();
}

QString PlanTexts::text(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}
