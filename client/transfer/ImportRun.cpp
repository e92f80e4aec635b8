#include "ImportRun.h"

#include "Administration.h"
#include "CloseImporter.h"
#include "ClosureFiles.h"
#include "ClosureImporter.h"
#include "ErrorText.h"
#include "FileTrial.h"
#include "MasterImporters.h"
#include "PlanImporter.h"
#include "ServerLocation.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

bool isOf(const ImportTask& task, const TransferForm& form)
{
    return task.kind == form.id;
}

std::unique_ptr<Importer> importerOf(const ImportTask& task, Database& database, ImportReport& report)
{
    if (isOf(task, TransferForms::securities()))
        return std::make_unique<SecurityImporter>(database, report);
    if (isOf(task, TransferForms::closes()))
        return std::make_unique<CloseImporter>(database, ClosureFiles::calendar(), task.replaces, report);
    if (isOf(task, TransferForms::accounts()))
        return std::make_unique<AccountImporter>(database, report);
    if (isOf(task, TransferForms::users()))
        return std::make_unique<UserImporter>(database, report);
    if (isOf(task, TransferForms::chains()))
        return std::make_unique<ChainImporter>(database, report);
    if (isOf(task, TransferForms::positions()))
        return std::make_unique<PositionImporter>(database, report);
    if (isOf(task, TransferForms::closures()))
        return std::make_unique<ClosureImporter>(QFileInfo(task.file).completeBaseName(), report);
    return std::make_unique<PlanImporter>(database, *task.scene, task.templatePlan, task.isTrial, report);
}

/// The import of one file.
class FileImport {
public:
    FileImport(const ImportTask& task, Importer& importer, ImportReport& report)
        : m_task(task)
        , m_importer(importer)
        , m_report(report)
        , m_headings(importer.form())
    {
    }

    /// Within the transaction.
    Status run()
    {
        if (Status status = m_importer.begin(); !status)
            return status;
        if (Status status = readRows(); !status)
            return status;
        m_report.line = 0;
        if (Status status = m_importer.finish(); !status)
            return status;
        if (m_task.replaces && m_report.faultCount == 0) {
            if (Status status = m_importer.findRemovals(); !status)
                return status;
        }
        if (m_report.faultCount > 0 && !mayLeaveOut())
            return { Error::FileNotImported, { QString::number(m_report.faultCount) } };
        if (m_task.isTrial)
            return Error::NothingStored;
        if (!isConfirmed())
            return Error::ImportNotConfirmed;
        Status status = m_importer.remove();
        return status ? m_importer.commit() : status;
    }

private:
    Status readRows()
    {
        QFile file(m_task.file);
        QBuffer buffer;
        buffer.setData(m_task.contents.value_or(QByteArray()));
        if (!m_task.contents && !QFileInfo(m_task.file).isFile())
            return Error::NotAFile;
        m_device = m_task.contents ? static_cast<QIODevice*>(&buffer) : &file;
        if (!m_device->open(QIODevice::ReadOnly))
            return Error::FileNotOpened;
        qint64 line = 0;
        const Status read = TableReader::read(
            *m_device, line, [this](const TableRow& row) { return take(row); },
            [this](qint64 bytes) { return goesOn(bytes); });
        if (!m_failure || read.error() == Error::Cancelled)
            return m_failure ? read : m_failure;
        m_isRead = read && m_hasHeadings;
        if (!read && !m_hasBadHeadings)
            m_report.refuse({ line, 0, QString(), read });
        else if (!m_hasHeadings && line > 0)
            m_report.refuse({ 1, 0, QString(), Error::NoHeadings });
        return {};
    }

    Status take(const TableRow& cells)
    {
        if (!m_hasHeadings) {
            m_hasHeadings = true;
            m_headings.read(cells, m_report);
            m_hasBadHeadings = m_report.faultCount > 0;
            return m_hasBadHeadings ? Error::NoHeadings : Status();
        }
        // A part of a file may have thousands of rows.
        if (++m_report.rows % RowsBetweenCalls == 0 && !goesOn(m_bytes))
            return Error::Cancelled;
        m_report.line = cells.line;
        ImportRow row(m_headings, cells, m_report);
        m_failure = m_importer.take(row);
        return m_failure;
    }

    bool goesOn(qint64 bytes)
    {
        constexpr qint64 Whole = 1000;
        m_bytes = bytes;
        return !m_task.progress
            || m_task.progress(static_cast<int>(Whole * bytes / std::max<qint64>(1, m_device->size())));
    }

    bool mayLeaveOut() const { return m_isRead && m_task.leavesOut && !m_task.templatePlan.isEmpty(); }

    bool isConfirmed() const
    {
        return std::all_of(m_report.removals.cbegin(), m_report.removals.cend(),
            [this](const QString& removal) { return m_task.removals.contains(removal); });
    }

    static constexpr qint64 RowsBetweenCalls = 64;

    const ImportTask& m_task;
    QIODevice* m_device = nullptr; ///< while rows are read
    qint64 m_bytes = 0;            ///< that were read
    Importer& m_importer;
    ImportReport& m_report;
    ImportHeadings m_headings;
    bool m_hasHeadings = false;
    bool m_hasBadHeadings = false;
    bool m_isRead = false; ///< to the end
    Status m_failure;      ///< of the database
};

Status importInto(Database& database, const ImportTask& task, ImportReport& report)
{
    return database.outcome(database.transaction([&] {
        const std::unique_ptr<Importer> importer = importerOf(task, database, report);
        return FileImport(task, *importer, report).run();
    }));
}

// The file is locked only while changes are made that have been checked. Where others change it all the time, it is
// locked from the beginning.
Status importIntoFile(Database& database, const ImportTask& task, ImportReport& report)
{
    constexpr int Attempts = 3;
    const ImportReport before = report;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        report = before;
        FileTrial trial(database);
        if (Status status = trial.run([&](Database& copy) { return importInto(copy, task, report); }); !status)
            return status;
        if (const std::optional<Status> stored = trial.apply())
            return *stored;
    }
    report = before;
    return importInto(database, task, report);
}

Status importAsAdministrator(const ImportTask& task, ImportReport& report)
{
    Administration administration;
    if (Status status = administration.open(task.location); !status)
        return status;
    const auto imported =
        administration.run([&](Database& database, QStringList&) { return importInto(database, task, report); });
    return administration.database().outcome(imported.status());
}

// Closures are files of their own, which need no database.
Status importClosures(const ImportTask& task, ImportReport& report)
{
    Database none;
    const std::unique_ptr<Importer> importer = importerOf(task, none, report);
    return FileImport(task, *importer, report).run();
}

Status importFile(const ImportTask& task, ImportReport& report)
{
    if (isOf(task, TransferForms::closures()))
        return importClosures(task, report);
    if (ServerLocation::isServer(task.location) && !isOf(task, TransferForms::plans()))
        return importAsAdministrator(task, report);
    Database database;
    database.setPatient();
    if (Status status = database.open(task.location, task.databaseFile); !status)
        return status;
    return ServerLocation::isServer(task.location) ? importInto(database, task, report)
                                                   : importIntoFile(database, task, report);
}

} // namespace

Status ImportRun::check(const QString& kind, bool replaces)
{
    QStringList kinds;
    for (const TransferForm& form : TransferForms::importable())
        kinds << form.id;
    if (!kinds.contains(kind))
        return { Error::UnknownKind, { kind, listText(kinds) } };
    const bool mayReplace = kind != TransferForms::plans().id && kind != TransferForms::closures().id;
    return mayReplace || !replaces ? Status() : Status(Error::ReplaceNotPossible, { kind });
}

Status ImportRun::run(const ImportTask& task, ImportReport& report)
{
    ImportReport cleared;
    cleared.mostFaults = report.mostFaults;
    cleared.mostResults = report.mostResults;
    report = cleared;
    report.file = QFileInfo(task.file).fileName();
    const Status status = importFile(task, report);
    report.isStored = bool(status);
    return status.error() == Error::NothingStored ? Status() : status;
}
