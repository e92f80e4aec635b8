#pragma once

#include "Options.h"

#include <functional>

/// Exit statuses of the client's programs.
enum ExitStatus { Success = 0, Failure = 1, Misuse = 2 };

/// Prints one or more lines on the console.
void printLine(FILE* stream, const QString& text);

/// Runs one of the client's programs: creates the application object, parses the command line, opens the session and
/// calls `work`. Returns the exit status. If the work cannot start, shows the reason and returns `Misuse`.
int runProgram(int argc, char** argv, Program program, const std::function<int(const Options&)>& work);
