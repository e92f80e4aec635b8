#pragma once

#include "Options.h"

#include <functional>

/// Exit statuses of the client's programs.
enum ExitStatus { Success = 0, Failure = 1, Misuse = 2 };

/// Prints one line, or what the lines of `text` hold, on the console.
void printLine(FILE* stream, const QString& text);

/// Runs one of the client's programs: makes the application object, reads the command line, opens the session and has
/// `work` do the rest. Returns the exit status, `Misuse` when the work cannot begin; the reason is then shown.
int runProgram(int argc, char** argv, Program program, const std::function<int(const Options&)>& work);
