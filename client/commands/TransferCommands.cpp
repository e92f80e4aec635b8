#include "TransferCommands.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "CommandForms.h"
#include "Console.h"
#include "ExportRun.h"
#include "ImportRun.h"
#include "InstructionIssuer.h"
#include "SampleData.h"
#include "ServerLocation.h"
#include "SessionStart.h"
#include "StrategyLibrary.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

/// Creates the database of the options if it may be missing.
Status prepareDatabase(const Options& options)
{
    const QString location = databaseOf(options);
    if (ServerLocation::isServer(location) || QFileInfo::exists(location))
        return {};
    if (!options.flags.contains(Flag::Empty))
        return Status(Error::CannotOpenDatabase, { location }, Error::NotAFile);
    Database database;
    if (Status status = database.open(location); !status)
        return status;
    return SampleData::writeTexts(database);
}

Status prepare(const Options& options, const QString& kind)
{
    if (kind == TransferForms::closures().id)
        return {};
    if (Status status = prepareDatabase(options); !status)
        return status;
    return kind == TransferForms::plans().id ? startSession(options) : Status();
}

/// Reads the strategies that plans may have besides the built-in ones.
void readStrategies(const QString& folder)
{
    QVector<StrategyFile> files;
    const QFileInfoList paths = QDir(folder).entryInfoList({ QStringLiteral("*.xml") }, QDir::Files, QDir::Name);
    for (const QFileInfo& path : paths)
        files << StrategyFile::read(path.absoluteFilePath());
    StrategyLibrary::instance().setFiles(files);
}

/// Whether the user confirms on the console that something is removed.
bool isConfirmed(const ImportReport& report)
{
    for (const QString& removal : report.removals)
        printLine(stderr, CommandTexts::tr("删除：%1").arg(oneLine(removal)));
    printLine(stderr, CommandTexts::tr("%1：将删除%2项，输入yes继续").arg(report.file).arg(report.removals.size()));
    char answer[16] = {};
    return fgets(answer, sizeof answer, stdin) && QByteArray(answer).trimmed() == "yes";
}

// What would be removed is found in a trial, which holds no lock while the user thinks.
Status importFile(ImportTask& task, const Options& options, ImportReport& report)
{
    if (task.replaces && !task.isTrial) {
        ImportTask trial = task;
        trial.isTrial = true;
        if (Status status = ImportRun::run(trial, report); !status)
            return status;
        if (!report.removals.isEmpty() && !options.flags.contains(Flag::Yes) && !isConfirmed(report))
            return Error::ImportNotConfirmed;
        task.removals = report.removals;
    }
    return ImportRun::run(task, report);
}

ImportTask taskOf(const Options& options, const QString& kind)
{
    ImportTask task;
    task.kind = kind;
    task.location = databaseOf(options);
    task.replaces = options.flags.contains(Flag::Replace);
    task.isTrial = options.flags.contains(Flag::DryRun);
    task.templatePlan = options.templatePlan;
    task.leavesOut = options.flags.contains(Flag::LeaveOut);
    if (kind == TransferForms::plans().id)
        task.scene.emplace(InstructionIssuer::scene(clientToday()));
    return task;
}

} // namespace

// A file that is refused does not keep the others from being imported.
Result<QString> importFiles(const Options& options)
{
    const QString kind = options.arguments.at(0);
    if (Status status = ImportRun::check(kind, options.flags.contains(Flag::Replace)); !status)
        return status;
    if (options.flags.contains(Flag::Replace) && options.arguments.size() > 2)
        return Error::ReplaceOneFile;
    if (!options.templatePlan.isEmpty() && kind != TransferForms::plans().id)
        return Status(Error::OptionOfCommand, { QStringLiteral("template"), QStringLiteral("import plans") });
    if (options.flags.contains(Flag::LeaveOut) && options.templatePlan.isEmpty())
        return Status(Error::OptionOfCommand, { Flag::LeaveOut, QStringLiteral("import plans --template") });
    if (Status status = prepare(options, kind); !status)
        return status;
    if (!options.strategies.isEmpty())
        readStrategies(options.strategies);
    ImportTask task = taskOf(options, kind);
    Status failure;
    QStringList texts;
    QJsonArray reports;
    for (const QString& file : options.arguments.mid(1)) {
        task.file = file;
        ImportReport report;
        const Status status = importFile(task, options, report);
        if (!status)
            failure = Status(Error::FileRefused, { file }, status);
        texts << ImportTexts::report(report, task.isTrial);
        reports << ImportTexts::json(report);
    }
    const bool isJson = options.flags.contains(Flag::Json);
    const QString text = isJson ? QString::fromUtf8(QJsonDocument(reports).toJson()) : texts.join(QLatin1Char('\n'));
    if (failure)
        return text;
    printLine(stdout, text);
    return failure;
}

/// That of the file's name, JSON as an option, or CSV.
Result<TableFormat> formatOf(const Options& options)
{
    const QString kind = options.arguments.at(0);
    if (Status status = ExportRun::check(kind); !status)
        return status;
    if (options.day.isValid() && kind != TransferForms::journal().id)
        return Status(Error::OptionOfCommand, { QStringLiteral("day"), QStringLiteral("export journal") });
    if (options.flags.contains(Flag::Json))
        return TableFormat::Json;
    const QString file = options.arguments.value(1);
    return file.isEmpty() ? TableFormat::Csv : ExportRun::formatOf(file);
}

Status exportToStdout(const ExportRun::Task& task)
{
    QFile output;
    if (!output.open(stdout, QIODevice::WriteOnly))
        return Status(Error::FileNotWritten, { QStringLiteral("stdout") });
    return ExportRun::run(task, output);
}

Result<QString> exportKind(const Options& options)
{
    const Result<TableFormat> format = formatOf(options);
    if (!format)
        return format.status();
    if (Status status = startSession(options); !status)
        return status;
    ClientSession& session = ClientSession::instance();
    const ExportRun::Task task{ session.database(), session.market(), session.user(), options.arguments.at(0), *format,
        options.day.isValid() ? options.day : clientToday() };
    const QString file = options.arguments.value(1);
    const Status status = file.isEmpty() ? exportToStdout(task) : ExportRun::toFile(task, file);
    if (!status)
        return status;
    return file.isEmpty() ? QString() : CommandTexts::tr("已导出到%1").arg(file);
}
