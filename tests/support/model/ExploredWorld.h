#pragma once

#include "World.h"
#include <vector>

// The worlds in which an editor is explored: each part of them is one of some kinds, so that small numbers tell it.

namespace model {

/// How the plan service answers for its trade dates.
enum class Calendar { Weekdays, LongHoliday, EveryDay, Failure, FailureWithDates, Empty };
constexpr int CalendarCount = 6;
constexpr int AccountKindCount = 9;
constexpr int UserKinds = 3;
constexpr int AlgorithmKinds = 4;
constexpr int HoldingKinds = 3;
constexpr int SpendingKinds = 4;
constexpr int PlanNumbers = 30;

/// A world with the market in which every sequence trades, weekdays as trade dates, the first kind of everything else
/// and nobody's account.
World exploredWorld();
/// Adds an account of a kind. The last kind has the account before it a second time, under another client and branch.
void addAccount(World& world, int kind);

void setCalendar(World& world, const QString& exchange, Calendar kind); ///< the trade dates of an exchange
void setUsers(World& world, int kind);                                  ///< which users the chains have
void setAlgorithms(World& world, int kind); ///< which algorithms are allowed, and which the user is entitled to
void setHoldings(World& world, int kind);   ///< how much is held
void setSpending(World& world, int kind);   ///< what stored plans have issued so far
void setBondConversion(World& world, bool on);

/// A stored plan made from small numbers, also one that no editor would have built. The world tells accounts.
FieldMap planOf(const World& world, const std::vector<int>& numbers);

} // namespace model
