#pragma once

#include "World.h"

#include <vector>

// The worlds of the exploration: each part of them is one of a few kinds, so that small numbers describe a world.

namespace model {

/// The plan service's answers for its trade dates.
enum class Calendar { Weekdays, LongHoliday, EveryDay, Failure, FailureWithDates, Empty };
constexpr int CalendarCount = 6;
constexpr int AccountKindCount = 9;
constexpr int UserKinds = 3;
constexpr int AlgorithmKinds = 4;
constexpr int HoldingKinds = 3;
constexpr int SpendingKinds = 4;
constexpr int PlanNumbers = 30;

/// A world with the market of all sequences, weekdays as trade dates, the first kind of everything else and no account.
World exploredWorld();
/// Adds an account of a kind. The last kind repeats the account before it with another client and branch.
void addAccount(World& world, int kind);

void setCalendar(World& world, const QString& exchange, Calendar kind); ///< the trade dates of an exchange
void setUsers(World& world, int kind);                                  ///< which users the chains have
void setAlgorithms(World& world, int kind); ///< which algorithms are allowed, and which the user is entitled to
void setHoldings(World& world, int kind);   ///< how much is held
void setSpending(World& world, int kind);   ///< what stored plans have issued so far
void setBondConversion(World& world, bool on);

/// A stored plan made from small numbers, including plans that no editor makes. The accounts come from the world.
FieldMap planOf(const World& world, const std::vector<int>& numbers);

} // namespace model
