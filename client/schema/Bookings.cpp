#include "Bookings.h"

namespace {

// What an instruction has booked, as the fields of a row. The entrust types 3 and 4 trade borrowed shares, 5 spends
// borrowed money, 4 and 6 pay a debt with what they earn, and 9 exchanges bonds for shares. %1 is the row.
const char* const OpenQuantity = "CASE WHEN %1.ended = 1 OR %1.filled_quantity > %1.issued_quantity THEN 0"
                                 " ELSE coalesce(%1.issued_quantity, 0) - coalesce(%1.filled_quantity, 0) END";
const char* const OpenFen = "CASE WHEN %1.ended = 1 OR %1.filled_fen > %1.issued_fen THEN 0"
                            " ELSE coalesce(%1.issued_fen, 0) - coalesce(%1.filled_fen, 0) END";

// Nothing is in the view: what is inserted is booked. Quantities are in stored units; `open` and `open_fen` are those
// of a sale and of a purchase, and `paid` is negative for a sale.
const char* const View = R"(CREATE VIEW bookings AS SELECT NULL AS trading_account, NULL AS security_account,
    NULL AS symbol, NULL AS day, NULL AS bought, NULL AS sold, NULL AS open, NULL AS paid, NULL AS open_fen WHERE 0)";

// %1 is the event, %2 the row, and the others are what is filled and open more than before.
const char* const Booking = R"(CREATE TRIGGER instruction_is_booked_on_%1 AFTER %1 ON instructions BEGIN
    INSERT INTO bookings SELECT p.trading_account, coalesce(e.security_account, ''), p.symbol, %2.day,
        CASE WHEN p.side = '1' AND %2.margin_side IS NOT '3' THEN %3 ELSE 0 END,
        CASE WHEN p.side = '2' AND %2.margin_side IS NOT '4' THEN %3 ELSE 0 END,
        CASE WHEN p.side = '2' AND %2.margin_side IS NOT '4' THEN %4 ELSE 0 END,
        CASE WHEN p.side = '1' AND %2.margin_side IS NOT '5' THEN %5
            WHEN p.side = '2' AND coalesce(%2.margin_side, '') NOT IN ('4', '6', '9') THEN -(%5) ELSE 0 END,
        CASE WHEN p.side = '1' AND %2.margin_side IS NOT '5' THEN %6 ELSE 0 END
    FROM plans AS p JOIN securities AS s ON s.symbol = p.symbol
    LEFT JOIN exchange_accounts AS e ON e.trading_account = p.trading_account AND e.exchange = s.exchange
    WHERE p.number = %2.plan; END)";

const char* const SqliteBooking = R"(CREATE TRIGGER booking_is_made INSTEAD OF INSERT ON bookings BEGIN
    INSERT INTO positions (trading_account, security_account, symbol, quantity, tradeable_quantity)
        SELECT NEW.trading_account, NEW.security_account, NEW.symbol, 0, 0 WHERE NEW.bought > 0
        ON CONFLICT (trading_account, security_account, symbol) DO NOTHING;
    UPDATE positions SET tradeable_quantity = tradeable_quantity + bought_quantity, bought_quantity = 0,
        bought_day = NULL
        WHERE trading_account = NEW.trading_account AND security_account = NEW.security_account
        AND symbol = NEW.symbol AND bought_day < NEW.day AND (NEW.bought <> 0 OR NEW.sold <> 0 OR NEW.open <> 0);
    UPDATE positions SET reserved_quantity = 0, reserved_day = NEW.day
        WHERE trading_account = NEW.trading_account AND security_account = NEW.security_account
        AND symbol = NEW.symbol AND (reserved_day IS NULL OR reserved_day < NEW.day) AND NEW.open > 0;
    SELECT RAISE(ABORT, '%1') WHERE (NEW.sold > 0 OR NEW.open > 0 OR NEW.bought < 0) AND NOT EXISTS (
        SELECT 1 FROM positions WHERE trading_account = NEW.trading_account
        AND security_account = NEW.security_account AND symbol = NEW.symbol
        AND CASE WHEN NEW.bought < 0 AND bought_day = NEW.day THEN bought_quantity
            WHEN reserved_day >= NEW.day THEN tradeable_quantity - reserved_quantity ELSE tradeable_quantity END
        >= NEW.sold + CASE WHEN reserved_day = NEW.day THEN NEW.open ELSE 0 END - NEW.bought);
    UPDATE positions SET quantity = quantity + NEW.bought - NEW.sold,
        bought_quantity = bought_quantity + CASE WHEN bought_day = NEW.day OR bought_day IS NULL AND NEW.bought > 0
            THEN NEW.bought ELSE 0 END,
        tradeable_quantity = tradeable_quantity - NEW.sold + CASE WHEN bought_day = NEW.day
            OR bought_day IS NULL AND NEW.bought > 0 THEN 0 ELSE NEW.bought END,
        bought_day = CASE WHEN bought_day IS NULL AND NEW.bought > 0 THEN NEW.day ELSE bought_day END,
        reserved_quantity = max(0, reserved_quantity + CASE WHEN reserved_day = NEW.day THEN NEW.open ELSE 0 END)
        WHERE trading_account = NEW.trading_account AND security_account = NEW.security_account
        AND symbol = NEW.symbol;
    UPDATE account_cash SET reserved_fen = 0, reserved_day = NEW.day
        WHERE trading_account = NEW.trading_account AND (reserved_day IS NULL OR reserved_day < NEW.day)
        AND NEW.open_fen > 0;
    UPDATE account_cash SET fen = fen - NEW.paid,
        reserved_fen = max(0, reserved_fen + CASE WHEN reserved_day = NEW.day THEN NEW.open_fen ELSE 0 END)
        WHERE trading_account = NEW.trading_account;
    END)";

// The functions run as the owner, because users only read positions and cash.
const char* const PostgresTables = R"(
ALTER TABLE instructions ADD COLUMN margin_side plain_text;
ALTER TABLE positions ADD COLUMN bought_quantity bigint NOT NULL DEFAULT 0 CHECK (bought_quantity >= 0),
    ADD COLUMN bought_day calendar_day,
    ADD COLUMN reserved_quantity bigint NOT NULL DEFAULT 0 CHECK (reserved_quantity >= 0),
    ADD COLUMN reserved_day calendar_day;
CREATE TABLE account_cash (
    trading_account plain_text PRIMARY KEY REFERENCES accounts (trading_account),
    fen bigint NOT NULL,
    reserved_fen bigint NOT NULL DEFAULT 0 CHECK (reserved_fen >= 0),
    reserved_day calendar_day);
GRANT SELECT ON account_cash TO plandesk_user;
ALTER TABLE account_cash ENABLE ROW LEVEL SECURITY;
CREATE POLICY known ON account_cash FOR SELECT USING (knows_account(trading_account));
CREATE FUNCTION open_part(ended integer, issued bigint, filled bigint) RETURNS bigint LANGUAGE sql IMMUTABLE AS
    'SELECT CASE WHEN ended = 1 THEN 0 ELSE greatest(coalesce(issued, 0) - coalesce(filled, 0), 0) END'
)";

const char* const PostgresBooking = R"(
CREATE FUNCTION book_instruction() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
DECLARE
    changed instructions := coalesce(NEW, OLD);
    entrust text := coalesce(changed.margin_side, '');
    p record;
    bought bigint := 0;
    sold bigint := 0;
    opened bigint := 0;
    paid bigint := coalesce(NEW.filled_fen, 0) - coalesce(OLD.filled_fen, 0);
    opened_fen bigint := open_part(NEW.ended, NEW.issued_fen, NEW.filled_fen)
        - open_part(OLD.ended, OLD.issued_fen, OLD.filled_fen);
    held positions;
BEGIN
    SELECT plans.trading_account, plans.symbol, side, display_factor AS factor,
            coalesce(security_account, '') AS security_account
        INTO p FROM plans JOIN securities ON securities.symbol = plans.symbol LEFT JOIN exchange_accounts AS e
        ON e.trading_account = plans.trading_account AND e.exchange = securities.exchange
        WHERE number = changed.plan;
    IF p IS NULL OR p.side IS NULL THEN
        RETURN NULL;
    END IF;
    IF p.side = '1' AND entrust <> '3' THEN
        bought := coalesce(NEW.filled_quantity, 0) / p.factor - coalesce(OLD.filled_quantity, 0) / p.factor;
    ELSIF p.side = '2' AND entrust <> '4' THEN
        sold := coalesce(NEW.filled_quantity, 0) / p.factor - coalesce(OLD.filled_quantity, 0) / p.factor;
        opened := open_part(NEW.ended, NEW.issued_quantity, NEW.filled_quantity) / p.factor
            - open_part(OLD.ended, OLD.issued_quantity, OLD.filled_quantity) / p.factor;
    END IF;
    IF bought <> 0 OR sold <> 0 OR opened <> 0 THEN
        IF bought > 0 THEN
            INSERT INTO positions (trading_account, security_account, symbol, quantity, tradeable_quantity)
                VALUES (p.trading_account, p.security_account, p.symbol, 0, 0) ON CONFLICT DO NOTHING;
        END IF;
        SELECT * INTO held FROM positions AS h WHERE h.trading_account = p.trading_account
            AND h.security_account = p.security_account AND h.symbol = p.symbol FOR UPDATE;
        IF held.bought_day < changed.day THEN
            held.tradeable_quantity := held.tradeable_quantity + held.bought_quantity;
            held.bought_quantity := 0;
            held.bought_day := NULL;
        END IF;
        IF opened > 0 AND (held.reserved_day IS NULL OR held.reserved_day < changed.day) THEN
            held.reserved_quantity := 0;
            held.reserved_day := changed.day;
        END IF;
        IF held.reserved_day IS DISTINCT FROM changed.day::text THEN
            opened := 0;
        END IF;
        IF (sold > 0 OR opened > 0 OR bought < 0) AND NOT coalesce(
            CASE WHEN bought < 0 AND held.bought_day = changed.day THEN held.bought_quantity
                WHEN held.reserved_day >= changed.day THEN held.tradeable_quantity - held.reserved_quantity
                ELSE held.tradeable_quantity END >= sold + opened - bought, false) THEN
            RAISE EXCEPTION '%1';
        END IF;
        IF held.bought_day IS NULL AND bought > 0 THEN
            held.bought_day := changed.day;
        END IF;
        IF held.bought_day = changed.day THEN
            held.bought_quantity := held.bought_quantity + bought;
        ELSE
            held.tradeable_quantity := held.tradeable_quantity + bought;
        END IF;
        UPDATE positions AS h SET quantity = h.quantity + bought - sold,
            tradeable_quantity = held.tradeable_quantity - sold, bought_quantity = held.bought_quantity,
            bought_day = held.bought_day, reserved_quantity = greatest(0, held.reserved_quantity + opened),
            reserved_day = held.reserved_day
            WHERE h.trading_account = p.trading_account AND h.security_account = p.security_account
            AND h.symbol = p.symbol;
    END IF;
    IF p.side = '2' THEN
        paid := CASE WHEN entrust IN ('4', '6', '9') THEN 0 ELSE -paid END;
        opened_fen := 0;
    ELSIF entrust = '5' THEN
        paid := 0;
        opened_fen := 0;
    END IF;
    UPDATE account_cash AS c SET fen = c.fen - paid,
        reserved_fen = CASE WHEN c.reserved_day = changed.day THEN greatest(0, c.reserved_fen + opened_fen)
            WHEN opened_fen > 0 AND (c.reserved_day IS NULL OR c.reserved_day < changed.day) THEN opened_fen
            ELSE c.reserved_fen END,
        reserved_day = CASE WHEN opened_fen > 0 AND (c.reserved_day IS NULL OR c.reserved_day < changed.day)
            THEN changed.day ELSE c.reserved_day END
        WHERE c.trading_account = p.trading_account AND (paid <> 0 OR opened_fen <> 0);
    RETURN NULL;
END $$;
REVOKE EXECUTE ON FUNCTION book_instruction, open_part FROM PUBLIC;
CREATE TRIGGER is_booked AFTER INSERT OR DELETE OR UPDATE OF ended, issued_quantity, filled_quantity, issued_fen,
    filled_fen ON instructions FOR EACH ROW EXECUTE FUNCTION book_instruction();
CREATE FUNCTION take_back_instructions() RETURNS trigger LANGUAGE plpgsql SET search_path = plandesk, pg_temp AS
    'BEGIN DELETE FROM instructions WHERE plan = OLD.number; RETURN OLD; END';
CREATE TRIGGER instructions_are_taken_back BEFORE DELETE ON plans
    FOR EACH ROW EXECUTE FUNCTION take_back_instructions()
)";

// %1 is the name of the event, %2 the event.
const char* const SqliteFill = R"(CREATE TRIGGER fill_is_limited_on_%1 BEFORE %2 ON instructions
    WHEN NEW.filled_quantity > coalesce(NEW.issued_quantity, 0) BEGIN SELECT RAISE(ABORT, '%3'); END)";

const char* const PostgresFill = R"(
CREATE FUNCTION refuse_fill() RETURNS trigger LANGUAGE plpgsql AS
    'BEGIN RAISE EXCEPTION ''%1''; END';
CREATE TRIGGER fill_is_limited BEFORE INSERT OR UPDATE OF issued_quantity, filled_quantity ON instructions FOR EACH ROW
    WHEN (NEW.filled_quantity > coalesce(NEW.issued_quantity, 0)) EXECUTE FUNCTION refuse_fill()
)";

QString open(const char* text, const char* row)
{
    return QStringLiteral("(%1)").arg(QString::fromLatin1(text).arg(QLatin1String(row)));
}

/// The difference of a value between both rows, or the value of the only one.
QString difference(const QString& event, const QString& ofNew, const QString& ofOld)
{
    if (event == QLatin1String("INSERT"))
        return ofNew;
    return event == QLatin1String("DELETE") ? QStringLiteral("-") + ofOld : ofNew + QStringLiteral(" - ") + ofOld;
}

QString booking(const QString& event)
{
    const auto stored = [](const QString& quantity) { return quantity + QStringLiteral(" / s.display_factor"); };
    const auto filled = [](const char* row, const char* unit) {
        return QStringLiteral("coalesce(%1.filled_%2, 0)").arg(QLatin1String(row), QLatin1String(unit));
    };
    const QString row = event == QLatin1String("DELETE") ? QStringLiteral("OLD") : QStringLiteral("NEW");
    return QString::fromLatin1(Booking).arg(event, row,
        difference(event, stored(filled("NEW", "quantity")), stored(filled("OLD", "quantity"))),
        difference(event, stored(open(OpenQuantity, "NEW")), stored(open(OpenQuantity, "OLD"))),
        difference(event, filled("NEW", "fen"), filled("OLD", "fen")),
        difference(event, open(OpenFen, "NEW"), open(OpenFen, "OLD")));
}

QStringList sqliteTables()
{
    const QString isDay = QStringLiteral("TEXT CHECK (%1 IS date(%1, '+0 days'))");
    QStringList statements{ QStringLiteral("ALTER TABLE instructions ADD COLUMN margin_side TEXT") };
    for (const char* const name : { "bought", "reserved" }) {
        const QString day = QLatin1String(name) + QStringLiteral("_day");
        statements << QStringLiteral(
            "ALTER TABLE positions ADD COLUMN %1_quantity INTEGER NOT NULL DEFAULT 0 CHECK (%1_quantity >= 0)")
                          .arg(QLatin1String(name))
                   << QStringLiteral("ALTER TABLE positions ADD COLUMN %1 %2").arg(day, isDay.arg(day));
    }
    return statements << QStringLiteral(
               "CREATE TABLE account_cash ("
               "trading_account TEXT PRIMARY KEY REFERENCES accounts (trading_account),"
               "fen INTEGER NOT NULL, reserved_fen INTEGER NOT NULL DEFAULT 0 CHECK (reserved_fen >= 0),"
               "reserved_day %1) STRICT, WITHOUT ROWID")
                             .arg(isDay.arg(QStringLiteral("reserved_day")));
}

} // namespace

QStringList Bookings::sqliteStatements()
{
    QStringList statements = sqliteTables();
    statements << QString::fromLatin1(View) << QString::fromLatin1(SqliteBooking).arg(refusal());
    for (const char* const event : { "INSERT", "UPDATE", "DELETE" })
        statements << booking(QLatin1String(event));
    const auto limit = [](const char* name, const char* event) {
        return QString::fromLatin1(SqliteFill).arg(QLatin1String(name), QLatin1String(event), fillRefusal());
    };
    statements << limit("INSERT", "INSERT") << limit("UPDATE", "UPDATE OF issued_quantity, filled_quantity");
    return statements << QStringLiteral("CREATE TRIGGER instructions_are_taken_back BEFORE DELETE ON plans"
                                        " BEGIN DELETE FROM instructions WHERE plan = OLD.number; END");
}

QStringList Bookings::postgresStatements()
{
    return { QString::fromLatin1(PostgresTables).trimmed(),
        QString::fromLatin1(PostgresBooking).trimmed().arg(refusal()),
        QString::fromLatin1(PostgresFill).trimmed().arg(fillRefusal()) };
}

QString Bookings::fillRefusal()
{
    return QStringLiteral("more is filled than was issued");
}

QString Bookings::refusal()
{
    return QStringLiteral("more is sold than may be sold");
}
