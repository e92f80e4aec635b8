#include "FaultServer.h"

#include "TestDatabase.h"

#include <QFile>
#include <QProcess>

namespace {

QString noteOfFullDisk()
{
    return TestDatabase::serverFolder() + QStringLiteral("/server/full");
}

void runScript(const QStringList& arguments)
{
    if (!qEnvironmentVariableIsSet("TEAM_SERVER"))
        qFatal("TEAM_SERVER must name the folder of a server that may be killed, as in scripts/faults");
    QProcess script;
    // Tests may run in a locale that the system does not have.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    script.setProcessEnvironment(environment);
    script.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    script.setStandardOutputFile(QProcess::nullDevice());
    script.start(QStringLiteral(TEAM_SERVER_SCRIPT), arguments);
    if (!script.waitForFinished(-1) || script.exitCode() != 0)
        qFatal("scripts/team-server %s failed", qPrintable(arguments.join(QLatin1Char(' '))));
}

} // namespace

void FaultServer::start()
{
    runScript({ QStringLiteral("start") });
}

void FaultServer::stop(const QString& mode)
{
    runScript({ QStringLiteral("stop"), mode });
}

quint16 FaultServer::startReplica()
{
    runScript({ QStringLiteral("replica") });
    QFile port(TestDatabase::serverFolder() + QStringLiteral("/replica-port"));
    return port.open(QIODevice::ReadOnly) ? port.readAll().trimmed().toUShort() : 0;
}

void FaultServer::fillDisk(const QString& part)
{
    QFile note(noteOfFullDisk());
    const bool written = note.open(QIODevice::WriteOnly) && note.write(part.toUtf8()) > 0;
    // The server may belong to another user.
    if (!written || !note.setPermissions(note.permissions() | QFileDevice::ReadOther))
        qFatal("Cannot write %s", qPrintable(note.fileName()));
}

void FaultServer::makeRoom()
{
    QFile::remove(noteOfFullDisk());
}
