#pragma once

#include "DatabaseEngine.h"
#include "FileIdentity.h"
#include "LockWaits.h"

class Database;
struct Migration;
struct Obstacle;
struct sqlite3;

/// An SQLite file: checked, configured and migrated when it is opened, and checked again before each write.
class SqliteEngine : public DatabaseEngine {
public:
    /// `expected`: the file that must be opened; empty for any.
    SqliteEngine(Database& database, const FileIdentity& expected);

    Status open(QSqlDatabase& connection, const QString& name, const QString& location, bool migrates) override;
    void prepareClosing() override;
    const SqlDialect& dialect() const override { return SqlDialect::sqlite(); }
    bool isInTransaction() const override;
    void rollBack() override;
    Status check() override { return m_files.check(); }
    FileIdentity file() const override { return m_files; }
    void countCommit() override { ++m_committed; }
    QString contentVersion() const override;
    bool streamsRows() const override { return true; }
    std::unique_ptr<EngineRows> rows(const QString& statement) override;
    Status withinTime(const std::function<Status()>& work) override;
    Status checkRows(qint64 rows) override;
    Status failure(const QSqlError& error) override;
    void interrupt() override;
    Status watch(const std::function<void()>& noticed) override;
    void endWatch() override { m_noticed = nullptr; }
    Status poll() override;
    Status checkPages() override;
    void prepareWal() override;

private:
    int busyTimeout() const;
    Status connect(QSqlDatabase& connection, const QString& name, const QString& fileName);
    Status inspect();
    Status checkSchema();
    Status checkVersion(int tables, int version, int application);
    Status prepareConnection();
    Status startWalMode();
    Status applyMigrations();
    Status migrate(const Migration& migration);
    Status refuse(const Obstacle& obstacle);
    Result<int> number(const QString& statement);
    bool checkpoint();
    Status startWal();
    void makeRoom();
    static int noteFrames(void* engine, sqlite3* connection, const char* name, int frames);

    Database& m_database;
    const int m_number; ///< of the engine in this process
    sqlite3* m_connection = nullptr;
    QString m_fileName;
    const FileIdentity m_expected;
    FileIdentity m_files;
    LockWaits m_waits;
    std::function<void()> m_noticed;
    int m_version = 0;   ///< changes with each commit of another connection
    int m_committed = 0; ///< transactions since this connection started the log
    qint64 m_frames = 0; ///< of the log after the last transaction; 0 before the first one
};
