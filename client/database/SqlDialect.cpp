#include "SqlDialect.h"

const SqlDialect& SqlDialect::sqlite()
{
    static const SqlDialect dialect{
        QStringLiteral("BEGIN IMMEDIATE"),
        QString(),
        false,
        QStringLiteral("SELECT total_changes() || '/' || data_version FROM pragma_data_version"),
        QStringLiteral("SELECT number, %1 AS place FROM user_accounts AS u CROSS JOIN plans WHERE u.user = ?"
                       " AND number IN (SELECT number FROM plans WHERE trading_account = u.trading_account"
                       " AND %2 ORDER BY %1 %3, number %3 LIMIT ?)"),
        QStringLiteral("(SELECT value FROM json_each(?))"),
    };
    return dialect;
}

// What a transaction has locked stays as it is, and each of its statements reads what was committed before it. Equal
// snapshots see the same transactions. The plans of an account are sorted so that only an index of accounts has them in
// that order: the planner would look for those of an account with few plans among all plans.
const SqlDialect& SqlDialect::postgres()
{
    static const SqlDialect dialect{
        QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE"),
        QStringLiteral(" FOR NO KEY UPDATE"),
        true,
        QStringLiteral("SELECT CAST(pg_current_snapshot() AS text)"),
        QStringLiteral("SELECT p.number, p.place FROM (SELECT trading_account FROM user_accounts AS o WHERE o.user = ?)"
                       " AS u CROSS JOIN LATERAL (SELECT number, %1 AS place FROM plans"
                       " WHERE trading_account BETWEEN u.trading_account AND u.trading_account AND %2"
                       " ORDER BY trading_account %3, %1 %3, number %3 LIMIT ?) AS p"),
        QStringLiteral("(SELECT json_array_elements_text(CAST(? AS json)))"),
    };
    return dialect;
}
