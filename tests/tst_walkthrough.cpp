#include "ClientClock.h"
#include "ClientSession.h"
#include "LogCatcher.h"
#include "MainWindow.h"
#include "Options.h"
#include "SampleSession.h"
#include "TestClock.h"
#include "WalkThrough.h"

#include <QDir>
#include <QImage>
#include <QtTest>

namespace {

const QSize formSize(517, 710);

QStringList pictures(const QString& folder, const QString& pattern)
{
    return QDir(folder).entryList({ pattern }, QDir::Files, QDir::Name);
}

Options read(const QString& arguments)
{
    return readOptions(
        (QStringLiteral("plandesk-walkthrough ") + arguments).split(QLatin1Char(' ')), Program::WalkThrough);
}

} // namespace

class TestWalkThrough : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9)); }
    void init() { m_log = std::make_unique<LogCatcher>(); }
    void cleanup();

    void every_plan_is_stored_as_filled_in_on_any_day_data();
    void every_plan_is_stored_as_filled_in_on_any_day();
    void a_second_walk_through_the_same_database_passes_too();
    void a_user_without_the_accounts_fails();
    void the_command_line_names_the_folder();
    void a_command_line_that_does_not_fit_is_refused_data();
    void a_command_line_that_does_not_fit_is_refused();

private:
    std::unique_ptr<LogCatcher> m_log;
};

void TestWalkThrough::cleanup()
{
    QCOMPARE(m_log->trouble(), QStringList());
    m_log.reset();
    setClientToday(QDate());
}

void TestWalkThrough::every_plan_is_stored_as_filled_in_on_any_day_data()
{
    QTest::addColumn<QDate>("today");
    QTest::newRow("a Saturday") << QDate(2026, 11, 21);
    QTest::newRow("the day before a week of holidays") << QDate(2024, 9, 30);
    QTest::newRow("within a week of holidays") << QDate(2024, 10, 3);
    QTest::newRow("the end of a year") << QDate(2025, 12, 31);
}

void TestWalkThrough::every_plan_is_stored_as_filled_in_on_any_day()
{
    QFETCH(QDate, today);
    setToday(today);
    SampleSession session;
    setClientToday(today);
    QCOMPARE(session.reopen(), QString());
    QTemporaryDir folder;
    MainWindow window;
    window.setSkin(QStringLiteral("light"));
    window.show();
    QVERIFY(WalkThrough(window, folder.path()).run());
    QCOMPARE(ClientSession::instance().plans().count(), 9);

    const QStringList forms = pictures(folder.path(), QStringLiteral("*-form.png"));
    QCOMPARE(forms.size(), 9);
    for (const QString& form : forms)
        QCOMPARE(QImage(folder.filePath(form)).size(), formSize);
    QCOMPARE(pictures(folder.path(), QStringLiteral("*-box.png")).size(), 12);
    QCOMPARE(pictures(folder.path(), QStringLiteral("*-panel.png")).size(), 2);
}

void TestWalkThrough::a_second_walk_through_the_same_database_passes_too()
{
    setToday(SampleSession::today());
    SampleSession session;
    QTemporaryDir folder;
    for (int plans : { 9, 18 }) {
        MainWindow window;
        window.setSkin(QStringLiteral("dark"));
        window.show();
        QVERIFY(WalkThrough(window, folder.path()).run());
        QCOMPARE(ClientSession::instance().plans().count(), plans);
    }
}

void TestWalkThrough::a_user_without_the_accounts_fails()
{
    setToday(SampleSession::today());
    SampleSession session(QStringLiteral("trader02"));
    QCOMPARE(session.reason(), QString());
    QTemporaryDir folder;
    MainWindow window;
    window.show();
    QVERIFY(!WalkThrough(window, folder.path()).run());
    QCOMPARE(ClientSession::instance().plans().count(), 0);
}

void TestWalkThrough::the_command_line_names_the_folder()
{
    const Options options = read(QStringLiteral("pictures --user trader03 --database a.db"));
    QCOMPARE(options.error, QString());
    QCOMPARE(options.folder, QStringLiteral("pictures"));
    QCOMPARE(options.user, QStringLiteral("trader03"));
    QCOMPARE(options.database, QStringLiteral("a.db"));
    QVERIFY(!options.issueDay.isValid());
    QVERIFY(!options.wantsWindow());
    QVERIFY(read(QStringLiteral("--help")).help.startsWith(QStringLiteral("用法：")));
}

void TestWalkThrough::a_command_line_that_does_not_fit_is_refused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("no folder") << QStringLiteral("--user trader01") << QStringLiteral("缺少目录");
    QTest::newRow("an empty folder") << QString() << QStringLiteral("缺少目录");
    QTest::newRow("two folders") << QStringLiteral("a b") << QStringLiteral("多余的参数：b");
    QTest::newRow("an option without its value") << QStringLiteral("a --user") << QStringLiteral("选项--user缺少取值");
    QTest::newRow("a job of the client") << QStringLiteral("a --issue-day 2024-05-06")
                                         << QStringLiteral("未知选项：issue-day");
}

void TestWalkThrough::a_command_line_that_does_not_fit_is_refused()
{
    QFETCH(QString, arguments);
    QFETCH(QString, error);
    QCOMPARE(read(arguments).error, error);
}

QTEST_MAIN(TestWalkThrough)
#include "tst_walkthrough.moc"
