// Approval chains, users and accounts, which make one's own database complete, and limits of exports.
#include "AuthorityStore.h"
#include "ChainAdministration.h"
#include "CodeWords.h"
#include "TableWriter.h"
#include "TestStatus.h"
#include "TransferTest.h"

#include <QBuffer>
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

    void accountsUsersAndChainsAreExported_data()
    {
        QTest::addColumn<int>("format");
        QTest::newRow("CSV") << int(TableFormat::Csv);
        QTest::newRow("JSON") << int(TableFormat::Json);
        QTest::newRow("a workbook") << int(TableFormat::Workbook);
    }

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
};

QTEST_GUILESS_MAIN(TransferKindsTest)
#include "tst_transfer_kinds.moc"
