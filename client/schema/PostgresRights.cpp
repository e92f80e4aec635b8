#include "PostgresRights.h"

namespace {

// The first two are asked once in a statement, not for each row. Their plans are made once in a session. The role that
// logged in counts, also if it has switched to another one. Definers read rows that the role may not see, without which
// the policies of plans and accounts would need each other.
const char* const Functions = R"(
CREATE FUNCTION own_name() RETURNS text
    LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
BEGIN
    RETURN (SELECT name FROM users WHERE id = session_user::text);
END $$;
CREATE FUNCTION own_accounts() RETURNS text[]
    LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
BEGIN
    RETURN ARRAY (SELECT trading_account::text FROM user_accounts AS u WHERE u.user = session_user::text);
END $$;
-- An own account, or one of a plan that is assigned to the user.
CREATE FUNCTION knows_account(account text) RETURNS boolean
    LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
BEGIN
    RETURN EXISTS (SELECT FROM user_accounts AS u WHERE u.user = session_user::text AND u.trading_account = account)
        OR EXISTS (SELECT FROM plans AS p WHERE p.assignee = own_name() AND p.trading_account = account)
        OR EXISTS (SELECT FROM plans AS p WHERE p.executor = own_name() AND p.trading_account = account);
END $$;
REVOKE EXECUTE ON FUNCTION own_name, own_accounts, knows_account FROM PUBLIC;
GRANT EXECUTE ON FUNCTION own_name, own_accounts, knows_account TO plandesk_user;
CREATE INDEX accounts_of_assignees ON plans (assignee, trading_account) WHERE assignee IS NOT NULL;
CREATE INDEX accounts_of_executors ON plans (executor, trading_account) WHERE executor IS NOT NULL
)";

// The function is called for each row that a statement finds by its other conditions.
const char* const KnownAccounts = R"(
ALTER TABLE %1 ENABLE ROW LEVEL SECURITY;
CREATE POLICY known ON %1 FOR SELECT USING (knows_account(trading_account))
)";

const char* const AccountPolicies = R"(
ALTER TABLE user_accounts ENABLE ROW LEVEL SECURITY;
CREATE POLICY known ON user_accounts FOR SELECT USING ("user" = session_user::text OR knows_account(trading_account));
ALTER TABLE chain_users ENABLE ROW LEVEL SECURITY;
CREATE POLICY known ON chain_users FOR SELECT
    USING (EXISTS (SELECT FROM approval_chains AS c WHERE c.chain_key = chain_users.chain_key));
CREATE POLICY usual ON account_limits FOR SELECT USING (trading_account = '');
ALTER TABLE signatures ENABLE ROW LEVEL SECURITY;
CREATE POLICY known ON signatures FOR SELECT USING (client_no IN (SELECT a.client_no FROM accounts AS a));
CREATE POLICY own ON signatures FOR INSERT WITH CHECK ("user" = session_user::text AND client_no IN
    (SELECT a.client_no FROM accounts AS a WHERE a.trading_account = ANY ((SELECT own_accounts())::text[])))
)";

// A policy refuses a row before its keys are looked up, so that no error tells which rows of others there are. Numbers
// are given by the server alone, for the same reason. Who may update a whole table may lock it, too.
const char* const PlanPolicies = R"(
ALTER TABLE plans ENABLE ROW LEVEL SECURITY;
CREATE POLICY visible ON plans FOR SELECT USING (trading_account = ANY ((SELECT own_accounts())::text[])
    OR assignee = (SELECT own_name()) OR executor = (SELECT own_name()));
CREATE POLICY own ON plans FOR INSERT WITH CHECK (creator = session_user::text AND version = 1
    AND trading_account = ANY ((SELECT own_accounts())::text[])
    AND EXISTS (SELECT FROM order_authorities AS o WHERE o.user = session_user::text
        AND o.trading_account = plans.trading_account AND o.instruction_type = plans.instruction_type));
CREATE POLICY visible_change ON plans FOR UPDATE USING (trading_account = ANY ((SELECT own_accounts())::text[])
    OR assignee = (SELECT own_name()) OR executor = (SELECT own_name()));
REVOKE INSERT, UPDATE ON plans FROM plandesk_user;
GRANT INSERT (version, state, creator, created_time, changed_time, plan_type, instruction_type, trading_account, symbol,
    side, assignee, executor, begin_date, end_date, fields) ON plans TO plandesk_user;
GRANT UPDATE (version, state, changed_time, plan_type, instruction_type, trading_account, symbol, side, assignee,
    executor, begin_date, end_date, fields) ON plans TO plandesk_user;
ALTER TABLE instructions ENABLE ROW LEVEL SECURITY;
REVOKE UPDATE ON instructions FROM plandesk_user;
GRANT UPDATE (position, day, ended, target_type, price_ticks, price_decimals, issued_quantity, filled_quantity,
    issued_fen, filled_fen) ON instructions TO plandesk_user;
CREATE POLICY of_visible_plan ON instructions USING (EXISTS (SELECT FROM plans AS p WHERE p.number = plan));
ALTER TABLE history ENABLE ROW LEVEL SECURITY;
CREATE POLICY visible ON history FOR SELECT USING (CASE WHEN plan IS NULL THEN "user" = session_user::text
    ELSE EXISTS (SELECT FROM plans AS p WHERE p.number = plan) END);
-- Being volatile, it sees a plan that the same statement has stored.
CREATE FUNCTION is_visible_plan(plan_number bigint) RETURNS boolean LANGUAGE plpgsql
    AS 'BEGIN RETURN EXISTS (SELECT FROM plandesk.plans AS p WHERE p.number OPERATOR(pg_catalog.=) plan_number); END';
REVOKE EXECUTE ON FUNCTION is_visible_plan FROM PUBLIC;
GRANT EXECUTE ON FUNCTION is_visible_plan TO plandesk_user;
CREATE POLICY own ON history FOR INSERT WITH CHECK ("user" = session_user::text
    AND (plan IS NULL OR is_visible_plan(plan)));
REVOKE INSERT ON history FROM plandesk_user;
GRANT INSERT (event, plan, version, subject, before, after, "user", time, client, request) ON history TO plandesk_user;
DROP INDEX history_of_requests;
CREATE UNIQUE INDEX history_of_requests ON history (request, "user") WHERE request IS NOT NULL
)";

const char* const Triggers = R"(
CREATE FUNCTION check_change() RETURNS trigger LANGUAGE plpgsql SET search_path = plandesk, pg_temp AS $$
BEGIN
    IF NEW.version <> OLD.version + 1 THEN
        RAISE EXCEPTION 'a change of a plan makes its next version';
    END IF;
    -- A policy sees the new row only, which stays visible if it is assigned to the user.
    IF NEW.trading_account IS DISTINCT FROM OLD.trading_account AND NEW.trading_account <> ALL (own_accounts()) THEN
        RAISE EXCEPTION 'a plan is not moved to the account of others';
    END IF;
    RETURN NEW;
END $$;
CREATE TRIGGER each_change_is_checked BEFORE UPDATE ON plans FOR EACH ROW EXECUTE FUNCTION check_change();
CREATE FUNCTION check_limits() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
DECLARE
    account text := (SELECT trading_account FROM plans WHERE number = NEW.plan);
    quantity bigint;
    yuan bigint;
BEGIN
    SELECT greatest(coalesce(own.largest_quantity, usual.largest_quantity), max(e.largest_quantity)),
            greatest(coalesce(own.largest_amount, usual.largest_amount), max(e.largest_amount))
        INTO quantity, yuan
        FROM account_limits AS usual LEFT JOIN account_limits AS own ON own.trading_account = account
        LEFT JOIN limit_exceptions AS e ON e.trading_account = account AND e.last_day >= NEW.day
            AND e.authorised_by <> session_user::text
        WHERE usual.trading_account = ''
        GROUP BY own.largest_quantity, usual.largest_quantity, own.largest_amount, usual.largest_amount;
    IF NEW.issued_quantity > quantity OR NEW.issued_fen > 100 * yuan THEN
        RAISE EXCEPTION 'the instruction is above the limits of its account';
    END IF;
    RETURN NEW;
END $$;
-- In a trigger on another table it would tell the limits of other accounts.
REVOKE EXECUTE ON FUNCTION check_limits FROM PUBLIC;
CREATE TRIGGER instructions_within_limits BEFORE INSERT OR UPDATE OF day, issued_quantity, issued_fen ON instructions
    FOR EACH ROW EXECUTE FUNCTION check_limits()
)";

// Changes of rights, accounts and limits by any program. Users do not read them.
const char* const RightsHistory = R"(
CREATE TABLE rights_history (
    number bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    subject plain_text NOT NULL,
    before json,
    after json,
    "user" plain_text NOT NULL DEFAULT session_user::text,
    time utc_time NOT NULL DEFAULT to_char(clock_timestamp() AT TIME ZONE 'UTC', 'YYYY-MM-DD"T"HH24:MI:SS.MS"Z"'));
CREATE TRIGGER rights_history_is_kept BEFORE UPDATE OR DELETE OR TRUNCATE ON rights_history
    FOR EACH STATEMENT EXECUTE FUNCTION refuse_change();
CREATE FUNCTION note_rights() RETURNS trigger LANGUAGE plpgsql SET search_path = plandesk, pg_temp AS $$
BEGIN
    INSERT INTO rights_history (subject, before, after) VALUES (TG_TABLE_NAME,
        CASE WHEN TG_OP <> 'INSERT' THEN to_json(OLD) END, CASE WHEN TG_OP <> 'DELETE' THEN to_json(NEW) END);
    RETURN NULL;
END $$;
DO $$
DECLARE
    changed text;
BEGIN
    FOREACH changed IN ARRAY ARRAY['users', 'accounts', 'user_accounts', 'exchange_accounts', 'order_authorities',
        'rule_properties', 'approval_chains', 'chain_users', 'account_limits', 'limit_exceptions'] LOOP
        EXECUTE format('CREATE TRIGGER is_noted AFTER INSERT OR UPDATE OR DELETE ON %I'
            ' FOR EACH ROW EXECUTE FUNCTION note_rights()', changed);
    END LOOP;
END $$
)";

// Who changes a plan or its instructions may trade with its account and instruction type: by his own right with an own
// account, by that of the plan's creator if the plan is only assigned to him. Instructions are checked after the
// policy, so that no error tells the limits and rights of others. The owner of the tables may do everything.
const char* const Authorities = R"(
CREATE FUNCTION may_trade(account text, type text, creator text) RETURNS boolean
    LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
BEGIN
    RETURN EXISTS (SELECT FROM order_authorities AS o WHERE o.trading_account = account AND o.instruction_type = type
        AND o.user = CASE WHEN EXISTS (SELECT FROM user_accounts AS u WHERE u.user = session_user::text
            AND u.trading_account = account) THEN session_user::text ELSE creator END);
END $$;
CREATE FUNCTION check_trade() RETURNS trigger
    LANGUAGE plpgsql SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
DECLARE
    is_allowed boolean;
BEGIN
    IF TG_RELID = 'plans'::regclass THEN
        is_allowed := may_trade(OLD.trading_account, OLD.instruction_type, OLD.creator) AND (
            (NEW.trading_account, NEW.instruction_type) IS NOT DISTINCT FROM (OLD.trading_account, OLD.instruction_type)
            OR may_trade(NEW.trading_account, NEW.instruction_type, NEW.creator));
    ELSE
        SELECT may_trade(p.trading_account, p.instruction_type, p.creator) INTO is_allowed
            FROM plans AS p WHERE p.number = NEW.plan;
    END IF;
    IF is_allowed IS NOT TRUE THEN
        RAISE EXCEPTION 'the user has no right to the instruction type with this account';
    END IF;
    RETURN NEW;
END $$;
-- Whether the user may create a plan. Each policy that names the table of another would ask that one's policy, too.
CREATE FUNCTION may_create(account text, type text) RETURNS boolean
    LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
BEGIN
    RETURN EXISTS (SELECT FROM user_accounts AS u JOIN order_authorities AS o USING ("user", trading_account)
        WHERE u.user = session_user::text AND u.trading_account = account AND o.instruction_type = type);
END $$;
CREATE POLICY own ON plans FOR INSERT WITH CHECK (creator = session_user::text AND version = 1
    AND may_create(trading_account, instruction_type));
CREATE OR REPLACE FUNCTION is_visible_plan(plan_number bigint) RETURNS boolean
    LANGUAGE plpgsql SECURITY DEFINER SET search_path = plandesk, pg_temp AS $$
BEGIN
    RETURN EXISTS (SELECT FROM plans AS p WHERE p.number = plan_number AND (EXISTS
        (SELECT FROM user_accounts AS u WHERE u.user = session_user::text AND u.trading_account = p.trading_account)
        OR p.assignee = own_name() OR p.executor = own_name()));
END $$;
REVOKE EXECUTE ON FUNCTION may_create FROM PUBLIC;
GRANT EXECUTE ON FUNCTION may_create TO plandesk_user;
REVOKE EXECUTE ON FUNCTION may_trade, check_trade FROM PUBLIC;
CREATE TRIGGER trade_is_checked BEFORE UPDATE ON plans
    FOR EACH ROW WHEN (row_security_active('plandesk.plans'::regclass)) EXECUTE FUNCTION check_trade();
CREATE TRIGGER instructions_are_allowed AFTER INSERT OR UPDATE ON instructions
    FOR EACH ROW WHEN (row_security_active('plandesk.instructions'::regclass)) EXECUTE FUNCTION check_trade();
DROP TRIGGER instructions_within_limits ON instructions;
CREATE TRIGGER instructions_within_limits AFTER INSERT OR UPDATE OF day, issued_quantity, issued_fen ON instructions
    FOR EACH ROW EXECUTE FUNCTION check_limits()
)";

QString statementsOf(const char* text)
{
    return QString::fromLatin1(text).trimmed();
}

} // namespace

QStringList PostgresRights::statements()
{
    QStringList all{ statementsOf(Functions) };
    for (const char* const table : { "accounts", "exchange_accounts", "order_authorities", "rule_properties",
             "approval_chains", "positions", "account_limits", "limit_exceptions" })
        all << statementsOf(KnownAccounts).arg(QLatin1String(table));
    for (const char* const text : { AccountPolicies, PlanPolicies, Triggers, RightsHistory })
        all << statementsOf(text);
    return all;
}

QStringList PostgresRights::authorities()
{
    return { statementsOf(Authorities) };
}
