// Measures opening the window with the plan table until its first page is painted, and its memory.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "MainWindow.h"

namespace {

void openTable(benchmark::State& state)
{
    Timing timing(state);
    for (auto _ : state) {
        std::unique_ptr<MainWindow> window;
        timing.run([&] {
            window = std::make_unique<MainWindow>();
            showPainted(*window);
        });
    }
    const double before = residentMebibytes();
    MainWindow window;
    showPainted(window);
    state.counters["window_mib"] = residentMebibytes() - before;
    state.counters["plans"] = *ClientSession::instance().plans().count();
}

BENCHMARK(openTable)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
