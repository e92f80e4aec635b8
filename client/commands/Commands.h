#pragma once

struct Options;

/// Executes the command of the options, one of `commandForms`, reports its result on the console and returns the exit
/// status.
int runCommand(const Options& options);
