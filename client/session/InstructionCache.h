#pragma once

#include "InstructionPrefetcher.h"

#include <memory>

/// The instructions of the plan that was asked for last, kept until the database changes. Belongs to the user interface
/// thread.
class InstructionCache {
public:
    using Instructions = InstructionPrefetcher::Instructions;

    explicit InstructionCache(Database& database);

    /// Instructions of a plan as the store has them; empty when the plan is unknown or has none.
    Instructions ofPlan(const QString& planId);
    /// Has the instructions of a plan that is likely to be asked for read on another thread. The database must be open.
    void prefetch(const QString& planId);
    /// Forgets everything; instructions that are still being read are dropped.
    void clear();

private:
    /// Instructions with the change token of the database that they were read from.
    struct Known {
        QString plan;
        QString token;
        Instructions instructions;
    };

    bool isKnown(const QString& planId, const QString& token) const;
    void startPrefetcher();

    Database& m_database;
    Known m_known;
    std::unique_ptr<InstructionPrefetcher> m_prefetcher; ///< started when it is first needed
};
