#pragma once

#include "Options.h"

#include <functional>

/// Runs one of the client's programs: creates the application object, parses the command line, opens the session and
/// calls `work`. Returns the exit status. If the work cannot start, shows the reason and returns `Misuse`.
int runProgram(int argc, char** argv, Program program, const std::function<int(const Options&)>& work);
