// Measures opening the window with the plan table until its first page is painted, and its memory.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "MainWindow.h"

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

BENCHMARK(openTable)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
