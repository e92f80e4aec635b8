#pragma once

#include "InstructionDesk.h"

#include <memory>

/// The instructions of the plan that was asked for last, kept until the database changes. Belongs to the user interface
/// thread.
class InstructionCache {
public:
    using Instructions = InstructionDesk::Instructions;

    explicit InstructionCache(Database& database);

    /// Instructions of a plan as the store has them; empty when the plan is unknown or has none.
    Instructions ofPlan(const QString& planId);
    /// Has the instructions of a plan that is likely to be asked for read on another thread. The database must be open.
    void readAhead(const QString& planId);
    /// Forgets everything; instructions that are still being read are dropped.
    void clear();

private:
    /// Instructions with what the database was when they were read.
    struct Known {
        QString plan;
        QString mark;
        Instructions instructions;
    };

    bool isKnown(const QString& planId, const QString& mark) const;
    void startDesk();

    Database& m_database;
    Known m_known;
    std::unique_ptr<InstructionDesk> m_desk; ///< started when it is first needed
};
