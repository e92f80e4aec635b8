#pragma once

#include "SqlDialect.h"

#include <QString>

struct StoredUser;

/// The plans that a store reads and changes.
class PlanScope {
public:
    /// Every plan.
    PlanScope() = default;
    /// The plans of the user's accounts and those assigned to the user.
    explicit PlanScope(const StoredUser& user);

    /// The numbers of the plans with these ids, for IN.
    static SqlQuery among(const QStringList& planIds);

    /// A condition on a row of the plans.
    SqlQuery condition() const;
    /// The numbers of a page of plans, newest first. Its cost does not depend on the number of plans.
    SqlQuery page(int offset, int limit, const SqlDialect& dialect) const;
    /// How many plans have a larger number. Stops counting the user's plans and the assigned ones at `most` each.
    SqlQuery countAbove(qint64 number, int most) const;

private:
    bool m_isEvery = true;
    QString m_userId;
    QString m_userName;
};
