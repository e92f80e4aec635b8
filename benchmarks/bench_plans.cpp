// Measures opening a stored plan and counts how often it is read.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "Counters.h"

namespace {

QString newestPlan()
{
    return ClientSession::instance().plans().page(0, 1)->value(0).id;
}

/// Opens the plan repeatedly in a visible editor, without painting.
void openPlan(benchmark::State& state, void (AutoParamSetting::*open)(const QString&))
{
    const QString plan = newestPlan();
    AutoParamSetting editor(nullptr);
    showPainted(editor);
    editor.setUpdatesEnabled(false);
    (editor.*open)(plan);
    settle();
    Timing timing(state);
    PlanReads::start();
    int opened = 0;
    for (auto _ : state) {
        timing.run([&] { (editor.*open)(plan); });
        ++opened;
        settle();
    }
    const PlanReads::Counts counts = PlanReads::stop();
    state.counters["calls"] = static_cast<double>(counts.calls) / opened;
    state.counters["reads"] = static_cast<double>(counts.reads) / opened;
}

BENCHMARK_CAPTURE(openPlan, copyPlan, &AutoParamSetting::copyPlan)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(openPlan, editPlan, &AutoParamSetting::editPlan)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
