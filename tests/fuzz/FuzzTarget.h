#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <ctime>

// The two functions of a fuzz target, with the names that libFuzzer calls.

/// Called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
/// Runs one input. Returns 0 for every input and leaves no state behind; anything else is a finding.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Aborts the program if a condition does not hold, so that the input becomes a finding.
#define FUZZ_REQUIRE(promise)                                                                                          \
    do {                                                                                                               \
        if (!(promise))                                                                                                \
            qFatal("Broken: %s", #promise);                                                                            \
    } while (false)

/// Limits one input to a second of processor time. libFuzzer's own limit counts the time of other processes, too.
class FuzzSecond {
public:
    FuzzSecond() = default;
    ~FuzzSecond() { FUZZ_REQUIRE(std::clock() - m_start <= CLOCKS_PER_SEC); }
    Q_DISABLE_COPY(FuzzSecond)

private:
    const std::clock_t m_start = std::clock();
};
