#include "TransferTest.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "Psql.h"
#include "SampleSession.h"
#include "TestStatus.h"

#include <QBuffer>
#include <QDebug>
#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

void TransferTest::prepare()
{
    setClientToday(SampleSession::today());
    m_database = std::make_unique<TestDatabase>();
    m_folder = std::make_unique<QTemporaryDir>();
}

void TransferTest::tidyUp()
{
    ClientSession::instance().close();
    for (const char* const name : { "wang", "li" }) {
        if (TestDatabase::isOnServer())
            psql(m_database->ownersLocation(), QStringLiteral("DROP ROLE IF EXISTS \"%1\"").arg(ownUser(name)));
    }
    m_database.reset();
    setClientToday(QDate());
}

QString TransferTest::ownUser(const char* name)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(name), QString::number(QCoreApplication::applicationPid()));
}

QString TransferTest::add(const QString& name, QByteArray contents) const
{
    contents.replace("wang", ownUser("wang").toLatin1()).replace("\nli,", "\n" + ownUser("li").toLatin1() + ",");
    QFile file(m_folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("No file");
    return file.fileName();
}

QString TransferTest::sample(const QString& kind) const
{
    QFile file(QStringLiteral(PROJECT_FOLDER "/docs/import/%1.csv").arg(kind));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("No sample");
    return add(kind + QStringLiteral(".csv"), file.readAll());
}

QString TransferTest::strategyFile()
{
    return QStringLiteral(PROJECT_FOLDER "/docs/import/strategies/slice.xml");
}

QStringList TransferTest::kinds()
{
    return { text("securities"), text("closes"), text("accounts"), text("users"), text("chains"), text("positions") };
}

void TransferTest::importUntil(const QString& end)
{
    for (const QString& kind : kinds()) {
        if (kind == end)
            return;
        imported(kind, sample(kind));
    }
    if (end == text("plans"))
        logIn();
}

void TransferTest::logIn()
{
    const QString wang = ownUser("wang");
    if (TestDatabase::isOnServer())
        psql(m_database->ownersLocation(),
            QStringLiteral("ALTER ROLE \"%1\" PASSWORD '%2'").arg(wang, TestDatabase::password()));
    const QString user = TestDatabase::isOnServer() ? QString() : wang;
    QCOMPARE(ClientSession::instance().open(m_database->location(wang), user), Status());
}

ImportTask TransferTest::taskOf(const QString& kind, const QString& file)
{
    ImportTask task;
    task.kind = kind;
    task.file = file;
    task.location = m_database->ownersLocation();
    if (kind != text("plans"))
        return task;
    if (!ClientSession::instance().isOpen())
        logIn();
    task.location = m_database->location(ownUser("wang"));
    task.scene.emplace(InstructionIssuer::scene(SampleSession::today()));
    return task;
}

Status TransferTest::run(const QString& kind, const QString& file, ImportReport& report)
{
    return ImportRun::run(taskOf(kind, file), report);
}

ImportReport TransferTest::imported(const QString& kind, const QString& file)
{
    ImportReport report;
    const Status status = run(kind, file, report);
    if (!status)
        qWarning().noquote() << errorText(status) << reasons(report);
    return report;
}

QByteArray TransferTest::exported(const QString& kind, TableFormat format)
{
    ClientSession& session = ClientSession::instance();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Database owned;
    const bool isPlan = kind == text("plans");
    if (!isPlan && !owned.open(m_database->ownersLocation()))
        return {};
    const Status status = ExportRun::run(
        { isPlan ? session.database() : owned, session.market(), session.user(), kind, format, SampleSession::today() },
        buffer);
    if (!status)
        qWarning().noquote() << errorText(status);
    return buffer.data();
}

QStringList TransferTest::reasons(const ImportReport& report)
{
    QStringList lines;
    for (const ImportReport::Fault& fault : report.faults)
        lines << ImportTexts::fault(report, fault);
    return lines;
}

TransferTest::Counts TransferTest::counts(const ImportReport& report)
{
    return { report.added, report.changed, report.unchanged, report.kept };
}

QString TransferTest::contents() const
{
    Database database;
    if (!database.open(m_database->ownersLocation()))
        return {};
    QStringList rows;
    for (const char* const table : { "securities", "closing_prices", "accounts", "exchange_accounts", "users",
             "user_accounts", "order_authorities", "rule_properties", "approval_chains", "chain_users", "positions",
             "plans", "history" }) {
        const Status status = database.read(QStringLiteral("SELECT * FROM %1 ORDER BY 1, 2").arg(QLatin1String(table)),
            {}, [&rows](const QSqlQuery& row) {
                QStringList cells;
                for (int i = 0; i < row.record().count(); ++i)
                    cells << row.value(i).toString();
                rows << cells.join(QLatin1Char('|'));
            });
        if (!status)
            return errorText(status);
    }
    return rows.join(QLatin1Char('\n'));
}
