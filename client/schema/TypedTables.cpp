#include "TypedTables.h"

namespace {

// Before, times were those of the market.
QString inUtc(const char* column)
{
    return QStringLiteral("strftime('%Y-%m-%dT%H:%M:%fZ', %1, '-8 hours')").arg(QLatin1String(column));
}

// The addition makes a real day of one that a month does not have, which then differs.
QString isTime(const char* column)
{
    return QStringLiteral("%1 IS strftime('%Y-%m-%dT%H:%M:%fZ', %1, '+0 days')").arg(QLatin1String(column));
}

QString isMarketTime(const char* column)
{
    return QStringLiteral("%1 IS strftime('%Y-%m-%dT%H:%M:%f', %1, '+0 days')").arg(QLatin1String(column));
}

QString isDate(const char* column)
{
    return QStringLiteral("%1 IS date(%1, '+0 days')").arg(QLatin1String(column));
}

QStringList renamed(const QString& table)
{
    return { QStringLiteral("ALTER TABLE %1 RENAME TO old_%1").arg(table) };
}

QStringList copied(const QString& table, const QString& columns)
{
    return { QStringLiteral("INSERT INTO %1 SELECT %2 FROM old_%1").arg(table, columns) };
}

QStringList dropped(const QString& table)
{
    return { QStringLiteral("DROP TABLE old_%1").arg(table) };
}

// A number is never used twice, also if its row is gone.
QStringList keptNumbers(const QString& table)
{
    return { QStringLiteral("DELETE FROM sqlite_sequence WHERE name = '%1'").arg(table),
        QStringLiteral("UPDATE sqlite_sequence SET name = '%1' WHERE name = 'old_%1'").arg(table) };
}

QStringList securities()
{
    const QString create =
        QStringLiteral("CREATE TABLE securities ("
                       "position INTEGER PRIMARY KEY, symbol TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
                       "type TEXT NOT NULL, sub_type TEXT NOT NULL, exchange TEXT NOT NULL,"
                       "price_precision INTEGER NOT NULL CHECK (price_precision BETWEEN 0 AND 6),"
                       "display_factor INTEGER NOT NULL CHECK (display_factor BETWEEN 1 AND 1000000),"
                       "quantity_step INTEGER NOT NULL CHECK (quantity_step BETWEEN 1 AND 1000000),"
                       "limit_per_mille INTEGER NOT NULL CHECK (limit_per_mille BETWEEN 0 AND 1000),"
                       "st_flag TEXT NOT NULL, st_text TEXT NOT NULL) STRICT");
    return QStringList{ create }
    + copied(QStringLiteral("securities"),
        QStringLiteral("position, symbol, name, type, sub_type, exchange, price_precision, display_factor,"
                       " quantity_step, limit_per_mille, st_flag, st_text"));
}

QStringList closingPrices()
{
    const QString create =
        QStringLiteral("CREATE TABLE closing_prices ("
                       "security INTEGER PRIMARY KEY REFERENCES securities (position) ON DELETE CASCADE,"
                       "last_day TEXT NOT NULL CHECK (%1),"
                       "last_close INTEGER NOT NULL CHECK (last_close >= 0), closes BLOB NOT NULL) STRICT")
            .arg(isDate("last_day"));
    return QStringList{ create }
    + copied(QStringLiteral("closing_prices"), QStringLiteral("security, last_day, last_close, closes"));
}

QStringList positions()
{
    const QString create = QStringLiteral(
        "CREATE TABLE positions ("
        "trading_account TEXT NOT NULL REFERENCES accounts (trading_account), security_account TEXT NOT NULL,"
        "symbol TEXT NOT NULL REFERENCES securities (symbol), quantity INTEGER NOT NULL CHECK (quantity >= 0),"
        "tradeable_quantity INTEGER NOT NULL CHECK (tradeable_quantity >= 0),"
        "PRIMARY KEY (trading_account, security_account, symbol)) STRICT, WITHOUT ROWID");
    return renamed(QStringLiteral("positions")) + QStringList{ create }
    + copied(QStringLiteral("positions"),
        QStringLiteral("trading_account, security_account, symbol, quantity, tradeable_quantity"))
        + dropped(QStringLiteral("positions"));
}

QStringList signatures()
{
    const QString create = QStringLiteral("CREATE TABLE signatures ("
                                          "protocol TEXT NOT NULL REFERENCES agreements (protocol),"
                                          "client_no TEXT NOT NULL, user TEXT NOT NULL,"
                                          "signed_time TEXT NOT NULL CHECK (%1),"
                                          "PRIMARY KEY (protocol, client_no)) STRICT, WITHOUT ROWID")
                               .arg(isTime("signed_time"));
    return renamed(QStringLiteral("signatures")) + QStringList{ create }
    + copied(QStringLiteral("signatures"), QStringLiteral("protocol, client_no, user, ") + inUtc("signed_time"))
        + dropped(QStringLiteral("signatures"));
}

QStringList limitExceptions()
{
    const QString create = QStringLiteral("CREATE TABLE limit_exceptions ("
                                          "number INTEGER PRIMARY KEY AUTOINCREMENT,"
                                          "trading_account TEXT NOT NULL REFERENCES accounts (trading_account),"
                                          "largest_quantity INTEGER CHECK (largest_quantity > 0),"
                                          "largest_amount INTEGER CHECK (largest_amount > 0),"
                                          "price_band_per_mille INTEGER CHECK (price_band_per_mille > 0),"
                                          "authorised_by TEXT NOT NULL REFERENCES users (id),"
                                          "authorised_time TEXT NOT NULL CHECK (%1),"
                                          "last_day TEXT NOT NULL CHECK (%2), reason TEXT NOT NULL) STRICT")
                               .arg(isTime("authorised_time"), isDate("last_day"));
    const QString table = QStringLiteral("limit_exceptions");
    return renamed(table) + QStringList{ create }
    + copied(table,
        QStringLiteral("number, trading_account, largest_quantity, largest_amount, price_band_per_mille,"
                       " authorised_by, authorised_time, last_day, reason"))
        + keptNumbers(table) + dropped(table)
        + QStringList{ QStringLiteral(
            "CREATE INDEX limit_exceptions_of_accounts ON limit_exceptions (trading_account)") };
}

// The fields of a record without a column are in one JSON object of texts. Its check uses no JSON function, because
// SQLite does not call them for files that it must not trust.
QString plansTable()
{
    return QStringLiteral("CREATE TABLE plans ("
                          "number INTEGER PRIMARY KEY AUTOINCREMENT, version INTEGER NOT NULL CHECK (version >= 1),"
                          "state TEXT NOT NULL DEFAULT 'active'"
                          " CHECK (state IN ('active', 'paused', 'stopped', 'archived')),"
                          "creator TEXT NOT NULL REFERENCES users (id), created_time TEXT NOT NULL CHECK (%1),"
                          "changed_time TEXT NOT NULL CHECK (%2), plan_type TEXT, instruction_type TEXT,"
                          "trading_account TEXT REFERENCES accounts (trading_account),"
                          "symbol TEXT REFERENCES securities (symbol), side TEXT, assignee TEXT, executor TEXT,"
                          "begin_date TEXT CHECK (%3), end_date TEXT CHECK (%4),"
                          "fields TEXT NOT NULL CHECK (fields GLOB '{*}'),"
                          "CHECK (begin_date <= end_date)) STRICT")
        .arg(isTime("created_time"), isTime("changed_time"), isDate("begin_date"), isDate("end_date"));
}

// Lists of plans are read by account, and those of no own account by the name of their assignee or executor, in the
// order of numbers, which end each index, of securities, or of ends. Those of a day are found in an index that tells
// whether they are due and whose they are.
QStringList planIndexes()
{
    return {
        QStringLiteral("CREATE INDEX plans_of_accounts ON plans (trading_account)"),
        QStringLiteral("CREATE INDEX plans_of_assignees ON plans (assignee) WHERE assignee IS NOT NULL"),
        QStringLiteral("CREATE INDEX plans_of_executors ON plans (executor) WHERE executor IS NOT NULL"),
        QStringLiteral("CREATE INDEX securities_of_accounts ON plans (trading_account, symbol)"),
        QStringLiteral("CREATE INDEX securities_of_assignees ON plans (assignee, symbol) WHERE assignee IS NOT NULL"),
        QStringLiteral("CREATE INDEX securities_of_executors ON plans (executor, symbol) WHERE executor IS NOT NULL"),
        QStringLiteral("CREATE INDEX ends_of_accounts ON plans (trading_account, end_date)"),
        QStringLiteral("CREATE INDEX ends_of_assignees ON plans (assignee, end_date) WHERE assignee IS NOT NULL"),
        QStringLiteral("CREATE INDEX ends_of_executors ON plans (executor, end_date) WHERE executor IS NOT NULL"),
        QStringLiteral("CREATE INDEX creators_of_accounts ON plans (trading_account, creator)"),
        QStringLiteral("CREATE INDEX plans_of_days ON plans (end_date, begin_date, state, trading_account)"),
    };
}

QString fieldOf(const char* key)
{
    return QStringLiteral("max(CASE key WHEN '%1' THEN value END)").arg(QLatin1String(key));
}

QStringList plans()
{
    const QStringList columns{ inUtc("created_time"), inUtc("changed_time"), fieldOf("templateCode"),
        fieldOf("subType"), fieldOf("tradingAccount"), fieldOf("symbol"), fieldOf("orderSide"), fieldOf("expectedUser"),
        fieldOf("executeUser"), fieldOf("beginDate"), fieldOf("endDate") };
    const QString others = QStringLiteral(
        "json_group_object(key, value) FILTER (WHERE key NOT IN ('templateCode', 'subType', 'tradingAccount',"
        " 'symbol', 'orderSide', 'expectedUser', 'executeUser', 'beginDate', 'endDate'))");
    const QString table = QStringLiteral("plans");
    return renamed(table)
        + QStringList{ plansTable(),
              QStringLiteral("INSERT INTO plans SELECT number, version, 'active', creator, %1,"
                             " CASE WHEN other_param IS NULL THEN %2"
                             " ELSE json_set(%2, '$.planOtherParam', other_param) END"
                             " FROM old_plans LEFT JOIN plan_fields ON plan = number GROUP BY number")
                  .arg(columns.join(QStringLiteral(", ")), others) }
    + keptNumbers(table) + planIndexes();
}

QString instructionsTable()
{
    return QStringLiteral("CREATE TABLE instructions ("
                          "plan INTEGER NOT NULL REFERENCES plans (number) ON DELETE CASCADE,"
                          "position INTEGER NOT NULL CHECK (position >= 1),"
                          "day TEXT NOT NULL CHECK (%1),"
                          "ended INTEGER CHECK (ended IN (0, 1)), target_type TEXT,"
                          "price_ticks INTEGER CHECK (price_ticks >= 0),"
                          "price_decimals INTEGER CHECK (price_decimals BETWEEN 0 AND 6),"
                          "issued_quantity INTEGER CHECK (issued_quantity >= 0),"
                          "filled_quantity INTEGER CHECK (filled_quantity >= 0),"
                          "issued_fen INTEGER CHECK (issued_fen >= 0), filled_fen INTEGER CHECK (filled_fen >= 0),"
                          "PRIMARY KEY (plan, position),"
                          "CHECK ((price_ticks IS NULL) = (price_decimals IS NULL))) STRICT, WITHOUT ROWID")
        .arg(isDate("day"));
}

QString wholeOf(const char* key)
{
    return QStringLiteral("CAST(%1 AS INTEGER)").arg(fieldOf(key));
}

// A number without its decimal point: a price in ticks, an amount of yuan in fen.
QString unitsOf(const char* key)
{
    return QStringLiteral("CAST(replace(%1, '.', '') AS INTEGER)").arg(fieldOf(key));
}

const QString Position = QStringLiteral("CAST(substr(id, instr(id, '-') + 1) AS INTEGER)");

QStringList instructions()
{
    const QString decimals = QStringLiteral("CASE instr(%1, '.') WHEN 0 THEN 0 ELSE length(%1) - instr(%1, '.') END");
    const QStringList columns{ wholeOf("12013"), fieldOf("57134"), unitsOf("44"), decimals.arg(fieldOf("44")),
        wholeOf("38"), wholeOf("14"), unitsOf("217201"), unitsOf("cumAmount") };
    return {
        instructionsTable(),
        QStringLiteral("INSERT INTO instructions SELECT plan, %1, day, %2"
                       " FROM plan_instructions LEFT JOIN instruction_fields USING (plan, id) GROUP BY plan, id")
            .arg(Position, columns.join(QStringLiteral(", "))),
    };
}

// Children before their parents, whose rows would otherwise be deleted one by one.
QStringList oldTables()
{
    return QStringList{ QStringLiteral("DROP TABLE instruction_fields"), QStringLiteral("DROP TABLE plan_instructions"),
        QStringLiteral("DROP TABLE plan_fields") }
    + dropped(QStringLiteral("plans")) + dropped(QStringLiteral("closing_prices"))
        + dropped(QStringLiteral("securities"));
}

Obstacle planValue(const QString& caption, const char* key, const QString& condition, Error error)
{
    return { error,
        QStringLiteral("SELECT printf('AP%08d', plan), '%1', substr(value, 1, 32) FROM plan_fields"
                       " WHERE key = '%2' AND value %3")
            .arg(caption, QLatin1String(key), condition) };
}

Obstacle planTime(const QString& caption, const char* column)
{
    return { Error::PlanValueInvalid,
        QStringLiteral("SELECT printf('AP%08d', number), '%1', substr(%2, 1, 32) FROM plans WHERE NOT (%3)")
            .arg(caption, QLatin1String(column), isMarketTime(column)) };
}

// Whether a text would come back as it is, for each kind of number.
QString isWhole()
{
    return QStringLiteral("value = CAST(CAST(value AS INTEGER) AS TEXT) AND CAST(value AS INTEGER) >= 0");
}

QString hasDecimals(int fewest, int most)
{
    return QStringLiteral("CAST(value AS INTEGER) >= 0 AND length(value) < 18"
                          " AND substr(value, 1, instr(value, '.') - 1) = CAST(CAST(value AS INTEGER) AS TEXT)"
                          " AND substr(value, instr(value, '.') + 1) NOT GLOB '*[^0-9]*'"
                          " AND length(value) - instr(value, '.') BETWEEN %1 AND %2")
        .arg(fewest)
        .arg(most);
}

QVector<Obstacle> instructionObstacles()
{
    return {
        { Error::InstructionInvalid,
            QStringLiteral("SELECT id, day FROM plan_instructions WHERE %1 < 1 OR NOT (%2)"
                           " OR id <> printf('AP%08d-%06d', plan, %1)")
                .arg(Position, isDate("day")) },
        { Error::InstructionInvalid,
            QStringLiteral("SELECT id, key || ' ' || substr(value, 1, 32)"
                           " FROM plan_instructions CROSS JOIN instruction_fields USING (plan, id)"
                           " WHERE NOT CASE key WHEN '57134' THEN 1 WHEN '75' THEN value = day"
                           " WHEN '12013' THEN value IN ('0', '1') WHEN '38' THEN %1 WHEN '14' THEN %1"
                           " WHEN '217201' THEN %2 WHEN 'cumAmount' THEN %2 WHEN '44' THEN %1 OR %3 ELSE 0 END")
                .arg(isWhole(), hasDecimals(2, 2), hasDecimals(1, 6)) },
    };
}

// References are checked, too: other programs do not enforce them.
QVector<Obstacle> otherObstacles()
{
    return {
        { Error::SecurityInvalid,
            QStringLiteral("SELECT symbol FROM securities WHERE price_precision NOT BETWEEN 0 AND 6"
                           " OR display_factor NOT BETWEEN 1 AND 1000000 OR quantity_step NOT BETWEEN 1 AND 1000000"
                           " OR limit_per_mille NOT BETWEEN 0 AND 1000") },
        { Error::DamagedCloses,
            QStringLiteral("SELECT coalesce(symbol, security) FROM closing_prices"
                           " LEFT JOIN securities ON position = security"
                           " WHERE symbol IS NULL OR last_close < 0 OR NOT (%1)")
                .arg(isDate("last_day")) },
        { Error::PositionInvalid,
            QStringLiteral("SELECT trading_account, symbol FROM positions WHERE quantity < 0 OR tradeable_quantity < 0"
                           " OR symbol NOT IN (SELECT symbol FROM securities)"
                           " OR trading_account NOT IN (SELECT trading_account FROM accounts)") },
        { Error::SignatureInvalid,
            QStringLiteral("SELECT client_no, protocol FROM signatures WHERE NOT (%1)"
                           " OR protocol NOT IN (SELECT protocol FROM agreements)")
                .arg(isMarketTime("signed_time")) },
        { Error::LimitInvalid,
            QStringLiteral("SELECT trading_account, number FROM limit_exceptions WHERE NOT (%1) OR NOT (%2)"
                           " OR trading_account NOT IN (SELECT trading_account FROM accounts)"
                           " OR authorised_by NOT IN (SELECT id FROM users)")
                .arg(isTime("authorised_time"), isDate("last_day")) },
    };
}

} // namespace

QVector<Obstacle> TypedTables::obstacles()
{
    const QString account = QStringLiteral("NOT IN (SELECT trading_account FROM accounts)");
    const QString security = QStringLiteral("NOT IN (SELECT symbol FROM securities)");
    const QString noDate = QStringLiteral("IS NOT date(value, '+0 days')");
    return QVector<Obstacle>{
        planValue(
            QStringLiteral(QT_TRANSLATE_NOOP("Caption", "账户")), "tradingAccount", account, Error::PlanValueUnknown),
        planValue(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "证券")), "symbol", security, Error::PlanValueUnknown),
        planValue(
            QStringLiteral(QT_TRANSLATE_NOOP("Caption", "开始日期")), "beginDate", noDate, Error::PlanValueInvalid),
        planValue(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "结束日期")), "endDate", noDate, Error::PlanValueInvalid),
        { Error::PlanValueInvalid,
            QStringLiteral("SELECT printf('AP%08d', b.plan), '结束日期', e.value FROM plan_fields AS b"
                           " JOIN plan_fields AS e ON e.plan = b.plan AND e.key = 'endDate' AND e.value < b.value"
                           " WHERE b.key = 'beginDate'") },
        { Error::PlanValueUnknown,
            QStringLiteral("SELECT printf('AP%08d', number), '创建人', substr(creator, 1, 32) FROM plans"
                           " WHERE creator NOT IN (SELECT id FROM users)") },
        planTime(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "创建时间")), "created_time"),
        planTime(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "修改时间")), "changed_time"),
    }
    + instructionObstacles() + otherObstacles();
}

// The securities come first, because other tables refer to them.
QStringList TypedTables::statements()
{
    return renamed(QStringLiteral("securities")) + renamed(QStringLiteral("closing_prices")) + securities()
        + closingPrices() + positions() + signatures() + limitExceptions() + plans() + instructions() + oldTables();
}
