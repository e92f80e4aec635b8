#pragma once

struct Options;

/// Reports for each file of the options' arguments which strategies are offered, not offered or refused, as text or as
/// JSON. Returns the exit status: `Failure` if a file or a strategy is refused.
int checkStrategies(const Options& options);
