#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

struct StoredPlan;

/// The value by which plans are sorted. Plans with equal values are in the order of their numbers.
enum class PlanOrder { Number, Security, End };

/// Which plans are listed, apart from a search.
enum class PlanFilter {
    All,     ///< also archived ones, which no other filter has
    Current, ///< all but archived ones
    Today,   ///< those of `PlanStore::plansOfDay`
    Running, ///< active, with today in their period and something left, and not failed
    Failed,  ///< active, not ended, with something left; their last day got no instruction
    Own,     ///< created by the user or assigned to him
    Archived
};

/// What plans are searched for: they match if any of these applies.
struct PlanSearch {
    /// The first and the last number; none if both are 0.
    qint64 firstNumber = 0;
    qint64 lastNumber = 0;
    /// The start of their security's symbol; empty for none.
    QString symbolStart;
    /// Securities by their names, at most `MostNames`, and whether there are more.
    QStringList symbols;
    bool hasMoreNames = false;
    QStringList tradingAccounts;
    static constexpr int MostNames = 1000;

    bool isEmpty() const;
    /// Whether only numbers match.
    bool isOfNumbers() const;
};

/// The place of a plan in a list.
struct PlanPlace {
    QString value; ///< by which the list is sorted; empty for the number
    qint64 number = 0;
};

/// Which plans are listed, and in which order.
struct PlanList {
    PlanOrder order = PlanOrder::Number;
    bool isDescending = true;
    PlanFilter filter = PlanFilter::All;
    /// The day of the filter.
    QDate today;
    std::optional<PlanSearch> search;
    /// Whether the list has at most `Small` plans, so that sorting them all is faster than looking for them in their
    /// order.
    bool isSmall = false;
    static constexpr int Small = 20000;

    /// Whether an index has all plans of the list, and no other.
    bool isWhole() const { return (filter == PlanFilter::All || filter == PlanFilter::Current) && !search; }
    PlanPlace placeOf(const StoredPlan& plan) const;
    /// Whether a place comes before another one.
    bool precedes(const PlanPlace& place, const PlanPlace& other) const;
};

/// A part of a list.
struct PlanSlice {
    int limit = 0;
    /// How many plans to leave out first.
    int offset = 0;
    /// Where it starts; at the list's start, or end, if absent.
    std::optional<PlanPlace> from;
    bool isFromIncluded = false;
    /// Leads from the place, or from the list's end, towards the start of the list.
    bool isBackward = false;
    /// The place before which it ends.
    std::optional<PlanPlace> until;
    bool isUntilIncluded = false;
};

/// The place of the plan that `position` others precede.
struct PlanLandmark {
    PlanPlace place;
    int position = 0;
};
