#include "TestDatabase.h"

#include "Database.h"
#include "ErrorText.h"
#include "UserStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <QUrl>

#include <libpq-fe.h>
#include <signal.h>

#include <cerrno>
#include <memory>

namespace {

const QString Owner = QStringLiteral("postgres");

QString serverFile(const char* name)
{
    return TestDatabase::serverFolder() + QLatin1Char('/') + QLatin1String(name);
}

QString firstLine(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readLine()).trimmed() : QString();
}

[[noreturn]] void fail(const QString& reason)
{
    qFatal("No database on the server of scripts/team-server, is it running? %s", qPrintable(reason));
}

/// The server's superuser.
class Superuser {
public:
    Superuser()
        : m_connection(PQconnectdb("service=team"), PQfinish)
    {
        if (PQstatus(m_connection.get()) != CONNECTION_OK)
            fail(QString::fromUtf8(PQerrorMessage(m_connection.get())));
    }

    void run(const QString& statement) { execute(statement, PGRES_COMMAND_OK); }

    QStringList column(const QString& query)
    {
        const Answer answer = execute(query, PGRES_TUPLES_OK);
        QStringList values;
        for (int row = 0; row < PQntuples(answer.get()); ++row)
            values << QString::fromUtf8(PQgetvalue(answer.get(), row, 0));
        return values;
    }

private:
    using Answer = std::unique_ptr<PGresult, void (*)(PGresult*)>;

    Answer execute(const QString& statement, ExecStatusType expected)
    {
        Answer answer(PQexec(m_connection.get(), statement.toUtf8().constData()), PQclear);
        if (PQresultStatus(answer.get()) != expected)
            fail(QString::fromUtf8(PQerrorMessage(m_connection.get())));
        return answer;
    }

    const std::unique_ptr<PGconn, void (*)(PGconn*)> m_connection;
};

QString locationOf(const QString& user, const QString& database, quint16 port)
{
    return QStringLiteral("postgresql://%1@127.0.0.1:%2/%3")
        .arg(QString::fromLatin1(QUrl::toPercentEncoding(user)), QString::number(port), database);
}

QString newName()
{
    static int count = 0;
    return QStringLiteral("test_%1_%2").arg(QCoreApplication::applicationPid()).arg(++count);
}

// Another program may create the same role at the same time.
void addRole(Superuser& superuser, const QString& user)
{
    superuser.run(QStringLiteral("DO $do$ BEGIN CREATE ROLE %1 LOGIN PASSWORD '%2' IN ROLE plandesk_user;"
                                 " EXCEPTION WHEN duplicate_object OR unique_violation THEN NULL; END $do$")
                      .arg(user, TestDatabase::password()));
}

// PostgreSQL 15 that is killed repeats numbers of a sequence which was copied by the faster strategy.
QString copyStrategy()
{
    const bool mayBeKilled = qEnvironmentVariableIsSet("TEAM_SERVER");
    return mayBeKilled ? QStringLiteral("file_copy") : QStringLiteral("wal_log");
}

/// The filled databases of this program on the server, which the tests' databases are copies of.
class Templates {
public:
    ~Templates()
    {
        for (const QString& name : qAsConst(m_names))
            Superuser().run(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(name));
    }

    QString filled(const QString& contents, const TestDatabase::Fill& fill)
    {
        if (!m_names.contains(contents))
            m_names.insert(contents, make(fill));
        return m_names.value(contents);
    }

private:
    static QString make(const TestDatabase::Fill& fill)
    {
        TestDatabase::dropLeftovers();
        Superuser superuser;
        const QString name = newName();
        superuser.run(QStringLiteral("CREATE DATABASE ") + name);
        Database database;
        Status status = database.setUp(locationOf(Owner, name, TestDatabase::serverPort()));
        if (status && fill)
            status = fill(database);
        const auto users = UserStore(database).users();
        if (!status || !users)
            fail(errorText(status ? users.status() : status));
        for (const StoredUser& user : *users)
            addRole(superuser, user.id);
        return name;
    }

    QMap<QString, QString> m_names;
};

Templates& templates()
{
    static Templates all;
    return all;
}

/// The same for files.
class FileTemplates {
public:
    QString filled(const QString& contents, const TestDatabase::Fill& fill)
    {
        const QString file = m_folder.filePath(contents);
        if (QFile::exists(file))
            return file;
        Database database;
        Status status = database.open(file);
        if (status)
            status = fill(database);
        if (!status)
            qFatal("No file of sample data: %s", qPrintable(errorText(status)));
        return file;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

bool TestDatabase::isOnServer()
{
    static const bool isOnServer = [] {
        qputenv("PGSERVICEFILE", serverFile("service").toUtf8());
        qputenv("PGPASSFILE", serverFile("passwords").toUtf8());
        return qgetenv("TEST_DATABASE") == "server";
    }();
    return isOnServer;
}

QString TestDatabase::serverFolder()
{
    return QStringLiteral(PROJECT_FOLDER "/")
        + qEnvironmentVariable("TEAM_SERVER", QStringLiteral("build/team-server"));
}

quint16 TestDatabase::serverPort()
{
    return firstLine(serverFile("port")).toUShort();
}

void TestDatabase::dropLeftovers()
{
    Superuser superuser;
    const QStringList names =
        superuser.column(QStringLiteral("SELECT datname FROM pg_database WHERE datname ~ '^test_[0-9]+_[0-9]+$'"));
    for (const QString& name : names) {
        const pid_t program = name.section(QLatin1Char('_'), 1, 1).toInt();
        // Another program may drop it at the same time.
        if (::kill(program, 0) != 0 && errno == ESRCH)
            superuser.run(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(name));
    }
}

TestDatabase::TestDatabase(const QString& name, const Fill& fill)
{
    if (!isOnServer()) {
        static FileTemplates files;
        if (fill)
            QFile::copy(files.filled(name, fill), location({}));
        return;
    }
    m_port = serverPort();
    m_name = newName();
    Superuser().run(QStringLiteral("CREATE DATABASE %1 TEMPLATE %2 STRATEGY %3")
                        .arg(m_name, templates().filled(name, fill), copyStrategy()));
}

TestDatabase::TestDatabase()
    : TestDatabase(QStringLiteral("empty"), Fill())
{
}

TestDatabase::~TestDatabase()
{
    if (!m_name.isEmpty())
        Superuser().run(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(m_name));
}

QString TestDatabase::location(const QString& user) const
{
    return m_name.isEmpty() ? m_folder.filePath(QStringLiteral("plans.db")) : locationOf(user, m_name, m_port);
}

QString TestDatabase::password()
{
    return firstLine(serverFile("passwords")).section(QLatin1Char(':'), -1);
}

QString TestDatabase::ownersLocation() const
{
    return m_name.isEmpty() ? location(Owner) : locationOf(Owner, m_name, serverPort());
}
