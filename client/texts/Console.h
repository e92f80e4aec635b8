#pragma once

#include <QString>

#include <cstdio>

/// Exit statuses of the client's programs. Incomplete: some plans of a day get no instruction.
enum ExitStatus { Success = 0, Failure = 1, Misuse = 2, Incomplete = 3 };

/// The text without control characters and line breaks, which could change the lines around it.
QString oneLine(QString text);

/// Prints one or more lines on the console.
void printLine(FILE* stream, const QString& text);
