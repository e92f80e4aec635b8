#include "SqlDialect.h"

const SqlDialect& SqlDialect::sqlite()
{
    static const SqlDialect dialect{
        QStringLiteral("BEGIN IMMEDIATE"),
        QString(),
        false,
        QStringLiteral("SELECT total_changes() || '/' || data_version FROM pragma_data_version"),
        QStringLiteral("SELECT p.number FROM user_accounts AS u CROSS JOIN plans AS p WHERE u.user = ?"
                       " AND p.number IN (SELECT number FROM plans WHERE trading_account = u.trading_account"
                       " ORDER BY number DESC LIMIT ?)"),
    };
    return dialect;
}

// What a transaction has locked stays as it is, and each of its statements reads what was committed before it. Equal
// snapshots see the same transactions. The newest plans of an account are sorted so that only the index of accounts has
// them in that order: the planner would look for those of an account with few plans among all plans.
const SqlDialect& SqlDialect::postgres()
{
    static const SqlDialect dialect{
        QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE"),
        QStringLiteral(" FOR NO KEY UPDATE"),
        true,
        QStringLiteral("SELECT CAST(pg_current_snapshot() AS text)"),
        QStringLiteral("SELECT p.number FROM (SELECT trading_account FROM user_accounts AS o WHERE o.user = ?) AS u"
                       " CROSS JOIN LATERAL (SELECT number FROM plans"
                       " WHERE trading_account BETWEEN u.trading_account AND u.trading_account"
                       " ORDER BY trading_account DESC, number DESC LIMIT ?) AS p"),
    };
    return dialect;
}
