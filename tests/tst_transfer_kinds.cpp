// Approval chains, users and accounts, which make one's own database complete, and limits of exports.
#include "AuthorityStore.h"
#include "AutoPlanField.h"
#include "ChainAdministration.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "CodeWords.h"
#include "PlanStates.h"
#include "SampleSession.h"
#include "TableWriter.h"
#include "TestStatus.h"
#include "TransferTest.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

class TransferKindsTest : public TransferTest {
    Q_OBJECT

private Q_SLOTS:
    void chainsAreStored()
    {
        importUntil(QString());
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        AuthorityStore store(stored);
        const Result<QString> chain = store.chainKey(text("8001"), text("1"));
        QCOMPARE(*store.chainUsers(*chain, ChainRole::Execute), QStringList{ text("李二") });
        QCOMPARE(*store.chainUsers(*chain, ChainRole::Forward), QStringList{ text("李二") });
    }

    void aChangedChainIsUpdated()
    {
        importUntil(QString());
        const QString file = add(text("f"), "account,instruction-type,executors\n8001,ordinary,王一、李二\n");
        QCOMPARE(counts(imported(text("chains"), file)), Counts({ 0, 1, 0, 0 }));
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        AuthorityStore store(stored);
        const Result<QString> chain = store.chainKey(text("8001"), text("1"));
        QCOMPARE(*store.chainUsers(*chain, ChainRole::Execute), QStringList({ text("王一"), text("李二") }));
        // The file has no reviewers.
        QCOMPARE(*store.chainUsers(*chain, ChainRole::Forward), QStringList{ text("李二") });
    }

    void wrongChainsAreRefused()
    {
        importUntil(QString());
        ImportReport report;
        QVERIFY(!run(text("chains"),
            add(text("f"), "账户,指令类型,执行人\n8001,普通,赵三\n8009,普通,李二\n8001,期货,李二\n8001,普通,李二\n"),
            report));
        QCOMPARE(reasons(report),
            QStringList({ text("f第2行：用户“赵三”不存在"), text("f第3行：账户“8009”不存在"),
                text("f第4行第2列（指令类型）：指令类型“期货”未知"),
                text("f第5行第1列（账户）：“8001 普通交易”与第2行重复") }));
    }

    void chainsThatTheFileDoesNotHaveAreRemoved()
    {
        importUntil(QString());
        ImportTask task =
            taskOf(text("chains"), add(text("f"), "account,instruction-type,executors\n8001,ordinary,李二\n"));
        task.replaces = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::ImportNotConfirmed));
        QCOMPARE(report.removals, QStringList{ text("8001 债券交易") });
        task.removals = report.removals;
        QCOMPARE(ImportRun::run(task, report), Status());
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        AuthorityStore store(stored);
        QCOMPARE(*store.chainUsers(*store.chainKey(text("8001"), text("5")), ChainRole::Execute), QStringList());
        // Nothing is left to be removed.
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(report.removals, QStringList());
    }

    void changesOfCodesAreSaidInWords_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("changes");
        QTest::newRow("a security") << text("securities")
                                    << QByteArray("证券代码,证券名称,类别,板块,小数位,系数,步长,涨跌幅,特别处理\n"
                                                  "00001.HK,戊五控股,基金,ETF,3,1,500,7.5%,*ST\n")
                                    << QStringList{ text("证券00001.HK：证券类别由“股票”改为“基金”"),
                                           text("证券00001.HK：证券子类由“港股通股票”改为“ETF”"),
                                           text("证券00001.HK：涨跌幅由“无”改为“7.5%”"),
                                           text("证券00001.HK：特别处理由“正常”改为“*ST”") };
        QTest::newRow("an account") << text("accounts")
                                    << QByteArray("账户,资产属性,上海证券账户,深圳证券账户\n8001,信用,A9,\n")
                                    << QStringList{ text("账户8001：资产属性由“普通”改为“信用”"),
                                           text("账户8001：上海证券交易所的证券账户由“A800100001”改为“A9”"),
                                           text("账户8001：取消深圳证券交易所的证券账户") };
        QTest::newRow("a chain") << text("chains") << QByteArray("账户,指令类型,执行人\n8001,普通,王一\n")
                                 << QStringList{ text("账户8001指令类型普通交易：执行人由“李二”改为“王一”") };
        const QString wang = text("用户%1：").arg(ownUser("wang"));
        QTest::newRow("a user") << text("users")
                                << QByteArray("用户编号,姓名,账户,指令类型,复核\nwang,王一,8001,普通,是\n")
                                << QStringList{ wang + text("账户8001指令类型普通交易须复核"),
                                       wang + text("账户8001收回指令类型债券交易"),
                                       wang + text("账户8001收回指令类型港股通交易") };
    }

    void changesOfCodesAreSaidInWords()
    {
        QFETCH(QString, kind);
        QFETCH(QByteArray, file);
        importUntil(QString());
        const ImportReport report = imported(kind, add(text("f"), file));
        QTEST(report.changes(), "changes");
    }

    void faultsOfCodesAreSaidInWords()
    {
        importUntil(QString());
        ImportReport report;
        QVERIFY(!run(text("accounts"), add(text("f"), "账户,名称\n8009,九\n"), report));
        QCOMPARE(reasons(report),
            QStringList{ text("f第2行：新账户“8009”缺少资金账号（fund）、客户号（client）、营业部（branch）") });
        QVERIFY(!run(text("closures"), add(text("g"), "市场,日期,节日,状态\n香港,2031-01-01,元旦,暂定\n"), report));
        QCOMPARE(reasons(report).size(), 1);
        QVERIFY2(reasons(report).constFirst().startsWith(text("g：市场“香港”缺少20")),
            qPrintable(reasons(report).constFirst()));
    }

    void accountsUsersAndChainsAreExported_data() { formats(); }

    void accountsUsersAndChainsAreExported()
    {
        QFETCH(int, format);
        importUntil(QString());
        const QVector<QPair<const char*, qint64>> all{ { "accounts", 2 }, { "users", 3 }, { "chains", 2 } };
        for (const auto& kind : all) {
            const QByteArray bytes = exported(text(kind.first), static_cast<TableFormat>(format));
            QFile file(add(text("f"), QByteArray()));
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(bytes), qint64(bytes.size()));
            file.close();
            QVERIFY2(
                counts(imported(text(kind.first), file.fileName())) == Counts({ 0, 0, kind.second, 0 }), kind.first);
        }
    }

    void theHistoryIsExported_data() { formats(); }

    void theHistoryIsExported()
    {
        QFETCH(int, format);
        importUntil(text("plans"));
        const QString file = sample(text("plans"));
        QCOMPARE(counts(imported(text("plans"), file)), Counts({ 2, 0, 0, 0 }));
        setClientTime({ SampleSession::today(), QTime(13, 14, 15) });
        QFile plans(file);
        QVERIFY(plans.open(QIODevice::ReadOnly));
        QCOMPARE(counts(imported(text("plans"), add(text("g.csv"), plans.readAll().replace("5万", "6万")))),
            Counts({ 0, 1, 1, 0 }));
        const QString reason = text("停牌，\"另行\"通知");
        ClientSession& session = ClientSession::instance();
        const StateChanges changes =
            PlanStates(session.database(), session.user(), session.calendar(), SampleSession::today())
                .set({ text("AP00000002") }, PlanState::Stopped, reason, [](int) { return true; });
        QCOMPARE(changes.changed, QStringList{ text("AP00000002") });
        const QVector<QStringList> rows =
            tableOf(exported(text("history"), static_cast<TableFormat>(format)), TransferForms::history());
        QCOMPARE(rows.size(), 4);
        const QString client =
            QStringLiteral("%1:%2").arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid());
        enum { Time, User, Client, Plan, Version, Event, Subject, Before, After };
        for (const QStringList& row : rows) {
            QCOMPARE(row.at(User), ownUser("wang"));
            QCOMPARE(row.at(Client), client);
            QCOMPARE(row.at(Subject), QString());
        }
        const auto head = [](const QStringList& row) { return QStringList{ row.at(Time) } + row.mid(Plan, 3); };
        const QString begun = text("2024-05-06 12:00:00");
        const QString changed = text("2024-05-06 13:14:15");
        QCOMPARE(head(rows.at(0)), QStringList({ begun, text("AP00000001"), text("1"), text("created") }));
        QCOMPARE(head(rows.at(1)), QStringList({ changed, text("AP00000001"), text("2"), text("changed") }));
        QCOMPARE(head(rows.at(2)), QStringList({ begun, text("AP00000002"), text("1"), text("created") }));
        QCOMPARE(head(rows.at(3)), QStringList({ changed, text("AP00000002"), text("2"), text("state changed") }));
        const auto total = [](const QString& json) {
            return QJsonDocument::fromJson(json.toUtf8()).object().value(AutoPlanField::BaseField::totalQty).toString();
        };
        QCOMPARE(rows.at(0).at(Before), text("{}"));
        QCOMPARE(total(rows.at(0).at(After)), text("50000"));
        QCOMPARE(rows.at(1).at(Before), rows.at(0).at(After));
        QCOMPARE(total(rows.at(1).at(After)), text("60000"));
        const auto fields = [](const QString& json) {
            return QJsonDocument::fromJson(json.toUtf8()).toVariant().toMap();
        };
        QCOMPARE(fields(rows.at(3).at(Before)), QVariantMap({ { text("state"), text("active") } }));
        QCOMPARE(fields(rows.at(3).at(After)),
            QVariantMap({ { text("state"), text("stopped") }, { text("reason"), reason } }));
    }

    void aWorkbookSaysHowManyRowsItHolds()
    {
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::WriteOnly));
        const auto writer = TableWriter::create(buffer, TableFormat::Workbook, { { text("a"), text("a") } });
        for (int i = 1; i < TableWriter::MostSheetRows; ++i)
            writer->write({ QString() });
        writer->write({ QString() });
        QCOMPARE(writer->finish(), Status(Error::TooManyRowsForSheet, { text("1048576") }));
    }

private:
    static void formats()
    {
        QTest::addColumn<int>("format");
        QTest::newRow("CSV") << int(TableFormat::Csv);
        QTest::newRow("JSON") << int(TableFormat::Json);
        QTest::newRow("a workbook") << int(TableFormat::Workbook);
    }

    /// The rows of a written table, with the columns in the order of their form.
    static QVector<QStringList> tableOf(QByteArray bytes, const TransferForm& form)
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QVector<int> columns;
        QVector<QStringList> rows;
        qint64 line = 0;
        const Status status = TableReader::read(buffer, line, [&](const TableRow& row) {
            const bool isFirst = columns.isEmpty();
            QStringList cells = isFirst ? QStringList() : QVector<QString>(form.columns.size()).toList();
            for (size_t i = 0; i < row.cells.size(); ++i) {
                const QString cell = QString::fromUtf8(row.cells[i].data(), static_cast<int>(row.cells[i].size()));
                if (isFirst)
                    columns << form.columnNamed(cell);
                else
                    cells[columns.at(static_cast<int>(i))] = cell;
            }
            if (!isFirst)
                rows << cells;
            return Status();
        });
        return status ? rows : QVector<QStringList>();
    }
};

QTEST_GUILESS_MAIN(TransferKindsTest)
#include "tst_transfer_kinds.moc"
