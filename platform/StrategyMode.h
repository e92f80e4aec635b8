#pragma once

/// Layout of the algorithm parameter widget created by `OrloStrategyFactory`.
enum class StrategyMode {
    Table = 0,  ///< one row per strategy
    Batch = 1,  ///< one strategy for many securities
    Single = 2, ///< one strategy for one security, as one panel
};
