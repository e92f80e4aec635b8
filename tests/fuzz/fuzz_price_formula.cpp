#include "DayPrice.h"
#include "FuzzTarget.h"
#include "PriceFormula.h"

#include <cmath>

namespace {

QHash<QString, double> prices()
{
    QHash<QString, double> values;
    for (const QString& name : priceNames())
        values.insert(name, 10.0 + values.size());
    return values;
}

} // namespace

int LLVMFuzzerInitialize(int*, char***)
{
    return 0;
}

/// The input is a formula as typed.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const FuzzSecond limit;
    static const QHash<QString, double> values = prices();
    const QString formula = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const Status checked = PriceFormula::check(formula, priceNames());
    const Result<double> price = PriceFormula::evaluate(formula, priceNames(), values);
    const Result<double> without = PriceFormula::evaluate(formula, priceNames(), {});
    FUZZ_REQUIRE(!price || (*price > 0 && std::isfinite(*price)));
    // After a successful check only the values can make a formula fail.
    FUZZ_REQUIRE(checked || !price);
    FUZZ_REQUIRE(!without || price);
    FUZZ_REQUIRE(formula.size() <= PriceFormula::MaximumLength || !checked);
    return 0;
}
