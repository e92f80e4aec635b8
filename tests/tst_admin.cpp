#include "AccountAdministration.h"
#include "AuthorityStore.h"
#include "ChainAdministration.h"
#include "ChineseTexts.h"
#include "LoggedTest.h"
#include "PostgresSchema.h"
#include "ProgramRun.h"
#include "Psql.h"
#include "RightsReport.h"
#include "TestDatabase.h"
#include "TestStatus.h"
#include "UserAdministration.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <memory>
#include <vector>

namespace {

constexpr int Administrators = 4;

QString line(const char* text)
{
    return QString::fromUtf8(text);
}

/// Names of roles are the same for all databases of the server, on which other programs run tests, too.
QString own(const char* name)
{
    return QStringLiteral("%1_%2").arg(QString::fromUtf8(name), QString::number(QCoreApplication::applicationPid()));
}

QString newUser()
{
    static int count = 0;
    return own("user") + QStringLiteral("_%1").arg(++count);
}

QString quoted(QString name)
{
    return QLatin1Char('"') + name.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

ProgramEnd plandesk(const QStringList& arguments, const QString& input = {})
{
    return runProgram(
        QStringLiteral(PLANDESK_PROGRAM), arguments, QProcessEnvironment::systemEnvironment(), input.toUtf8());
}

const AccountAdministration::Items WholeAccount{ { line("name"), line("一号") }, { line("fund"), line("F1") },
    { line("client"), line("C1") }, { line("branch"), line("B1") }, { line("XSHG"), line("A1") } };

/// A database of an administrator who is no superuser, without tables.
class Team {
public:
    explicit Team(const QString& administrator)
        : m_administrator(administrator)
    {
        const QString database = stored.ownersLocation().section(QLatin1Char('/'), -1);
        asOwner(QStringLiteral("DROP SCHEMA plandesk CASCADE; ALTER DATABASE %1 OWNER TO %2")
                    .arg(database, quoted(administrator)));
    }

    QString location() const { return stored.location(m_administrator); }
    QString asOwner(const QString& statements) const { return psql(stored.ownersLocation(), statements); }

    const TestDatabase stored;

private:
    const QString m_administrator;
};

/// A team whose database is set up, with the users 甲 and 乙 and the account 1.
class FilledTeam : public Team {
public:
    explicit FilledTeam(const QString& administrator)
        : Team(administrator)
    {
        if (!Administration::initialise(location()) || !administration.open(location())
            || !users.addUser({ first, line("甲") }, { TestDatabase::password(), false })
            || !users.addUser({ second, line("乙") }, { TestDatabase::password(), false })
            || !accounts.addAccount(line("1"), WholeAccount))
            qFatal("The team cannot be set up.");
    }

    QString asUser(const QString& statements) const { return psql(stored.location(first), statements); }

    const QString first = newUser();
    const QString second = newUser();
    Administration administration;
    UserAdministration users{ administration };
    AccountAdministration accounts{ administration };
    ChainAdministration chains{ administration };
};

} // namespace

/// What an administrator does, and what users may do then.
class AdminTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        QVERIFY(TestDatabase::isOnServer());
        m_server = std::make_unique<TestDatabase>();
        addAdministrator(m_administrator, QStringLiteral("CREATEROLE IN ROLE pg_signal_backend"));
        m_team = std::make_unique<FilledTeam>(m_administrator);
    }

    void cleanupTestCase()
    {
        m_team.reset();
        const QString roles =
            asSuperuser(QStringLiteral("SELECT rolname FROM pg_roles WHERE rolname ~ '_%1(_[0-9]+)?$'")
                            .arg(QCoreApplication::applicationPid()));
        for (const QString& role : roles.split(QLatin1Char('\n')))
            QCOMPARE(asSuperuser(QStringLiteral("DROP ROLE ") + quoted(role)), QString());
        m_server.reset();
    }

    void aDatabaseIsInitialisedOnce()
    {
        const Team team(m_administrator);
        Administration administration;
        QCOMPARE(administration.open(team.location()).cause(), Status(Error::ServerNotSetUp));
        QCOMPARE(Administration::migrate(team.location()).status().cause(), Status(Error::ServerNotSetUp));
        QCOMPARE(*Administration::initialise(team.location()), QStringList{ line("已建立表、角色和权限") });
        QCOMPARE(*Administration::initialise(team.location()), QStringList());
        QCOMPARE(*Administration::migrate(team.location()), QStringList());
        QCOMPARE(administration.open(team.location()), Status());
    }

    void anOlderDatabaseIsMigratedByItsAdministrator()
    {
        const Team team(m_administrator);
        const QString first = PostgresSchema::migrations().constFirst().statements.join(QLatin1Char(';'));
        QCOMPARE(
            psql(team.location(),
                QStringLiteral("CREATE SCHEMA plandesk; ") + first + line("; UPDATE schema_version SET version = 1")),
            QString());
        const QStringList versions{ QStringLiteral("1"), QString::number(PostgresSchema::latestVersion()) };
        QCOMPARE(Administration::initialise(team.location()).status().cause(), Status(Error::OlderDatabase, versions));
        QCOMPARE(*Administration::migrate(team.location()),
            QStringList{ line("数据库已由版本1升级到版本%1").arg(versions.at(1)) });
        QCOMPARE(*Administration::migrate(team.location()), QStringList());
        team.asOwner(line("UPDATE schema_version SET version = 99"));
        QCOMPARE(Administration::migrate(team.location()).status().cause().error(), Error::NewerDatabase);
        QCOMPARE(Administration::initialise(team.location()).status().cause().error(), Error::NewerDatabase);
    }

    void theSampleIsWrittenOnce()
    {
        const Team team(m_administrator);
        QVERIFY(Administration::initialise(team.location()));
        Administration administration;
        QCOMPARE(administration.open(team.location()), Status());
        QCOMPARE(*administration.writeSample(200, {}), QStringList{ line("已写入示例数据") });
        QCOMPARE(*administration.writeSample(200, {}), QStringList{ line("已有用户，没有写入示例数据") });
        QCOMPARE(team.asOwner(line("SELECT count(*) FROM securities")), line("200"));
    }

    void onlyAnAdministratorMayAdminister()
    {
        const FilledTeam team(m_administrator);
        Administration other;
        QCOMPARE(other.open(line("plans.db")), Status(Error::AdminNeedsServer));
        QCOMPARE(Administration::initialise(line("plans.db")).status(), Status(Error::AdminNeedsServer));
        QCOMPARE(Administration::migrate(line("plans.db")).status(), Status(Error::AdminNeedsServer));
        QCOMPARE(other.open(team.stored.location(team.first)), Status(Error::NotAdministrator, { team.first }));

        const QString limited = own("limited");
        addAdministrator(limited, QStringLiteral("IN ROLE ") + quoted(m_administrator));
        QCOMPARE(other.open(team.stored.location(limited)), Status());
        UserAdministration users(other);
        const Status refused(Error::MayNotManageRoles, { limited });
        QCOMPARE(users.addUser({ own("bing"), line("丙") }, {}).status(), refused);
        QCOMPARE(users.revokeUser(team.first).status(), refused);
        QCOMPARE(users.grant(team.first, line("1"), { line("1") }, false).status(), Status());
    }

    void aUserLogsInByTheOwnName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* const name : { "zhang", "Zhang", "张三", "a b", "a\"b", "a'b", "a\\b", "a%I%s$1", "select",
                 "a;DROP TABLE users--", "a/b?c#d@e:f" })
            QTest::newRow(name) << own(name);
    }

    void aUserLogsInByTheOwnName()
    {
        QFETCH(QString, name);
        FilledTeam& team = *m_team;
        const NewPassword password{ TestDatabase::password(), false };
        const QString user = QStringLiteral("用户") + name;
        QCOMPARE(*team.users.addUser({ name, name }, password),
            QStringList({ user + line("：已建立，姓名") + name, user + line("：登录角色已建立"),
                user + line("：密码已设置") }));
        QCOMPARE(*team.users.addUser({ name, name }, {}), QStringList());
        const QString location = team.stored.location(name);
        QCOMPARE(psql(location, line("SELECT session_user, own_name()")), name + line("|") + name);
        QCOMPARE(team.users.grant(name, line("1"), { line("5") }, false)->size(), 2);
        QCOMPARE(psql(location, line("SELECT own_accounts()")), line("{1}"));
        QVERIFY(team.users.revokeUser(name));
        QVERIFY(psql(location, line("SELECT 1")).contains(line("is not permitted to log in")));
    }

    void anIdThatCannotBeARoleIsRefused_data()
    {
        QTest::addColumn<QString>("id");
        QTest::newRow("empty") << QString();
        QTest::newRow("64 bytes") << QString(64, QLatin1Char('a'));
        QTest::newRow("22 Chinese letters") << QString(22, QChar(0x5f20));
        QTest::newRow("a space before it") << line(" a");
        QTest::newRow("a line break") << line("a\nb");
        QTest::newRow("a null") << QString(line("a") + QChar(0));
        QTest::newRow("a role of PostgreSQL") << line("pg_monitor");
        QTest::newRow("everyone") << line("public");
        QTest::newRow("nobody") << line("none");
    }

    void anIdThatCannotBeARoleIsRefused()
    {
        QFETCH(QString, id);
        FilledTeam& team = *m_team;
        QCOMPARE(team.users.addUser({ id, line("丁") }, {}).status(), Status(Error::UnusableUserId, { id }));
        QCOMPARE(team.asOwner(line("SELECT count(*) FROM users WHERE name = '丁'")), line("0"));
    }

    void theLongestNameIsARole()
    {
        FilledTeam& team = *m_team;
        const QString id = QString(63 - own("").size(), QLatin1Char('a')) + own("");
        QVERIFY(team.users.addUser({ id, line("长") }, { TestDatabase::password(), false }));
        QCOMPARE(psql(team.stored.location(id), line("SELECT own_name()")), line("长"));
    }

    void aRoleWithPowersIsNoUser()
    {
        FilledTeam& team = *m_team;
        const QString reader = own("reader");
        asSuperuser(QStringLiteral("CREATE ROLE %1 LOGIN IN ROLE pg_read_all_data").arg(quoted(reader)));
        for (const QString& id : { line("postgres"), line("plandesk_user"), m_administrator, reader })
            QCOMPARE(team.users.addUser({ id, line("丁") }, {}).status(), Status(Error::RoleWithPowers, { id }));
        QCOMPARE(team.asOwner(line("SELECT count(*) FROM users WHERE name = '丁'")), line("0"));
    }

    void aNameBelongsToOneUser()
    {
        FilledTeam& team = *m_team;
        QCOMPARE(team.users.addUser({ team.first, line("丙") }, {}).status(),
            Status(Error::UserHasOtherName, { team.first, line("甲") }));
        QCOMPARE(team.users.addUser({ own("bing"), line("甲") }, {}).status(),
            Status(Error::NameOfOtherUser, { line("甲"), team.first }));
        QCOMPARE(
            team.users.addUser({ own("bing"), line(" 丙") }, {}).status(), Status(Error::EmptyText, { line("姓名") }));
        QCOMPARE(team.asOwner(QStringLiteral("SELECT count(*) FROM pg_roles WHERE rolname = '%1'").arg(own("bing"))),
            line("0"));
    }

    void aPasswordIsGivenOrGenerated()
    {
        FilledTeam team(m_administrator);
        const QString id = own("bing");
        const QString location = team.stored.location(id);
        const QString prefix = QStringLiteral("用户%1：").arg(id);
        const QStringList added = *team.users.addUser({ id, line("丙") }, { {}, true });
        QCOMPARE(added.size(), 3);
        QVERIFY(added.at(2).startsWith(prefix + line("密码为")));
        const QString generated = added.at(2).section(line("密码为"), 1);
        QCOMPARE(generated.size(), 24);
        QCOMPARE(psql(location, line("SELECT 1"), generated), line("1"));
        QCOMPARE(*team.users.addUser({ id, line("丙") }, { {}, true }), QStringList());
        QCOMPARE(psql(location, line("SELECT 1"), generated), line("1"));
        QCOMPARE(*team.users.addUser({ id, line("丙") }, { line("密码 '\"\\"), false }),
            QStringList{ prefix + line("密码已设置") });
        QCOMPARE(psql(location, line("SELECT 1"), line("密码 '\"\\")), line("1"));
        QVERIFY(psql(location, line("SELECT 1"), generated).contains(line("password authentication failed")));
        const QString ding = own("ding");
        QCOMPARE(team.users.addUser({ ding, line("丁") }, {})->constLast(),
            QStringLiteral("用户%1：没有设置密码").arg(ding));
        QVERIFY(psql(team.stored.location(ding), line("SELECT 1")).contains(line("password authentication failed")));
    }

    void aPasswordIsNotSentToTheServer()
    {
        FilledTeam team(m_administrator);
        const QString password = own("Geheimnis");
        asSuperuser(QStringLiteral("ALTER ROLE %1 SET log_statement = 'all'").arg(quoted(m_administrator)));
        Administration administration;
        QCOMPARE(administration.open(team.location()), Status());
        QVERIFY(UserAdministration(administration).addUser({ team.first, line("甲") }, { password, false }));
        const QString log = asSuperuser(line("SELECT pg_read_file(current_setting('data_directory') || '/../log')"));
        asSuperuser(QStringLiteral("ALTER ROLE %1 RESET log_statement").arg(quoted(m_administrator)));
        QVERIFY(log.contains(QStringLiteral("ALTER ROLE %1 PASSWORD").arg(team.first)));
        QVERIFY(!log.contains(password));
        QVERIFY(psql(team.stored.location(team.first), line("SELECT 1"), password) == line("1"));
    }

    void anAccountIsAddedAndChanged()
    {
        FilledTeam team(m_administrator);
        QCOMPARE(*team.accounts.addAccount(line("1"), WholeAccount), QStringList());
        QCOMPARE(
            *team.accounts.addAccount(line("1"),
                { { line("name"), line("二号") }, { line("XSHE"), line("A2") }, { line("asset"), line("credit") } }),
            QStringList({ line("账户1：名称由“一号”改为“二号”"), line("账户1：资产属性由“普通”改为“信用”"),
                line("账户1：深圳证券交易所的证券账户由“”改为“A2”") }));
        QCOMPARE(team.asOwner(line("TABLE accounts")), line("1|F1|二号|C1|credit|B1"));
        QCOMPARE(team.asOwner(line("SELECT string_agg(exchange || security_account, ' ' ORDER BY exchange)"
                                   " FROM exchange_accounts")),
            line("XSHEA2 XSHGA1"));
        QCOMPARE(team.accounts.addAccount(line("2"), { { line("name"), line("二号") } }).status(),
            Status(
                Error::AccountIncomplete, { line("2"), line("资金账号（fund）、客户号（client）、营业部（branch）") }));
        QCOMPARE(team.accounts.addAccount(line("1"), { { line("asset"), line("gold") } }).status(),
            Status(Error::UnknownCode, { line("资产属性"), line("gold") }));
        QCOMPARE(team.accounts.addAccount(line("1"), { { line("name"), line("") } }).status(),
            Status(Error::EmptyText, { line("名称") }));
        QCOMPARE(
            team.accounts.addAccount(QString(), WholeAccount).status(), Status(Error::EmptyText, { line("账户") }));
        QCOMPARE(team.asOwner(line("SELECT count(*) FROM accounts")), line("1"));
    }

    void rightsAreGrantedAndTakenBack()
    {
        FilledTeam team(m_administrator);
        const QString one = line("1");
        const QString user = QStringLiteral("用户") + team.first;
        QCOMPARE(team.asUser(line("SELECT count(*) FROM accounts")), line("0"));
        QCOMPARE(*team.users.grant(team.first, one, { one, line("5") }, true),
            QStringList({ user + line("：分配账户1"), user + line("：账户1增加指令类型普通交易"),
                user + line("：账户1指令类型普通交易须复核"), user + line("：账户1增加指令类型债券交易"),
                user + line("：账户1指令类型债券交易须复核") }));
        QCOMPARE(*team.users.grant(team.first, one, { one, line("5") }, true), QStringList());
        QCOMPARE(team.asUser(line("SELECT count(*) FROM accounts")), line("1"));
        QCOMPARE(*team.users.grant(team.first, one, { one }, false),
            QStringList{ user + line("：账户1指令类型普通交易不须复核") });
        QCOMPARE(
            *team.users.revoke(team.first, one, { one }), QStringList{ user + line("：账户1收回指令类型普通交易") });
        QCOMPARE(*team.users.revoke(team.first, one, { one }), QStringList());
        QCOMPARE(team.asUser(line("SELECT instruction_type, property FROM rule_properties")), line("5|1"));
        QCOMPARE(team.asUser(line("SELECT instruction_type FROM order_authorities")), line("5"));
        QCOMPARE(*team.users.revoke(team.first, one, {}),
            QStringList({ user + line("：账户1收回指令类型债券交易"), user + line("：收回账户1") }));
        QCOMPARE(*team.users.revoke(team.first, one, {}), QStringList());
        QCOMPARE(team.asUser(line("SELECT count(*) FROM accounts")), line("0"));
    }

    void whatIsUnknownIsNotGranted()
    {
        FilledTeam& team = *m_team;
        const QStringList types{ line("1") };
        QCOMPARE(team.users.grant(line("nobody"), line("1"), types, false).status(),
            Status(Error::UnknownUser, { line("nobody") }));
        QCOMPARE(team.users.grant(team.first, line("9"), types, false).status(),
            Status(Error::UnknownAccount, { line("9") }));
        const Status unknown(Error::UnknownCode, { line("指令类型"), line("7") });
        QCOMPARE(team.users.grant(team.first, line("1"), { line("1"), line("7") }, false).status(), unknown);
        QCOMPARE(team.users.revoke(team.first, line("1"), { line("7") }).status(), unknown);
        QCOMPARE(team.users.revoke(team.first, line("9"), {}).status(), Status(Error::UnknownAccount, { line("9") }));
        QCOMPARE(team.users.revoke(line("nobody"), line("1"), types).status(),
            Status(Error::UnknownUser, { line("nobody") }));
        QCOMPARE(team.users.revokeUser(line("nobody")).status(), Status(Error::UnknownUser, { line("nobody") }));
        QCOMPARE(team.asOwner(line("SELECT count(*) FROM order_authorities")), line("0"));
    }

    void aRevokedUserIsOutAtOnce()
    {
        FilledTeam team(m_administrator);
        QVERIFY(team.users.grant(team.first, line("1"), { line("1") }, false));
        Database open;
        QCOMPARE(open.open(team.stored.location(team.first)), Status());
        const QString user = QStringLiteral("用户") + team.first;
        QCOMPARE(*team.users.revokeUser(team.first),
            QStringList({ user + line("：账户1收回指令类型普通交易"), user + line("：收回账户1"),
                user + line("：登录角色已停用"), user + line("：已结束1个连接") }));
        QCOMPARE(open.value(line("SELECT count(*) FROM securities")).status(), Status(Error::ConnectionLost));
        QCOMPARE(*team.users.revokeUser(team.first), QStringList());
        QCOMPARE(*team.users.addUser({ team.first, line("甲") }, {}), QStringList{ user + line("：登录角色可以登录") });
        QCOMPARE(team.asUser(line("SELECT count(*) FROM user_accounts")), line("0"));
    }

    // Ending connections needs a privilege of its own.
    void anOpenConnectionOfARevokedUserMayDoNothing()
    {
        FilledTeam team(m_administrator);
        Database open;
        QCOMPARE(open.open(team.stored.location(team.first)), Status());
        asSuperuser(QStringLiteral("REVOKE pg_signal_backend FROM ") + quoted(m_administrator));
        const auto lines = team.users.revokeUser(team.first);
        asSuperuser(QStringLiteral("GRANT pg_signal_backend TO ") + quoted(m_administrator));
        QVERIFY2(lines->constLast().contains(line("没有权限结束其连接")), qPrintable(lines->constLast()));
        QCOMPARE(open.value(line("SELECT count(*) FROM securities")).status(), Status(Error::NotPermitted));
    }

    void limitsAreSet()
    {
        FilledTeam team(m_administrator);
        using Items = AccountAdministration::Items;
        const Items quantity{ { line("quantity"), line("5") } };
        QCOMPARE(*team.accounts.setLimits(line("1"), quantity), QStringList{ line("账户1：最大数量由usual改为5") });
        QCOMPARE(*team.accounts.setLimits(line("1"), quantity), QStringList());
        QCOMPARE(
            *team.accounts.setLimits(line("1"), { { line("amount"), line("6") }, { line("price-band"), line("7") } }),
            QStringList({ line("账户1：最大金额（元）由usual改为6"), line("账户1：价格偏离（‰）由usual改为7") }));
        QCOMPARE(team.asOwner(line("SELECT * FROM account_limits WHERE trading_account = '1'")), line("1|5|6|7"));
        QCOMPARE(*team.accounts.setLimits(line("1"), { { line("quantity"), line("usual") } }),
            QStringList{ line("账户1：最大数量由5改为usual") });
        QCOMPARE(*team.accounts.setLimits(line("usual"), quantity),
            QStringList{ line("通用限额：最大数量由100000000改为5") });
        for (const char* const name : { "quantity", "amount" })
            QCOMPARE(
                team.accounts.setLimits(line("1"), { { line(name), line("9223372036854775807") } }).status().error(),
                Error::LimitTooLarge);
        QCOMPARE(team.accounts.setLimits(line("1"), { { line("price-band"), line("1000001") } }).status(),
            Status(Error::LimitTooLarge, { line("价格偏离（‰）"), line("1000000") }));
        for (const char* const text : { "0", "-1", "x", "", "1.5" })
            QCOMPARE(team.accounts.setLimits(line("1"), { { line("quantity"), line(text) } }).status(),
                Status(Error::NotPositiveWhole, { line("最大数量"), line(text) }));
        QCOMPARE(team.accounts.setLimits(line("usual"), { { line("amount"), line("usual") } }).status(),
            Status(Error::NotPositiveWhole, { line("最大金额（元）"), line("usual") }));
        QCOMPARE(team.accounts.setLimits(line("9"), quantity).status(), Status(Error::UnknownAccount, { line("9") }));
    }

    void everyChangeIsInTheHistoryOfTheRights()
    {
        FilledTeam team(m_administrator);
        QVERIFY(team.users.grant(team.first, line("1"), { line("1") }, true));
        QVERIFY(team.accounts.addAccount(line("1"), { { line("name"), line("二号") } }));
        QVERIFY(team.accounts.setLimits(line("1"), { { line("quantity"), line("5") } }));
        QVERIFY(team.users.revokeUser(team.first));
        QCOMPARE(team.asOwner(
                     line("SELECT string_agg(subject || CASE WHEN before IS NULL THEN '+' WHEN after IS NULL THEN '-'"
                          " ELSE '' END, ' ' ORDER BY number) FROM rights_history")),
            line("users+ roles+ roles+ users+ roles+ roles+ accounts+ exchange_accounts+ user_accounts+"
                 " order_authorities+ rule_properties+ accounts account_limits+ order_authorities- rule_properties-"
                 " user_accounts- roles+"));
        QCOMPARE(team.asOwner(line("SELECT DISTINCT \"user\" FROM rights_history")), m_administrator);
        QCOMPARE(team.asOwner(
                     line("SELECT before->>'name', after->>'name', abs(extract(epoch FROM now() - time::timestamptz))"
                          " < 60 FROM rights_history WHERE subject = 'accounts' AND before IS NOT NULL")),
            line("一号|二号|t"));
        QCOMPARE(team.asOwner(line("SELECT after->>'event' FROM rights_history ORDER BY number DESC LIMIT 1")),
            line("disabled"));
        for (const char* const statement :
            { "UPDATE rights_history SET subject = 'x'", "DELETE FROM rights_history", "TRUNCATE rights_history" })
            QCOMPARE(psql(team.location(), line(statement)), line("ERROR:  the history is not changed"));
    }

    void administratorsAtOnceDoNotDisturbEachOther()
    {
        const Team team(m_administrator);
        const QString user = own("at-once");
        std::atomic<int> failures{ 0 };
        std::atomic<int> changes{ 0 };
        std::vector<std::unique_ptr<QThread>> threads;
        threads.reserve(Administrators);
        for (int i = 0; i < Administrators; ++i) {
            threads.emplace_back(QThread::create([&] {
                Administration administration;
                const auto done = [&](const Result<QStringList>& lines) {
                    failures += lines ? 0 : 1;
                    changes += lines ? lines->size() : 0;
                };
                done(Administration::initialise(team.location()));
                failures += administration.open(team.location()) ? 0 : 1;
                done(UserAdministration(administration).addUser({ user, line("甲") }, {}));
                done(AccountAdministration(administration).addAccount(line("1"), WholeAccount));
                done(UserAdministration(administration).grant(user, line("1"), { line("1") }, false));
            }));
        }
        for (const auto& thread : threads)
            thread->start();
        for (const auto& thread : threads)
            thread->wait();
        QCOMPARE(failures, 0);
        // Each of those that found no tables says that they were created.
        const int afterwards = changes;
        QVERIFY2(afterwards >= 7 && afterwards <= 6 + Administrators, qPrintable(QString::number(afterwards)));
        QCOMPARE(team.asOwner(line("SELECT (SELECT count(*) FROM users), (SELECT count(*) FROM user_accounts),"
                                   " (SELECT count(*) FROM order_authorities)")),
            line("1|1|1"));
    }

    void anApprovalChainIsSet()
    {
        FilledTeam team(m_administrator);
        const auto set = [&team](const char* item, const char* names) {
            return team.chains.setChain(line("1"), line("5"), { { line(item), line(names) } });
        };
        QCOMPARE(*set("executors", "乙"), QStringList(line("账户1指令类型债券交易：执行人由“”改为“乙”")));
        QCOMPARE(*set("executors", "甲,乙"), QStringList(line("账户1指令类型债券交易：执行人由“乙”改为“甲、乙”")));
        QCOMPARE(*set("reviewers", "乙"), QStringList(line("账户1指令类型债券交易：复核人由“”改为“乙”")));
        QCOMPARE(*set("executors", "甲,乙"), QStringList());
        AuthorityStore store(team.administration.database());
        const QString key = store.rights(QString(), line("1"), line("5"))->chainKey;
        QCOMPARE(*store.chainUsers(key, ChainRole::Execute), QStringList({ line("甲"), line("乙") }));
        QCOMPARE(*store.chainUsers(key, ChainRole::Forward), QStringList(line("乙")));
        QCOMPARE(*set("reviewers", ""), QStringList(line("账户1指令类型债券交易：复核人由“乙”改为“”")));
        QCOMPARE(*store.chainUsers(key, ChainRole::Forward), QStringList());
        QCOMPARE(*store.chainUsers(key, ChainRole::Execute), QStringList({ line("甲"), line("乙") }));
    }

    void aChainOfUnknownUsersAccountsAndTypesIsRefused()
    {
        FilledTeam& team = *m_team;
        const auto set = [&team](const char* account, const char* type, const char* names) {
            return team.chains.setChain(line(account), line(type), { { line("executors"), line(names) } }).status();
        };
        QCOMPARE(set("1", "5", "甲,丁"), Status(Error::UnknownUser, { line("丁") }));
        QCOMPARE(set("1", "5", "甲,"), Status(Error::UnknownUser, { QString() }));
        QCOMPARE(set("2", "5", "甲"), Status(Error::UnknownAccount, { line("2") }));
        QCOMPARE(set("1", "x", "甲"), Status(Error::UnknownCode, { line("指令类型"), line("x") }));
        QCOMPARE(*AuthorityStore(team.administration.database()).chainTypes(line("1")), QStringList());
    }

    void theListShowsUsersRightsAccountsAndLimits()
    {
        FilledTeam team(m_administrator);
        QVERIFY(team.users.grant(team.first, line("1"), { line("1"), line("5") }, false));
        QVERIFY(team.users.grant(team.first, line("1"), { line("5") }, true));
        QVERIFY(team.users.revokeUser(team.second));
        QVERIFY(team.accounts.setLimits(line("1"), { { line("quantity"), line("5") } }));
        QVERIFY(team.chains.setChain(line("1"), line("5"), { { line("executors"), line("甲,乙") } }));
        const Result<QJsonObject> report = RightsReport::json(team.administration);
        QCOMPARE(report.status(), Status());
        const QString expected =
            QStringLiteral(R"({"accounts":[{"account":"1","asset":"ordinary","branch":"B1",)"
                           R"("chains":[{"executors":["甲","乙"],"reviewers":[],"type":"5"}],"client":"C1",)"
                           R"("exchanges":{"XSHG":"A1"},"fund":"F1","limits":{"quantity":5},"name":"一号"}],)"
                           R"("limits":{"amount":10000000000,"price-band":500,"quantity":100000000},)"
                           R"("users":[{"accounts":[{"account":"1","reviewed":["5"],"types":["1","5"]}],"id":"%1",)"
                           R"("login":true,"name":"甲"},{"accounts":[],"id":"%2","login":false,"name":"乙"}]})")
                .arg(team.first, team.second);
        QCOMPARE(QString::fromUtf8(QJsonDocument(*report).toJson(QJsonDocument::Compact)), expected);
        QCOMPARE(RightsReport::lines(*report),
            QStringList({ QStringLiteral("用户%1：姓名甲，可以登录").arg(team.first),
                QStringLiteral("用户%1：账户1，指令类型1、5，须复核5").arg(team.first),
                QStringLiteral("用户%1：姓名乙，不能登录").arg(team.second),
                line("账户1：名称一号，资金账号F1，客户号C1，营业部B1，资产属性ordinary，证券账户XSHG=A1，最大数量5"),
                line("账户1：指令类型5，执行人甲、乙，复核人无"),
                line("通用限额：最大数量100000000、最大金额10000000000元、价格偏离500‰") }));
    }

    void theProgramHasTheseCommands()
    {
        const Team team(m_administrator);
        const QString user = own("bing");
        const QStringList database{ line("--database"), team.location(), line("admin") };
        const auto run = [&database](const char* words, const QString& input = {}) {
            return plandesk(database + QString::fromUtf8(words).split(QLatin1Char(' ')), input);
        };
        QCOMPARE(run("list").code, 1);
        const ProgramEnd created = run("init");
        QCOMPARE(created.output, line("已建立表、角色和权限\n"));
        QCOMPARE(created.code, 0);
        QCOMPARE(run("migrate").output, line("已是如此，没有变化\n"));
        QCOMPARE(run("add-account 1 name=一号 fund=F1 client=C1 branch=B1").output, line("账户1：已建立，名称一号\n"));
        QCOMPARE(run("set-limits 1 quantity=5").output, line("账户1：最大数量由usual改为5\n"));
        QCOMPARE(run("set-limits 1 amount=5千万").output, line("账户1：最大金额（元）由usual改为50000000\n"));
        QVERIFY(run("set-limits 1 amount=5.5").errors.endsWith(line("plandesk: 最大金额（元）“5.5”不是正整数\n")));
        QVERIFY(run("set-cash 1 50万股").errors.endsWith(line("plandesk: 资金（元）“50万股”不是数字\n")));
        QVERIFY(run("set-cash 1 2500.505").errors.endsWith(line("plandesk: 资金（元）“2500.505”不是数字\n")));
        QCOMPARE(run("set-cash 1 50万").output, line("账户1：可用资金由未知改为500000.00元\n"));
        QCOMPARE(run("set-cash 1 500,000元").output, line("已是如此，没有变化\n"));
        QCOMPARE(run("set-cash 1 2500.50").output, line("账户1：可用资金由500000.00元改为2500.50元\n"));
        QCOMPARE(run("set-cash 1 2500.5").output, line("已是如此，没有变化\n"));
        QCOMPARE(run("set-cash 1 unknown").output, line("账户1：可用资金由2500.50元改为未知\n"));
        QCOMPARE(run("set-cash 2 1").code, 1);
        QCOMPARE(run("set-chain 1 5 reviewers=").output, line("已是如此，没有变化\n"));
        const QByteArray adding = QStringLiteral("add-user %1 丙 --password-stdin").arg(user).toUtf8();
        const ProgramEnd withoutPassword = run(adding.constData());
        QCOMPARE(withoutPassword.code, 1);
        QVERIFY2(withoutPassword.errors.contains(line("标准输入的第一行没有密码")), qPrintable(withoutPassword.errors));
        const ProgramEnd added = run(adding.constData(), TestDatabase::password() + line("\nsecond line\n"));
        QCOMPARE(added.code, 0);
        QVERIFY(!added.output.contains(TestDatabase::password()));
        QCOMPARE(psql(team.stored.location(user), line("SELECT own_name()")), line("丙"));
        QCOMPARE(run(QStringLiteral("grant %1 1 5 --review").arg(user).toUtf8().constData()).code, 0);
        QVERIFY(run("list").output.contains(line("账户1，指令类型5，须复核5")));
        QVERIFY(run("list --json").output.startsWith(line("{")));
        QCOMPARE(run(QStringLiteral("revoke %1 1 5").arg(user).toUtf8().constData()).code, 0);
        QCOMPARE(run(QStringLiteral("revoke %1").arg(user).toUtf8().constData()).code, 0);
    }

    void theCommandsSpeakEnglish()
    {
        const Team team(m_administrator);
        const QString user = own("ding");
        ChineseTexts chinese{ QString() };
        chinese.allow({ line("一号"), line("二号"), line("丁") });
        const QStringList database{ line("--language"), line("en"), line("--database"), team.location(),
            line("admin") };
        for (const char* const words : { "list", "init", "init", "migrate",
                 "add-account 1 name=一号 fund=F1 client=C1 branch=B1 XSHG=A1", "add-account 1 name=二号",
                 "set-limits 1 quantity=5 price-band=10", "set-limits usual amount=x", "set-cash 1 x",
                 "set-cash 1 2500.50", "set-cash 1 unknown", "add-user USER 丁", "add-user USER 丁 --generate-password",
                 "set-chain 1 5 executors=丁 reviewers=丁", "grant USER 1 5 1 --review", "grant USER 1 5",
                 "grant USER 1 x", "list", "revoke USER 1 5", "revoke USER", "add-account 2 asset=x" }) {
            const QString given = line(words).replace(line("USER"), user);
            const ProgramEnd end = plandesk(database + given.split(QLatin1Char(' ')));
            const QString text = end.output + end.errors;
            QVERIFY2(!text.isEmpty(), words);
            QCOMPARE(chinese.linesIn(text).join(QLatin1Char('\n')), QString());
        }
    }

    void aMalformedCommandIsRefused_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* words, const char* message) {
            QTest::newRow(words) << line(words) << line(message);
        };
        row("admin",
            "命令admin应有参数：add-account|add-user|grant|init|list|migrate|revoke|set-cash|set-chain|set-limits");
        row("admin drop", "多余的参数：drop");
        row("admin init now", "多余的参数：now");
        row("admin add-user a", "命令admin add-user应有参数：用户编号 姓名");
        row("admin add-user a b c", "多余的参数：c");
        row("admin grant a 1", "命令admin grant应有参数：用户编号 账户 指令类型...");
        row("admin set-chain 1 1", "命令admin set-chain应有参数：账户 指令类型 名称=姓名,...");
        row("admin list --review", "命令admin list没有选项--review");
        row("admin list --user a", "命令admin list没有选项--user");
        row("--sample", "选项--sample只用于admin init");
    }

    void aMalformedCommandIsRefused()
    {
        QFETCH(QString, words);
        QFETCH(QString, message);
        const ProgramEnd end = plandesk(words.split(QLatin1Char(' ')));
        QCOMPARE(end.code, 2);
        QVERIFY2(end.errors.contains(message), qPrintable(end.errors));
    }

    void anItemThatAnAccountDoesNotHaveIsRefused_data()
    {
        QTest::addColumn<QString>("item");
        for (const char* const item : { "color=x", "name", "=x", "XSHG" })
            QTest::newRow(item) << line(item);
    }

    void anItemThatAnAccountDoesNotHaveIsRefused()
    {
        QFETCH(QString, item);
        const FilledTeam& team = *m_team;
        const ProgramEnd end =
            plandesk({ line("admin"), line("add-account"), line("1"), item, line("--database"), team.location() });
        QCOMPARE(end.code, 1);
        QVERIFY2(end.errors.contains(QStringLiteral("“%1”不是可用的").arg(item)), qPrintable(end.errors));
    }

private:
    QString asSuperuser(const QString& statements) const { return psql(m_server->ownersLocation(), statements); }

    void addAdministrator(const QString& name, const QString& attributes) const
    {
        QCOMPARE(asSuperuser(QStringLiteral("CREATE ROLE %1 LOGIN PASSWORD '%2' %3")
                                 .arg(quoted(name), TestDatabase::password(), attributes)),
            QString());
    }

    const QString m_administrator = own("Admin");
    std::unique_ptr<TestDatabase> m_server;
    std::unique_ptr<FilledTeam> m_team; ///< for tests that leave its users, account and rights as they are
};

QTEST_MAIN(AdminTest)
#include "tst_admin.moc"
