#include "AlertStore.h"
#include "AuthorityStore.h"
#include "Backup.h"
#include "CashStore.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ConfigurationStore.h"
#include "FileMove.h"
#include "InstructionIssuer.h"
#include "LimitStore.h"
#include "LoggedTest.h"
#include "MovedTables.h"
#include "SampleSession.h"
#include "TcpProxy.h"
#include "TestDatabase.h"
#include "TestStatus.h"
#include "UserStore.h"

#include <QCryptographicHash>
#include <QFile>
#include <QProcess>
#include <QSqlRecord>
#include <QtTest>

#include <memory>

namespace {

const QString Trader = QStringLiteral("trader01");
// Higher than the number of the last plan, as if later ones had been deleted.
constexpr int LastNumber = 50;

QString line(const char* text)
{
    return QString::fromUtf8(text);
}

/// The rows of a query as one text.
QString rowsOf(Database& database, const QString& query)
{
    QString rows;
    const Status status = database.read(query, {}, [&rows](const QSqlQuery& row) {
        for (int column = 0; column < row.record().count(); ++column)
            rows += row.isNull(column) ? line("NULL|") : row.value(column).toString() + QLatin1Char('|');
        rows += QLatin1Char('\n');
    });
    return status ? rows : errorText(status);
}

QByteArray hashOf(const QString& fileName)
{
    QFile file(fileName);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
}

/// A new server's database, open for its administrator.
class Server {
public:
    Server()
    {
        if (!administration.open(location()))
            qFatal("The server cannot be opened.");
    }

    QString location() const { return m_stored.ownersLocation(); }
    Result<QStringList> take(const QString& file)
    {
        return FileMove(administration, [this](const QString& text) { progress << text; }).run(file);
    }
    QString rows(const QString& query) { return rowsOf(administration.database(), query); }
    QString count(const char* table)
    {
        return rows(QStringLiteral("SELECT count(*) FROM ") + line(table)).section(QLatin1Char('|'), 0, 0);
    }
    Status execute(const char* statement) { return administration.database().execute(line(statement)); }

    Administration administration;
    QStringList progress;

private:
    const TestDatabase m_stored;
};

} // namespace

/// Moves files to the server of scripts/team-server.
class MoveToTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TEST_DATABASE", "server");
        QVERIFY(TestDatabase::isOnServer());
        setClientToday(SampleSession::today());
        m_file = m_folder.filePath(QStringLiteral("plans.db"));
        fillFile();
    }

    void cleanupTestCase() { setClientToday(QDate()); }

    void everyTableIsMoved()
    {
        Database file;
        QCOMPARE(file.open(m_file), Status());
        QStringList names = MovedTables::names();
        names.sort();
        QCOMPARE(*file.texts(line("SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'"
                                  " ORDER BY name"),
                     {}),
            names);
        Server server;
        QCOMPARE(
            *server.administration.database().texts(
                line(
                    "SELECT CAST(relname AS text) FROM pg_class WHERE relkind = 'r' AND relnamespace ="
                    " 'plandesk'::regnamespace AND relname NOT IN ('schema_version', 'rights_history', 'facts_version')"
                    " ORDER BY relname COLLATE \"C\""),
                {}),
            names);
    }

    void allRowsAreMoved()
    {
        Server server;
        const Result<QStringList> moved = server.take(m_file);
        QCOMPARE(moved.status(), Status());
        Database file;
        QCOMPARE(file.open(m_file), Status());
        int rows = 0;
        const QVector<MovedTable> tables = *MovedTables::read(file);
        for (const MovedTable& table : tables) {
            const QString expected = rowsOf(file, table.query());
            QCOMPARE(server.rows(table.query()), expected);
            rows += file.value(QStringLiteral("SELECT count(*) FROM ") + table.name)->toInt();
            QVERIFY2(!expected.isEmpty(), qPrintable(table.name));
        }
        QCOMPARE(moved->constFirst(), QStringLiteral("已搬移并核对%1行").arg(rows));
        QVERIFY(
            moved->contains(QStringLiteral("用户O'Brien不能登录，请运行：plandesk admin add-user 'O'\\''Brien' '欧 布'"
                                           " --generate-password --database ")
                + server.location()));
    }

    void numbersContinueAfterTheHighestOne()
    {
        Server server;
        QVERIFY(server.take(m_file));
        Database& database = server.administration.database();
        PlanStore store(database);
        const auto record = store.plan(QStringLiteral("AP00000001"))->record;
        QCOMPARE(*store.create(record, { Trader, QDateTime::currentDateTime() }),
            QStringLiteral("AP000000%1").arg(LastNumber + 1));
        QCOMPARE(server.rows(line("SELECT max(number) - (SELECT count(*) FROM history) FROM history")), line("0|\n"));
        QCOMPARE(server.execute("INSERT INTO securities (symbol, name, type, sub_type, exchange, price_precision,"
                                " display_factor, quantity_step, limit_per_mille, st_flag, st_text)"
                                " VALUES ('x', 'x', 'x', 'x', 'x', 2, 1, 1, 1, '', '')"),
            Status());
        QCOMPARE(server.rows(line("SELECT position FROM securities WHERE symbol = 'x'")), line("201|\n"));
    }

    void aSecondMoveOnlyCompares()
    {
        Server server;
        QVERIFY(server.take(m_file));
        const QString before = server.rows(line("SELECT xmin, number FROM plans ORDER BY number"));
        const QString noted = server.count("rights_history");
        const Result<QStringList> again = server.take(m_file);
        QCOMPARE(again.status(), Status());
        QVERIFY2(
            again->constFirst().startsWith(line("内容已在服务器上，没有变化，核对")), qPrintable(again->constFirst()));
        QCOMPARE(server.rows(line("SELECT xmin, number FROM plans ORDER BY number")), before);
        QCOMPARE(server.count("rights_history"), noted);
    }

    void aServerWithOtherContentsIsRefused_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("difference");
        const auto row = [](const char* statement, const char* table, const char* difference) {
            QTest::newRow(statement) << line(statement) << line(table) << line(difference);
        };
        row("UPDATE static_texts SET text = text || 'x' WHERE category = (SELECT max(category) FROM static_texts)",
            "static_texts", "与文件的");
        row("DELETE FROM positions WHERE symbol = (SELECT max(symbol) FROM positions)", "positions", "");
        row("INSERT INTO users VALUES ('zz', 'z')", "users", "多出“zz z”");
        row("DELETE FROM strategy_lists", "strategy_lists", "缺少“");
        row("UPDATE plans SET side = NULL, version = version + 1 WHERE number = 2", "plans", "与文件的");
    }

    void aServerWithOtherContentsIsRefused()
    {
        QFETCH(QString, statement);
        QFETCH(QString, table);
        QFETCH(QString, difference);
        Server server;
        QVERIFY(server.take(m_file));
        QCOMPARE(server.administration.database().execute(statement), Status());
        const Status refused = server.take(m_file).status();
        QCOMPARE(refused.error(), Error::OtherDataOnServer);
        QCOMPARE(refused.details().value(0), table);
        QVERIFY2(refused.details().value(1).contains(difference), qPrintable(refused.details().value(1)));
    }

    void aServerInUseIsNotFilled()
    {
        Server server;
        QCOMPARE(UserStore(server.administration.database()).add({ line("zz"), line("z") }), Status());
        QCOMPARE(server.take(m_file).status().error(), Error::OtherDataOnServer);
        QCOMPARE(server.count("plans"), line("0"));
        Server limited;
        QCOMPARE(limited.execute("UPDATE account_limits SET largest_quantity = 5"), Status());
        QCOMPARE(limited.take(m_file).status().error(), Error::OtherDataOnServer);
        QCOMPARE(limited.rows(line("SELECT largest_quantity FROM account_limits")), line("5|\n"));
    }

    void rowsThatTheServerRefusesMoveNothing()
    {
        const QString copy = copyOfFile();
        Database file;
        QCOMPARE(file.open(copy), Status());
        const QString fields = file.value(line("SELECT fields FROM plans WHERE number = 2"))->toString();
        QCOMPARE(file.execute(line("UPDATE plans SET fields = '{bad}' WHERE number = 2")), Status());
        Server server;
        const Status refused = server.take(copy).status();
        QCOMPARE(refused.error(), Error::TableNotMoved);
        QCOMPARE(refused.details(), QStringList{ line("plans") });
        const QString cause = refused.cause().details().value(0);
        QVERIFY2(cause.contains(line("COPY plans, line 2, column fields")), qPrintable(cause));
        for (const QString& table : MovedTables::names())
            QCOMPARE(
                server.count(table.toUtf8().constData()), line(table == QLatin1String("account_limits") ? "1" : "0"));
        QCOMPARE(server.count("rights_history"), line("0"));
        QCOMPARE(file.execute(line("UPDATE plans SET fields = ? WHERE number = 2"), { fields }), Status());
        QCOMPARE(server.take(copy).status(), Status());
    }

    void instructionsAboveTheLimitsOfTodayAreMoved()
    {
        const QString copy = copyOfFile();
        Database file;
        QCOMPARE(file.open(copy), Status());
        QCOMPARE(LimitStore(file).set(line("100001"), { 1, 1, 1 }), Status());
        QVERIFY(file.value(line("SELECT max(issued_quantity) FROM instructions"))->toInt() > 1);
        Server server;
        QCOMPARE(server.take(copy).status(), Status());
        QCOMPARE(server.execute("INSERT INTO instructions (plan, position, day, issued_quantity)"
                                " VALUES (1, 99, '2024-05-07', 2)"),
            Status(Error::DatabaseFailed, { line("ERROR:  the instruction is above the limits of its account") }));
    }

    void aFileInUseIsOnlyRead()
    {
        const QString copy = copyOfFile();
        ClientSession& session = ClientSession::instance();
        QCOMPARE(session.open(copy, Trader), Status());
        const auto record = session.plans().plan(QStringLiteral("AP00000001"))->record;
        const QString added = *session.plans().create(record, session.changeNow());
        const QByteArray before = hashOf(copy);
        const QByteArray log = hashOf(copy + QStringLiteral("-wal"));
        QVERIFY(!before.isEmpty() && !log.isEmpty());
        Server server;
        QCOMPARE(server.take(copy).status(), Status());
        QCOMPARE(PlanStore(server.administration.database()).plan(added)->version, 1);
        QCOMPARE(hashOf(copy), before);
        QCOMPARE(hashOf(copy + QStringLiteral("-wal")), log);
        session.close();
    }

    void aMoveThatIsKilledStoresNothing()
    {
        Server server;
        Database other;
        QCOMPARE(other.open(server.location()), Status());
        const Status held = other.transaction([&]() -> Status {
            // The last table, so that everything else has been written.
            if (Status status = other.configure(line("LOCK TABLE history IN EXCLUSIVE MODE")); !status)
                return status;
            QProcess program;
            program.start(
                QStringLiteral(PLANDESK_PROGRAM), { line("move-to"), server.location(), line("--database"), m_file });
            const bool isWaiting = QTest::qWaitFor(
                [&] {
                    return server.rows(line("SELECT count(*) FROM pg_stat_activity WHERE datname = current_database()"
                                            " AND wait_event_type = 'Lock'"))
                        == line("1|\n");
                },
                60000);
            program.kill();
            program.waitForFinished();
            return isWaiting ? Status() : Status(Error::OutcomeUnknown);
        });
        QCOMPARE(held, Status());
        QTRY_COMPARE_WITH_TIMEOUT(
            server.rows(line("SELECT count(*) FROM pg_stat_activity WHERE datname = current_database()")), line("2|\n"),
            60000);
        QCOMPARE(server.count("users"), line("0"));
        QCOMPARE(server.count("plans"), line("0"));
        QCOMPARE(server.take(m_file).status(), Status());
    }

    void aSecondMoveThatIsInterruptedChangesNothing()
    {
        Server server;
        QCOMPARE(server.take(m_file).status(), Status());
        TcpProxy proxy(TestDatabase::serverPort());
        // When the rows are compared.
        proxy.swallowAnswersTo("COPY");
        const QString location = server.location().replace(
            QStringLiteral(":%1/").arg(TestDatabase::serverPort()), QStringLiteral(":%1/").arg(proxy.port()));
        Status status;
        const std::unique_ptr<QThread> move(QThread::create([&] {
            Administration administration;
            status = administration.open(location);
            if (status)
                status = FileMove(administration, [](const QString&) {}).run(m_file).status();
        }));
        log().allowLostConnection();
        move->start();
        QTRY_VERIFY_WITH_TIMEOUT(proxy.hasSwallowed(), 60000);
        proxy.cut();
        move->wait();
        QCOMPARE(status, Status(Error::MoveInterrupted, {}, Error::ConnectionLost));
        QCOMPARE(server.take(m_file).status(), Status());
    }

    void movesAtOnceStoreTheContentsOnce()
    {
        Server server;
        QProcess programs[2];
        QStringList reports;
        for (QProcess& program : programs)
            program.start(
                QStringLiteral(PLANDESK_PROGRAM), { line("move-to"), server.location(), line("--database"), m_file });
        for (QProcess& program : programs) {
            QVERIFY(program.waitForFinished(60000));
            reports << QString::fromUtf8(program.readAllStandardOutput()).left(5);
        }
        reports.sort();
        QCOMPARE(reports, QStringList({ line("内容已在服"), line("已搬移并核") }));
    }

    void whatIsNoFileOrNoServerIsRefused()
    {
        Server server;
        QCOMPARE(server.take(server.location()).status(), Status(Error::MoveOfServer));
        const QString missing = m_folder.filePath(QStringLiteral("missing.db"));
        QCOMPARE(server.take(missing).status(), Status(Error::BackupFailed, { missing }, Error::NotAFile));
        QVERIFY(!QFile::exists(missing));
        QProcess program;
        program.start(QStringLiteral(PLANDESK_PROGRAM), { line("move-to"), m_file });
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 1);
        QVERIFY(QString::fromUtf8(program.readAllStandardError()).contains(errorText(Error::MoveToFile)));
    }

    void theProgramReportsTheMove()
    {
        Server server;
        const auto run = [&] {
            QProcess program;
            program.start(
                QStringLiteral(PLANDESK_PROGRAM), { line("move-to"), server.location(), line("--database"), m_file });
            if (!program.waitForFinished() || program.exitCode() != 0)
                return QStringList();
            return QStringList{ QString::fromUtf8(program.readAllStandardOutput()),
                QString::fromUtf8(program.readAllStandardError()) };
        };
        const QStringList moved = run();
        QVERIFY(moved.value(0).startsWith(line("已搬移并核对")));
        QVERIFY(moved.value(1).contains(line("正在读取文件")));
        QVERIFY(moved.value(0).contains(line("clears\uFFFD[2J' 'the screen'")));
        QVERIFY(run().value(0).startsWith(line("内容已在服务器上")));
    }

private:
    void fillFile()
    {
        ClientSession& session = ClientSession::instance();
        ClientSession::Options options;
        options.marketSize = 200;
        QCOMPARE(session.open(m_file, Trader, {}, options), Status());
        const QMap<QString, QVariant> record = SampleSession::record();
        for (const char* const remark : { "plain", "a\tb\\c\n", "'\"{}，😀" }) {
            QMap<QString, QVariant> remarked = record;
            remarked.insert(line("remark"), line(remark));
            QVERIFY(session.plans().create(remarked, session.changeNow()));
        }
        QCOMPARE(session.plans().modify(QStringLiteral("AP00000002"), 1, record, session.changeNow()), Status());
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued.size(), 3);
        QCOMPARE(session.instructions().refuse(
                     line("AP00000001"), SampleSession::today().addDays(1), line("a\treason"), session.changeNow()),
            Status());
        QCOMPARE(session.plans().complete(
                     *session.plans().plan(line("AP00000002")), SampleSession::today(), session.changeNow()),
            Status());
        Database& file = session.database();
        QCOMPARE(UserStore(file).add({ line("O'Brien"), line("欧 布") }), Status());
        QCOMPARE(UserStore(file).add({ line("clears\x1b[2J"), line("the\nscreen") }), Status());
        QCOMPARE(StaticTextStore(file).set(line("hostile"), line("text"), line("a\tb\\c\\N\nd\r\v\f\b\x1b'\"{}😀")),
            Status());
        QCOMPARE(CashStore(file).set(line("100001"), 123456), Status());
        QCOMPARE(
            AlertStore(file, session.user())
                .setDone({ { Alert::Kind::Failed, session.plans().page(0, 1)->constFirst(), line("a\tday"), {} } }),
            Status());
        QCOMPARE(LimitStore(file).set(line("100001"), { 100000, std::nullopt, 7 }), Status());
        QCOMPARE(LimitStore(file).authorise({ line("100001"), { 500000, std::nullopt, std::nullopt }, line("trader02"),
                     QDateTime::currentDateTime(), SampleSession::today(), line("a reason") }),
            Status());
        QCOMPARE(
            file.execute(line("UPDATE sqlite_sequence SET seq = ? WHERE name = 'plans'"), { LastNumber }), Status());
        session.close();
    }

    QString copyOfFile()
    {
        const QString name = m_folder.filePath(QStringLiteral("copy%1.db").arg(++m_copies));
        return backUpDatabase(m_file, name) ? name : QString();
    }

    const QTemporaryDir m_folder;
    QString m_file;
    int m_copies = 0;
};

QTEST_MAIN(MoveToTest)
#include "tst_move_to.moc"
