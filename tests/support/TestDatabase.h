#pragma once

#include "Status.h"

#include <QString>
#include <QTemporaryDir>

#include <functional>

class Database;

/// A database for one test: a file, or a database on the server of `scripts/team-server` if the program runs with
/// TEST_DATABASE=server. It is deleted with the object.
class TestDatabase {
public:
    /// Writes the contents into a database that has been set up.
    using Fill = std::function<Status(Database& database)>;

    /// Whether the program's databases are on the server. The program fails if it does not run.
    static bool isOnServer();
    /// The server's folder; TEAM_SERVER names another one than usual.
    static QString serverFolder();
    /// The server's port.
    static quint16 serverPort();
    /// The password of all roles of the tests, which the password file has.
    static QString password();

    /// Drops the databases of programs that have crashed.
    static void dropLeftovers();

    /// The same `name` means the same contents, which are written once and then copied. On the server, the stored users
    /// get roles.
    TestDatabase(const QString& name, const Fill& fill);
    /// A database without contents, or a file that does not exist.
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    /// Makes `location` lead through another port, that of a proxy.
    void leadThrough(quint16 port) { m_port = port; }

    /// The location for a user; the same for every user of a file.
    QString location(const QString& user) const;
    /// The location for the owner, who may change everything, without a proxy.
    QString ownersLocation() const;

private:
    QTemporaryDir m_folder;
    QString m_name; ///< on the server; empty for a file
    quint16 m_port = 0;
};
