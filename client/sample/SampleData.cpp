#include "sample/SampleData.h"

#include "calendar/ClientClock.h"
#include "sample/SampleAccounts.h"
#include "sample/SampleStrategyLists.h"
#include "sample/SampleTexts.h"

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
        reason = SampleStrategyLists::write(database);
    return reason.isEmpty() ? SampleAccounts::write(database, QDateTime(options.lastDay, QTime(9, 0))) : reason;
}
