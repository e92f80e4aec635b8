#pragma once

#include "Database.h"
#include "ImportRow.h"

/// Takes the rows of one kind within the transaction of a file.
class Importer {
public:
    virtual ~Importer() = default;

    virtual const TransferForm& form() const = 0;
    /// Called before the first row.
    virtual Status begin() { return {}; }
    /// Refuses the row, or writes it and counts it in the report. Fails only if the database does.
    virtual Status take(ImportRow& row) = 0;
    /// Writes what waits for the last row.
    virtual Status finish() { return {}; }
    /// Adds to the report what the database has and the file does not, and refuses what cannot be removed.
    virtual Status findRemovals() { return {}; }
    /// Removes what was found.
    virtual Status remove() { return {}; }
    /// Called when the transaction is to be committed, for what is not in the database.
    virtual Status commit() { return {}; }
};
