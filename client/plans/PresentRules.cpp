// The rules of plans that depend on who sends them and when: rights, names, prices and limits.
#include "CheckedPlan.h"
#include "DayPrice.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanLimits.h"
#include "PlanTexts.h"
#include "Rulebook.h"
#include "TickPrice.h"

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

Status creatorIsTheUser(const CheckedPlan& plan)
{
    const QString creator = plan.text(Kelvo_Fields::UserAccount::userID);
    return creator == plan.known.user ? Status() : Status(Error::ForeignCreator, { creator });
}

Status modeFollowsReview(const CheckedPlan& plan)
{
    return plan.known.rights.reviewError(plan.record);
}

Status reductionSells(const CheckedPlan& plan)
{
    const bool sells = plan.text(BaseField::orderSide) == Kelvo_Values::OrderSide::sell;
    return plan.isReduction() && !sells ? Error::ReductionBuys : Status();
}

Status reductionHasExecutor(const CheckedPlan& plan)
{
    return plan.isReduction() && plan.text(BaseField::executeUser).isEmpty() ? Error::NoExecutor : Status();
}

Status handlerIsKnown(const CheckedPlan& plan)
{
    return plan.known.rights.handlerError(plan.record);
}

double plannedQuantity(const CheckedPlan& plan, const Security& security)
{
    const qint64 total = PlanTexts::wholeNumber(plan.text(BaseField::totalQty)).value_or(0);
    // The target of a reduction without a total is the whole quantity that may be sold.
    if (plan.isReduction() && total == 0)
        return plan.known.sellable;
    return security.displayed(total);
}

/// The security by the rules of the plan's first day.
Security securityOf(const CheckedPlan& plan)
{
    const QDate first = qMax(plan.known.today, PlanTexts::date(plan.text(BaseField::beginDate)));
    return Rulebook::present().onDay(*plan.known.market.find(plan.text(Kelvo_Fields::Security::symbol)), first);
}

Status priceAndSizeAreAllowed(const CheckedPlan& plan)
{
    const Security security = securityOf(plan);
    const Result<DayPrice> price = dayPrice(plan.record, security, plan.known.closes);
    if (!price)
        return { Error::NoUsablePrice, {}, price.status() };
    const AccountLimits& limits = plan.known.rights.limits;
    if (Status refused = PlanLimits::priceError(limits, *price, security); !refused)
        return refused;
    const double yuan = TickPrice::toYuan(price->limit.value_or(price->reference), security.pricePrecision);
    if (plan.isAmount()) {
        const double amount = PlanTexts::decimalNumber(plan.other(BaseField::tradeAmount)).value_or(0);
        return PlanLimits::sizeError(limits, amount / yuan, amount);
    }
    const double quantity = plannedQuantity(plan, security);
    return PlanLimits::sizeError(limits, quantity, quantity * yuan);
}

} // namespace

const QVector<PlanCheck::Rule>& PlanCheck::presentRules()
{
    static const QVector<Rule> rules{
        creatorIsTheUser,
        modeFollowsReview,
        reductionSells,
        reductionHasExecutor,
        handlerIsKnown,
        priceAndSizeAreAllowed,
    };
    return rules;
}
