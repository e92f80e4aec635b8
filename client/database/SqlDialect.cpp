#include "SqlDialect.h"

// An index has the numbers and places of an account. As a JSON list they become rows without reading the plans.
const SqlDialect& SqlDialect::sqlite()
{
    static const SqlDialect dialect{
        true,
        QStringLiteral("BEGIN IMMEDIATE"),
        QStringLiteral("BEGIN"),
        QString(),
        QString(),
        false,
        QStringLiteral("SELECT total_changes() || '/' || data_version FROM pragma_data_version"),
        QStringLiteral("SELECT number, place FROM (WITH u AS"
                       " (SELECT trading_account FROM user_accounts AS o WHERE o.user = ?)"
                       " SELECT value ->> 0 AS number, value ->> 1 AS place FROM"
                       " (SELECT (SELECT json_group_array(json_array(number, place)) FROM"
                       " (SELECT number, %1 AS place FROM plans WHERE trading_account = u.trading_account"
                       " AND %2 ORDER BY %1 %3, number %3 LIMIT ?)) AS found FROM u), json_each(found))"),
        QStringLiteral("(SELECT value FROM json_each(?))"),
        QStringLiteral("+%1"),
        QStringLiteral("NULL"),
        QStringLiteral("COMMIT"),
    };
    return dialect;
}

// What a transaction has locked stays as it is, and each of its statements reads what was committed before it. Equal
// snapshots see the same transactions. The plans of an account are sorted so that only an index of accounts has them in
// that order: the planner would look for those of an account with few plans among all plans.
const SqlDialect& SqlDialect::postgres()
{
    static const SqlDialect dialect{
        false,
        QStringLiteral("BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE"),
        QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"),
        QStringLiteral(" FOR NO KEY UPDATE"),
        // A number of this use.
        QStringLiteral("SELECT pg_advisory_xact_lock(20713)"),
        true,
        QStringLiteral("SELECT CAST(pg_current_snapshot() AS text)"),
        QStringLiteral("SELECT p.number, p.place FROM (SELECT trading_account FROM user_accounts AS o WHERE o.user = ?)"
                       " AS u CROSS JOIN LATERAL (SELECT number, %1 AS place FROM plans"
                       " WHERE trading_account BETWEEN u.trading_account AND u.trading_account AND %2"
                       " ORDER BY trading_account %3, %1 %3, number %3 LIMIT ?) AS p"),
        QStringLiteral("(SELECT json_array_elements_text(CAST(? AS json)))"),
        QStringLiteral("(%1 || '')"),
        QStringLiteral("(SELECT CAST(changed_by AS text) FROM facts_version)"),
        QStringLiteral("COMMIT; SELECT plandesk.notify_of_changes()"),
    };
    return dialect;
}
