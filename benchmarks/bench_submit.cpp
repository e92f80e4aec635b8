// Measures the time from the press of OK until the plan is stored durably, compared with one bare flush of the same
// amount of data to a file in the same folder, and counts the flushes of the log. Both are measured alternately.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "Counters.h"
#include "Kelvo_Values.h"
#include "OrloDecimalLineEdit.h"
#include "PlanEvents.h"
#include "SampleSession.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QTimer>

#include <unistd.h>

namespace {

constexpr int PlansPerRun = 55;

/// Records when the plan service has stored a plan, and closes the message box about it.
class Acknowledgement : public QObject {
public:
    Acknowledgement()
    {
        connect(&PlanEvents::instance(), &PlanEvents::planStored, this, [this] { note(); });
        qApp->installEventFilter(this);
    }

    void expect()
    {
        m_seconds = 0;
        m_timer.start();
    }

    /// Returns the time from `expect` until the plan was stored; 0 if it was not.
    double seconds() const { return m_seconds; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const box = qobject_cast<QDialog*>(watched);
        if (box && event->type() == QEvent::Show)
            QTimer::singleShot(0, box, &QDialog::accept);
        return false;
    }

private:
    void note() { m_seconds = static_cast<double>(m_timer.nsecsElapsed()) * 1e-9; }

    QElapsedTimer m_timer;
    double m_seconds = 0;
};

template <class Widget> Widget* field(const QWidget& editor, const char* name)
{
    return editor.findChild<Widget*>(QLatin1String(name));
}

/// The shortest time in which a trader can fill in a form. An idle disk is slower, so both measurements use the same
/// pause.
void rest()
{
    QTest::qWait(250);
}

void fill(AutoParamSetting& editor)
{
    editor.resetEnable();
    QComboBox* const account = field<QComboBox>(editor, "combx_fundAccount");
    account->setCurrentIndex(account->findData(QStringLiteral("100001")));
    field<VorSearchBox>(editor, "le_symbol")
        ->setSymbol(SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh));
    field<OrloDecimalLineEdit>(editor, "le_targetTotalNum")->setValue(1000);
    rest();
}

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
        rest();
        m_file.write(QByteArray(static_cast<int>(size), 'x'));
        return secondsOf([this] { fdatasync(m_file.handle()); });
    }

private:
    QFile m_file;
};

void confirm(benchmark::State& state)
{
    AutoParamSetting editor(nullptr);
    showPainted(editor);
    Acknowledgement acknowledgement;
    BareFile bare;
    Timing timing(state);
    QVector<double> bareSeconds;
    int mostLogSyncs = 0;
    int logSyncs = 0;
    qint64 logSize = 0;
    for (auto _ : state) {
        fill(editor);
        Syncs::start();
        acknowledgement.expect();
        field<QAbstractButton>(editor, "btn_ok")->click();
        const Syncs::Counts counts = Syncs::stop();
        if (acknowledgement.seconds() == 0)
            state.SkipWithError("the plan was not stored");
        timing.note(acknowledgement.seconds());
        mostLogSyncs = qMax(mostLogSyncs, counts.log);
        logSyncs += counts.log;
        bareSeconds << bare.secondsToFlush(qMax<qint64>(4096, counts.logSize - logSize));
        logSize = counts.logSize;
    }
    state.counters["bare_median_ms"] = median(bareSeconds) * 1000;
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
