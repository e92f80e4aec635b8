#include "PlanFacts.h"

#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "PositionStore.h"

using namespace PlanCodes;

QVector<qint64> PlanFacts::closesBefore(
    CloseHistory closes, const TradeCalendar& calendar, const Security& security, const QDate& day)
{
    QDate last = closes.lastDay;
    while (last.isValid() && last >= day && !closes.ticks.isEmpty()) {
        if (calendar.day(security.exchange, last) == TradeCalendar::Day::Trades)
            closes.ticks.removeLast();
        last = last.addDays(-1);
    }
    return closes.ticks;
}

Result<double> PlanFacts::sellable(
    Database& database, const PlanStore::Record& record, const Security& security, const QDate& day)
{
    qint64 quantity = 0;
    ValueReader reader(database);
    addTo(reader, record, security, day, quantity);
    const Status status = reader.read();
    return status ? Result<double>(security.displayed(quantity)) : status;
}

void PlanFacts::addTo(ValueReader& reader, const PlanStore::Record& record, const Security& security, const QDate& day,
    qint64& tradeableQuantity)
{
    PositionStore::addTo(reader, record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(),
        record.value(Kelvo_Fields::UserAccount::securityAccount).toString(), security.symbol, day, tradeableQuantity);
}

double PlanFacts::used(const StoredPlan& plan, const PlanUse& use)
{
    const auto other = PlanTexts::otherParam(plan.record.value(AutoPlanField::BaseField::planOtherParam).toString());
    const bool isAmount = other && other->value(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    return isAmount ? use.yuan : use.quantity;
}
