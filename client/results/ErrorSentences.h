#pragma once

#include "Error.h"

/// The sentence of a code, in Chinese and as the source text of a translation in the context "Error". %1, %2, ... are
/// replaced by the details and then by the cause.
const char* errorSentence(Error error);
