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

    bool isEvery() const { return m_isEvery; }
    QString userId() const { return m_userId; }
    QString userName() const { return m_userName; }

    /// Conditions on a row of the plans: that it is in the scope, or is a plan of the user's accounts.
    SqlQuery condition() const;
    SqlQuery ofOwnAccount() const;

private:
    bool m_isEvery = true;
    QString m_userId;
    QString m_userName;
};
