#include "PlanScope.h"

#include "StoredPlan.h"
#include "UserStore.h"

namespace {

const QString OfOwnAccount = QStringLiteral(
    "EXISTS (SELECT 1 FROM user_accounts AS u WHERE u.user = ? AND u.trading_account = plans.trading_account)");

} // namespace

PlanScope::PlanScope(const StoredUser& user)
    : m_isEvery(false)
    , m_userId(user.id)
    , m_userName(user.name)
{
}

SqlQuery PlanScope::among(const QStringList& planIds)
{
    SqlQuery numbers;
    QStringList placeholders;
    for (const QString& id : planIds) {
        numbers.values << PlanId::toNumber(id).value_or(0);
        placeholders << QStringLiteral("?");
    }
    numbers.text = QStringLiteral("(%1)").arg(placeholders.join(QStringLiteral(", ")));
    return numbers;
}

SqlQuery PlanScope::condition() const
{
    if (m_isEvery)
        return { QStringLiteral("TRUE"), {} };
    return { QStringLiteral("(%1 OR assignee = ? OR executor = ?)").arg(OfOwnAccount),
        { m_userId, m_userName, m_userName } };
}

// The newest ones of each account and of both roles, each read from the end of an index.
SqlQuery PlanScope::page(int offset, int limit, const SqlDialect& dialect) const
{
    if (m_isEvery)
        return { QStringLiteral("SELECT number FROM plans ORDER BY number DESC LIMIT ? OFFSET ?"), { limit, offset } };
    const qint64 newest = qint64(offset) + limit;
    return { dialect.newestOfAccounts
            + QStringLiteral(" UNION SELECT number FROM"
                             " (SELECT number FROM plans WHERE assignee = ? ORDER BY number DESC LIMIT ?) AS assigned"
                             " UNION SELECT number FROM"
                             " (SELECT number FROM plans WHERE executor = ? ORDER BY number DESC LIMIT ?) AS executed"
                             " ORDER BY 1 DESC LIMIT ? OFFSET ?"),
        { m_userId, newest, m_userName, newest, m_userName, newest, limit, offset } };
}

// The plus sign keeps SQLite from reading every plan above the number instead of the user's.
SqlQuery PlanScope::countAbove(qint64 number, int most) const
{
    if (m_isEvery)
        return { QStringLiteral("SELECT count(*) FROM (SELECT 1 FROM plans WHERE number > ? LIMIT ?) AS every"),
            { number, most } };
    return { QStringLiteral("SELECT (SELECT count(*) FROM (SELECT 1 FROM user_accounts AS u CROSS JOIN plans AS p"
                            " WHERE p.trading_account = u.trading_account AND u.user = ? AND p.number > ? LIMIT ?)"
                            " AS own) + (SELECT count(*) FROM (SELECT 1 FROM plans WHERE"
                            " (assignee = ? OR executor = ?) AND +number > ? AND NOT %1 LIMIT ?) AS assigned)")
                 .arg(OfOwnAccount),
        { m_userId, number, most, m_userName, m_userName, number, m_userId, most } };
}
