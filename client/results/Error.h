#pragma once

/// Why an operation of the client failed. A comment names the details of a code, in the order in which its sentence has
/// them.
enum class Error {
    None,
    // --- The database
    DatabaseNotOpen,
    DatabaseBusy,
    DatabaseReadOnly,
    DatabaseCorrupt,
    DiskFull,
    NotADatabase,
    DatabaseFailed, ///< the driver's text
};
