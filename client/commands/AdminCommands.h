#pragma once

#include "Options.h"

#include <QMap>

#include <functional>

/// Executes a command and returns the lines that it prints.
using CommandFunction = std::function<Result<QString>(const Options& options)>;

/// The commands of an administrator of a server's database by their names.
QMap<QString, CommandFunction> adminCommands();
