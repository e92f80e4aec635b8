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
    // A server refuses an empty list.
    if (planIds.isEmpty())
        placeholders << QStringLiteral("NULL");
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

SqlQuery PlanScope::ofOwnAccount() const
{
    return { OfOwnAccount, { m_userId } };
}
