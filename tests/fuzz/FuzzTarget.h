#pragma once

#include <cstddef>
#include <cstdint>

// The two functions of a fuzz target, under the names by which libFuzzer and CorpusRunner.cpp call them.

/// Called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
/// Takes one input. Whatever it is, the call returns 0 and leaves nothing behind; anything else is a finding.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Ends the program, the input being a finding, when a promise is broken.
#define FUZZ_REQUIRE(promise)                                                                                          \
    do {                                                                                                               \
        if (!(promise))                                                                                                \
            qFatal("Broken: %s", #promise);                                                                            \
    } while (false)
