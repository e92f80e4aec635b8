// Measures the resident memory while 1,000 editors are opened and closed one after another.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"

namespace {

constexpr int Settled = 50;
constexpr int Last = 1000;

void openAndClose(benchmark::State& state)
{
    double after50 = 0;
    for (int opened = 1; state.KeepRunning(); ++opened) {
        {
            AutoParamSetting editor(nullptr);
            showPainted(editor);
            editor.close();
        }
        settle();
        if (opened == Settled)
            after50 = residentMebibytes();
    }
    state.counters["after_50_mib"] = after50;
    state.counters["after_1000_mib"] = residentMebibytes();
}

BENCHMARK(openAndClose)->Iterations(Last)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
