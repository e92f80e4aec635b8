#include "DayPrice.h"

#include "AutoPlanField.h"
#include "DayShare.h"
#include "MovingAverages.h"
#include "PlanCodes.h"
#include "PriceFormula.h"
#include "TickPrice.h"

namespace {

constexpr qint64 Percent = 100;

using namespace PlanCodes;

Result<double> evaluated(const QVariant& formula, const QHash<QString, double>& prices)
{
    return PriceFormula::evaluate(formula.toString(), priceNames(), prices);
}

} // namespace

const QStringList& priceNames()
{
    static const QStringList names =
        QStringList{ PriceItem::PreviousClose, PriceItem::UpperLimit, PriceItem::LowerLimit } + MovingAverages::names();
    return names;
}

QHash<QString, double> namedPrices(const Security& security, const QVector<qint64>& closes)
{
    const int precision = security.pricePrecision;
    QHash<QString, double> prices{ { PriceItem::PreviousClose, TickPrice::toYuan(closes.constLast(), precision) } };
    if (security.hasPriceLimit()) {
        const TickPrice::Limits limits = TickPrice::limits(closes.constLast(), security.limitPerMille);
        prices.insert(PriceItem::UpperLimit, TickPrice::toYuan(limits.up, precision));
        prices.insert(PriceItem::LowerLimit, TickPrice::toYuan(limits.down, precision));
    }
    for (const QString& name : MovingAverages::names()) {
        const auto average = MovingAverages::value(name, closes, precision);
        if (average)
            prices.insert(name, *average);
    }
    return prices;
}

Result<double> formulaResult(const PlanStore::Record& record, const QHash<QString, double>& prices)
{
    const QString model = record.value(AutoPlanField::BaseField::priceModel).toString();
    Result<double> first = evaluated(record.value(AutoPlanField::BaseField::priceFormula1), prices);
    if (model == PriceModel::Custom || !first)
        return first;
    const Result<double> second = evaluated(record.value(AutoPlanField::BaseField::priceFormula2), prices);
    if (!second)
        return second;
    return model == PriceModel::CompareMax ? qMax(*first, *second) : qMin(*first, *second);
}

Result<DayPrice> limitedPrice(double yuan, qint64 reference, const Security& security)
{
    const auto ticks = TickPrice::fromYuan(yuan, security.pricePrecision);
    if (!ticks || *ticks < 1)
        return Error::PriceOutOfRange;
    if (!security.hasPriceLimit())
        return DayPrice{ *ticks, reference, false };
    const TickPrice::Limits limits = TickPrice::limits(reference, security.limitPerMille);
    const qint64 limit = qBound(limits.down, *ticks, limits.up);
    return DayPrice{ limit, reference, limit != *ticks };
}

Result<DayPrice> dayPrice(const PlanStore::Record& record, const Security& security, const QVector<qint64>& closes)
{
    if (closes.isEmpty())
        return { Error::NoCloses, { security.symbol } };
    if (record.value(AutoPlanField::BaseField::priceModel).toString() == PriceModel::NoLimit)
        return DayPrice{ std::nullopt, closes.constLast(), false };
    const Result<double> yuan = formulaResult(record, namedPrices(security, closes));
    if (!yuan)
        return yuan.status();
    return limitedPrice(*yuan, closes.constLast(), security);
}

Fill simulateFill(bool isBuy, const DayPrice& price, qint64 quantity, int lot)
{
    if (!price.limit)
        return { quantity, price.reference };
    const qint64 away = isBuy ? price.reference - *price.limit : *price.limit - price.reference;
    if (away <= 0)
        return { quantity, price.reference };
    if (away * Percent <= price.reference)
        return { lotsWithin(static_cast<double>(quantity) / 2, lot), *price.limit };
    return {};
}
