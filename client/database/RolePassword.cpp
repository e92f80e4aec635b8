#include "RolePassword.h"

#include "Database.h"
#include "PostgresStatus.h"

#include <libpq-fe.h>

#include <memory>

Result<QString> RolePassword::encrypted(Database& database, const QString& role, const QString& password)
{
    auto* const connection = *static_cast<PGconn* const*>(database.handle().constData());
    const std::unique_ptr<char, void (*)(void*)> text(
        PQencryptPasswordConn(connection, password.toUtf8().constData(), role.toUtf8().constData(), "scram-sha-256"),
        PQfreemem);
    if (!text)
        return { Error::DatabaseFailed, { PostgresStatus::firstLine(QString::fromUtf8(PQerrorMessage(connection))) } };
    return QString::fromLatin1(text.get());
}
