#pragma once

#include "InstructionPrefetcher.h"

#include <memory>

/// The instructions of the last requested plan, kept until the database changes. Use it on the user interface thread
/// only.
class InstructionCache {
public:
    using Instructions = InstructionPrefetcher::Instructions;

    explicit InstructionCache(Database& database);

    /// The stored instructions of a plan; empty if the plan is unknown or has none.
    Result<Instructions> ofPlan(const QString& planId);
    /// Starts reading the instructions of a plan that is likely to be needed next, on another thread. The database must
    /// be open.
    void prefetch(const QString& planId);
    /// Clears the cache and drops instructions that are still being read.
    void clear();

private:
    /// Instructions with the change token of the database at the time of reading.
    struct Known {
        QString plan;
        QString token;
        Instructions instructions;
    };

    bool isKnown(const QString& planId, const QString& token) const;
    void startPrefetcher();

    Database& m_database;
    Known m_known;
    std::unique_ptr<InstructionPrefetcher> m_prefetcher; ///< started on first use
};
