#pragma once

/// Result of passing base data to an algorithm parameter widget.
enum class AlgoErrorCode {
    Ok = 0,
    UnknownStrategy = 1, ///< no strategy is loaded
    MissingField = 2,    ///< the account, the security or the side is missing in the base data
};
