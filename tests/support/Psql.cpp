#include "Psql.h"

#include <QProcess>
#include <QtGlobal>

QString psql(const QString& location, const QString& statements, const QString& password)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PGOPTIONS"), QStringLiteral("-c search_path=plandesk"));
    if (!password.isEmpty())
        environment.insert(QStringLiteral("PGPASSWORD"), password);
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral("/usr/lib/postgresql/15/bin/psql"),
        { QStringLiteral("-XAtqw"), QStringLiteral("-v"), QStringLiteral("VERBOSITY=terse"), QStringLiteral("-c"),
            statements, location });
    if (!program.waitForFinished())
        qFatal("psql does not end: %s", qPrintable(program.errorString()));
    return QString::fromUtf8(program.readAll()).trimmed();
}
