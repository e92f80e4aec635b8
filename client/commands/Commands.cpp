#include "Commands.h"

#include "AdminCommands.h"
#include "Backup.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ClosureFiles.h"
#include "CommandForms.h"
#include "Console.h"
#include "ErrorText.h"
#include "HistoryTexts.h"
#include "JournalTexts.h"
#include "Options.h"
#include "ServerLocation.h"
#include "SessionStart.h"
#include "StrategyCommand.h"
#include "TransferCommands.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

Result<QString> importClosures(const Options& options)
{
    const Result<QDate> last = ClosureFiles::install(options.arguments.at(0));
    if (!last)
        return last.status();
    return CommandTexts::tr("交易日历到%1").arg(last->toString(Qt::ISODate));
}

Result<QString> backUp(const Options& options)
{
    if (ServerLocation::isServer(options.database))
        return Error::BackupOfServer;
    const QString file = QFileInfo(options.arguments.at(0)).absoluteFilePath();
    if (Status status = backUpDatabase(databaseOf(options), file); !status)
        return status;
    return CommandTexts::tr("数据库已备份到%1").arg(file);
}

QString inLines(const QVector<HistoryEntry>& entries)
{
    QStringList lines;
    for (const HistoryEntry& entry : entries)
        lines << HistoryTexts::line(entry);
    return lines.join(QLatin1Char('\n'));
}

QString asJson(const QVector<HistoryEntry>& entries)
{
    QJsonArray array;
    for (const HistoryEntry& entry : entries)
        array << HistoryTexts::json(entry);
    return QString::fromUtf8(QJsonDocument(array).toJson());
}

// Only of a plan that the user may see.
Result<QString> planHistory(const Options& options)
{
    if (Status status = startSession(options); !status)
        return status;
    ClientSession& session = ClientSession::instance();
    const Result<StoredPlan> plan = session.plans().plan(options.arguments.at(0));
    if (!plan)
        return plan.status();
    if (plan->id.isEmpty())
        return { Error::UnknownPlan, { options.arguments.at(0) } };
    const auto entries = HistoryStore(session.database()).ofPlan(PlanId::toNumber(plan->id).value_or(0));
    if (!entries)
        return entries.status();
    return options.flags.contains(Flag::Json) ? asJson(*entries) : inLines(*entries);
}

Result<QVector<JournalEntry>> journalOf(const Options& options)
{
    constexpr int RowsOfPage = 1000;
    ClientSession& session = ClientSession::instance();
    JournalStore store(session.database(), session.user());
    JournalPage page{ options.day.isValid() ? options.day : clientToday(), QString(), 0, RowsOfPage };
    QVector<JournalEntry> all;
    int read = RowsOfPage;
    while (read == RowsOfPage) {
        const auto entries = store.page(page);
        if (!entries)
            return entries.status();
        all += *entries;
        read = entries->size();
        page.offset += RowsOfPage;
    }
    return all;
}

Result<QString> journal(const Options& options)
{
    if (Status status = startSession(options); !status)
        return status;
    const auto entries = journalOf(options);
    if (!entries)
        return entries.status();
    QStringList lines;
    QJsonArray array;
    for (const JournalEntry& entry : *entries) {
        lines << JournalTexts::line(entry);
        array << JournalTexts::json(entry);
    }
    return options.flags.contains(Flag::Json) ? QString::fromUtf8(QJsonDocument(array).toJson())
                                              : lines.join(QLatin1Char('\n'));
}

CommandFunction commandNamed(const QString& name)
{
    QMap<QString, CommandFunction> all = adminCommands();
    all.insert(QStringLiteral("backup"), backUp);
    all.insert(QStringLiteral("history"), planHistory);
    all.insert(QStringLiteral("import-closures"), importClosures);
    all.insert(QStringLiteral("import"), importFiles);
    all.insert(QStringLiteral("export"), exportKind);
    all.insert(QStringLiteral("journal"), journal);
    return all.value(name);
}

} // namespace

int runCommand(const Options& options)
{
    // Its report is the result, also of files that are refused.
    if (options.command == checkStrategiesCommand())
        return checkStrategies(options);
    const Result<QString> report = commandNamed(options.command)(options);
    if (!report) {
        printLine(stderr, QStringLiteral("plandesk: ") + oneLine(errorText(report.status())));
        return Failure;
    }
    if (!report->isEmpty())
        printLine(stdout, *report);
    return Success;
}
