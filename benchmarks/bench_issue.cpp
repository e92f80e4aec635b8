// Measures issuing a day for all plans of the database, and issuing it again; and the longest time in which the window
// takes no event while all plans are read, chosen and issued in the sheet.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "IssueSheet.h"
#include "IssueSheetModel.h"
#include "SampleSession.h"

#include <QAbstractButton>
#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

namespace {

/// Returns the seconds for a day on which the given numbers of plans are issued and were issued before.
double secondsToIssue(benchmark::State& state, int issued, int issuedBefore)
{
    Result<IssueResult> result{ IssueResult() };
    const double seconds = secondsOf([&result] { result = InstructionIssuer::issueDay(SampleSession::today()); });
    if (!result)
        state.SkipWithError(qPrintable(errorText(result.status())));
    else if (result->issued.size() != issued || result->alreadyIssued.size() != issuedBefore)
        state.SkipWithError("other plans were issued");
    return seconds;
}

void issueDay(benchmark::State& state)
{
    const int plans = ClientSession::instance().plans().count().valueOr(0);
    for (auto _ : state) {
        state.counters["first_ms"] = secondsToIssue(state, plans, 0) * 1000;
        state.counters["again_ms"] = secondsToIssue(state, 0, plans) * 1000;
        state.SetIterationTime(state.counters["first_ms"] / 1000);
    }
}

/// Notes the longest time between two turns of the event loop.
class PauseWatch : public QObject {
public:
    PauseWatch()
    {
        m_sinceTurn.start();
        startTimer(1, Qt::PreciseTimer);
    }

    double longest() const { return m_longest; }

protected:
    void timerEvent(QTimerEvent*) override
    {
        m_longest = std::max(m_longest, static_cast<double>(m_sinceTurn.nsecsElapsed()) / 1e9);
        m_sinceTurn.restart();
        if (auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            box->accept();
    }

private:
    QElapsedTimer m_sinceTurn;
    double m_longest = 0;
};

void issueInSheet(benchmark::State& state)
{
    const int plans = ClientSession::instance().plans().count().valueOr(0);
    for (auto _ : state) {
        IssueSheet sheet(nullptr);
        const auto& rows = *sheet.findChild<IssueSheetModel*>();
        auto& button = *sheet.findChild<QAbstractButton*>(QStringLiteral("btn_issue"));
        const auto wait = [&sheet] {
            while (sheet.isWorking())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        };
        PauseWatch pauses;
        sheet.openToday();
        wait();
        button.click();
        wait();
        settle();
        if (rows.rowCount() != plans || rows.index(0, IssueSheetModel::ResultColumn).data().toString().isEmpty())
            state.SkipWithError("not all plans were issued");
        state.SetIterationTime(pauses.longest());
    }
}

BENCHMARK(issueDay)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(issueInSheet)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
