// Measures the choice of an account and all resulting updates, depending on the number of accounts.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"

#include <QComboBox>

namespace {

void chooseAccount(benchmark::State& state)
{
    AutoParamSetting editor(nullptr);
    showPainted(editor);
    editor.setUpdatesEnabled(false);
    auto* const accounts = editor.findChild<QComboBox*>(QStringLiteral("combx_fundAccount"));
    const int last = accounts->count() - 1;
    Timing timing(state);
    for (auto _ : state) {
        accounts->setCurrentIndex(-1);
        settle();
        timing.run([&] { accounts->setCurrentIndex(last); });
    }
}

BENCHMARK(chooseAccount)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
