#pragma once

#include "InstructionRow.h"
#include "PlanScope.h"
#include "StoredPlan.h"
#include "UserStore.h"

#include <QVector>

/// What happened to a plan on a day.
struct JournalEntry {
    enum class Kind { Instruction, Refusal, StateChange };

    Kind kind = Kind::Instruction;
    StoredPlan plan; ///< as it is now
    QString user;
    QDateTime time; ///< when it was noted; invalid for an instruction without a history
    /// An instruction's id and its fields as they are now.
    QString instruction;
    InstructionRow::Fields fields;
    /// Why there is no instruction, or for the change; may be empty.
    QString reason;
    PlanState before = PlanState::Active;
    PlanState after = PlanState::Active;
};

/// Which entries are read.
struct JournalPage {
    QDate day;
    QString tradingAccount; ///< empty for all
    int offset = 0;
    int limit = 0;

    bool operator==(const JournalPage& other) const
    {
        return day == other.day && tradingAccount == other.tradingAccount && offset == other.offset
            && limit == other.limit;
    }
};

/// The instructions and refusals of a day and the changes of states on it, in the order of their times.
class JournalStore {
public:
    /// Those of the plans that the user sees.
    JournalStore(Database& database, const StoredUser& user);

    Result<QVector<JournalEntry>> page(const JournalPage& page);
    /// The number of entries without offset and limit.
    Result<int> count(const JournalPage& page);

private:
    SqlQuery entries(const JournalPage& page) const;
    Status readPlans(QVector<JournalEntry>& entries);
    Status readInstructions(QVector<JournalEntry>& entries);

    Database& m_database;
    const StoredUser m_user;
};
