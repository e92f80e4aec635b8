// Measures the construction and first display of an editor, compared with the bare form: the same widgets without
// services.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "ui_AutoParamSetting.h"

namespace {

void bareForm(benchmark::State& state)
{
    Timing timing(state);
    for (auto _ : state) {
        QWidget window;
        Ui::AutoParamSetting form;
        timing.run([&] {
            form.setupUi(&window);
            showPainted(window);
        });
    }
}

void editor(benchmark::State& state)
{
    Timing timing(state);
    for (auto _ : state) {
        std::unique_ptr<AutoParamSetting> window;
        timing.run([&] {
            window = std::make_unique<AutoParamSetting>(nullptr);
            showPainted(*window);
        });
    }
}

BENCHMARK(bareForm)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(editor)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
