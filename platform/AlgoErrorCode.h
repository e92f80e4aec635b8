#pragma once

/// Outcome of handing base data to an algorithm parameter widget.
enum class AlgoErrorCode {
    Ok = 0,
    UnknownStrategy = 1, ///< no strategy is loaded that could take the data
    MissingField = 2,    ///< the base data lack an account, a security or a side
};
