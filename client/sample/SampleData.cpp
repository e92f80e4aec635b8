#include "SampleData.h"

#include "ClientClock.h"
#include "ConfigurationStore.h"
#include "InstructionTargetType.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SampleAccounts.h"
#include "SampleTexts.h"
#include "SecurityStore.h"
#include "UserStore.h"

namespace {

using namespace PlanCodes;
using InstructionTargetType::AmountOrder;
using InstructionTargetType::QtyOrder;

// The built-in strategies allowed for kinds of plans. Types without a list allow every strategy.
Status writeStrategyLists(Database& database)
{
    const QStringList schedules{ QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("POV") };
    const QStringList snipers{ QStringLiteral("SNIPER") };
    return database.transaction([&]() -> Status {
        StrategyStore store(database);
        const Result<QStringList> restricted =
            SecurityStore(database).firstSymbols(Orlo_Values::MdcSubSecurityType::ScienTechInnovateBoard, QString(), 1);
        if (!restricted)
            return restricted.status();
        Status status = store.setWhiteList(InstructionType::HkConnect, QtyOrder, QString(), schedules);
        for (const QString& symbol : *restricted) {
            if (status)
                status = store.setWhiteList(InstructionType::Ordinary, QtyOrder, symbol, schedules.mid(0, 2));
        }
        return status ? store.setBlackList(AmountOrder, snipers) : status;
    });
}

} // namespace

Status SampleData::write(Database& database, int marketSize, const SampleMarket::Progress& progress)
{
    SampleMarketOptions options;
    options.size = marketSize;
    options.lastDay = lastTradeDayBefore(clientToday());
    if (!options.lastDay.isValid())
        return { Error::TodayNotInCalendar, { clientToday().toString(Qt::ISODate) } };
    if (Status status = SampleMarket::write(database, options, progress); !status)
        return status;
    if (Status status = SampleTexts::write(database); !status)
        return status;
    if (Status status = writeStrategyLists(database); !status)
        return status;
    return SampleAccounts::write(database, QDateTime(options.lastDay, QTime(9, 0)));
}

Status SampleData::writeTexts(Database& database)
{
    return SampleTexts::write(database);
}

Result<int> SampleData::isUnwritten(Database& database)
{
    const auto users = UserStore(database).users();
    const auto texts = StaticTextStore(database).texts();
    if (!users || !texts)
        return users ? texts.status() : users.status();
    return users->isEmpty() && texts->isEmpty() ? 1 : 0;
}
