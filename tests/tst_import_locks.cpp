// Imports into a file that other clients write to meanwhile.
#include "AccountStore.h"
#include "SecurityStore.h"
#include "TestStatus.h"
#include "TransferTest.h"

#include <QThread>
#include <QtTest>

class ImportLocksTest : public TransferTest {
    Q_OBJECT

private Q_SLOTS:
    void aTrialNeedsNoLock_data() { addKinds(); }

    void aTrialNeedsNoLock()
    {
        QFETCH(QString, kind);
        importUntil(kind);
        ImportTask task = taskOf(kind, sample(kind));
        task.isTrial = true;
        ImportReport report;
        Database other;
        QCOMPARE(other.open(database().ownersLocation()), Status());
        // The other one holds the lock all the time.
        const Status status = other.transaction([&] { return ImportRun::run(task, report); });
        QCOMPARE(status, Status());
        QVERIFY(report.added > 0);
    }

    void othersWriteWhileTheFileIsRead_data() { addKinds(); }

    void othersWriteWhileTheFileIsRead()
    {
        QFETCH(QString, kind);
        importUntil(kind);
        Database other;
        QCOMPARE(other.open(database().ownersLocation()), Status());
        ImportTask task = taskOf(kind, sample(kind));
        Status written = Error::NothingStored;
        task.progress = [&](int) {
            if (!written)
                written = other.execute(Mark);
            return true;
        };
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(written, Status());
        QVERIFY(report.added > 0);
        QCOMPARE(marks(other), 1);
        QCOMPARE(imported(kind, sample(kind)).added, qint64(0));
    }

    void aFileIsImportedOverConstantChanges()
    {
        importUntil(QString());
        Database other;
        QCOMPARE(other.open(database().ownersLocation()), Status());
        ImportTask task = taskOf(text("accounts"), add(text("file"), "account,name,XSHE\n8001,新名,\n"));
        int changed = 0;
        task.progress = [&](int) {
            changed += other.execute(Mark) ? 1 : 0;
            return true;
        };
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status());
        QCOMPARE(counts(report), Counts({ 0, 1, 0, 0 }));
        QVERIFY(changed >= 3);
        QCOMPARE(marks(other), changed);
        const Result<StoredAccount> account = AccountStore(other).account(text("8001"));
        QCOMPARE(account->name, text("新名"));
        QCOMPARE(account->exchangeAccounts.size(), 2);
    }

    void aSecurityIsRemovedWithItsCloses()
    {
        importUntil(text("accounts"));
        ImportTask task = taskOf(text("securities"),
            add(text("file"),
                "symbol,name,type,sub-type,decimals,factor,step,limit\n600000.SH,新名,股票,主板,2,1,100,10%\n"));
        task.replaces = true;
        ImportReport report;
        QCOMPARE(ImportRun::run(task, report), Status(Error::ImportNotConfirmed));
        task.removals = report.removals;
        QCOMPARE(ImportRun::run(task, report), Status());
        Database stored;
        QCOMPARE(stored.open(database().ownersLocation()), Status());
        QCOMPARE(stored.value(text("SELECT count(*) FROM securities"))->toInt(), 1);
        QCOMPARE(stored.value(text("SELECT count(*) FROM closing_prices"))->toInt(), 1);
        QCOMPARE(SecurityStore(stored).security(text("600000.SH"))->name, text("新名"));
    }

    void aCommandWaitsLongerThanAWindow()
    {
        importUntil(QString());
        Database other;
        QCOMPARE(other.open(database().ownersLocation()), Status());
        const auto write = [this](bool isPatient) {
            Database waiting;
            waiting.setPatient(isPatient);
            const Status opened = waiting.open(database().ownersLocation());
            return opened ? waiting.execute(Mark) : opened;
        };
        Status inWindow;
        Status inCommand = Error::NothingStored;
        const std::unique_ptr<QThread> command(QThread::create([&] { inCommand = write(true); }));
        const Status held = other.transaction([&]() -> Status {
            command->start();
            inWindow = write(false);
            return command->isFinished() ? Error::DatabaseBusy : Error::None;
        });
        QVERIFY(command->wait());
        QCOMPARE(held, Status());
        QCOMPARE(inWindow, Status(Error::DatabaseBusy));
        QCOMPARE(inCommand, Status());
        QCOMPARE(marks(other), 1);
    }

private:
    void addKinds()
    {
        QTest::addColumn<QString>("kind");
        for (const QString& kind : kinds() + QStringList{ text("plans") })
            QTest::newRow(qPrintable(kind)) << kind;
    }

    static int marks(Database& database)
    {
        return database.value(QStringLiteral("SELECT count(*) FROM static_texts WHERE category = 'mark'"))->toInt();
    }

    const QString Mark = QStringLiteral(
        "INSERT INTO static_texts SELECT 'mark', count(*), '' FROM static_texts WHERE category = 'mark'");
};

QTEST_GUILESS_MAIN(ImportLocksTest)
#include "tst_import_locks.moc"
