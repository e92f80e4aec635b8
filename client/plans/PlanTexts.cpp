#include "PlanTexts.h"

#include "OrloConstants.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>

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
    static const QRegularExpression whole(QStringLiteral("\\A[0-9]{1,15}\\z"));
    if (!whole.match(text).hasMatch())
        return std::nullopt;
    return text.toLongLong();
}

std::optional<double> PlanTexts::decimalNumber(const QString& text)
{
    static const QRegularExpression decimal(QStringLiteral("\\A[0-9]{1,15}(\\.[0-9]{1,8})?\\z"));
    if (!decimal.match(text).hasMatch())
        return std::nullopt;
    return text.toDouble();
}

// The format is that of ISO 8601, for which Qt needs no format string: that takes twenty times as long.
QDate PlanTexts::date(const QString& text)
{
    const QDate read = QDate::fromString(text, Qt::ISODate);
    return read.toString(Qt::ISODate) == text ? read : QDate();
}

QString PlanTexts::text(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}
