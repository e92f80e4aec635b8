#pragma once

#include "DatabaseEngine.h"
#include "StallGuard.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>

#include <optional>

class Database;
struct Migration;
class QSocketNotifier;
class QSqlDriver;
struct pg_conn;

/// A database on a PostgreSQL server.
class PostgresEngine : public DatabaseEngine {
public:
    explicit PostgresEngine(Database& database);
    ~PostgresEngine() override;

    Status open(QSqlDatabase& connection, const QString& name, const QString& location, bool migrates) override;
    QString role() const override { return m_role; }
    const SqlDialect& dialect() const override { return SqlDialect::postgres(); }
    bool isInTransaction() const override;
    void rollBack() override;
    bool streamsRows() const override { return false; }
    std::unique_ptr<EngineRows> rows(const QString& statement) override;
    Result<qint64> insertAlone(const QString& statement, const QVariantList& values) override;
    Status failure(const QSqlError& error) override;
    void beginStatement(qint64 spent) override;
    void endStatement() override;
    QString process() const override { return m_process; }
    void interrupt() override;
    Status watch(const std::function<void()>& noticed) override;
    QString changeToken() const override;
    void countCommit() override { ++m_commits; }
    void endWatch() override;
    Status poll() override;

private:
    Status connect(QSqlDatabase& connection, const QString& name, const QString& location);
    Status prepareConnection();
    /// 0 if the database has not been set up.
    Result<int> version();
    Status checkVersion();
    Status applyMigrations();
    Status migrate(const Migration& migration);
    Result<QString> prepared(const QString& statement);
    Result<qint64> storedNumber();
    void noticeLater();
    void finishPing();
    void takeNotifier(QSocketNotifier* notifier);
    void silenceWhenLost();

    Database& m_database;
    pg_conn* m_connection = nullptr;
    QSqlDriver* m_driver = nullptr;
    std::function<void()> m_noticed;
    int m_notices = 0;                ///< of changes by others
    int m_commits = 0;                ///< by this connection
    std::unique_ptr<QObject> m_watch; ///< the receiver of notices; null while they are not wanted
    int m_socket = -1;                ///< the connection's, which stays valid when libpq has closed it
    bool m_isLimited = true;          ///< whether a call is ended after some seconds
    std::optional<StallGuard::Call> m_call;
    QElapsedTimer m_ping; ///< invalid while no ping waits for its answer
    QPointer<QSocketNotifier> m_notifier;
    QHash<QString, QString> m_prepared; ///< names of statements by their texts
    QString m_role;
    QString m_process;
};
