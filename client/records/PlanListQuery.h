#pragma once

#include "PlanList.h"
#include "PlanScope.h"

#include <QVector>

/// The statements that read a list of plans within a scope.
///
/// A user's plans come from several sources: each of his accounts, and the plans assigned to him in both roles. Indexes
/// have the plans of each source in every order of a list, so a slice is merged from the first plans of each source,
/// and costs the same anywhere in the list. A list that few plans match is read as a whole instead: its filter or
/// search is looked up in an index, and what is found is sorted.
class PlanListQuery {
public:
    PlanListQuery(const PlanScope& scope, const PlanList& list, const SqlDialect& dialect);

    /// The numbers of a slice, each row one, for IN.
    SqlQuery slice(const PlanSlice& slice) const;
    /// Number and place of a plan that the slice does not reach beyond, found among few plans of each account. No row
    /// if the accounts have too few plans. Absent if it is not needed.
    std::optional<SqlQuery> bound(const PlanSlice& slice) const;
    /// Sorts the plans of a slice in its direction.
    QString sorting(const PlanSlice& slice) const;
    /// One number: how many plans a slice has.
    SqlQuery countOf(const PlanSlice& slice) const;
    /// One number: how many plans the list has. From `most` on it may be too small.
    SqlQuery count(int most) const;
    /// Number, value and position of each `step`-th plan, beginning with the first.
    SqlQuery landmarks(int step) const;

private:
    QString column() const;
    QString textColumn(const char* name, bool usesIndex) const;
    QString direction(const PlanSlice& slice) const;
    SqlQuery within(const PlanSlice& slice, const QString& place) const;
    SqlQuery listed(const PlanSlice& slice) const;
    SqlQuery numbersWithin(const PlanSlice& slice) const;
    SqlQuery filter(bool usesIndex) const;
    SqlQuery ofOwnAccounts(bool usesIndex) const;
    QVector<SqlQuery> matches(bool usesIndex) const;
    SqlQuery condition() const;
    SqlQuery inOrder(const PlanSlice& slice) const;
    SqlQuery ofAccountsInOrder(const PlanSlice& slice, int most) const;
    SqlQuery collected(int most) const;
    SqlQuery members() const;
    SqlQuery numbers(const SqlQuery& condition) const;
    SqlQuery ofAccounts(const SqlQuery& condition) const;
    SqlQuery assigned() const;
    SqlQuery executed() const;

    const PlanScope& m_scope;
    const PlanList& m_list;
    const SqlDialect& m_dialect;
};
