#include "SqliteSchema.h"

#include "Bookings.h"
#include "TypedTables.h"

namespace {

QStringList planTables()
{
    return {
        QStringLiteral("CREATE TABLE plans ("
                       "number INTEGER PRIMARY KEY AUTOINCREMENT, version INTEGER NOT NULL CHECK (version >= 1),"
                       "creator TEXT NOT NULL, created_time TEXT NOT NULL, other_param TEXT) STRICT"),
        QStringLiteral("CREATE TABLE plan_fields ("
                       "plan INTEGER NOT NULL REFERENCES plans (number) ON DELETE CASCADE,"
                       "key TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY (plan, key)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE plan_instructions ("
                       "plan INTEGER NOT NULL REFERENCES plans (number) ON DELETE CASCADE,"
                       "id TEXT NOT NULL, day TEXT NOT NULL, PRIMARY KEY (plan, id)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE instruction_fields ("
                       "plan INTEGER NOT NULL, id TEXT NOT NULL, key TEXT NOT NULL, value TEXT NOT NULL,"
                       "PRIMARY KEY (plan, id, key),"
                       "FOREIGN KEY (plan, id) REFERENCES plan_instructions (plan, id) ON DELETE CASCADE"
                       ") STRICT, WITHOUT ROWID"),
    };
}

// In a table without row ids the key's columns must come first, otherwise SQLite 3.40's check reports valid rows as
// corrupt.
QStringList accountTables()
{
    return {
        QStringLiteral("CREATE TABLE users (id TEXT PRIMARY KEY, name TEXT NOT NULL) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE accounts ("
                       "trading_account TEXT PRIMARY KEY, fund_account TEXT NOT NULL, name TEXT NOT NULL,"
                       "client_no TEXT NOT NULL, asset_property TEXT NOT NULL, branch_no TEXT NOT NULL"
                       ") STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE user_accounts ("
                       "user TEXT NOT NULL REFERENCES users (id),"
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account), position INTEGER NOT NULL,"
                       "PRIMARY KEY (user, trading_account)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE exchange_accounts ("
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                       "exchange TEXT NOT NULL, security_account TEXT NOT NULL,"
                       "PRIMARY KEY (trading_account, exchange)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE positions ("
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                       "security_account TEXT NOT NULL, symbol TEXT NOT NULL,"
                       "quantity INTEGER NOT NULL, tradeable_quantity INTEGER NOT NULL,"
                       "PRIMARY KEY (trading_account, security_account, symbol)) STRICT, WITHOUT ROWID"),
    };
}

QStringList authorityTables()
{
    return {
        QStringLiteral("CREATE TABLE order_authorities ("
                       "user TEXT NOT NULL REFERENCES users (id),"
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                       "instruction_type TEXT NOT NULL,"
                       "PRIMARY KEY (user, trading_account, instruction_type)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE rule_properties ("
                       "user TEXT NOT NULL REFERENCES users (id),"
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                       "instruction_type TEXT NOT NULL, property INTEGER NOT NULL,"
                       "PRIMARY KEY (user, trading_account, instruction_type)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE approval_chains ("
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                       "instruction_type TEXT NOT NULL, chain_key TEXT NOT NULL UNIQUE,"
                       "PRIMARY KEY (trading_account, instruction_type)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE chain_users ("
                       "chain_key TEXT NOT NULL REFERENCES approval_chains (chain_key),"
                       "role TEXT NOT NULL CHECK (role IN ('execute', 'forward')),"
                       "position INTEGER NOT NULL, user_name TEXT NOT NULL,"
                       "PRIMARY KEY (chain_key, role, position)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE agreements ("
                       "protocol TEXT PRIMARY KEY, title TEXT NOT NULL, content TEXT NOT NULL) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE signatures ("
                       "protocol TEXT NOT NULL REFERENCES agreements (protocol), client_no TEXT NOT NULL,"
                       "user TEXT NOT NULL, signed_time TEXT NOT NULL,"
                       "PRIMARY KEY (protocol, client_no)) STRICT, WITHOUT ROWID"),
    };
}

QStringList marketTables()
{
    return {
        QStringLiteral("CREATE TABLE securities ("
                       "position INTEGER PRIMARY KEY, symbol TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
                       "type TEXT NOT NULL, sub_type TEXT NOT NULL, exchange TEXT NOT NULL,"
                       "price_precision INTEGER NOT NULL, display_factor INTEGER NOT NULL CHECK (display_factor > 0),"
                       "quantity_step INTEGER NOT NULL CHECK (quantity_step > 0),"
                       "limit_per_mille INTEGER NOT NULL CHECK (limit_per_mille >= 0),"
                       "st_flag TEXT NOT NULL, st_text TEXT NOT NULL) STRICT"),
        QStringLiteral("CREATE TABLE closing_prices ("
                       "security INTEGER PRIMARY KEY REFERENCES securities (position) ON DELETE CASCADE,"
                       "last_day TEXT NOT NULL, last_close INTEGER NOT NULL, closes BLOB NOT NULL) STRICT"),
        QStringLiteral("CREATE TABLE trade_days ("
                       "exchange TEXT NOT NULL, day TEXT NOT NULL, PRIMARY KEY (exchange, day)) STRICT, WITHOUT ROWID"),
    };
}

QStringList configurationTables()
{
    return {
        QStringLiteral("CREATE TABLE strategies ("
                       "name TEXT PRIMARY KEY, alias TEXT NOT NULL, file TEXT NOT NULL,"
                       "position INTEGER NOT NULL) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE strategy_lists ("
                       "list TEXT NOT NULL CHECK (list IN ('white', 'black')), instruction_type TEXT NOT NULL,"
                       "target_type TEXT NOT NULL, symbol TEXT NOT NULL, position INTEGER NOT NULL,"
                       "strategy TEXT NOT NULL,"
                       "PRIMARY KEY (list, instruction_type, target_type, symbol, position)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE static_texts ("
                       "category TEXT NOT NULL, key TEXT NOT NULL, text TEXT NOT NULL,"
                       "PRIMARY KEY (category, key)) STRICT, WITHOUT ROWID"),
    };
}

// Trade days come from the calendar, and strategies from their files.
QStringList unusedTables()
{
    return { QStringLiteral("DROP TABLE trade_days"), QStringLiteral("DROP TABLE strategies") };
}

// Plans of version 1 only had their creation time.
QStringList planChangedTime()
{
    return {
        QStringLiteral("ALTER TABLE plans ADD COLUMN changed_time TEXT NOT NULL DEFAULT ''"),
        QStringLiteral("UPDATE plans SET changed_time = created_time"),
    };
}

// An empty value means the usual one, which is that of the row without an account. Exceptions extend the limits of an
// account through their last day.
QStringList limitTables()
{
    return {
        QStringLiteral("CREATE TABLE account_limits ("
                       "trading_account TEXT PRIMARY KEY, largest_quantity INTEGER CHECK (largest_quantity > 0),"
                       "largest_amount INTEGER CHECK (largest_amount > 0),"
                       "price_band_per_mille INTEGER CHECK (price_band_per_mille > 0),"
                       "CHECK (trading_account <> '' OR (largest_quantity IS NOT NULL"
                       " AND largest_amount IS NOT NULL AND price_band_per_mille IS NOT NULL))"
                       ") STRICT, WITHOUT ROWID"),
        QStringLiteral("INSERT INTO account_limits (trading_account, largest_quantity, largest_amount,"
                       " price_band_per_mille) VALUES ('', 100000000, 10000000000, 500)"),
        QStringLiteral("CREATE TABLE limit_exceptions ("
                       "number INTEGER PRIMARY KEY AUTOINCREMENT,"
                       "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                       "largest_quantity INTEGER CHECK (largest_quantity > 0),"
                       "largest_amount INTEGER CHECK (largest_amount > 0),"
                       "price_band_per_mille INTEGER CHECK (price_band_per_mille > 0),"
                       "authorised_by TEXT NOT NULL REFERENCES users (id), authorised_time TEXT NOT NULL,"
                       "last_day TEXT NOT NULL, reason TEXT NOT NULL) STRICT"),
        QStringLiteral("CREATE INDEX limit_exceptions_of_accounts ON limit_exceptions (trading_account)"),
    };
}

// Texts of an entry are NULL if it has none. Entries are kept, and with them the plans that they tell of.
QString newHistory(const char* name, const QString& eventCheck)
{
    return QStringLiteral("CREATE TABLE %1 ("
                          "number INTEGER PRIMARY KEY AUTOINCREMENT,"
                          "event TEXT NOT NULL CHECK (%2),"
                          "plan INTEGER REFERENCES plans (number), version INTEGER CHECK (version >= 1), subject TEXT,"
                          "before TEXT CHECK (before IS NULL OR before GLOB '{*}'),"
                          "after TEXT CHECK (after IS NULL OR after GLOB '{*}'),"
                          "user TEXT NOT NULL, time TEXT NOT NULL CHECK (time LIKE '____-__-__T__:__:__.___Z'),"
                          "client TEXT NOT NULL, request TEXT,"
                          "CHECK ((plan IS NULL) = (event = 'signed')), CHECK ((plan IS NULL) = (version IS NULL))"
                          ") STRICT")
        .arg(QLatin1String(name), eventCheck);
}

QStringList historyRules()
{
    return {
        QStringLiteral("CREATE INDEX history_of_plans ON history (plan) WHERE plan IS NOT NULL"),
        QStringLiteral("CREATE UNIQUE INDEX history_of_requests ON history (request) WHERE request IS NOT NULL"),
        QStringLiteral("CREATE TRIGGER history_is_not_changed BEFORE UPDATE ON history"
                       " BEGIN SELECT RAISE(ABORT, 'the history is not changed'); END"),
        QStringLiteral("CREATE TRIGGER history_is_not_deleted BEFORE DELETE ON history"
                       " BEGIN SELECT RAISE(ABORT, 'the history is not deleted'); END"),
    };
}

QStringList historyTable()
{
    const QString check =
        QStringLiteral("event IN ('created', 'changed', 'state changed', 'issued', 'instruction changed', 'signed')");
    return QStringList(newHistory("history", check)) + historyRules();
}

// A check is changed by a new table. For each row, SQLite would make a table of a list.
QStringList completedHistory()
{
    const QStringList events{ QStringLiteral("created"), QStringLiteral("changed"), QStringLiteral("state changed"),
        QStringLiteral("issued"), QStringLiteral("instruction changed"), QStringLiteral("signed"),
        QStringLiteral("completed") };
    const QString check = QStringLiteral("event = '%1'").arg(events.join(QStringLiteral("' OR event = '")));
    return QStringList{ newHistory("new_history", check),
        QStringLiteral("INSERT INTO new_history SELECT * FROM history"), QStringLiteral("DROP TABLE history"),
        QStringLiteral("ALTER TABLE new_history RENAME TO history") }
    + historyRules();
}

// Lists are filtered by what their indexes tell, without reading the plans. What a list is sorted by comes first. Lists
// have archived plans only, or none, however many there are. A new plan writes a page of each of its indexes.
QStringList coveringIndexes()
{
    const QVector<QPair<const char*, const char*>> sources{ { "trading_account", "accounts" },
        { "assignee", "assignees" }, { "executor", "executors" } };
    const QVector<QPair<const char*, const char*>> orders{ { "plans", "number, begin_date, end_date" },
        { "securities", "symbol, number, begin_date, end_date" }, { "ends", "end_date, number, begin_date" } };
    const QVector<QPair<const char*, const char*>> lists{ { "current", "<>" }, { "archived", "=" } };
    QStringList statements{ QStringLiteral("DROP INDEX creators_of_accounts"),
        QStringLiteral("DROP INDEX plans_of_accounts"),
        QStringLiteral("CREATE INDEX creators_of_accounts ON plans (trading_account, creator, state)") };
    for (const char* const source : { "accounts", "assignees", "executors" })
        statements << QStringLiteral("DROP INDEX securities_of_%1").arg(QLatin1String(source))
                   << QStringLiteral("DROP INDEX ends_of_%1").arg(QLatin1String(source));
    for (const auto& [column, source] : sources) {
        for (const auto& [kind, sorting] : orders) {
            for (const auto& [list, comparison] : lists)
                statements << QStringLiteral("CREATE INDEX %1_%2_of_%3 ON plans (%4, %5, state, completed_day)"
                                             " WHERE state %6 'archived' AND %4 IS NOT NULL")
                                  .arg(QLatin1String(list), QLatin1String(kind), QLatin1String(source),
                                      QLatin1String(column), QLatin1String(sorting), QLatin1String(comparison));
        }
    }
    return statements;
}

// The day on which nothing was left of a plan; since when it is active, if it was not from its creation on; the days on
// which an active plan got no instruction, and why; and the alerts that a user has worked off.
QStringList planLife()
{
    return {
        QStringLiteral("ALTER TABLE plans ADD COLUMN completed_day TEXT"
                       " CHECK (completed_day IS date(completed_day, '+0 days'))"),
        QStringLiteral("ALTER TABLE plans ADD COLUMN resumed_time TEXT"
                       " CHECK (resumed_time LIKE '____-__-__T__:__:__.___Z')"),
        QStringLiteral("CREATE TABLE refused_days ("
                       "plan INTEGER NOT NULL REFERENCES plans (number),"
                       "day TEXT NOT NULL CHECK (day IS date(day, '+0 days')), reason TEXT NOT NULL,"
                       "user TEXT NOT NULL, time TEXT NOT NULL CHECK (time LIKE '____-__-__T__:__:__.___Z'),"
                       "PRIMARY KEY (plan, day)) STRICT, WITHOUT ROWID"),
        QStringLiteral("CREATE INDEX instructions_of_days ON instructions (day, plan)"),
        QStringLiteral("CREATE INDEX refused_days_of_days ON refused_days (day, plan)"),
        QStringLiteral("CREATE INDEX history_of_changes ON history (time)"
                       " WHERE event IN ('changed', 'state changed')"),
        QStringLiteral("CREATE TABLE done_alerts ("
                       "user TEXT NOT NULL, plan INTEGER NOT NULL REFERENCES plans (number) ON DELETE CASCADE,"
                       "kind TEXT NOT NULL, subject TEXT NOT NULL,"
                       "PRIMARY KEY (user, plan, kind, subject)) STRICT, WITHOUT ROWID"),
    };
}

} // namespace

const QVector<Migration>& SqliteSchema::migrations()
{
    static const QVector<Migration> steps{
        { 1, planTables() + accountTables() + authorityTables() + marketTables() + configurationTables() },
        { 2, planChangedTime() },
        { 3, unusedTables() },
        { 4, limitTables() },
        { 5, TypedTables::statements(), TypedTables::obstacles() },
        { 6, historyTable() },
        { 7, completedHistory() + planLife() + coveringIndexes() + Bookings::sqliteStatements() },
    };
    return steps;
}

int SqliteSchema::latestVersion()
{
    return migrations().constLast().version;
}

int SqliteSchema::applicationId()
{
    return 0x504C444B; // "PLDK"
}
