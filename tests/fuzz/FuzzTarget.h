#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <ctime>

// The two functions of a fuzz target, under the names by which libFuzzer calls them.

/// Called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
/// Takes one input. For every input the call returns 0 and leaves nothing behind; anything else is a finding.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Ends the program, the input being a finding, when a promise is broken.
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
