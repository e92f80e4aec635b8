#include "WireValue.h"

#include "ParameterTypes.h"
#include "ParameterValue.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int PercentPlaces = 2;
constexpr int SecondsPerHour = 3600;
constexpr int SecondsPerMinute = 60;
constexpr int GroupSize = 957;
constexpr int GroupName = 958;
constexpr int GroupType = 959;
constexpr int GroupValue = 960;

QDateTime momentOf(const StrategyParameter& parameter, const QString& stored, const QDate& day)
{
    const QTimeZone zone(parameter.zone.isEmpty() ? QByteArray("Asia/Shanghai") : parameter.zone);
    return { day, QLocale::c().toTime(stored, QStringLiteral("HH:mm:ss")), zone };
}

/// "+08", "-05:30" or "Z".
QString offsetText(int seconds)
{
    if (seconds == 0)
        return QStringLiteral("Z");
    const int hours = std::abs(seconds) / SecondsPerHour;
    const int minutes = std::abs(seconds) % SecondsPerHour / SecondsPerMinute;
    QString text = (seconds < 0 ? QLatin1Char('-') : QLatin1Char('+'))
        + QString::number(hours).rightJustified(2, QLatin1Char('0'));
    if (minutes != 0)
        text += QLatin1Char(':') + QString::number(minutes).rightJustified(2, QLatin1Char('0'));
    return text;
}

QString timeOf(const StrategyParameter& parameter, const QString& stored, const QDate& day)
{
    if (parameter.type == ParameterType::LocalTime)
        return stored;
    const QDateTime moment = momentOf(parameter, stored, day);
    const bool isUtc = parameter.type == ParameterType::UtcTimeOnly || parameter.type == ParameterType::UtcTimestamp;
    const QString form =
        ParameterTypes::hasDate(parameter.type) ? QStringLiteral("yyyyMMdd-HH:mm:ss") : QStringLiteral("HH:mm:ss");
    if (isUtc)
        return QLocale::c().toString(moment.toUTC(), form);
    return QLocale::c().toString(moment, form) + offsetText(moment.offsetFromUtc());
}

/// The values that are not in the list.
QString inverted(const StrategyParameter& parameter, const QString& stored)
{
    const QStringList chosen = stored.split(QLatin1Char(' '));
    QStringList others;
    for (const EnumeratedValue& value : parameter.values) {
        if (!chosen.contains(value.text))
            others.append(value.text);
    }
    return others.join(QLatin1Char(' '));
}

QString field(int tag, const QString& value)
{
    return QStringLiteral("%1=%2").arg(QString::number(tag), value);
}

} // namespace

QString WireValue::of(const StrategyParameter& parameter, const QString& stored, const QDate& day)
{
    if (stored.isEmpty() || stored == NullValue)
        return {};
    if (parameter.invertOnWire)
        return inverted(parameter, stored);
    if (!parameter.values.isEmpty())
        return stored;
    if (parameter.multiplyBy100 && ParameterValue::isDecimal(stored))
        return ParameterValue::shiftPoint(stored, PercentPlaces);
    return ParameterTypes::isTime(parameter.type) ? timeOf(parameter, stored, day) : stored;
}

QString WireValue::fields(const StrategyDefinition& strategy, const QMap<QString, QString>& values, const QDate& day)
{
    QStringList fields;
    QStringList group;
    if (strategy.identifierTag != 0)
        fields.append(field(strategy.identifierTag, strategy.wireValue));
    if (strategy.versionTag != 0)
        fields.append(field(strategy.versionTag, strategy.version));
    const bool isGroup = strategy.sendsParameterGroup
        && std::any_of(strategy.parameters.cbegin(), strategy.parameters.cend(),
            [](const StrategyParameter& parameter) { return parameter.fixTag == 0; });
    for (const StrategyParameter& parameter : strategy.parameters) {
        const QString value = of(parameter, values.value(parameter.name), day);
        if (value.isEmpty() || (!isGroup && parameter.fixTag == 0))
            continue;
        if (!isGroup) {
            fields.append(field(parameter.fixTag, value));
            continue;
        }
        group << field(GroupName, parameter.name)
              << field(GroupType, QString::number(ParameterTypes::of(parameter.type).fixCode))
              << field(GroupValue, value);
    }
    if (isGroup)
        fields << field(GroupSize, QString::number(group.size() / 3)) << group;
    return fields.join(QLatin1Char('|'));
}
