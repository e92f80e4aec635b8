#include "BenchmarkClient.h"

#include "Appearance.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "SampleSession.h"
#include "SymbolIndexes.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLoggingCategory>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>

namespace {

/// Removes an option from the command line and returns its value; empty if there is none.
QString takeOption(int& argc, char** argv, const char* name)
{
    const QByteArray start = QByteArray(name) + '=';
    QString value;
    int kept = 0;
    for (int i = 0; i < argc; ++i) {
        if (QByteArray(argv[i]).startsWith(start))
            value = QString::fromLocal8Bit(argv[i] + start.size());
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    return value;
}

/// Records that a widget was painted.
class PaintWatch : public QObject {
public:
    bool painted = false;

    bool eventFilter(QObject*, QEvent* event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
};

QtMessageHandler usualHandler = nullptr;

// The offscreen platform plug-in logs what it does not support for each window.
void leaveOutWindowSystem(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        usualHandler(type, context, text);
}

} // namespace

BenchmarkClient::BenchmarkClient(int& argc, char** argv)
    : m_argc(argc)
    , m_argv(argv)
{
    const QString database = takeOption(argc, argv, "--database");
    const QString user = takeOption(argc, argv, "--user");
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false\ndefault.info=false"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    usualHandler = qInstallMessageHandler(leaveOutWindowSystem);
    m_application = std::make_unique<QApplication>(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9));
    m_application->setStyleSheet(skinSheet(skinNames().constFirst()));
    if (!database.isEmpty())
        open(database, user);
}

BenchmarkClient::~BenchmarkClient()
{
    ClientSession::instance().close();
}

int BenchmarkClient::run()
{
    benchmark::Initialize(&m_argc, m_argv);
    if (benchmark::ReportUnrecognizedArguments(m_argc, m_argv))
        return EXIT_FAILURE;
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}

void BenchmarkClient::open(const QString& database, const QString& user)
{
    setClientToday(SampleSession::today());
    if (!QFile::exists(database))
        qFatal("%s: the file does not exist", qPrintable(database));
    if (const Status status = ClientSession::instance().open(database, user); !status)
        qFatal("%s: %s", qPrintable(database), qPrintable(errorText(status)));
    SymbolIndexes::instance().waitForFinished();
}

void showPainted(QWidget& window)
{
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    while (!watch.painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

Timing::Timing(benchmark::State& state)
    : m_state(state)
{
}

Timing::~Timing()
{
    if (m_seconds.isEmpty())
        return;
    m_state.counters["least_ms"] = *std::min_element(m_seconds.cbegin(), m_seconds.cend()) * 1000;
    m_state.counters["median_ms"] = median(m_seconds) * 1000;
}

double Timing::run(const std::function<void()>& work)
{
    const double seconds = secondsOf(work);
    note(seconds);
    return seconds;
}

void Timing::note(double seconds)
{
    m_seconds << seconds;
    m_state.SetIterationTime(seconds);
}

void measureOpening(benchmark::State& state, const std::function<std::unique_ptr<QWidget>()>& open)
{
    Timing timing(state);
    for (auto _ : state) {
        std::unique_ptr<QWidget> window;
        timing.run([&] {
            window = open();
            showPainted(*window);
        });
    }
}

double secondsOf(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

double median(QVector<double> values)
{
    const auto middle = values.begin() + values.size() / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double residentMebibytes()
{
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("/proc/self/statm cannot be read");
    const double pages = file.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}
