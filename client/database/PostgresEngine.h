#pragma once

#include "DatabaseEngine.h"

#include <QObject>

class Database;
struct Migration;
class QSqlDriver;
struct pg_conn;

/// A database on a PostgreSQL server.
class PostgresEngine : public DatabaseEngine {
public:
    explicit PostgresEngine(Database& database);

    Status open(QSqlDatabase& connection, const QString& name, const QString& location, bool migrates) override;
    QString role() const override { return m_role; }
    const SqlDialect& dialect() const override { return SqlDialect::postgres(); }
    bool isInTransaction() const override;
    void rollBack() override;
    bool streamsRows() const override { return false; }
    std::unique_ptr<EngineRows> rows(const QString& statement) override;
    Status failure(const QSqlError& error) override;
    void interrupt() override;
    Status watch(const std::function<void()>& noticed) override;
    void endWatch() override;
    Status poll() override { return {}; }

private:
    Status connect(QSqlDatabase& connection, const QString& name, const QString& location);
    Status prepareConnection();
    /// 0 if the database has not been set up.
    Result<int> version();
    Status checkVersion();
    Status applyMigrations();
    Status migrate(const Migration& migration);

    Database& m_database;
    pg_conn* m_connection = nullptr;
    QSqlDriver* m_driver = nullptr;
    std::unique_ptr<QObject> m_watch; ///< the receiver of notices; null while they are not wanted
    QString m_role;
};
