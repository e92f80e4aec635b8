#include "sample/SampleStrategyLists.h"

#include "InstructionTargetType.h"
#include "Orlo_Values.h"
#include "store/SecurityStore.h"
#include "store/StrategyStore.h"
#include "strategies/StrategyLibrary.h"
#include "values/PlanCodes.h"

namespace {

using namespace PlanCodes;
using InstructionTargetType::AmountOrder;
using InstructionTargetType::QtyOrder;

/// Those of the names that the client knows.
QStringList known(const QStringList& names)
{
    const QStringList all = StrategyLibrary::instance().names();
    QStringList kept;
    for (const QString& name : names) {
        if (all.contains(name))
            kept << name;
    }
    return kept;
}

QVector<StoredStrategy> ownStrategies()
{
    QVector<StoredStrategy> stored;
    const QList<AesStrategy> strategies = StrategyLibrary::instance().strategies();
    for (const AesStrategy& strategy : strategies)
        stored << StoredStrategy{ strategy.name, strategy.alias, strategy.name + QStringLiteral(".xml") };
    return stored;
}

} // namespace

// Types without a list allow every strategy.
QString SampleStrategyLists::write(Database& database)
{
    const QStringList schedules = known({ QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("POV") });
    const QStringList snipers = known({ QStringLiteral("SNIPER") });
    return database.transaction([&] {
        StrategyStore store(database);
        QString reason = store.setStrategies(ownStrategies());
        if (reason.isEmpty())
            reason = store.setWhiteList(InstructionType::HkConnect, QtyOrder, QString(), schedules);
        const QStringList restricted =
            SecurityStore(database).firstSymbols(Orlo_Values::MdcSubSecurityType::ScienTechInnovateBoard, QString(), 1);
        for (const QString& symbol : restricted) {
            if (reason.isEmpty())
                reason = store.setWhiteList(InstructionType::Ordinary, QtyOrder, symbol, schedules.mid(0, 2));
        }
        return reason.isEmpty() ? store.setBlackList(AmountOrder, snipers) : reason;
    });
}
