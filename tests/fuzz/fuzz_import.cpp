#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "FuzzTarget.h"
#include "ImportRun.h"
#include "InstructionIssuer.h"
#include "TransferForm.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

constexpr size_t HeadSize = 2;

const QTemporaryDir& folder()
{
    static const QTemporaryDir created;
    return created;
}

ImportTask taskOf(const QString& kind)
{
    ImportTask task;
    task.kind = kind;
    task.location = folder().filePath(QStringLiteral("fuzz.sqlite"));
    if (kind == TransferForms::plans().id)
        task.scene.emplace(InstructionIssuer::scene(clientToday()));
    return task;
}

void importSample(const QString& kind)
{
    ImportTask task = taskOf(kind);
    task.file = QStringLiteral(PROJECT_FOLDER "/docs/import/%1.csv").arg(kind);
    ImportReport report;
    const Status status = ImportRun::run(task, report);
    if (!status)
        qFatal("%s", qPrintable(errorText(status)));
}

} // namespace

/// A database with the documented samples.
int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    QStandardPaths::setTestModeEnabled(true);
    setClientToday(QDate(2026, 12, 1));
    ClientSession& session = ClientSession::instance();
    ClientSession::Options options;
    options.isEmpty = true;
    const QString location = folder().filePath(QStringLiteral("fuzz.sqlite"));
    FUZZ_REQUIRE(session.open(location, QStringLiteral("wang"), {}, options));
    for (const char* const kind : { "securities", "closes", "accounts", "users", "positions" })
        importSample(QLatin1String(kind));
    FUZZ_REQUIRE(session.open(location, QStringLiteral("wang")));
    importSample(QStringLiteral("plans"));
    // Before Qt forgets its databases, which the session's threads use.
    std::atexit([] { ClientSession::instance().close(); });
    return 0;
}

/// The input is a file with two bytes before it: its kind, and how it is imported.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzSecond limit;
    if (size < HeadSize)
        return 0;
    const QVector<TransferForm> forms = TransferForms::importable();
    ImportTask task = taskOf(forms.at(data[0] % forms.size()).id);
    task.file = QStringLiteral("input");
    task.contents = QByteArray(reinterpret_cast<const char*>(data + HeadSize), static_cast<int>(size - HeadSize));
    task.replaces = (data[1] & 1) != 0 && ImportRun::check(task.kind, true);
    if ((data[1] & 2) != 0)
        task.templatePlan = QStringLiteral("AP00000001");
    task.leavesOut = (data[1] & 4) != 0;
    task.isTrial = true;
    ImportReport report;
    const Status status = ImportRun::run(task, report);
    FUZZ_REQUIRE(status || status.error() == Error::FileNotImported);
    FUZZ_REQUIRE(status || report.faultCount > 0);
    FUZZ_REQUIRE(report.faults.size() <= report.mostFaults && report.results.size() <= report.mostResults);
    FUZZ_REQUIRE(!ImportTexts::report(report, true).isEmpty());
    return 0;
}
