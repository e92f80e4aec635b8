#include "DayOrder.h"

#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "PlanLimits.h"
#include "PlanTexts.h"
#include "TickPrice.h"
#include "VorMarginTradeType.h"

#include <algorithm>
#include <cmath>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

using Fields = QMap<QString, QVariant>;

Status readAmounts(const Fields& other, PlanShare& share)
{
    const QString text = other.value(BaseField::tradeAmount).toString();
    const auto total = PlanTexts::decimalNumber(text);
    if (!total)
        return { Error::NotNumber, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "目标金额")), text.left(32) } };
    share.total = *total;
    share.perDay = PlanTexts::decimalNumber(other.value(BaseField::dayMaxTradeAmount).toString()).value_or(0);
    return {};
}

Status readQuantities(const PlanStore::Record& record, const Fields& other, const Security& security, double used,
    const std::function<Result<double>()>& sellable, PlanShare& share)
{
    const QString text = record.value(BaseField::totalQty).toString();
    const auto total = PlanTexts::wholeNumber(text);
    if (!total)
        return { Error::NotWhole, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "目标总量")), text.left(32) } };
    const qint64 perDay =
        PlanTexts::wholeNumber(other.value(AutoPlanField::Progress::CurrentQty).toString()).value_or(0);
    share.total = security.displayed(*total);
    share.perDay = security.displayed(perDay);
    share.ratio = PlanTexts::decimalNumber(other.value(BaseField::JCRatio).toString()).value_or(0);
    // The target of a reduction without a total is the whole quantity that could be sold at first.
    if (share.planType != PlanType::ReduceHoldings || *total != 0)
        return {};
    const Result<double> held = sellable();
    share.total = held.valueOr(0) + used;
    return held.status();
}

bool isOfType(const OrderTerms& terms, const QVector<VorMarginTradeType>& types)
{
    return !terms.marginSide.isEmpty() && types.contains(static_cast<VorMarginTradeType>(terms.marginSide.toInt()));
}

double leftOf(const PlanShare& share)
{
    return std::max(0.0, share.total - share.used);
}

qint64 wantedQuantity(const OrderTerms& terms, double yuan, int lot)
{
    return terms.isAmount ? lotsWithin(dayShare(terms.share) / yuan, lot) : dayQuantity(terms.share, lot);
}

double yuanOf(const DayPrice& price, const Security& security)
{
    return TickPrice::toYuan(price.limit.value_or(price.reference), security.pricePrecision);
}

QString yuanText(double yuan)
{
    return QString::number(yuan, 'f', 2);
}

double amountOf(qint64 quantity, qint64 ticks, int precision)
{
    constexpr double FenPerYuan = 100;
    return std::round(static_cast<double>(quantity) * TickPrice::toYuan(ticks, precision) * FenPerYuan) / FenPerYuan;
}

} // namespace

// A margin sale sells what is borrowed.
bool OrderTerms::needsHoldings() const
{
    return !isBuy && !isOfType(*this, { VorMarginTradeType::MarginSell });
}

bool OrderTerms::needsCash() const
{
    return isBuy && !isOfType(*this, { VorMarginTradeType::FinancingBuy });
}

bool OrderTerms::earnsCash() const
{
    return needsHoldings()
        && !isOfType(*this, { VorMarginTradeType::FinancingSell, VorMarginTradeType::BondConversion });
}

Result<OrderTerms> orderTerms(const PlanStore::Record& record, const Security& security, const PlanUse& use,
    const std::function<Result<double>()>& sellable)
{
    const Fields other = PlanTexts::otherParam(record.value(BaseField::planOtherParam).toString()).value_or(Fields());
    OrderTerms terms;
    terms.isBuy = record.value(BaseField::orderSide).toString() == Kelvo_Values::OrderSide::buy;
    terms.isAmount = other.value(FieldId::TargetType).toString() == InstructionTargetType::AmountOrder;
    terms.share.planType = record.value(Orlo_Fields::AutoPlan::templateCode).toString();
    terms.share.used = terms.isAmount ? use.yuan : use.quantity;
    terms.marginSide = other.value(FieldId::MarginSide).toString();
    const Status status = terms.isAmount ? readAmounts(other, terms.share)
                                         : readQuantities(record, other, security, use.quantity, sellable, terms.share);
    if (!status || !terms.needsHoldings())
        return status ? Result<OrderTerms>(terms) : status;
    const Result<double> held = sellable();
    terms.sellable = held.valueOr(0);
    return held ? Result<OrderTerms>(terms) : held.status();
}

bool isUsedUp(const OrderTerms& terms, const DayPrice& price, const Security& security)
{
    const double left = leftOf(terms.share);
    const double quantity = terms.isAmount ? left / yuanOf(price, security) : left;
    return lotsWithin(quantity, security.quantityStep) == 0;
}

Result<DayOrder> dayOrder(
    const OrderTerms& terms, const DayPrice& price, const Security& security, const AccountLimits& limits)
{
    const int lot = security.quantityStep;
    const int precision = security.pricePrecision;
    const qint64 ticks = price.limit.value_or(price.reference);
    const double yuan = yuanOf(price, security);
    const qint64 wanted = wantedQuantity(terms, yuan, lot);
    if (wanted <= 0)
        return isUsedUp(terms, price, security) ? Error::NothingLeft : Error::LessThanOneLot;
    DayOrder order;
    order.price = price;
    order.quantity = std::isinf(terms.sellable) ? wanted : std::min(wanted, lotsWithin(terms.sellable, lot));
    if (order.quantity <= 0)
        return Error::NothingToSell;
    order.isCutToHoldings = order.quantity < wanted;
    const qint64 affordable = std::isinf(terms.cash) ? wanted : lotsWithin(terms.cash / yuan, lot);
    if (affordable <= 0)
        return { Error::NotEnoughCash, { yuanText(terms.cash), yuanText(lot * yuan) } };
    order.isCutToCash = affordable < order.quantity;
    order.quantity = std::min(order.quantity, affordable);
    if (Status refused = PlanLimits::priceError(limits, price, security); !refused)
        return refused;
    const auto quantity = static_cast<double>(order.quantity);
    if (Status refused = PlanLimits::sizeError(limits, quantity, quantity * yuan); !refused)
        return refused;
    order.fill = simulateFill(terms.isBuy, price, order.quantity, lot);
    order.issuedYuan = amountOf(order.quantity, ticks, precision);
    order.filledYuan = amountOf(order.fill.quantity, order.fill.price, precision);
    return order;
}
