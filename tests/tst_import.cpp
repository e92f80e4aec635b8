#include "AccountStore.h"
#include "AuthorityStore.h"
#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "ClosureFiles.h"
#include "HistoryStore.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "PlanTexts.h"
#include "PositionStore.h"
#include "Psql.h"
#include "SampleSession.h"
#include "SecurityStore.h"
#include "TestStatus.h"
#include "TradeCalendar.h"
#include "TransferTest.h"

#include <QStandardPaths>
#include <QtTest>

/// Import and export of all kinds, in a file and on a server.
class ImportTest : public TransferTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void everySampleFileIsImportedOnce_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<qint64>("rows");
        QTest::newRow("securities") << text("securities") << qint64(5);
        QTest::newRow("closes") << text("closes") << qint64(9);
        QTest::newRow("accounts") << text("accounts") << qint64(2);
        QTest::newRow("users") << text("users") << qint64(3);
        QTest::newRow("chains") << text("chains") << qint64(2);
        QTest::newRow("positions") << text("positions") << qint64(3);
        QTest::newRow("plans") << text("plans") << qint64(2);
    }

    void everySampleFileIsImportedOnce()
    {
        QFETCH(QString, kind);
        QFETCH(qint64, rows);
        importUntil(kind);
        const ImportReport first = imported(kind, sample(kind));
        QCOMPARE(first.rows, rows);
        const bool isUser = kind == text("users");
        QCOMPARE(counts(first), isUser ? Counts({ 2, 1, 0, 0 }) : Counts({ rows, 0, 0, 0 }));
        QVERIFY(first.isStored);
        const ImportReport second = imported(kind, sample(kind));
        QCOMPARE(counts(second), Counts({ 0, 0, rows, 0 }));
        QCOMPARE(second.changes(), QStringList());
    }

    void fullWidthCharactersMeanPlainOnes_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* const kind : { "closes", "accounts", "users", "chains", "positions", "plans" })
            QTest::newRow(kind) << text(kind);
    }

    void fullWidthCharactersMeanPlainOnes()
    {
        QFETCH(QString, kind);
        importUntil(kind);
        const ImportReport first = imported(kind, sample(kind));
        const QString stored = contents();
        QCOMPARE(counts(imported(kind, inFullWidth(sample(kind)))), Counts({ 0, 0, first.rows, 0 }));
        QCOMPARE(contents(), stored);
    }

    void aNameKeepsItsFullWidthCharacters()
    {
        imported(text("securities"),
            add(text("f"),
                "symbol,name,type,sub-type,decimals,factor,step,limit,flag,flag-text\n"
                "６０００００．ｓｈ,Ａ１,股票,主板,２,１,１００,１０％,＊ＳＴ,Ｂ２\n"));
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        const Result<Security> security = SecurityStore(stored).security(text("600000.SH"));
        QCOMPARE(security->name, text("Ａ１"));
        QCOMPARE(security->stFlag, text("*ST"));
        QCOMPARE(security->stText, text("Ｂ２"));
        QCOMPARE(security->limitPerMille, 100);
    }

    void whatWasImportedIsStored()
    {
        importUntil(QString());
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        SecurityStore securities(stored);
        const Result<Security> bond = securities.security(text("113001.SH"));
        QCOMPARE(bond->name, text("丁四转债"));
        QCOMPARE(bond->exchange, Kelvo_Values::Exchange::sh);
        QCOMPARE(bond->displayFactor, 10);
        QCOMPARE(bond->limitPerMille, 200);
        QCOMPARE(bond->previousClose, qint64(101300));
        QCOMPARE(securities.security(text("00001.HK"))->limitPerMille, 0);
        const Result<CloseHistory> closes = securities.closes(text("688001.SH"));
        QCOMPARE(closes->lastDay, QDate(2024, 4, 30));
        QCOMPARE(closes->ticks, QVector<qint64>({ 102450, 103000 }));
        const Result<StoredAccount> account = AccountStore(stored).account(text("8001"));
        QCOMPARE(account->exchangeAccounts.size(), 3);
        const QString wang = ownUser("wang");
        QCOMPARE(*AuthorityStore(stored).types(wang, text("8001")), QStringList({ text("1"), text("5"), text("9") }));
        QCOMPARE(AuthorityStore(stored).rights(wang, text("8002"), text("2"))->ruleProperty, 1);
        const auto positions = PositionStore(stored).stored(text("8001"), QString(), text("113001.SH"));
        QCOMPARE(positions->value(0).quantity, qint64(100));
        QCOMPARE(positions->value(0).tradeableQuantity, qint64(100));
    }

    void aWrongLineIsListedAndNothingIsStored_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QByteArray>("lines");
        QTest::addColumn<QStringList>("faults");
        QTest::newRow("headings")
            << text("closes") << QByteArray("symbol,day,Datum\n")
            << QStringList{ text("file第1行第3列（Datum）：没有列“Datum”，可用的列：证券代码、日期、收盘价"),
                   text("file第1行：缺少列：收盘价") };
        QTest::newRow("an empty file") << text("closes") << QByteArray()
                                       << QStringList{ text("file第1行：文件中没有表头") };
        QTest::newRow("a security")
            << text("securities")
            << QByteArray("symbol,name,type,sub-type,decimals,factor,step,limit\n600009.SH,九,股票,主板,2,1,100,10%\n"
                          "600008,八,股票,主板,2,1,100,10%\n600007.SH,,股,主板,7,0,1.5,200%\n"
                          "600009.SH,九,股票,主板,2,1,100,10%\n")
            << QStringList{ text("file第3行第1列（symbol）：证券代码“600008”无效，应为代码、点和市场，例如600000.SH"),
                   text("file第4行第2列（name）：证券名称为空"), text("file第4行第3列（type）：证券类别“股”未知"),
                   text("file第4行第5列（decimals）：不能大于6"), text("file第4行第6列（factor）：不能小于1"),
                   text("file第4行第7列（step）：只能输入整数"), text("file第4行第8列（limit）：不能大于100%"),
                   text("file第5行第1列（symbol）：“600009.SH”与第2行重复") };
        QTest::newRow("closes")
            << text("closes")
            << QByteArray("代码,日期,收盘\n600000.SH,2024-05-06,1.234\n600000.SH,2024-05-04,1.23\nX,2024-05-06,1\n"
                          "600000.SH,12-4,1.23\n688001.SH,2024-05-07,1030\n600000.SH,2024-05-06,0\n")
            << QStringList{ text("file第2行第3列（收盘）：最多输入2位小数"),
                   text("file第3行第2列（日期）：2024-05-04不是证券“600000.SH”的交易日，或不在交易日历之内"),
                   text("file第4行第1列（代码）：证券“X”不存在"),
                   text("file第5行第2列（日期）：无法识别日期“12-4”，文件中的日期须有年、月、日，例如2026-12-04"),
                   text("file第7行第3列（收盘）：不能小于0.01"),
                   text("file第6行：证券“688001.SH”缺少交易日2024-05-06的收盘价") };
        QTest::newRow("accounts")
            << text("accounts") << QByteArray("account,name,asset\n8001,一,期货\n8009,九,普通\n")
            << QStringList{ text("file第2行第3列（asset）：资产属性“期货”未知"),
                   text("file第3行：新账户“8009”缺少资金账号（fund）、客户号（client）、营业部（branch）") };
        QTest::newRow("users") << text(
            "users") << QByteArray("user,name,account,types,review\nwang,王二,8001,普通,否\nzhao,赵,9,期货,\n")
                               << QStringList{ text("file第3行第4列（types）：指令类型“期货”未知") };
        QTest::newRow("positions")
            << text("positions")
            << QByteArray("account,symbol,quantity,tradeable\n8001,113001.SH,105,100\n8001,600000.SH,10,20\n"
                          "8009,600001.SH,1亿2000万,1\n8002,00001.HK,100,100\n")
            << QStringList{ text("file第2行第3列（quantity）：数量105不是数量系数10的整数倍"),
                   text("file第3行第4列（tradeable）：可卖数量20超过持仓数量10"),
                   text("file第4行第1列（account）：账户“8009”不存在"),
                   text("file第4行第2列（symbol）：证券“600001.SH”不存在"),
                   text("file第5行第1列（account）：账户“8002”在该证券的市场没有证券账户") };
        QTest::newRow("plans") << text("plans")
                               << QByteArray("账户,指令类型,计划类型,证券代码,买卖,价格,数量,金额,开始,结束\n"
                                             "8001,普通,累计数量,600000.SH,买,,1000,,2024-05-06,2024-05-10\n"
                                             "8001,普通,累计数量,600000.SH,买,,,,2024-05-06,2024-05-10\n"
                                             "8001,信用,累计数量,600000.SH,买,,1000,,2024-05-06,2024-05-10\n"
                                             "8001,普通,累计数量,600000.SH,买,昨收价*,1000,,2024-05-06,2024-05-10\n"
                                             "8001,普通,累计数量,600000.SH,买,,1000,5,2024-05-04,2024-05-10\n"
                                             "100001,普通,累计数量,600000.SH,买,,1000,,2024-05-03,2024-05-10\n")
                               << QStringList{ text("file第3行第7列（数量）：目标总量为空"),
                                      text("file第4行：账户“8001”不能使用指令类型“信用交易”"),
                                      text("file第5行：价格公式不正确：公式不完整"),
                                      text("file第6行第8列（金额）：目标总量和目标金额只能有一个"),
                                      text("file第7行第1列（账户）：账户“100001”不存在") };
        QTest::newRow("the encoding") << text("closes") << QByteArray("代码,日期,收盘\n\xC3\xFB,2024-05-06,1\n")
                                      << QStringList{ text("file第2行：编码错误：内容不是UTF-8") };
    }

    void aWrongLineIsListedAndNothingIsStored()
    {
        QFETCH(QString, kind);
        QFETCH(QByteArray, lines);
        QFETCH(QStringList, faults);
        importUntil(QString());
        const QString before = contents();
        ImportReport report;
        const Status status = run(kind, add(text("file"), lines), report);
        QStringList found = reasons(report);
        if (kind == text("plans"))
            found = found.filter(QRegularExpression(QStringLiteral("第[34567]行")));
        QCOMPARE(found.size(), faults.size());
        for (int i = 0; i < faults.size(); ++i) {
            if (faults.at(i).contains(text("账户“8001”不能使用")))
                QVERIFY2(found.at(i).startsWith(text("file第4行：")), qPrintable(found.at(i)));
            else if (faults.at(i).contains(text("公式")))
                QVERIFY2(found.at(i).startsWith(text("file第5行：价格公式不正确：")), qPrintable(found.at(i)));
            else
                QCOMPARE(found.at(i), faults.at(i));
        }
        QCOMPARE(status, Status(Error::FileNotImported, { QString::number(report.faultCount) }));
        QVERIFY(!report.isStored);
        QCOMPARE(contents(), before);
    }

    void faultsAreListedUpToALimit()
    {
        importUntil(text("closes"));
        ImportReport report;
        const QByteArray lines = "symbol,date,close\n" + QByteArray("X,2024-05-06,1\n").repeated(1000);
        QCOMPARE(
            run(text("closes"), add(text("file"), lines), report), Status(Error::FileNotImported, { text("1000") }));
        QCOMPARE(report.faults.size(), report.mostFaults);
        QVERIFY(ImportTexts::report(report, false).contains(text("另有900处错误")));
    }

    void aChangedLineUpdates()
    {
        importUntil(QString());
        const auto change = [this](const char* kind, const QByteArray& lines) {
            const ImportReport report = imported(text(kind), add(text("file"), lines));
            return counts(report);
        };
        QCOMPARE(change("securities",
                     "symbol,name,type,sub-type,decimals,factor,step,limit\n600000.SH,新名,股票,主板,2,1,100,10%\n"
                     "688001.SH,乙二科技,股票,科创板,2,1,1,20%\n"),
            Counts({ 0, 1, 1, 0 }));
        QCOMPARE(change("closes",
                     "symbol,date,close\n600000.SH,2024-04-29,10.16\n600000.SH,2024-04-30,10.20\n"
                     "600000.SH,2024-04-25,9.99\n"),
            Counts({ 1, 1, 1, 0 }));
        QCOMPARE(
            change("accounts", "account,name,XSHE\n8001,新名,\n8002,信用一号,0600200001\n"), Counts({ 0, 1, 1, 0 }));
        QCOMPARE(change("users", "user,name,account,types,review\nwang,王一,8001,普通、债券,债券\n"),
            Counts({ 0, 1, 0, 0 }));
        QCOMPARE(
            change("positions", "account,symbol,quantity,tradeable\n8001,600000.SH,4万,3万\n"), Counts({ 0, 1, 0, 0 }));
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        QCOMPARE(SecurityStore(stored).security(text("600000.SH"))->name, text("新名"));
        QCOMPARE(SecurityStore(stored).closes(text("600000.SH"))->ticks, QVector<qint64>({ 999, 1002, 1016, 1020 }));
        QCOMPARE(AccountStore(stored).account(text("8001"))->exchangeAccounts.size(), 2);
        QCOMPARE(*AuthorityStore(stored).types(ownUser("wang"), text("8001")), QStringList({ text("1"), text("5") }));
        QCOMPARE(AuthorityStore(stored).rights(ownUser("wang"), text("8001"), text("1"))->ruleProperty, 0);
        QCOMPARE(AuthorityStore(stored).rights(ownUser("wang"), text("8001"), text("5"))->ruleProperty, 1);
    }

    void unitsInUseDoNotChange()
    {
        importUntil(text("accounts"));
        ImportReport report;
        const QByteArray lines = "symbol,name,type,sub-type,decimals,factor,step,limit\n"
                                 "600000.SH,甲一股份,股票,主板,3,1,100,10%\n";
        QVERIFY(!run(text("securities"), add(text("file"), lines), report));
        QCOMPARE(reasons(report),
            QStringList{
                text("file第2行第5列（decimals）：证券“600000.SH”已有收盘价、持仓或计划，不能修改价格小数位") });
    }

    void whatTheFileDoesNotHaveIsRemovedAfterAConfirmation()
    {
        importUntil(text("plans"));
        const QString file = add(text("file"), "account,symbol,quantity,tradeable\n8001,600000.SH,5万,3万\n");
        ImportTask task = taskOf(text("positions"), file);
        task.replaces = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::ImportNotConfirmed));
        const QStringList removals{ text("8001 113001.SH"), text("8002 000002.SZ") };
        QCOMPARE(report.removals, removals);
        task.removals = removals;
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(counts(report), Counts({ 0, 0, 1, 0 }));
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        QCOMPARE(PositionStore(stored).all()->size(), 1);
    }

    void whatIsUsedIsNotRemoved()
    {
        importUntil(text("plans"));
        const QString file = add(text("file"),
            "symbol,name,type,sub-type,decimals,factor,step,limit\n600000.SH,甲一股份,股票,主板,2,1,100,10%\n");
        ImportTask task = taskOf(text("securities"), file);
        task.replaces = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::FileNotImported, { text("2") }));
        QCOMPARE(reasons(report),
            QStringList({ text("file：“000002.SZ”仍在使用，不能删除"), text("file：“113001.SH”仍在使用，不能删除") }));
        QCOMPARE(ImportRun::check(text("plans"), true), Status(Error::ReplaceNotPossible, { text("plans") }));
    }

    void closesAreReplaced()
    {
        importUntil(text("accounts"));
        const QString file = add(text("file"), "symbol,date,close\n600000.SH,2024-04-30,10.20\n");
        ImportTask task = taskOf(text("closes"), file);
        task.replaces = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::ImportNotConfirmed));
        QCOMPARE(report.removals.size(), 5);
        QCOMPARE(report.removals.constFirst(), text("证券600000.SH的文件中没有的收盘价"));
        task.removals = report.removals;
        QCOMPARE(ImportRun::run(task, report), Status());
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        QCOMPARE(SecurityStore(stored).closes(text("600000.SH"))->ticks, QVector<qint64>({ 1020 }));
        QCOMPARE(SecurityStore(stored).closes(text("688001.SH"))->ticks, QVector<qint64>());
    }

    void aTrialStoresNothing()
    {
        importUntil(text("closes"));
        const QString before = contents();
        ImportTask task = taskOf(text("closes"), sample(text("closes")));
        task.isTrial = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(counts(report), Counts({ 9, 0, 0, 0 }));
        QVERIFY(!report.isStored);
        QCOMPARE(contents(), before);
    }

    void aPlanIsCreatedOnceAndChangedByItsLine()
    {
        importUntil(QString());
        logIn();
        const QByteArray heading = "编号,账户,指令类型,计划类型,证券代码,买卖,价格,数量,开始,结束\n";
        const QByteArray rest = ",2024-05-06,2024-05-10\n";
        const auto import = [&](const QByteArray& lines) {
            return counts(imported(text("plans"), add(text("file"), heading + lines)));
        };
        const QByteArray first = "一,8001,普通,累计数量,600000.SH,买,,1万" + rest;
        const QByteArray nameless = ",8001,普通,累计数量,600000.SH,买,昨收价,2万" + rest;
        QCOMPARE(import(first + nameless + nameless), Counts({ 3, 0, 0, 0 }));
        QCOMPARE(import(first + nameless + nameless), Counts({ 0, 0, 3, 0 }));
        QCOMPARE(import("一,8001,普通,累计数量,600000.SH,买,,3万" + rest), Counts({ 0, 1, 0, 0 }));
        ClientSession& session = ClientSession::instance();
        const auto plans = session.plans().page(0, 10);
        QCOMPARE(plans->size(), 3);
        const StoredPlan plan = plans->constLast();
        QCOMPARE(plan.version, 2);
        QCOMPARE(plan.record.value(AutoPlanField::BaseField::totalQty).toString(), text("30000"));
        QCOMPARE(plan.creator, ownUser("wang"));
        const auto history = HistoryStore(session.database()).ofPlan(PlanId::toNumber(plan.id).value_or(0));
        QCOMPARE(history->size(), 2);
        QCOMPARE(history->constFirst().user, ownUser("wang"));
        QCOMPARE(history->constFirst().time.toUTC(), clientNow().toUTC());
        // Somebody else has changed the plan since the first file.
        QCOMPARE(import(first), Counts({ 0, 0, 0, 1 }));
        QCOMPARE(session.plans().plan(plan.id)->version, 2);
    }

    void aTemplateGivesWhatTheRowsDoNotHave()
    {
        importUntil(QString());
        logIn();
        imported(text("plans"), sample(text("plans")));
        ImportTask task = taskOf(text("plans"),
            add(text("file"),
                "代码,数量,金额,价格,开始\n688001.SH,2000,,,2027-12-21\n600000,,100万,10.01,\n600000.SH,0.5,,,\nX,1,,,"
                "\n"));
        task.templatePlan = text("AP00000001");
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::FileNotImported, { text("2") }));
        QCOMPARE(reasons(report),
            QStringList(
                { text("file第4行第2列（数量）：只能输入整数"), text("file第5行第1列（代码）：证券“X”不存在") }));
        PlanStore plans = ClientSession::instance().plans();
        QCOMPARE(*plans.count(), 2);
        task.leavesOut = true;
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(counts(report), Counts({ 2, 0, 0, 0 }));
        QCOMPARE(report.faultCount, qint64(2));
        QVERIFY(report.isStored);
        QCOMPARE(*plans.count(), 4);
        QCOMPARE(fieldsOf(plans, plans.page(0, 2)->at(1).id),
            QStringList({ text("688001.SH"), text("2000"), text(""), text("昨收价*1.01"), text("2027-12-21"),
                text("2027-12-31") }));
        QCOMPARE(fieldsOf(plans, plans.page(0, 2)->at(0).id),
            QStringList({ text("600000.SH"), text("1000000"), text("1000000.00"), text("10.01"), text("2027-12-20"),
                text("2027-12-31") }));
        // Sent again, no row is there twice, also after a change of the template.
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(counts(report), Counts({ 0, 0, 2, 0 }));
        QCOMPARE(*plans.count(), 4);
        task.templatePlan = text("AP00000099");
        QCOMPARE(ImportRun::run(task, report), Status(Error::UnknownPlan, { text("AP00000099") }));
    }

    void aFileThatCannotBeReadIsNotImportedInPart()
    {
        importUntil(QString());
        logIn();
        imported(text("plans"), sample(text("plans")));
        ImportTask task = taskOf(text("plans"), add(text("file"), "代码,数量\n688001.SH,2000\n600000.SH,\"1\n"));
        task.templatePlan = text("AP00000001");
        task.leavesOut = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::FileNotImported, { text("1") }));
        QVERIFY(!report.isStored);
        QCOMPARE(*ClientSession::instance().plans().count(), 2);
    }

    void anImportIsCancelledBetweenRows()
    {
        importUntil(text("closes"));
        ImportTask task = taskOf(
            text("closes"), add(text("file"), "symbol,date,close\n" + QByteArray("X,2024-05-06,1\n").repeated(1000)));
        int calls = 0;
        task.progress = [&calls](int) { return ++calls < 3; };
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::Cancelled));
        QCOMPARE(report.rows, qint64(192));
        QVERIFY(!report.isStored);
    }

    void closuresAreImportedAndExported()
    {
        const QString before = ClosureFiles::calendar().lastKnownDay().toString(Qt::ISODate);
        const QString shanghai = Kelvo_Values::Exchange::sh;
        QVERIFY(tradeDatesOf(shanghai)->constLast() <= QDate::fromString(before, Qt::ISODate));
        const ImportReport first = imported(text("closures"), sample(text("closures")));
        QCOMPARE(counts(first), Counts({ 0, 2, 0, 0 }));
        ClosureFiles::reload();
        QCOMPARE(ClosureFiles::calendar().lastKnownDay(), QDate(2028, 12, 31));
        QCOMPARE(tradeDatesOf(shanghai)->constLast(), QDate(2028, 12, 29));
        const QVector<QStringList> rows = ClosureFiles::calendar().rows();
        QCOMPARE(
            rows.constLast(), QStringList({ text("mainland"), text("2028-01-03"), text("元旦"), text("provisional") }));
        QCOMPARE(counts(imported(text("closures"), sample(text("closures")))), Counts({ 0, 0, 2, 0 }));
        for (const TableFormat format : { TableFormat::Csv, TableFormat::Json, TableFormat::Workbook }) {
            const QByteArray bytes = exported(text("closures"), format);
            const ImportReport again = imported(text("closures"), add(text("f"), bytes));
            QCOMPARE(counts(again), Counts({ 0, 0, rows.size(), 0 }));
        }
        // Further tests have the usual calendar.
        QVERIFY(QFile::remove(ClosureFiles::present().constLast()));
        ClosureFiles::reload();
        QCOMPARE(ClosureFiles::calendar().lastKnownDay().toString(Qt::ISODate), before);
    }

    void theJournalIsExported()
    {
        importUntil(QString());
        logIn();
        imported(text("plans"), sample(text("plans")));
        const QStringList lines = QString::fromUtf8(exported(text("journal"), TableFormat::Csv)).split(text("\r\n"));
        QCOMPARE(lines.value(0), text("\uFEFF日期,时间,计划编号,账户,证券代码,交易方向,事项,内容,用户"));
    }

    void anExportedPlanIsChangedInItsVersionOnly()
    {
        importUntil(QString());
        logIn();
        imported(text("plans"), sample(text("plans")));
        QByteArray csv = exported(text("plans"), TableFormat::Csv);
        QCOMPARE(counts(imported(text("plans"), add(text("file"), csv))), Counts({ 0, 0, 2, 0 }));
        QByteArray changed = csv;
        changed.replace("50000", "60000");
        QCOMPARE(counts(imported(text("plans"), add(text("file"), changed))), Counts({ 0, 1, 1, 0 }));
        QCOMPARE(counts(imported(text("plans"), add(text("file"), changed))), Counts({ 0, 0, 2, 0 }));
        csv.replace("50000", "70000");
        ImportReport report;
        QVERIFY(!run(text("plans"), add(text("file"), csv), report));
        QCOMPARE(reasons(report),
            QStringList{ text("file第2行第2列（版本）：计划“AP00000001”的版本应为2，文件中为1，请重新导出后再修改") });
    }

    void whatIsExportedIsImported_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("extension");
        QTest::newRow("CSV") << int(TableFormat::Csv) << text("csv");
        QTest::newRow("JSON") << int(TableFormat::Json) << text("json");
        QTest::newRow("a workbook") << int(TableFormat::Workbook) << text("xlsx");
    }

    void whatIsExportedIsImported()
    {
        QFETCH(int, format);
        QFETCH(QString, extension);
        importUntil(QString());
        logIn();
        imported(text("plans"), sample(text("plans")));
        QCOMPARE(*ExportRun::formatOf(text("a.") + extension), static_cast<TableFormat>(format));
        const QVector<QPair<const char*, qint64>> kinds{ { "securities", 5 }, { "closes", 9 }, { "positions", 3 },
            { "plans", 2 } };
        for (const auto& kind : kinds) {
            const QByteArray bytes = exported(text(kind.first), static_cast<TableFormat>(format));
            QFile file(add(text("f"), QByteArray()));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(bytes), qint64(bytes.size()));
            file.close();
            const ImportReport report = imported(text(kind.first), file.fileName());
            QVERIFY2(counts(report) == Counts({ 0, 0, kind.second, 0 }), kind.first);
        }
    }

    void onlyAnAdministratorImportsOnAServer()
    {
        if (!TestDatabase::isOnServer())
            return;
        importUntil(QString());
        psql(database().ownersLocation(),
            QStringLiteral("ALTER ROLE \"%1\" PASSWORD '%2'").arg(ownUser("wang"), TestDatabase::password()));
        for (const char* const kind : { "securities", "closes", "accounts", "users", "positions" }) {
            ImportTask task = taskOf(text(kind), sample(text(kind)));
            task.location = database().location(ownUser("wang"));
            ImportReport report;
            QCOMPARE(ImportRun::run(task, report), Status(Error::NotAdministrator, { ownUser("wang") }));
        }
    }

private:
    /// A copy of a file whose cells have full-width characters.
    QString inFullWidth(const QString& path) const
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("No file");
        const QString headings = QString::fromUtf8(file.readLine());
        QString rows = QString::fromUtf8(file.readAll());
        const QChar separator = headings.contains(QLatin1Char(';')) ? QLatin1Char(';') : QLatin1Char(',');
        for (QChar& c : rows) {
            if (c != separator && c > QLatin1Char('"') && c <= QLatin1Char('~'))
                c = QChar(c.unicode() - '!' + 0xFF01);
        }
        return add(text("wide.csv"), (headings + rows).toUtf8());
    }

    /// The fields of a plan that a sheet sets.
    static QStringList fieldsOf(PlanStore& plans, const QString& plan)
    {
        namespace Base = AutoPlanField::BaseField;
        const PlanStore::Record record = plans.record(plan).valueOr({});
        QStringList all{ record.value(Kelvo_Fields::Security::symbol).toString(),
            record.value(Base::totalQty).toString(),
            PlanTexts::otherParam(record.value(Base::planOtherParam).toString())
                .value_or(QMap<QString, QVariant>())
                .value(Base::tradeAmount)
                .toString() };
        for (const QString& key : { Base::priceFormula1, Base::beginDate, Base::endDate })
            all << record.value(key).toString();
        return all;
    }
};

QTEST_GUILESS_MAIN(ImportTest)

#include "tst_import.moc"
