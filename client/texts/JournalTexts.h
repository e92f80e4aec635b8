#pragma once

#include "JournalStore.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QStringList>

class PlanFormatter;

/// The journal of a day in words and as JSON.
class JournalTexts {
    Q_DECLARE_TR_FUNCTIONS(JournalTexts)

public:
    /// The titles of the columns, and their texts for an entry.
    static QStringList titles();
    static QStringList cells(const JournalEntry& entry);
    /// The texts in one line, for the console.
    static QString line(const JournalEntry& entry);
    /// "kind" ("instruction", "refusal" or "state"), "plan", "account", "symbol", "user", "time" (UTC, or null); of an
    /// instruction "instruction" and "fields" with its stored texts, of a refusal "reason", of a state "before",
    /// "after" and "reason".
    static QJsonObject json(const JournalEntry& entry);
    /// What an instruction of a plan has issued and filled, and whether it has ended.
    static QString instruction(const PlanFormatter& plan, const InstructionRow::Fields& fields);
};
