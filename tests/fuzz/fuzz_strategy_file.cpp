#include "ErrorText.h"
#include "FuzzTarget.h"
#include "ParameterForm.h"
#include "StrategyFile.h"
#include "StrategyLibrary.h"

#include <QApplication>
#include <QBuffer>

int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(*argc, *argv);
    return 0;
}

/// The input is a strategy file. A valid file gets its form, as in the algorithm panel.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzSecond limit;
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    const Result<QList<StrategyDefinition>> strategies = StrategyFile::read(device, QStringLiteral("input.xml"));
    if (!strategies) {
        FUZZ_REQUIRE(!errorText(strategies.status()).isEmpty());
        return 0;
    }
    FUZZ_REQUIRE(!strategies->isEmpty() && strategies->size() <= StrategyLimits::MaxCount);
    for (const StrategyDefinition& strategy : *strategies) {
        FUZZ_REQUIRE(!strategy.name.isEmpty() && strategy.parameters.size() <= StrategyLimits::MaxCount);
        StrategyLibrary::summary(strategy);
        ParameterForm form(strategy, nullptr);
        form.setValues(ParameterForm::defaults(strategy));
        const ParameterForm::Fault fault = form.check();
        FUZZ_REQUIRE(static_cast<bool>(fault.status) == fault.parameter.isEmpty());
        FUZZ_REQUIRE(form.values().size() == strategy.parameters.size());
    }
    return 0;
}
