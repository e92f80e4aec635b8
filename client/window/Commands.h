#pragma once

#include <QString>
#include <QStringList>

struct Options;

/// Names of the commands, which the program executes instead of showing its window.
QStringList commandNames();

/// Executes the command of the options, reports its result on the console and returns the exit status.
int runCommand(const Options& options);
