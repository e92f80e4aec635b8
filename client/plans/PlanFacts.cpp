#include "PlanFacts.h"

#include "AutoPlanField.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "PlanCodes.h"
#include "PlanTexts.h"
#include "PositionStore.h"
#include "SecurityStore.h"

using namespace PlanCodes;

Result<QVector<qint64>> PlanFacts::closesBefore(ClientSession& session, const Security& security, const QDate& day)
{
    Result<CloseHistory> history = SecurityStore(session.database()).closes(security.symbol);
    if (!history)
        return history.status();
    QDate last = history->lastDay;
    while (last.isValid() && last >= day && !history->ticks.isEmpty()) {
        if (session.calendar().day(security.exchange, last) == TradeCalendar::Day::Trades)
            history->ticks.removeLast();
        last = last.addDays(-1);
    }
    return history->ticks;
}

Result<double> PlanFacts::sellable(ClientSession& session, const PlanStore::Record& record, const Security& security)
{
    const auto positions =
        PositionStore(session.database())
            .positions(record.value(Kelvo_Fields::UserAccount::tradingAccount).toString(),
                record.value(Kelvo_Fields::UserAccount::securityAccount).toString(), security.symbol);
    if (!positions)
        return positions.status();
    qint64 sum = 0;
    for (const StoredPosition& position : *positions)
        sum += position.tradeableQuantity;
    return static_cast<double>(sum * security.displayFactor);
}

Result<double> PlanFacts::used(ClientSession& session, const StoredPlan& plan)
{
    const auto other = PlanTexts::otherParam(plan.record.value(AutoPlanField::BaseField::planOtherParam).toString());
    const bool isAmount = other && other->value(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    const auto uses = session.instructions().used({ plan.id });
    if (!uses)
        return uses.status();
    const PlanUse use = uses->value(plan.id);
    return isAmount ? use.yuan : use.quantity;
}
