#include "AdvisedPlan.h"

#include "AdvisorRow.h"
#include "Kelvo_Values.h"
#include "PlanCodes.h"
#include "PlanFacts.h"

namespace {

constexpr double FenPerYuan = 100;

} // namespace

AdvisedPlan::AdvisedPlan(const World& ofWorld, const FormReading& ofForm, const StoredAccount* ofAccount,
    const std::optional<Result<AdvisorFacts>>& ofRead)
    : world(ofWorld)
    , form(ofForm)
    , account(ofAccount)
    , security(securityOf())
    , read(security && account ? ofRead : std::nullopt)
    , record(recordOf())
    , closes(closesOf())
    , names(namesOf())
    , formula(formulaOf())
    , price(priceOf())
    , terms(termsOf())
    , forecast(forecastOf())
{
}

std::optional<Security> AdvisedPlan::securityOf() const
{
    const Security* const known = world.market.find(form.symbol);
    return known ? std::optional<Security>(Rulebook::present().onDay(*known, firstDay())) : std::nullopt;
}

double AdvisedPlan::sellable() const
{
    return hasFacts() ? security->displayed(facts().tradeableQuantity) : 0;
}

double AdvisedPlan::sellableNext() const
{
    return hasFacts() ? security->displayed(facts().tradeableNext) : 0;
}

QString AdvisedPlan::withUnit(double value, bool isAmount) const
{
    constexpr int YuanDecimals = 2;
    if (isAmount)
        return Advisor::tr("%1元").arg(Advisor::number(value, YuanDecimals));
    const bool isBond = security && security->type == Kelvo_Values::MdcSecurityType::BondType;
    return (isBond ? Advisor::tr("%1张") : Advisor::tr("%1股")).arg(Advisor::number(value));
}

QDate AdvisedPlan::lastClose() const
{
    QDate day = closes.isEmpty() ? QDate() : facts().closes.lastDay;
    while (day.isValid()
        && (day >= world.today || world.calendar.day(security->exchange, day) == TradeCalendar::Day::Closed))
        day = day.addDays(-1);
    return day;
}

PlanStore::Record AdvisedPlan::recordOf() const
{
    return security && account ? form.record(world.user.id, *security, *account) : PlanStore::Record();
}

QVector<qint64> AdvisedPlan::closesOf() const
{
    if (!hasFacts())
        return {};
    return PlanFacts::closesBefore(facts().closes, world.calendar, *security, world.today);
}

QHash<QString, double> AdvisedPlan::namesOf() const
{
    return closes.isEmpty() ? QHash<QString, double>() : namedPrices(*security, closes);
}

Result<double> AdvisedPlan::formulaOf() const
{
    if (closes.isEmpty())
        return { Error::NoCloses, { form.symbol } };
    return formulaResult(record, names);
}

Result<DayPrice> AdvisedPlan::priceOf() const
{
    if (!hasFacts())
        return { Error::NoCloses, { form.symbol } };
    // Not evaluated once more.
    if (formula && form.priceMode != PlanCodes::PriceModel::NoLimit)
        return limitedPrice(*formula, closes.constLast(), *security);
    return dayPrice(record, *security, closes);
}

Result<OrderTerms> AdvisedPlan::termsOf() const
{
    if (!hasFacts())
        return Error::NoSecurity;
    Result<OrderTerms> found =
        orderTerms(record, *security, facts().filled, [this] { return Result<double>(sellableNext()); });
    if (found && facts().cash && found->needsCash())
        found->cash = static_cast<double>(*facts().cash) / FenPerYuan;
    return found;
}

Result<PlanForecast> AdvisedPlan::forecastOf() const
{
    if (!terms)
        return terms.status();
    if (!price)
        return price.status();
    if (!form.refused.isEmpty())
        return { Error::InputRefused, { form.refused.constFirst().caption, form.refused.constFirst().reason } };
    if (!form.begin.isValid() || !form.lastDay().isValid())
        return { Error::InvalidDate, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "日期")) } };
    const QDate next = facts().isIssuedToday ? world.today.addDays(1) : world.today;
    return Forecast::of(
        { *terms, *price, *security, facts().rights.limits, world.calendar, qMax(next, form.begin), form.lastDay() });
}
