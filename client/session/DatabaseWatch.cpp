#include "DatabaseWatch.h"

#include "ReadReport.h"

#include <chrono>

namespace {

constexpr std::chrono::seconds BetweenPolls(1);

} // namespace

DatabaseWatch::DatabaseWatch(Database& database)
    : m_database(database)
{
    reportFailure(m_database.watch([this] { Q_EMIT changed(); }));
    // A failure is reported by the next read that has a result.
    connect(&m_polling, &QTimer::timeout, this, [this] { const Status ignored = m_database.poll(); });
    m_polling.start(BetweenPolls);
}
