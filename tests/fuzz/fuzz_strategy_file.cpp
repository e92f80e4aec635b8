#include "ErrorText.h"
#include "FuzzTarget.h"
#include "ParameterForm.h"
#include "StrategyFile.h"
#include "WireValue.h"

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
    const StrategyFile file = StrategyFile::read(device, QStringLiteral("input.xml"));
    FUZZ_REQUIRE(bool(file.failure) != file.strategies.isEmpty());
    FUZZ_REQUIRE(file.failure || !errorText(file.failure).isEmpty());
    for (const ReadStrategy& read : file.strategies) {
        if (!read.isRead())
            continue;
        const StrategyDefinition& strategy = read.definition;
        FUZZ_REQUIRE(!strategy.name.isEmpty() && strategy.parameters.size() <= StrategyLimits::MaxParts);
        ParameterForm form(strategy, nullptr);
        const ParameterForm::Fault fault = form.check();
        FUZZ_REQUIRE(!fault.status || fault.parameter.isEmpty());
        FUZZ_REQUIRE(form.values().size() == strategy.parameters.size());
        const QMap<QString, QString> values = form.values();
        form.setValues(values);
        WireValue::fields(strategy, values, QDate(2024, 5, 6));
    }
    return 0;
}
