#include "sample/SampleStrategyLists.h"

#include "InstructionTargetType.h"
#include "Orlo_Values.h"
#include "store/SecurityStore.h"
#include "store/StrategyStore.h"
#include "values/PlanCodes.h"

namespace {

using namespace PlanCodes;
using InstructionTargetType::AmountOrder;
using InstructionTargetType::QtyOrder;

} // namespace

// Types without a list allow every strategy.
QString SampleStrategyLists::write(Database& database)
{
    const QStringList schedules{ QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("POV") };
    const QStringList snipers{ QStringLiteral("SNIPER") };
    return database.transaction([&] {
        StrategyStore store(database);
        QString reason = store.setWhiteList(InstructionType::HkConnect, QtyOrder, QString(), schedules);
        const QStringList restricted =
            SecurityStore(database).firstSymbols(Orlo_Values::MdcSubSecurityType::ScienTechInnovateBoard, QString(), 1);
        for (const QString& symbol : restricted) {
            if (reason.isEmpty())
                reason = store.setWhiteList(InstructionType::Ordinary, QtyOrder, symbol, schedules.mid(0, 2));
        }
        return reason.isEmpty() ? store.setBlackList(AmountOrder, snipers) : reason;
    });
}
