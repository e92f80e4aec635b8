// Measures the checks of a form that passes every rule. The first plan of the database has the instructions, its
// account the positions.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "ClientSession.h"

namespace {

// The public interface runs the checks only together with storing the plan and showing boxes. An explicit instantiation
// may name a private member, so this one provides access without a change to the editor's header.
template <bool (AutoParamSetting::*Member)()> struct Opened {
    friend bool check(AutoParamSetting& editor) { return (editor.*Member)(); }
};
bool check(AutoParamSetting& editor);
template struct Opened<&AutoParamSetting::checkParam>;

void checkParam(benchmark::State& state)
{
    ClientSession& session = ClientSession::instance();
    const QString plan = session.plans().page(*session.plans().count() - 1, 1)->value(0).id;
    AutoParamSetting editor(nullptr);
    showPainted(editor);
    editor.editPlan(plan);
    settle();
    Timing timing(state);
    bool passes = true;
    for (auto _ : state)
        timing.run([&] { passes = check(editor) && passes; });
    if (!passes)
        state.SkipWithError("a rule does not pass");
    state.counters["instructions"] = session.instructions().ofPlan(plan)->size();
}

BENCHMARK(checkParam)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
