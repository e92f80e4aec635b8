// Measures the window with the plan table: opening it until its first page is painted, its memory, and what a trader
// does in the table, each from the event until the table is painted.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "MainWindow.h"
#include "PlanTable.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QtTest>

namespace {

void openTable(benchmark::State& state)
{
    measureOpening(state, [] { return std::make_unique<MainWindow>(); });
    const double before = residentMebibytes();
    MainWindow window;
    showPainted(window);
    state.counters["window_mib"] = residentMebibytes() - before;
    state.counters["plans"] = *ClientSession::instance().plans().count();
}

/// The window when all plans have been counted.
class CountedWindow {
public:
    CountedWindow()
        : m_table(*m_window.findChild<PlanTable*>())
    {
        showPainted(m_window);
        m_window.activateWindow();
        while (m_table.isCounting())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        settle();
    }

    PlanTable& table() { return m_table; }
    QLineEdit& search() { return *m_window.findChild<QLineEdit*>(QStringLiteral("le_search")); }
    QAbstractButton& filter(const char* name) { return *m_window.findChild<QAbstractButton*>(QLatin1String(name)); }

    void clickColumn(int column)
    {
        const QHeaderView& header = *m_table.horizontalHeader();
        const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }

private:
    MainWindow m_window;
    PlanTable& m_table;
};

/// Does several things in turn, each until everything is painted, and notes the slowest.
void measure(benchmark::State& state, const QVector<std::function<void()>>& actions)
{
    Timing timing(state);
    QVector<double> least(actions.size(), std::numeric_limits<double>::max());
    for (auto _ : state) {
        double seconds = 0;
        for (int i = 0; i < actions.size(); ++i) {
            const double taken = secondsOf([&] {
                actions.at(i)();
                settle();
            });
            least[i] = std::min(least.at(i), taken);
            seconds += taken;
        }
        timing.note(seconds);
    }
    state.counters["slowest_ms"] = *std::max_element(least.cbegin(), least.cend()) * 1000;
}

void sort(benchmark::State& state)
{
    CountedWindow window;
    QVector<std::function<void()>> clicks;
    for (const int column : { PlanColumns::Security, PlanColumns::Security, PlanColumns::Period, PlanColumns::Period,
             PlanColumns::Id, PlanColumns::Id, PlanColumns::Id })
        clicks << [&window, column] { window.clickColumn(column); };
    measure(state, clicks);
}

void filter(benchmark::State& state)
{
    CountedWindow window;
    QVector<std::function<void()>> clicks;
    for (const char* const name : { "filter_today", "filter_own", "filter_archived", "filter_all" })
        clicks << [&window, name] { window.filter(name).click(); };
    measure(state, clicks);
}

// QTest only has keys for ASCII.
void type(QLineEdit& edit, QChar letter)
{
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(&edit, &press);
}

void search(benchmark::State& state)
{
    CountedWindow window;
    QVector<std::function<void()>> keys;
    for (const char* const text : { "600012", "AP0012", "银行", "账户9", "none" }) {
        for (const QChar letter : QString::fromUtf8(text))
            keys << [&window, letter] { type(window.search(), letter); };
        keys << [&window] { window.search().clear(); };
    }
    measure(state, keys);
}

void jump(benchmark::State& state)
{
    CountedWindow window;
    measure(state,
        { [&window] { QTest::keyClick(&window.table(), Qt::Key_End, Qt::ControlModifier); },
            [&window] { QTest::keyClick(&window.table(), Qt::Key_Home, Qt::ControlModifier); },
            [&window] { window.table().positionBar()->setValue(window.table().planCount() / 2); },
            [&window] { QTest::keyClick(&window.table(), Qt::Key_PageDown); } });
}

void letterKey(benchmark::State& state)
{
    CountedWindow window;
    measure(state,
        { [&window] { QTest::keyClick(&window.table(), Qt::Key_6); },
            [&window] { QTest::keyClick(&window.search(), Qt::Key_Escape); } });
}

BENCHMARK(openTable)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(sort)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(filter)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(search)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(jump)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(letterKey)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
