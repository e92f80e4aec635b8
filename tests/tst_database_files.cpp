#include "Backup.h"
#include "ClientSession.h"
#include "Database.h"
#include "LoggedTest.h"
#include "RawFile.h"
#include "SampleSession.h"
#include "TestStatus.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr auto OwnerOnly = QFile::ReadOwner | QFile::WriteOwner;

/// The permissions of a file without those that Qt derives for the current user.
QFile::Permissions modeOf(const QString& path)
{
    const auto ofUser = QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    return QFile::permissions(path) & ~ofUser;
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// No permission is taken from new files unless the program does so itself.
class OpenMask {
public:
    OpenMask()
        : m_former(::umask(0))
    {
    }
    ~OpenMask() { ::umask(m_former); }
    OpenMask(const OpenMask&) = delete;
    OpenMask& operator=(const OpenMask&) = delete;

private:
    const mode_t m_former;
};

/// Another user than root, who may write everywhere; the present user unless that is root. Gets a folder with its
/// files.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const QString& folder)
        : m_isRoot(::geteuid() == 0)
    {
        if (!m_isRoot)
            return;
        take(folder);
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files))
            take(file.filePath());
        m_isTaken = ::setresuid(Nobody, Nobody, 0) == 0;
    }
    ~OrdinaryUser()
    {
        if (m_isRoot && ::setresuid(0, 0, 0) != 0)
            qFatal("still another user");
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

    bool isTaken() const { return m_isTaken; }

private:
    static constexpr uid_t Nobody = 65534;

    void take(const QString& path)
    {
        m_isTaken = m_isTaken && ::chown(QFile::encodeName(path).constData(), Nobody, Nobody) == 0;
    }

    const bool m_isRoot;
    bool m_isTaken = true;
};

Status notBackedUp(const QString& database, const Status& cause)
{
    return { Error::BackupFailed, { database }, cause };
}

} // namespace

/// The database's files: who can read them, who uses them, and their backup.
class DatabaseFilesTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void aNewDatabaseIsItsOwnersAlone()
    {
        const OpenMask open;
        const QTemporaryDir folder;
        QVERIFY(QFile::setPermissions(folder.path(), OwnerOnly | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup));
        const QString file = folder.filePath(QStringLiteral("some/where/plans.db"));
        Database database;
        QCOMPARE(database.open(file), Status());
        for (const char* const made : { "some", "some/where" })
            QCOMPARE(modeOf(folder.filePath(QLatin1String(made))), OwnerOnly | QFile::ExeOwner);
        for (const char* const suffix : { "", "-wal", "-shm" })
            QCOMPARE(modeOf(file + QLatin1String(suffix)), OwnerOnly);
        QCOMPARE(modeOf(folder.path()), OwnerOnly | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup);
    }

    void theModeOfAPresentDatabaseStays()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("plans.db"));
        const auto shared = OwnerOnly | QFile::ReadGroup | QFile::WriteGroup;
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        QVERIFY(QFile::setPermissions(file, shared));
        Database database;
        QCOMPARE(database.open(file), Status());
        QCOMPARE(modeOf(file), shared);
    }

    void aDatabaseThatCannotBeWrittenIsReadIfItsFolderCanBeWritten()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("plans.db"));
        QCOMPARE(Database().open(file), Status());
        const OrdinaryUser user(folder.path());
        QVERIFY(user.isTaken());
        QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
        Database database;
        QCOMPARE(database.open(file), Status(Error::CannotOpenDatabase, { file }, Error::FolderNotWritable));
        QVERIFY(QFile::setPermissions(folder.path(), OwnerOnly | QFile::ExeOwner));
        QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
        QCOMPARE(database.open(file), Status());
        QCOMPARE(database.value(QStringLiteral("SELECT count(*) FROM plans"))->toInt(), 0);
        QCOMPARE(database.execute(QStringLiteral("DELETE FROM plans")), Status(Error::DatabaseReadOnly));
        database.close();
        // The companions were made like the database.
        for (const char* const suffix : { "", "-wal", "-shm" })
            QVERIFY(QFile::setPermissions(file + QLatin1String(suffix), OwnerOnly));
        QCOMPARE(database.open(file), Status());
        QCOMPARE(database.execute(QStringLiteral("DELETE FROM plans")), Status());
    }

    void theFirstUserIsTheDefault()
    {
        SampleSession session;
        QCOMPARE(session.reopen(QString()), Status());
        QCOMPARE(ClientSession::instance().user().id, QStringLiteral("trader01"));
    }

    void anUnknownUserIsRefusedAndTheSessionStaysClosed()
    {
        SampleSession session;
        QCOMPARE(session.reopen(QStringLiteral("nobody")), Status(Error::UnknownUser, { QStringLiteral("nobody") }));
        QVERIFY(!ClientSession::instance().isOpen());
        QCOMPARE(ClientSession::instance().accounts().accounts().size(), 0);
    }

    void aBackupOfARunningClientCanBeRestored()
    {
        const OpenMask open;
        const QTemporaryDir folder;
        const QString backup = folder.filePath(QStringLiteral("backup.db"));
        const QString restored = folder.filePath(QStringLiteral("restored.db"));
        QString first;
        {
            SampleSession session;
            first = session.create(SampleSession::record());
            QVERIFY(!first.isEmpty());
            QCOMPARE(backUpDatabase(session.file(), backup), Status());
            QVERIFY(!session.create(SampleSession::record()).isEmpty());
            QCOMPARE(*ClientSession::instance().plans().count(), 2);
        }
        QCOMPARE(modeOf(backup), OwnerOnly);
        QVERIFY(QFile::copy(backup, restored));
        QCOMPARE(ClientSession::instance().open(restored, QStringLiteral("trader01")), Status());
        QCOMPARE(*ClientSession::instance().plans().count(), 1);
        QCOMPARE(ClientSession::instance().plans().page(0, 1)->value(0).id, first);
        QCOMPARE(ClientSession::instance().market().count(), 200);
        ClientSession::instance().close();
    }

    void aBackupHasNothingOfARunningTransaction()
    {
        const QTemporaryDir folder;
        const QString backup = folder.filePath(QStringLiteral("backup.db"));
        SampleSession session;
        QVERIFY(!session.create(SampleSession::record()).isEmpty());
        Status backedUp = Error::BackupFailed;
        const Status stopped = ClientSession::instance().database().transaction([&]() -> Status {
            session.create(SampleSession::record());
            backedUp = backUpDatabase(session.file(), backup);
            return Error::SampleCancelled;
        });
        QCOMPARE(stopped, Status(Error::SampleCancelled));
        QCOMPARE(backedUp, Status());
        QCOMPARE(ClientSession::instance().open(backup, QStringLiteral("trader01")), Status());
        QCOMPARE(*ClientSession::instance().plans().count(), 1);
    }

    void aBackupReplacesNothing()
    {
        const QTemporaryDir folder;
        const QString backup = folder.filePath(QStringLiteral("backup.db"));
        QFile present(backup);
        QVERIFY(present.open(QIODevice::WriteOnly) && present.write("mine") == 4);
        present.close();
        const SampleSession session;
        QCOMPARE(
            backUpDatabase(session.file(), backup), notBackedUp(session.file(), { Error::FileExists, { backup } }));
        QCOMPARE(contentOf(backup), QByteArray("mine"));
        const QString nowhere = folder.filePath(QStringLiteral("no/backup.db"));
        QCOMPARE(backUpDatabase(session.file(), nowhere),
            notBackedUp(session.file(), { Error::FileNotWritten, { nowhere } }));
    }

    void aDatabaseThatTheClientDoesNotOpenIsNotBackedUp()
    {
        const QTemporaryDir folder;
        const QString backup = folder.filePath(QStringLiteral("backup.db"));
        const QString file = folder.filePath(QStringLiteral("plans.db"));
        QCOMPARE(Database().open(file), Status());
        QVERIFY(RawFile(file).run(
            QStringLiteral("CREATE TRIGGER t AFTER INSERT ON users BEGIN DELETE FROM positions; END")));
        QCOMPARE(backUpDatabase(file, backup),
            notBackedUp(file, { Error::UnknownObject, { QStringLiteral("触发器"), QStringLiteral("t") } }));
        QVERIFY(!QFile::exists(backup));
        QVERIFY(RawFile(file).run(QStringLiteral("PRAGMA user_version = 99")));
        QCOMPARE(backUpDatabase(file, backup).cause().error(), Error::NewerDatabase);
        QVERIFY(!QFile::exists(backup));
    }

    void onlyADatabaseOfTheClientIsBackedUp()
    {
        const QTemporaryDir folder;
        const QString backup = folder.filePath(QStringLiteral("backup.db"));
        const QString none = folder.filePath(QStringLiteral("none.db"));
        QCOMPARE(backUpDatabase(none, backup), notBackedUp(none, Error::NotAFile));
        QVERIFY(!QFile::exists(none));
        const QString empty = folder.filePath(QStringLiteral("empty.db"));
        QVERIFY(QFile(empty).open(QIODevice::WriteOnly));
        QCOMPARE(backUpDatabase(empty, backup), notBackedUp(empty, Error::ForeignDatabase));
        const QString text = folder.filePath(QStringLiteral("text.db"));
        QFile file(text);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'x'));
        file.close();
        QCOMPARE(backUpDatabase(text, backup), notBackedUp(text, Error::NotADatabase));
        QVERIFY(!QFile::exists(backup));
    }
};

QTEST_GUILESS_MAIN(DatabaseFilesTest)
#include "tst_database_files.moc"
