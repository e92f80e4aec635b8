#include "ClientSession.h"
#include "InstructionIssuer.h"
#include "LoggedTest.h"
#include "Psql.h"
#include "SampleSession.h"
#include "TestDatabase.h"
#include "TestStatus.h"

#include <QtTest>

#include <memory>

namespace {

const QString Owner = QStringLiteral("trader01");
const QString Stranger = QStringLiteral("trader03");
const QString NoRight = QStringLiteral("ERROR:  the user has no right to the instruction type with this account");

} // namespace

/// What the role of a user can do by psql with the rows of others. The database has a plan of the owner's account with
/// one instruction.
class ServerRightsTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        m_session = std::make_unique<SampleSession>(Owner);
        QCOMPARE(m_session->opened(), Status());
        QCOMPARE(m_session->create(SampleSession::record()), QStringLiteral("AP00000001"));
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued.size(), 1);
        ClientSession::instance().close();
        asOwnerOfTables("INSERT INTO account_cash (trading_account, fen) VALUES ('100001', 100000000);"
                        " INSERT INTO user_accounts VALUES ('trader05', '100001', 9);"
                        " INSERT INTO order_authorities VALUES ('trader05', '100001', '5')");
    }

    void cleanupTestCase() { m_session.reset(); }

    void aStrangerGetsNothing_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("answer");
        reading();
        writing();
        otherWays();
        guessing();
    }

    void aStrangerGetsNothing()
    {
        QFETCH(QString, statement);
        QFETCH(QString, answer);
        QCOMPARE(asUser(Stranger, statement), answer);
    }

    void theOwnerChangesOnlyByVersions_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("answer");
        const QString refused = QStringLiteral("ERROR:  a change of a plan makes its next version");
        row("the same version", "UPDATE plans SET state = 'stopped' WHERE number = 1", refused);
        row("a later version", "UPDATE plans SET state = 'stopped', version = 3 WHERE number = 1", refused);
        row("another creator", "UPDATE plans SET creator = 'trader02', version = 2", denied("table plans"));
        row("another number", "UPDATE plans SET number = 2, version = 2", denied("table plans"));
        row("the same version of another state on its completion",
            "UPDATE plans SET state = 'stopped', completed_day = '2024-05-06' WHERE number = 1", refused);
        const QString ended = QStringLiteral("ERROR:  a stopped plan is only archived");
        row("a stopped plan",
            "BEGIN; UPDATE plans SET state = 'stopped', version = 2 WHERE number = 1;"
            " UPDATE plans SET state = 'active', version = 3 WHERE number = 1",
            ended);
        row("an archived plan",
            "BEGIN; UPDATE plans SET state = 'archived', version = 2 WHERE number = 1;"
            " UPDATE plans SET symbol = NULL, version = 3 WHERE number = 1",
            ended);
        const QString kept = QStringLiteral("ERROR:  a plan is not moved to the account of others");
        row("given to a stranger's account", "UPDATE plans SET trading_account = '100003', version = 2", kept);
        row("given to it and kept by being assigned",
            "UPDATE plans SET trading_account = '100003', version = 2, assignee = own_name()", kept);
    }

    void theOwnerChangesOnlyByVersions()
    {
        QFETCH(QString, statement);
        QFETCH(QString, answer);
        QCOMPARE(asUser(Owner, statement), answer);
    }

    void anInstructionStaysWithinTheLimitsOfItsAccount_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("answer");
        const QString refused = QStringLiteral("ERROR:  the instruction is above the limits of its account");
        const auto insert = [](const char* column, const char* value) {
            return QStringLiteral("BEGIN; INSERT INTO instructions (plan, position, day, %1)"
                                  " VALUES (1, 2, '2024-05-07', %2); ROLLBACK")
                .arg(QLatin1String(column), QLatin1String(value));
        };
        row("the largest quantity", insert("issued_quantity", "100000000"), QString());
        row("a larger one", insert("issued_quantity", "100000001"), refused);
        row("the largest amount", insert("issued_fen", "1000000000000"), QString());
        row("one fen more", insert("issued_fen", "1000000000001"), refused);
        row("a change above the limit", "UPDATE instructions SET issued_quantity = 100000001", refused);
        row("moved to another plan", "UPDATE instructions SET plan = 2", denied("table instructions"));
    }

    void anInstructionStaysWithinTheLimitsOfItsAccount()
    {
        QFETCH(QString, statement);
        QFETCH(QString, answer);
        QCOMPARE(asUser(Owner, statement), answer);
    }

    void anInstructionAboveTheLimitsIsNotMovedToAnotherDay()
    {
        const QString added = psql(m_session->ownersFile(),
            QStringLiteral("INSERT INTO limit_exceptions (trading_account, largest_quantity, authorised_by,"
                           " authorised_time, last_day, reason) VALUES ('100001', 100000001, 'trader03',"
                           " '2024-05-06T01:30:00.000Z', '2024-05-07', 'r')"));
        QCOMPARE(added, QString());
        const QString insertion =
            QStringLiteral("BEGIN; INSERT INTO instructions (plan, position, day, issued_quantity)"
                           " VALUES (1, 2, '2024-05-07', 100000001); %1 ROLLBACK");
        QCOMPARE(asUser(Owner, insertion.arg(QString())), QString());
        const QString moved = asUser(
            Owner, insertion.arg(QStringLiteral("UPDATE instructions SET day = '2024-05-08' WHERE position = 2;")));
        QCOMPARE(moved, QStringLiteral("ERROR:  the instruction is above the limits of its account"));
        QCOMPARE(psql(m_session->ownersFile(), QStringLiteral("DELETE FROM limit_exceptions")), QString());
    }

    void theOwnerSeesTheOwnRows()
    {
        QCOMPARE(asUser(Owner, QStringLiteral("SELECT count(*) FROM plans")), QStringLiteral("1"));
        QCOMPARE(asUser(Owner, QStringLiteral("SELECT count(*) FROM instructions")), QStringLiteral("1"));
        QCOMPARE(
            asUser(Owner, QStringLiteral("SELECT string_agg(event, ' ' ORDER BY number) FROM history WHERE plan = 1")),
            QStringLiteral("created issued"));
    }

    // No policy prevents that. docs/team.md says so.
    void whatIsNotSeenCanBeMeasured()
    {
        const auto measured = [this](const char* condition) {
            return asUser(Stranger,
                QStringLiteral("EXPLAIN (ANALYZE, TIMING off) SELECT FROM instructions WHERE ")
                    + QLatin1String(condition));
        };
        const QString isUnmatched = QStringLiteral("never executed");
        QVERIFY(measured("issued_quantity < 0").contains(isUnmatched));
        QVERIFY(!measured("issued_quantity >= 0").contains(isUnmatched));
    }

    void theRightToATypeIsNeeded_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("answer");
        row("a change of a plan", "UPDATE plans SET state = 'paused', version = 2 WHERE number = 1", NoRight);
        row("a completion", "UPDATE plans SET completed_day = '2024-05-06' WHERE number = 1", NoRight);
        row("a new instruction",
            "INSERT INTO instructions (plan, position, day, issued_quantity, filled_quantity)"
            " VALUES (1, 2, '2024-05-07', 100, 100)",
            NoRight);
        row("the end of an instruction", "UPDATE instructions SET ended = 1 WHERE plan = 1", NoRight);
        const QString own = QStringLiteral("BEGIN; ") + newPlan("trader05", "100001", "5") + QStringLiteral("; %1");
        row("an own plan of another type",
            own.arg(QStringLiteral("UPDATE plans SET instruction_type = '1', version = 2 WHERE creator = 'trader05'")),
            NoRight);
        row("an own plan that keeps its type",
            own.arg(QStringLiteral("UPDATE plans SET state = 'paused', version = 2 WHERE creator = 'trader05';"
                                   " INSERT INTO instructions (plan, position, day) SELECT number, 1, '2024-05-07'"
                                   " FROM plans WHERE creator = 'trader05'; ROLLBACK")),
            QString());
    }

    void theRightToATypeIsNeeded()
    {
        QFETCH(QString, statement);
        QFETCH(QString, answer);
        QCOMPARE(asUser(QStringLiteral("trader05"), statement), answer);
    }

    void anAssigneeHasTheRightOfTheCreator()
    {
        const QString pause = QStringLiteral("UPDATE plans SET state = 'paused', version = version + 1;"
                                             " UPDATE instructions SET ended = 1");
        const QString trial = QStringLiteral("BEGIN; %1; ROLLBACK").arg(pause);
        asOwnerOfTables("UPDATE plans SET assignee = (SELECT name FROM users WHERE id = 'trader03'), version = 2");
        QCOMPARE(asUser(Stranger, trial), QString());
        QCOMPARE(asUser(Owner, trial), QString());
        asOwnerOfTables("DELETE FROM order_authorities WHERE \"user\" = 'trader01' AND instruction_type = '1'");
        QCOMPARE(asUser(Stranger, trial), NoRight);
        QCOMPARE(asUser(Owner, trial), NoRight);
    }

private:
    void asOwnerOfTables(const char* statements) const
    {
        QCOMPARE(psql(m_session->ownersFile(), QString::fromUtf8(statements)), QString());
    }

    static void row(const char* name, const QString& statement, const QString& answer)
    {
        QTest::newRow(name) << statement << answer;
    }
    static void row(const char* name, const char* statement, const QString& answer)
    {
        row(name, QString::fromUtf8(statement), answer);
    }

    static QString denied(const QByteArray& object)
    {
        return QStringLiteral("ERROR:  permission denied for ") + QString::fromUtf8(object);
    }

    static QString violates(const char* table)
    {
        return QStringLiteral("ERROR:  new row violates row-level security policy for table \"%1\"")
            .arg(QLatin1String(table));
    }

    static void reading()
    {
        const QString none = QStringLiteral("0");
        for (const char* const table : { "plans", "instructions", "refused_days", "history WHERE plan IS NOT NULL" })
            row(table, QStringLiteral("SELECT count(*) FROM ") + QLatin1String(table), none);
        for (const char* const table : { "accounts", "user_accounts", "exchange_accounts", "order_authorities",
                 "rule_properties", "approval_chains", "positions", "account_cash" })
            row(table,
                QStringLiteral("SELECT count(*) FROM %1 WHERE trading_account = '100001'").arg(QLatin1String(table)),
                none);
        row("chain_users", "SELECT count(*) FROM chain_users WHERE chain_key LIKE 'CHAIN-100001-%'", none);
        row("signatures", "SELECT count(*) FROM signatures WHERE client_no = 'C10001'", none);
        row("the history of the rights", "SELECT count(*) FROM rights_history", denied("table rights_history"));
        row("the own accounts are there", "SELECT count(*) > 0 FROM accounts", QStringLiteral("t"));
    }

    static void writing()
    {
        row("changes a plan", "WITH c AS (UPDATE plans SET version = 2 RETURNING 1) SELECT count(*) FROM c",
            QStringLiteral("0"));
        row("changes an instruction",
            "WITH c AS (UPDATE instructions SET ended = 1 RETURNING 1) SELECT count(*) FROM c", QStringLiteral("0"));
        row("adds a plan for another's account", newPlan("trader03", "100001"), violates("plans"));
        row("adds a plan in another's name", newPlan("trader01", "100003"), violates("plans"));
        row("adds an instruction", "INSERT INTO instructions (plan, position, day) VALUES (1, 2, '2024-05-06')",
            violates("instructions"));
        row("adds to the history", newEntry("trader03", "'changed', 1, 2"), violates("history"));
        row("adds to the history in another's name", newEntry("trader01", "'signed', NULL, NULL"), violates("history"));
        row("changes the history", "UPDATE history SET client = 'x'", denied("table history"));
        row("deletes the history", "DELETE FROM history", denied("table history"));
        row("deletes plans", "DELETE FROM plans", denied("table plans"));
        row("takes an account", "INSERT INTO user_accounts VALUES ('trader03', '100001', 1)",
            denied("table user_accounts"));
        row("takes shares", "UPDATE positions SET quantity = 0", denied("table positions"));
        row("takes money", "UPDATE account_cash SET fen = 0", denied("table account_cash"));
        row("works off an alert of another user", "INSERT INTO done_alerts VALUES ('trader01', 1, 'failed', '')",
            violates("done_alerts"));
        row("raises the limits", "UPDATE account_limits SET largest_quantity = 1", denied("table account_limits"));
        row("signs for another's client",
            "INSERT INTO signatures VALUES ('x', 'C10001', 'trader03', '2024-05-06T01:30:00.000Z')",
            violates("signatures"));
        for (const char* const table : { "plans", "instructions", "refused_days", "history", "signatures", "accounts" })
            row(qPrintable(QStringLiteral("locks ") + QLatin1String(table)),
                QStringLiteral("BEGIN; LOCK TABLE %1 IN SHARE MODE").arg(QLatin1String(table)),
                denied(QByteArray("table ") + table));
        row("turns the security off", "ALTER TABLE plans DISABLE ROW LEVEL SECURITY",
            QStringLiteral("ERROR:  must be owner of table plans"));
    }

    static void otherWays()
    {
        const QString none = QStringLiteral("0");
        row("switches to another user", "SET ROLE trader01",
            QStringLiteral("ERROR:  permission denied to set role \"trader01\""));
        row("logs in again", "SET SESSION AUTHORIZATION trader01",
            QStringLiteral("ERROR:  permission denied to set session authorization \"trader01\""));
        row("switches to all users", "SET ROLE plandesk_user; SELECT count(*) FROM plans", none);
        row("asks for an error instead of fewer rows", "SET row_security = off; SELECT count(*) FROM plans",
            QStringLiteral("ERROR:  query would be affected by row-level security policy for table \"plans\""));
        row("makes a view", "CREATE TEMP VIEW v AS SELECT * FROM plans; SELECT count(*) FROM v", none);
        row("makes a function",
            "CREATE FUNCTION pg_temp.f() RETURNS bigint LANGUAGE sql SECURITY DEFINER AS"
            " 'SELECT count(*) FROM plandesk.plans'; SELECT pg_temp.f()",
            none);
        row("makes a function among those of the schema", "CREATE FUNCTION f() RETURNS text LANGUAGE sql AS 'SELECT 1'",
            denied("schema plandesk"));
        row("makes a function that shows what it gets",
            "CREATE FUNCTION pg_temp.f(x text) RETURNS boolean LANGUAGE plpgsql COST 0.0000001 AS"
            " 'BEGIN RAISE WARNING ''%'', x; RETURN true; END';"
            " SELECT count(*) FROM plans WHERE pg_temp.f(symbol)",
            none);
        row("puts a table before that of the schema",
            "CREATE TEMP TABLE user_accounts (\"user\" text, trading_account text);"
            " INSERT INTO user_accounts VALUES ('trader03', '100001'); SELECT count(*) FROM plandesk.plans",
            none);
        row("asks for the limits of others by a trigger",
            "CREATE TEMP TABLE t (plan bigint, day text, issued_quantity bigint, issued_fen bigint);"
            " CREATE TRIGGER t BEFORE INSERT ON t FOR EACH ROW EXECUTE FUNCTION plandesk.check_limits()",
            denied("function plandesk.check_limits"));
        row("books by a trigger",
            "CREATE TEMP TABLE t (LIKE plandesk.instructions);"
            " CREATE TRIGGER t AFTER INSERT ON t FOR EACH ROW EXECUTE FUNCTION plandesk.book_instruction()",
            denied("function plandesk.book_instruction"));
        row("asks for the rights of others by a trigger",
            "CREATE TEMP TABLE t (plan bigint);"
            " CREATE TRIGGER t AFTER INSERT ON t FOR EACH ROW EXECUTE FUNCTION plandesk.check_trade()",
            denied("function plandesk.check_trade"));
        row("asks for the rights of others", "SELECT plandesk.may_trade('100001', '1', 'trader01')",
            denied("function may_trade"));
        row("reads the statistics", "SELECT count(*) FROM pg_stats WHERE tablename = 'plans'", none);
        row("copies the table to a program", "COPY plans TO PROGRAM 'cat'",
            QStringLiteral("ERROR:  must be superuser or have privileges of the pg_execute_server_program role to COPY"
                           " to or from an external program"));
    }

    // A row that exists and one that does not have the same answer.
    static void guessing()
    {
        const char* const refusal = "INSERT INTO refused_days (plan, day, reason, \"user\", time)"
                                    " VALUES (%1, '2024-05-06', 'x', 'trader03', '2024-05-06T01:00:00.000Z')";
        row("a plan that exists, refused", QString::fromLatin1(refusal).arg(1), violates("refused_days"));
        row("a plan that does not, refused", QString::fromLatin1(refusal).arg(99), violates("refused_days"));
        row("a plan that exists", "INSERT INTO instructions (plan, position, day) VALUES (1, 1, '2024-05-06')",
            violates("instructions"));
        row("a plan that does not", "INSERT INTO instructions (plan, position, day) VALUES (99, 1, '2024-05-06')",
            violates("instructions"));
        const char* const quantity =
            "INSERT INTO instructions (plan, position, day, issued_quantity) VALUES (1, 2, '2024-05-06', %1)";
        row("the limit of an account", QString::fromLatin1(quantity).arg(100000000), violates("instructions"));
        row("more than the limit", QString::fromLatin1(quantity).arg(100000001), violates("instructions"));
        row("an alert of a plan that exists", "INSERT INTO done_alerts VALUES ('trader03', 1, 'failed', '')",
            violates("done_alerts"));
        row("an alert of a plan that does not", "INSERT INTO done_alerts VALUES ('trader03', 99, 'failed', '')",
            violates("done_alerts"));
        row("an account that does not exist", newPlan("trader03", "999999"), violates("plans"));
        row("a number that exists", "INSERT INTO plans (number) VALUES (1)", denied("table plans"));
        row("a number that does not", "INSERT INTO plans (number) VALUES (99)", denied("table plans"));
        row("a client who has signed",
            "INSERT INTO signatures SELECT protocol, 'C10001', 'trader03', '2024-05-06T01:30:00.000Z' FROM agreements",
            violates("signatures"));
        row("a request that exists",
            "BEGIN; INSERT INTO history (event, \"user\", time, client, request)"
            " VALUES ('signed', 'trader03', '2024-05-06T01:30:00.000Z', 'c', 'r');"
            " ROLLBACK",
            QString());
    }

    static QString newPlan(const char* creator, const char* account, const char* type = "1")
    {
        return QStringLiteral("INSERT INTO plans (version, creator, created_time, changed_time, instruction_type,"
                              " trading_account, fields) VALUES (1, '%1', '2024-05-06T01:30:00.000Z',"
                              " '2024-05-06T01:30:00.000Z', '%3', '%2', '{}')")
            .arg(QLatin1String(creator), QLatin1String(account), QLatin1String(type));
    }

    static QString newEntry(const char* user, const char* values)
    {
        return QStringLiteral("INSERT INTO history (event, plan, version, \"user\", time, client)"
                              " VALUES (%1, '%2', '2024-05-06T01:30:00.000Z', 'c')")
            .arg(QLatin1String(values), QLatin1String(user));
    }

    QString asUser(const QString& user, const QString& statements) const
    {
        return psql(m_session->file(user), statements);
    }

    std::unique_ptr<SampleSession> m_session;
};

QTEST_MAIN(ServerRightsTest)
#include "tst_server_rights.moc"
