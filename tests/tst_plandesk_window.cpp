#include "Appearance.h"
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientWindowTest.h"
#include "InstructionIssuer.h"
#include "InstructionTargetType.h"
#include "Options.h"
#include "PlanCodes.h"
#include "PlanEvents.h"
#include "PlanFormatter.h"
#include "ProgramRun.h"
#include "StatusLine.h"
#include "TestStatus.h"

#include <QAction>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenuBar>
#include <QPointer>
#include <QTableView>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;

Q_DECLARE_METATYPE(Program)

namespace {

const QSize FormSize(517, 710);

Result<Options> read(const QString& arguments, Program program = Program::Client)
{
    const QStringList words = arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return readOptions(QStringList{ QStringLiteral("program") } + words, program);
}

/// The texts of the labels below a widget.
QStringList labels(const QWidget* widget)
{
    QStringList texts;
    for (const QLabel* const label : widget->findChildren<QLabel*>())
        texts << label->text();
    return texts;
}

ProgramEnd runPlandesk(
    const QStringList& arguments, const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    return runProgram(QStringLiteral(PLANDESK_PROGRAM), arguments, environment);
}

QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : { "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM" })
        environment.remove(QLatin1String(name));
    return environment;
}

/// The environment of a machine on which only this variable names a language.
QProcessEnvironment inLanguage(const QString& variable, const QString& locale)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LC_ALL"));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    environment.insert(variable, locale);
    return environment;
}

} // namespace

class PlandeskWindowTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setFont(QFont(QStringLiteral("Sans Serif"), 9)); }

    void invalidOptionsAreReportedInChinese_data()
    {
        QTest::addColumn<Program>("program");
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const char* arguments, const char* error) {
            QTest::newRow(name) << Program::Client << QString::fromUtf8(arguments) << QString::fromUtf8(error);
        };
        row("an unknown option", "--colour red", "未知选项：colour");
        row("an option without its value", "--user", "选项--user缺少取值");
        row("an option with an empty value", "--database=", "选项--database缺少取值");
        row("a value for an option without one", "--help=yes", "选项--help不带取值");
        row("a surplus word", "plans.db", "多余的参数：plans.db");
        row("an unknown skin", "--skin pink", "没有皮肤“pink”，可选：light、dark");
        row("an unknown language", "--language fr", "没有语言“fr”，可选：zh、en");
        row("a number in letters", "--securities many", "证券数量“many”不是正整数");
        row("a number below one", "--securities 0", "证券数量“0”不是正整数");
        row("a folder of strategies that does not exist", "--strategies /no/such/folder",
            "策略文件夹“/no/such/folder”不存在");
        row("a day that does not exist", "--issue-day 2024-02-30", "日期“2024-02-30”无效，格式为yyyy-MM-dd");
        row("a day in another format", "--issue-day 2024-5-6", "日期“2024-5-6”无效，格式为yyyy-MM-dd");
        row("JSON without a command", "--json",
            "选项--json只用于admin list、check-strategies、export、history、import、journal、--issue-preview");
        row("JSON of an issue", "--issue-day 2024-05-06 --json",
            "选项--json只用于admin list、check-strategies、export、history、import、journal、--issue-preview");
        row("a simulation of the window", "--simulate", "选项--simulate只用于--issue-day、--issue-preview");
        row("a preview with a command", "history AP00000001 --issue-preview", "命令history没有选项--issue-preview");
        row("JSON of another command", "backup a --json", "命令backup没有选项--json");
        row("a user of a command without one", "import-closures a --user trader01",
            "命令import-closures没有选项--user");
        row("a day with a command", "history AP00000001 --issue-day 2024-05-06", "命令history没有选项--issue-day");
        row("the journal's day without a command", "--day 2024-05-06", "选项--day只用于export、journal");
        row("the journal of no day", "journal --day 2024-13-01", "日期“2024-13-01”无效，格式为yyyy-MM-dd");
        row("a job of the walk-through", "--walkthrough folder", "未知选项：walkthrough");
        const auto walk = [](const char* name, const char* arguments, const char* error) {
            QTest::newRow(name) << Program::WalkThrough << QString::fromUtf8(arguments) << QString::fromUtf8(error);
        };
        walk("walk-through, no folder", "--user trader01", "缺少目录");
        walk("walk-through, no argument", "", "缺少目录");
        walk("walk-through, two folders", "a b", "多余的参数：b");
        walk("walk-through, an option without its value", "a --user", "选项--user缺少取值");
        walk("walk-through, a job of the client", "a --issue-day 2024-05-06", "未知选项：issue-day");
    }

    void invalidOptionsAreReportedInChinese()
    {
        QFETCH(Program, program);
        QFETCH(QString, arguments);
        QFETCH(QString, error);
        QCOMPARE(errorText(read(arguments, program).status()), error);
    }

    void withoutOptionsTheWindowIsWanted()
    {
        const Options options = *read(QString());
        QVERIFY(options.wantsWindow());
        QCOMPARE(options.skin, QStringLiteral("light"));
        QCOMPARE(options.securities, 0);
        QCOMPARE(options.user, QString());
    }

    void everyOptionIsRead()
    {
        const Options window =
            *read(QStringLiteral("--user trader07 --database a.db --skin dark --securities 100000 --user trader03"));
        QCOMPARE(window.user, QStringLiteral("trader03"));
        QCOMPARE(window.database, QStringLiteral("a.db"));
        QCOMPARE(window.skin, QStringLiteral("dark"));
        QCOMPARE(window.securities, 100000);
        QCOMPARE(read(QStringLiteral("--issue-day=2024-05-06"))->issueDay, QDate(2024, 5, 6));

        const Options walk = *read(QStringLiteral("pictures --user trader03 --database a.db"), Program::WalkThrough);
        QCOMPARE(walk.folder, QStringLiteral("pictures"));
        QCOMPARE(walk.user, QStringLiteral("trader03"));
        QCOMPARE(walk.database, QStringLiteral("a.db"));
        QVERIFY(!walk.issueDay.isValid());
        QVERIFY(!walk.wantsWindow());
        QVERIFY(read(QStringLiteral("--help"), Program::WalkThrough)->help.startsWith(QStringLiteral("用法：")));
    }

    void theLanguageIsReadBesideOtherOptions()
    {
        const auto language = [](const char* arguments) {
            return languageIn(QStringLiteral("plandesk %1").arg(QLatin1String(arguments)).split(QLatin1Char(' ')));
        };
        QCOMPARE(language("--user trader01"), QStringLiteral("zh"));
        QCOMPARE(language("--language=en --colour red"), QStringLiteral("en"));
        QCOMPARE(language("history AP00000001 --user trader01 --language en"), QStringLiteral("en"));
        QCOMPARE(language("--language fr"), QStringLiteral("zh"));
        QCOMPARE(read(QStringLiteral("history AP00000001 --language en"))->command, QStringLiteral("history"));
    }

    void theHelpNamesEveryOption()
    {
        const QString help = read(QStringLiteral("--help"))->help;
        for (const char* name :
            { "user", "database", "skin", "language", "securities", "strategies", "issue-day", "issue-preview",
                "simulate", "json", "sample", "review", "password-stdin", "generate-password", "help" })
            QVERIFY2(help.contains(QStringLiteral("--") + QLatin1String(name)), name);
        QVERIFY(help.startsWith(QStringLiteral("用法：")));
    }

    void theHelpNamesEveryCommand()
    {
        const QString help = read(QStringLiteral("--help"))->help;
        for (const char* name : { "admin add-account", "admin add-user", "admin grant", "admin init", "admin list",
                 "admin migrate", "admin revoke", "admin set-cash", "admin set-chain", "admin set-limits", "backup",
                 "check-strategies", "export", "history", "import", "import-closures", "journal", "move-to" })
            QVERIFY2(help.contains(QLatin1Char(' ') + QLatin1String(name)), name);
    }

    void theProgramRefusesWhatItCannotDo_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("message");
        const QString day = QStringLiteral("--issue-day=2024-05-06");
        const QString file = QStringLiteral("--database=FILE");
        QTest::newRow("an unknown option")
            << QStringList{ QStringLiteral("--colour") } << QStringLiteral("未知选项：colour");
        QTest::newRow("an unknown command")
            << QStringList{ QStringLiteral("restore"), QStringLiteral("a") } << QStringLiteral("多余的参数：restore");
        QTest::newRow("a command without its file")
            << QStringList{ QStringLiteral("import-closures") } << QStringLiteral("命令import-closures应有参数：文件");
        QTest::newRow("an unknown user") << QStringList{ file, day, QStringLiteral("--user=nobody") }
                                         << QStringLiteral("用户“nobody”不存在");
        QTest::newRow("a folder as the database")
            << QStringList{ QStringLiteral("--database=/"), day } << QStringLiteral("plandesk: ");
        QTest::newRow("another size than the database has")
            << QStringList{ file, day, QStringLiteral("--securities=500") } << QStringLiteral("中已有200只证券");
    }

    void theProgramRefusesWhatItCannotDo()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        arguments.replaceInStrings(QStringLiteral("FILE"), session().file());
        const ProgramEnd end = runPlandesk(arguments);
        QCOMPARE(end.code, 2);
        QVERIFY2(end.errors.contains(message), qPrintable(end.errors));
        QCOMPARE(end.output, QString());
    }

    void withoutADisplayNoWindowIsTried()
    {
        const ProgramEnd window = runPlandesk({ QStringLiteral("--database"), session().file() }, withoutDisplay());
        QCOMPARE(window.code, 2);
        QVERIFY2(window.errors.contains(QStringLiteral("没有可用的显示设备")), qPrintable(window.errors));
        const ProgramEnd help = runPlandesk({ QStringLiteral("--help") }, withoutDisplay());
        QCOMPARE(help.code, 0);
        QVERIFY2(help.output.startsWith(QStringLiteral("用法：")), qPrintable(help.output));
    }

    void theProgramBacksUpTheDatabase()
    {
        const QTemporaryDir folder;
        const QString backup = folder.filePath(QStringLiteral("backup.db"));
        const QStringList arguments{ QStringLiteral("backup"), backup, QStringLiteral("--database"), session().file() };
        const ProgramEnd end = runPlandesk(arguments);
        QCOMPARE(end.code, 0);
        QCOMPARE(end.output, QStringLiteral("数据库已备份到%1\n").arg(backup));
        QVERIFY(QFile::exists(backup));
        const ProgramEnd again = runPlandesk(arguments);
        QCOMPARE(again.code, 1);
        QVERIFY2(again.errors.contains(QStringLiteral("已存在")), qPrintable(again.errors));
    }

    void importedClosuresExtendTheCalendar()
    {
        const QTemporaryDir folder;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path());
        const auto import = [&](const QByteArray& year) {
            QFile table(folder.filePath(QString::fromLatin1(year) + QStringLiteral(".csv")));
            if (table.open(QIODevice::WriteOnly))
                table.write("market,date,holiday,status\nmainland," + year + "-01-01,元旦,announced\nhongkong," + year
                    + "-01-01,一月一日,computed\n");
            table.close();
            return runPlandesk({ QStringLiteral("import-closures"), table.fileName() }, environment);
        };
        const ProgramEnd early = import("2029");
        QCOMPARE(early.code, 1);
        QVERIFY2(early.errors.contains(QStringLiteral("缺少2028年的休市安排")), qPrintable(early.errors));
        QCOMPARE(import("2028").output, QStringLiteral("交易日历到2028-12-31\n"));
        const ProgramEnd later = import("2029");
        QCOMPARE(later.output, QStringLiteral("交易日历到2029-12-31\n"));
        QCOMPARE(later.code, 0);
    }

    void theStatusLineAnnouncesTheEndOfTheCalendar()
    {
        setClientToday(QDate(2027, 10, 1));
        QVERIFY(MainWindow().findChild<QLabel*>(QStringLiteral("calendarEnd"))->isHidden());
        setClientToday(QDate(2027, 10, 2));
        const MainWindow window;
        const auto* const label = window.findChild<QLabel*>(QStringLiteral("calendarEnd"));
        QVERIFY(!label->isHidden());
        QCOMPARE(label->text(),
            QStringLiteral("交易日历只到2027-12-31，还剩90天，请用import-closures命令导入之后的休市安排"));
    }

    void theProgramsLocalTimeIsTheMarkets()
    {
        QProcessEnvironment environment = withoutDisplay();
        environment.insert(QStringLiteral("TZ"), QStringLiteral("PST8"));
        // Makes Qt log a warning, which begins with the time.
        environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
        const QString line = runPlandesk({ QStringLiteral("--help") }, environment).errors;
        const QDateTime logged = QDateTime::fromString(line.left(19), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        QVERIFY2(logged.isValid(), qPrintable(line));
        const QDateTime now = QDateTime::currentDateTimeUtc().toOffsetFromUtc(8 * 3600);
        QVERIFY2(qAbs(QDateTime(logged.date(), logged.time(), Qt::OffsetFromUTC, 8 * 3600).secsTo(now)) < 600,
            qPrintable(line));
    }

    void theProgramIssuesADayAndListsTheResult()
    {
        const QString plan = session().create(SampleSession::record());
        const QStringList arguments{ QStringLiteral("--database"), session().file(), QStringLiteral("--issue-day"),
            QStringLiteral("2024-05-07"), QStringLiteral("--simulate") };
        const ProgramEnd end = runPlandesk(arguments);
        QCOMPARE(end.code, 0);
        QCOMPARE(end.output, QStringLiteral("2024-05-07：新下达指令1条，此前已下达的计划0个，未下达的计划0个。\n"));
        QCOMPARE(ClientSession::instance().instructions().ofPlan(plan)->size(), 1);
        QCOMPARE(runPlandesk(arguments).output,
            QStringLiteral("2024-05-07：新下达指令0条，此前已下达的计划1个，未下达的计划0个。\n"));
    }

    void theProgramListsTheJournalOfADay()
    {
        const QString plan = session().create(SampleSession::record());
        QVERIFY(InstructionIssuer::issueDay(SampleSession::today()));
        const QStringList arguments{ QStringLiteral("--database"), session().file(), QStringLiteral("journal"),
            QStringLiteral("--day"), QStringLiteral("2024-05-06") };
        const ProgramEnd end = runPlandesk(arguments);
        QCOMPARE(end.code, 0);
        const QString line = QStringLiteral("12:00:00 %1 100001 ").arg(plan);
        QVERIFY2(end.output.startsWith(line), qPrintable(end.output));
        QVERIFY2(
            end.output.endsWith(QStringLiteral("下达 300 股，成交 300 股，已结束 trader01\n")), qPrintable(end.output));
        const QJsonArray entries =
            QJsonDocument::fromJson(runPlandesk(arguments + QStringList{ QStringLiteral("--json") }).output.toUtf8())
                .array();
        QCOMPARE(entries.size(), 1);
        const QJsonObject entry = entries.at(0).toObject();
        QCOMPARE(entry.value(QStringLiteral("kind")).toString(), QStringLiteral("instruction"));
        QCOMPARE(entry.value(QStringLiteral("instruction")).toString(), plan + QStringLiteral("-000001"));
        QCOMPARE(entry.value(QStringLiteral("time")).toString(), QStringLiteral("2024-05-06T04:00:00.000Z"));
        QCOMPARE(runPlandesk({ QStringLiteral("--database"), session().file(), QStringLiteral("journal") }).output,
            QString());
    }

    void anotherDayIsOnlySimulated()
    {
        const QString plan = session().create(SampleSession::record());
        const ProgramEnd end = runPlandesk({ QStringLiteral("--database"), session().file(),
            QStringLiteral("--issue-day"), QStringLiteral("2024-05-07") });
        QCOMPARE(end.code, 1);
        QVERIFY2(end.errors.contains(QStringLiteral("plandesk: 2024-05-07不是今天（")), qPrintable(end.errors));
        QVERIFY(ClientSession::instance().instructions().ofPlan(plan)->isEmpty());
    }

    void theProgramPreviewsADay()
    {
        session().create(SampleSession::record());
        QVERIFY(ClientSession::instance().plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow()));
        const QStringList arguments{ QStringLiteral("--database"), session().file(), QStringLiteral("--issue-preview"),
            QStringLiteral("--issue-day=2024-05-07"), QStringLiteral("--simulate") };
        const ProgramEnd end = runPlandesk(arguments);
        QCOMPARE(end.code, 3);
        const QStringList lines = end.output.trimmed().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 2);
        QVERIFY2(lines.at(1).startsWith(QStringLiteral("AP00000002 100001 ")), qPrintable(lines.at(1)));
        QVERIFY2(lines.at(1).contains(QStringLiteral(" 不能下达：")), qPrintable(lines.at(1)));
        QVERIFY2(lines.at(0).contains(QStringLiteral(" 买入 不限价 数量300 金额")), qPrintable(lines.at(0)));
        const QJsonArray rows =
            QJsonDocument::fromJson(runPlandesk(arguments + QStringList{ QStringLiteral("--json") }).output.toUtf8())
                .array();
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(0)[QStringLiteral("plan")].toString(), QStringLiteral("AP00000001"));
        QCOMPARE(rows.at(0)[QStringLiteral("quantity")].toInt(), 300);
        QVERIFY(rows.at(0)[QStringLiteral("price")].isNull());
        QVERIFY(rows.at(0)[QStringLiteral("reason")].isNull());
        QVERIFY(!rows.at(1)[QStringLiteral("reason")].toString().isEmpty());
        QCOMPARE(ClientSession::instance().instructions().ofPlan(QStringLiteral("AP00000001"))->size(), 0);
    }

    void aDayWithARefusedPlanIsIncomplete()
    {
        QVERIFY(ClientSession::instance().plans().create(
            customPrice(SampleSession::record(), QStringLiteral("1-1")), ClientSession::instance().changeNow()));
        QCOMPARE(runPlandesk({ QStringLiteral("--database"), session().file(), QStringLiteral("--simulate"),
                                 QStringLiteral("--issue-day=2024-05-07") })
                     .code,
            3);
    }

    void aDayOfAMissingFileCreatesNothing()
    {
        const QString missing = session().file() + QStringLiteral(".missing");
        const ProgramEnd end = runPlandesk({ QStringLiteral("--database"), missing, QStringLiteral("--issue-day"),
            QStringLiteral("2024-05-07"), QStringLiteral("--simulate") });
        QCOMPARE(end.code, 2);
        QVERIFY2(end.errors.contains(QStringLiteral("文件不存在")), qPrintable(end.errors));
        QVERIFY(!QFile::exists(missing));
    }

    void aDayIsIssuedInEveryLocale_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("locale");
        for (const char* locale :
            { "ar_EG", "as_IN", "bn_BD", "ckb_IQ", "dz_BT", "fa_IR", "mr_IN", "my_MM", "ne_NP", "ps_AF" })
            QTest::newRow(locale) << QStringLiteral("LC_ALL") << QString::fromLatin1(locale) + QStringLiteral(".UTF-8");
        QTest::newRow("of numbers alone") << QStringLiteral("LC_NUMERIC") << QStringLiteral("fa_IR.UTF-8");
    }

    void aDayIsIssuedInEveryLocale()
    {
        QFETCH(QString, variable);
        QFETCH(QString, locale);
        QVERIFY(QLocale(locale).zeroDigit() != QLatin1Char('0'));
        session().create(SampleSession::record());
        const ProgramEnd end =
            runPlandesk({ QStringLiteral("--database"), session().file(), QStringLiteral("--issue-day"),
                            QStringLiteral("2024-05-07"), QStringLiteral("--simulate") },
                inLanguage(variable, locale));
        QCOMPARE(end.code, 0);
        QCOMPARE(end.output, QStringLiteral("2024-05-07：新下达指令1条，此前已下达的计划0个，未下达的计划0个。\n"));
    }

    void theWalkThroughPassesInEveryLocale_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("locale");
        QTest::newRow("of a locale") << QStringLiteral("LC_ALL") << QStringLiteral("my_MM.UTF-8");
        QTest::newRow("of numbers alone") << QStringLiteral("LC_NUMERIC") << QStringLiteral("fa_IR.UTF-8");
    }

    void theWalkThroughPassesInEveryLocale()
    {
        QFETCH(QString, variable);
        QFETCH(QString, locale);
        QTemporaryDir folder;
        const ProgramEnd end =
            runProgram(QStringLiteral(WALKTHROUGH_PROGRAM), { folder.path() }, inLanguage(variable, locale));
        QVERIFY2(end.code == 0, qPrintable(end.output + end.errors));
        QVERIFY2(end.output.contains(QStringLiteral("核对一致的计划10个，问题0个")), qPrintable(end.output));
    }

    void aPlanIsDescribedInWords()
    {
        Record record = SampleSession::withOther(SampleSession::record(),
            { { FieldId::TargetType, InstructionTargetType::AmountOrder },
                { BaseField::tradeAmount, QStringLiteral("1234567.50") },
                { BaseField::dayMaxTradeAmount, QStringLiteral("900.00") },
                { BaseField::algoStrategyName, QStringLiteral("TWAP") },
                { BaseField::algoParam,
                    QVariantMap{ { QStringLiteral("SliceInterval"), QStringLiteral("60") },
                        { QStringLiteral("MaxParticipation"), QStringLiteral("0.2") },
                        { QStringLiteral("ForceFinish"), QStringLiteral("N") } } } });
        record.insert(BaseField::InstMode, InstMode::AlgoReview);
        record.insert(BaseField::remark, QStringLiteral("说明"));
        const QString id = session().create(record);
        const PlanFormatter words(*plans().plan(id));
        QMap<QString, QString> texts;
        for (const auto& field : words.fields())
            texts.insert(field.first, field.second);
        const QMap<const char*, QString> expected{ { "计划编号", id },
            { "账户名称", QStringLiteral("稳健一号（F100001）") }, { "指令类型", QStringLiteral("普通交易") },
            { "指令单类型", QStringLiteral("按金额") }, { "计划类型", QStringLiteral("累计数量") },
            { "市场", QStringLiteral("上海证券交易所") }, { "目标总量", QStringLiteral("1,234,567.50 元") },
            { "每日最大委托量", QStringLiteral("900.00 元") }, { "价格模式", QStringLiteral("不限价") },
            { "生效时段", QStringLiteral("2024-05-06 至 2024-05-10") }, { "备注", QStringLiteral("说明") } };
        for (auto field = expected.cbegin(); field != expected.cend(); ++field)
            QCOMPARE(texts.value(QString::fromUtf8(field.key())), *field);
        QVERIFY(!texts.contains(QStringLiteral("价格")));
        QVERIFY(!texts.contains(QStringLiteral("减持占比")));
        const QStringList parameters = texts.value(QStringLiteral("算法参数")).split(QLatin1Char('\n'));
        QCOMPARE(parameters.size(), 3);
        QVERIFY2(parameters.constFirst().endsWith(QStringLiteral("：60 秒")), qPrintable(parameters.constFirst()));
        QVERIFY2(parameters.at(1).endsWith(QStringLiteral("：20 %")), qPrintable(parameters.at(1)));
        QVERIFY2(parameters.at(2).endsWith(QStringLiteral("：否")), qPrintable(parameters.at(2)));
    }

    void unknownCodesAreShownAsTheyAre()
    {
        StoredPlan plan;
        plan.id = QStringLiteral("AP00000001");
        plan.record = { { BaseField::orderSide, QStringLiteral("up") }, { BaseField::priceModel, QStringLiteral("99") },
            { BaseField::totalQty, QStringLiteral("nan") }, { BaseField::planOtherParam, QStringLiteral("[1,") } };
        const PlanFormatter words(plan);
        QCOMPARE(words.side(), QStringLiteral("up"));
        QCOMPARE(words.priceMode(), QStringLiteral("99"));
        QCOMPARE(words.target(), QStringLiteral("nan"));
        QCOMPARE(words.security(), QString());
        QCOMPARE(PlanFormatter(StoredPlan()).fields().size(), 0);
    }

    void aCreatedPlanIsListedAndCurrent()
    {
        openWindow();
        QCOMPARE(window().currentPlan(), QString());
        const QString id = createPlan();
        QVERIFY(!id.isEmpty());
        QVERIFY(!dialog().isVisible());
        QCOMPARE(window().currentPlan(), id);
        const QStringList texts = labels(field<QWidget>(window(), "planDetails"));
        QVERIFY(texts.contains(id));
        QVERIFY(texts.contains(QStringLiteral("10,000 股")));
    }

    void theEditorIsUsedAgainAfterAStoredPlan()
    {
        openWindow();
        const QString first = createPlan();
        const QPointer<AutoParamSetting> editor = dialogEditor();
        const QString second = createPlan();
        QCOMPARE(dialogEditor(), editor.data());
        QVERIFY(!second.isEmpty() && second != first);

        // An unchanged form is used for the next plan.
        pressForEditor(Qt::Key_N);
        QCOMPARE(dialogEditor(), editor.data());
        dialogDriver().cancel();
        pressForEditor(Qt::Key_E);
        QCOMPARE(dialogEditor(), editor.data());
        QCOMPARE(send(), QStringLiteral("交易计划%1修改成功!").arg(second));

        // After an edit every field is enabled again.
        pressForEditor(Qt::Key_N);
        QCOMPARE(dialogEditor(), editor.data());
        QVERIFY(field<QWidget>(*dialogEditor(), "combx_fundAccount")->isEnabled());
        QVERIFY(field<QLineEdit>(*dialogEditor(), "le_symbol")->text().isEmpty());
    }

    void aFormLeftWithValuesIsReplaced()
    {
        openWindow();
        QVERIFY(!createPlan().isEmpty());
        const QPointer<AutoParamSetting> editor = dialogEditor();
        pressForEditor(Qt::Key_D);
        QCOMPARE(dialogEditor(), editor.data());
        dialogDriver().cancel();
        pressForEditor(Qt::Key_N);
        QVERIFY(dialogEditor() != editor.data());
        QVERIFY(field<QLineEdit>(*dialogEditor(), "le_symbol")->text().isEmpty());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!editor);
    }

    void editingStartsByShortcutEnterAndDoubleClick()
    {
        const QString id = session().create(SampleSession::record());
        openWindow();
        auto* const table = field<QTableView>(window(), "planTable");
        const QString title = QStringLiteral("修改计划 %1").arg(id);
        QVERIFY(press(&window(), Qt::Key_E, Qt::ControlModifier));
        QCOMPARE(dialog().windowTitle(), title);
        dialog().leave();
        QVERIFY(press(table, Qt::Key_Return));
        QVERIFY(dialog().isVisible());
        dialog().leave();
        const QPoint cell = table->visualRect(table->model()->index(0, 2)).center();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
        QVERIFY(dialog().isVisible());
        QCOMPARE(dialog().windowTitle(), title);
        QVERIFY(!field<QWidget>(*dialogEditor(), "le_symbol")->isEnabled());
        QStringList names;
        for (const QAction* action : table->actions())
            names << action->text();
        QCOMPARE(names.join(QLatin1Char(' ')), QStringLiteral("新建 编辑 复制  暂停 恢复 停止…… 归档 全部暂停……"));
        QCOMPARE(table->contextMenuPolicy(), Qt::ActionsContextMenu);
    }

    void aStoppedPlanIsNotEdited()
    {
        const QString id = createSamples(1).constFirst();
        const Change now = ClientSession::instance().changeNow();
        QCOMPARE(plans().setState(id, 1, PlanState::Stopped, QString(), now), Status());
        openWindow();
        window().selectPlan(id);
        const auto edit = [this] { QVERIFY(press(&window(), Qt::Key_E, Qt::ControlModifier)); };
        QCOMPARE(boxOf(edit, "msgBoxWarning"), QStringLiteral("计划%1已停止，不能修改").arg(id));
        QVERIFY(!dialog().isVisible());
    }

    void aCopyOfAPlanIsANewPlan()
    {
        openWindow();
        const QString id = createPlan();
        pressForEditor(Qt::Key_D);
        QCOMPARE(dialog().windowTitle(), QStringLiteral("复制计划 %1").arg(id));
        QCOMPARE(send(), QStringLiteral("交易自动规划创建成功!"));
        QVERIFY(window().currentPlan() != id);
        QCOMPARE(*plans().count(), 2);
        QCOMPARE(*plans().record(window().currentPlan()), *plans().record(id));
    }

    void aReadThatFailsIsShownAndKeepsTheRows()
    {
        openWindow();
        window().selectPlan(createSamples(3).constFirst());
        auto* const table = field<QTableView>(window(), "planTable");
        QCOMPARE(table->model()->rowCount(), 3);
        Database& database = ClientSession::instance().database();
        QCOMPARE(database.execute(QStringLiteral("ALTER TABLE plans RENAME TO gone")), Status());
        const QString failed = QStringLiteral("数据库操作失败");
        QVERIFY(press(&window(), Qt::Key_F5));
        QVERIFY(text(window(), "status").startsWith(failed));
        QCOMPARE(table->model()->rowCount(), 3);
        // What was done right before the read that fails is shown, too.
        const QString done = QStringLiteral("1个计划已暂停");
        field<StatusLine>(window(), "status")->showDone(done);
        QVERIFY(text(window(), "status").startsWith(done + QStringLiteral("，") + failed));
        const QString lost = errorText(Error::ConnectionLost);
        log().expectWarning(lost);
        PlanEvents::instance().report(Error::ConnectionLost);
        QCOMPARE(text(window(), "status"), done + QStringLiteral("，") + lost);
        QCOMPARE(database.execute(QStringLiteral("ALTER TABLE gone RENAME TO plans")), Status());
        QVERIFY(press(&window(), Qt::Key_F5));
        QCOMPARE(text(window(), "status"), done);
        Q_EMIT PlanEvents::instance().connectionRestored();
        QCOMPARE(text(window(), "status"), done);
    }

    void rowsOfAFileThatIsGoneAreMarked()
    {
        openWindow();
        const QString plan = createSamples(3).constFirst();
        QVERIFY(press(&window(), Qt::Key_F5));
        const auto* const mark = field<QLabel>(window(), "outdated");
        QVERIFY(!mark->isVisible());
        const QString gone = errorText(Error::DatabaseFileChanged);
        // The check of all pages may start now and report the missing file, too.
        log().allowWarning(gone);
        const QString away = session().file() + QStringLiteral(".away");
        QVERIFY(QFile::rename(session().file(), away));
        QVERIFY(press(&window(), Qt::Key_F5));
        QVERIFY(text(window(), "status").endsWith(gone));
        QVERIFY(mark->isVisible());
        QVERIFY2(mark->text().startsWith(QStringLiteral("刷新失败：%1。列表仍是").arg(gone)), qPrintable(mark->text()));
        QCOMPARE(field<QTableView>(window(), "planTable")->model()->rowCount(), 3);
        window().selectPlan(plan);
        QCOMPARE(window().currentPlan(), plan);

        QVERIFY(QFile::rename(away, session().file()));
        QVERIFY(press(&window(), Qt::Key_F5));
        QVERIFY(!mark->isVisible());
        ClientSession::instance().close();
        QCoreApplication::processEvents();
    }

    void failedReadsOfTheEditorOpenOneBox()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        const QString damaged = errorText(Error::DatabaseCorrupt);
        log().expectWarning(damaged, 2);
        const auto report = [] {
            PlanEvents::instance().report(Error::DatabaseCorrupt);
            PlanEvents::instance().report(Error::DatabaseCorrupt);
            QCoreApplication::processEvents();
        };
        QCOMPARE(boxOf(report, "msgBoxError"), damaged);
    }

    void withoutAPlanThereIsNothingToEdit()
    {
        openWindow();
        for (Qt::Key key : { Qt::Key_E, Qt::Key_D }) {
            QVERIFY(press(&window(), key, Qt::ControlModifier));
            QVERIFY(!dialog().isVisible());
        }
        QVERIFY(!field<QAction>(window(), "action_edit")->isEnabled());
        QVERIFY(!field<QAction>(window(), "action_copy")->isEnabled());
    }

    void closingAChangedFormAsks()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QCOMPARE(dialogEditor()->size(), FormSize);
        dialogDriver().type("le_remark", QStringLiteral("x"));
        const QString question = QStringLiteral("计划尚未提交，关闭后填写的内容将丢失，是否关闭？");
        QCOMPARE(boxOf([this] { press(&dialog(), Qt::Key_Escape); }, "msgBoxQuestion", false), question);
        QVERIFY(dialog().isVisible());
        QCOMPARE(boxOf([this] { dialog().close(); }, "msgBoxQuestion"), question);
        QVERIFY(!dialog().isVisible());
    }

    void closingAnUnchangedFormDoesNotAsk()
    {
        session().create(SampleSession::record());
        openWindow();
        for (Qt::Key key : { Qt::Key_N, Qt::Key_E, Qt::Key_D }) {
            pressForEditor(key);
            QVERIFY(press(&dialog(), Qt::Key_Escape));
            QVERIFY(!dialog().isVisible());
        }
        QCOMPARE(boxes().take().size(), 0);
    }

    void theWindowStaysOpenWhileItsFormIsKept()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().type("le_remark", QStringLiteral("x"));
        for (const bool accepts : { false, true }) {
            QVERIFY(!boxOf([&] { QCOMPARE(window().close(), accepts); }, "msgBoxQuestion", accepts).isEmpty());
            QCOMPARE(window().isVisible(), !accepts);
            QCOMPARE(dialog().isVisible(), !accepts);
        }
    }

    void enterInAFieldPressesNoButton()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        QVERIFY(press(field<QLineEdit>(*dialogEditor(), "le_remark"), Qt::Key_Return));
        QVERIFY(dialog().isVisible());
        QCOMPARE(boxes().take().size(), 0);
    }

    void theSkinReachesTheEditor()
    {
        openWindow();
        QCOMPARE(qApp->styleSheet(), skinSheet(QStringLiteral("light")));
        pressForEditor(Qt::Key_N);
        QCOMPARE(dialogEditor()->styleSheet(), skinSheet(QStringLiteral("light")));
        dialog().leave();
        QVERIFY(press(&window(), Qt::Key_F8));
        QCOMPARE(window().skin(), QStringLiteral("dark"));
        QCOMPARE(qApp->styleSheet(), skinSheet(QStringLiteral("dark")));
        QCOMPARE(dialogEditor()->styleSheet(), skinSheet(QStringLiteral("dark")));
        log().expectWarning(QStringLiteral("there is no skin"));
        window().setSkin(QStringLiteral("pink"));
        QCOMPARE(window().skin(), QStringLiteral("dark"));
    }

    void numbersOfAPlanHaveSeparatorsAndUnits()
    {
        Record record = SampleSession::withOther(SampleSession::record(),
            { { BaseField::JCRatio, QStringLiteral("1") }, { BaseField::JCModel, QStringLiteral("1") } });
        record.insert(BaseField::totalQty, QStringLiteral("1234567"));
        record.insert(BaseField::priceModel, PriceModel::Custom);
        record.insert(BaseField::priceFormula1, QStringLiteral("1234.5"));
        StoredPlan plan;
        plan.id = QStringLiteral("AP00000001");
        plan.record = record;
        const PlanFormatter words(plan);
        QMap<QString, QString> texts;
        for (const auto& field : words.fields())
            texts.insert(field.first, field.second);
        QCOMPARE(texts.value(QStringLiteral("目标总量")), QStringLiteral("1,234,567 股"));
        QCOMPARE(texts.value(QStringLiteral("减持占比")), QStringLiteral("100%"));
        QCOMPARE(texts.value(QStringLiteral("价格")), QStringLiteral("1,234.5 元"));
        QCOMPARE(words.issued(QStringLiteral("3000000"), false), QStringLiteral("3,000,000 股"));
        QCOMPARE(words.issued(QStringLiteral("1234.50"), true), QStringLiteral("1,234.50 元"));
    }

    void aDailyMaximumOfZeroIsUnlimited()
    {
        const auto perDay = [](const QMap<QString, QVariant>& other) {
            StoredPlan plan;
            plan.record = SampleSession::withOther(SampleSession::record(), other);
            return PlanFormatter(plan).perDay();
        };
        const QString quantity = AutoPlanField::Progress::CurrentQty;
        QCOMPARE(perDay({ { quantity, QStringLiteral("300") } }), QStringLiteral("300 股"));
        QCOMPARE(perDay({ { quantity, QStringLiteral("0") } }), QStringLiteral("不限"));
        QCOMPARE(perDay({ { quantity, QString() } }), QString());
        QCOMPARE(perDay({ { FieldId::TargetType, InstructionTargetType::AmountOrder },
                     { BaseField::dayMaxTradeAmount, QStringLiteral("0.00") } }),
            QStringLiteral("不限"));
    }

    void theNumberOfPlansStaysAfterAMenu()
    {
        createSamples(3);
        openWindow();
        QMenuBar* const bar = window().menuBar();
        for (QAction* const menu : bar->actions()) {
            QTest::mouseMove(bar, bar->actionGeometry(menu).center());
            QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->actionGeometry(menu).center());
            QTRY_VERIFY(QApplication::activePopupWidget());
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        }
        auto* const status = field<QLabel>(window(), "status");
        QCOMPARE(status->text(), QStringLiteral("共3个计划"));
        QVERIFY(status->isVisible());
    }

    void theCaptionsStayWhenTheAlgorithmPanelWasOpened()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        FormDriver driver = dialogDriver();
        driver.fill(ordinary(ReviewedAccount));
        driver.choose("combx_instructionMode", InstMode::AlgoReview);
        const int before = field<QWidget>(*dialogEditor(), "combx_fundAccount")->x();
        driver.setAlgorithm(QStringLiteral("TWAP"), {});
        // Shows and hides a row, which arranges the form again.
        driver.choose("combx_planType", PlanType::ReduceHoldings);
        driver.choose("combx_planType", PlanType::CumulativeQty);
        driver.takeProblems();
        QApplication::processEvents();
        QCOMPARE(field<QWidget>(*dialogEditor(), "combx_fundAccount")->x(), before);
        boxes().take();
    }

    void anUnknownUserEndsTheProgramWithoutABox()
    {
        const ProgramEnd end = runPlandesk(
            { QStringLiteral("--database"), session().file(), QStringLiteral("--user"), QStringLiteral("nobody") });
        QCOMPARE(end.code, 2);
        QVERIFY2(end.errors.contains(QStringLiteral("用户“nobody”不存在")), qPrintable(end.errors));
    }
};

QTEST_MAIN(PlandeskWindowTest)
#include "tst_plandesk_window.moc"
