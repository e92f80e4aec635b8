#pragma once

#include "Database.h"
#include "SampleMarket.h"

#include <QCoreApplication>
#include <QStringList>

/// The work of an administrator in a database on a server, or of the owner of a file. Each change is a line that says
/// what was done; no line means that everything was already so.
class Administration {
    Q_DECLARE_TR_FUNCTIONS(Administration)

public:
    /// Called with the open database; appends a line for each change.
    using Work = std::function<Status(Database& database, QStringList& lines)>;

    /// Creates the tables, roles and privileges in a database that has none. The role then owns them.
    static Result<QStringList> initialise(const QString& location);
    /// Brings the tables of an older version to the present one.
    static Result<QStringList> migrate(const QString& location);

    /// Opens a database that is set up. Fails unless the role owns its tables.
    Status open(const QString& location);
    /// The same; opens a file, too.
    Status openDatabase(const QString& location);
    /// Runs `work` in one transaction. Those of several administrators run one after the other.
    Result<QStringList> run(const Work& work);
    Database& database() { return m_database; }
    /// Writes the sample data, with as many securities, into a database without users. The users have no logins yet.
    Result<QStringList> writeSample(int securities, const SampleMarket::Progress& progress);

    /// Fails if a text is empty, or has spaces around it or control characters in it.
    static Status checkText(const QString& caption, const QString& text);
    /// Fails if one is no code of an instruction type.
    static Status checkTypes(const QStringList& types);
    /// Fails if the account is unknown.
    static Status checkAccount(Database& database, const QString& account);

private:
    Database m_database;
    bool m_isServer = false;
};
