#include "Counters.h"

#include "AutoPlanLogic.h"

#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlDriver>

#include <dlfcn.h>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

// A page and its header in the log.
constexpr qint64 FrameSize = 4096 + 24;

Syncs::Counts syncs;
PlanReads::Counts planReads;

bool isLog(int file)
{
    char name[PATH_MAX];
    const auto length = readlink(qPrintable(QStringLiteral("/proc/self/fd/%1").arg(file)), name, sizeof name);
    return length > 0 && QByteArray(name, static_cast<int>(length)).endsWith("-wal");
}

int count(long systemCall, int file)
{
    ++(isLog(file) ? syncs.log : syncs.other);
    QElapsedTimer timer;
    timer.start();
    const auto result = static_cast<int>(syscall(systemCall, file));
    syncs.nanoseconds += timer.nsecsElapsed();
    return result;
}

/// Returns the session's connection, which is the first one opened.
sqlite3* connection()
{
    QStringList names = QSqlDatabase::connectionNames();
    if (names.isEmpty())
        qFatal("There is no connection");
    names.sort();
    return *static_cast<sqlite3* const*>(QSqlDatabase::database(names.first(), false).driver()->handle().constData());
}

/// Pages that the session's connection has written since the last call.
int writtenPages()
{
    int pages = 0;
    int highest = 0;
    sqlite3_db_status(connection(), SQLITE_DBSTATUS_CACHE_WRITE, &pages, &highest, 1);
    return pages;
}

int noteStatement(unsigned, void*, void*, void* text)
{
    const QByteArray statement(static_cast<const char*>(text));
    if (statement.startsWith("SELECT") && statement.contains("FROM plans"))
        ++planReads.reads;
    return 0;
}

} // namespace

extern "C" int fsync(int file)
{
    return count(SYS_fsync, file);
}

extern "C" int fdatasync(int file)
{
    return count(SYS_fdatasync, file);
}

QMap<QString, QVariant> AutoPlanLogic::GetPlanInfo(QString planId)
{
    using Function = QMap<QString, QVariant> (*)(AutoPlanLogic*, QString);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "_ZN13AutoPlanLogic11GetPlanInfoE7QString"));
    ++planReads.calls;
    return real(this, planId);
}

void Syncs::start()
{
    writtenPages();
    syncs = Counts();
}

Syncs::Counts Syncs::stop()
{
    syncs.logBytes = writtenPages() * FrameSize;
    return syncs;
}

void PlanReads::start()
{
    planReads = Counts();
    sqlite3_trace_v2(connection(), SQLITE_TRACE_STMT, noteStatement, nullptr);
}

PlanReads::Counts PlanReads::stop()
{
    sqlite3_trace_v2(connection(), 0, nullptr, nullptr);
    return planReads;
}
