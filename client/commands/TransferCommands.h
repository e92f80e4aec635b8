#pragma once

#include "Options.h"

/// The commands `import` and `export`.
Result<QString> importFiles(const Options& options);
Result<QString> exportKind(const Options& options);
