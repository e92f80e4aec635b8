#include "SampleData.h"

#include "ClientClock.h"
#include "ConfigurationStore.h"
#include "InstructionTargetType.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SampleAccounts.h"
#include "SampleTexts.h"
#include "SecurityStore.h"

namespace {

using namespace PlanCodes;
using InstructionTargetType::AmountOrder;
using InstructionTargetType::QtyOrder;

// For which plans the built-in strategies are allowed. Types without a list allow every strategy.
QString writeStrategyLists(Database& database)
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

} // namespace

QString SampleData::write(Database& database, int marketSize, const SampleMarket::Progress& progress)
{
    SampleMarketOptions options;
    options.size = marketSize;
    options.lastDay = lastTradeDayBefore(clientToday());
    if (!options.lastDay.isValid())
        return QStringLiteral("交易日历不包含今天（%1），无法生成示例行情").arg(clientToday().toString(Qt::ISODate));
    QString reason = SampleMarket::write(database, options, progress);
    if (reason.isEmpty())
        reason = SampleTexts::write(database);
    if (reason.isEmpty())
        reason = writeStrategyLists(database);
    return reason.isEmpty() ? SampleAccounts::write(database, QDateTime(options.lastDay, QTime(9, 0))) : reason;
}
