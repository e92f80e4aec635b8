// What it costs to check a filled-in form when every rule passes. The database's first plan has the instructions, its
// account the positions.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "ClientSession.h"

namespace {

// The checks cannot be run from outside without storing the plan and showing boxes. An explicit instantiation may name
// a private member; this one hands its address out, and the editor's header stays as its clients see it.
template <bool (AutoParamSetting::*Member)()> struct Opened {
    friend bool check(AutoParamSetting& editor) { return (editor.*Member)(); }
};
bool check(AutoParamSetting& editor);
template struct Opened<&AutoParamSetting::checkParam>;

void checkParam(benchmark::State& state)
{
    ClientSession& session = ClientSession::instance();
    const QString plan = session.plans().page(session.plans().count() - 1, 1).value(0).id;
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
    state.counters["instructions"] = session.instructions().ofPlan(plan).size();
}

BENCHMARK(checkParam)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
