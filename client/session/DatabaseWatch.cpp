#include "DatabaseWatch.h"

#include "ReadReport.h"

#include <chrono>
#include <utility>

namespace {

constexpr std::chrono::seconds BetweenLooksAtFile(1);
constexpr std::chrono::milliseconds BetweenPings(450);
constexpr std::chrono::seconds BetweenAttempts(1);

} // namespace

DatabaseWatch::DatabaseWatch(Database& database, const std::function<Status()>& reopen)
    : m_database(database)
    , m_reopen(reopen)
{
    connect(&m_polling, &QTimer::timeout, this, &DatabaseWatch::poll);
    connect(&m_retrying, &QTimer::timeout, this, &DatabaseWatch::tryAgain);
    m_polling.setInterval(database.role().isEmpty() ? BetweenLooksAtFile : BetweenPings);
    m_polling.setTimerType(Qt::PreciseTimer);
    m_retrying.setInterval(BetweenAttempts);
    start();
}

DatabaseWatch::~DatabaseWatch()
{
    m_database.endWatch();
}

void DatabaseWatch::start()
{
    reportFailure(m_database.watch([this] { look(); }));
    m_polling.start();
}

void DatabaseWatch::look()
{
    if (m_database.isOpen())
        Q_EMIT changed();
    else
        poll();
}

// Any other failure is reported by the next read that has a result.
void DatabaseWatch::poll()
{
    if (m_isLost)
        return;
    const Status status = m_database.poll();
    const bool wasFileChanged = std::exchange(m_isFileChanged, status.error() == Error::DatabaseFileChanged);
    if (m_isFileChanged && !wasFileChanged)
        Q_EMIT changed();
    if (status.error() != Error::ConnectionLost)
        return;
    m_isLost = true;
    m_polling.stop();
    m_attempts = std::make_unique<DatabaseThread>(QStringLiteral("reconnection"), m_database);
    Q_EMIT lost();
    m_retrying.start();
    tryAgain();
}

// A server that cannot be reached lets its clients wait, so another thread tries first.
void DatabaseWatch::tryAgain()
{
    if (m_isTrying)
        return;
    m_isTrying = true;
    m_attempts->run([this](Database& database, const Status& opened) {
        database.close();
        QMetaObject::invokeMethod(
            this, [this, opened] { finish(opened); }, Qt::QueuedConnection);
    });
}

void DatabaseWatch::finish(const Status& attempt)
{
    m_isTrying = false;
    const Status status = attempt ? m_reopen() : attempt;
    if (!status) {
        Q_EMIT stillLost(status);
        return;
    }
    m_isLost = false;
    m_retrying.stop();
    m_attempts.reset();
    start();
    Q_EMIT restored();
}
