#include "StoredPlan.h"

bool StoredPlan::operator==(const StoredPlan& other) const
{
    return id == other.id && version == other.version && state == other.state && creator == other.creator
        && created == other.created && changed == other.changed && completed == other.completed
        && record == other.record;
}

QString PlanId::fromNumber(qint64 number)
{
    return QStringLiteral("AP%1").arg(number, 8, 10, QLatin1Char('0'));
}

std::optional<qint64> PlanId::toNumber(const QString& id)
{
    bool isNumber = false;
    const qint64 number = id.mid(2).toLongLong(&isNumber);
    // Converted back and compared, so that "AP12" or "AP+0000012" is not an id.
    if (!isNumber || number < 1 || fromNumber(number) != id)
        return std::nullopt;
    return number;
}
