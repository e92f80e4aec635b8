// Measures the time from the press of OK until the plan is stored durably, compared with one bare flush of the same
// amount of data to a file in the same folder, and counts the flushes of the log. Both are measured alternately.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "Counters.h"
#include "SubmittedForm.h"

#include <QFile>

#include <unistd.h>

namespace {

constexpr int PlansPerRun = 55;

/// A file in the folder of the database that grows like its log.
class BareFile {
public:
    BareFile()
        : m_file(ClientSession::instance().database().location() + QStringLiteral("-bare"))
    {
        m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
    }

    ~BareFile() { m_file.remove(); }

    double secondsToFlush(qint64 size)
    {
        SubmittedForm::rest();
        m_file.write(QByteArray(static_cast<int>(size), 'x'));
        return secondsOf([this] { fdatasync(m_file.handle()); });
    }

private:
    QFile m_file;
};

void confirm(benchmark::State& state)
{
    SubmittedForm form;
    BareFile bare;
    Timing timing(state);
    QVector<double> bareSeconds;
    QVector<double> ownSeconds;
    int mostLogSyncs = 0;
    int logSyncs = 0;
    qint64 logBytes = 0;
    for (auto _ : state) {
        form.fill();
        Syncs::start();
        const double seconds = form.submit();
        const Syncs::Counts counts = Syncs::stop();
        if (seconds == 0)
            state.SkipWithError("the plan was not stored");
        timing.note(seconds);
        ownSeconds << seconds - static_cast<double>(counts.nanoseconds) * 1e-9;
        mostLogSyncs = qMax(mostLogSyncs, counts.log);
        logSyncs += counts.log;
        bareSeconds << bare.secondsToFlush(counts.logBytes);
        logBytes += counts.logBytes;
    }
    state.counters["bare_median_ms"] = median(bareSeconds) * 1000;
    state.counters["own_median_ms"] = median(ownSeconds) * 1000; // without the flush
    state.counters["log_bytes"] = static_cast<double>(logBytes) / PlansPerRun;
    state.counters["log_syncs"] = static_cast<double>(logSyncs) / PlansPerRun;
    state.counters["most_log_syncs"] = mostLogSyncs;
}

BENCHMARK(confirm)->Iterations(PlansPerRun)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
