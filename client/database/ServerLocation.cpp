#include "ServerLocation.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QUrl>

namespace {

const QString Service = QStringLiteral("service=");

// A server that does not answer is given up after some seconds, while connecting as well as later.
const QString Waiting = QStringLiteral("connect_timeout=3;keepalives=1;keepalives_idle=3;keepalives_interval=1;"
                                       "keepalives_count=3;tcp_user_timeout=4000;application_name=plandesk");

QUrl urlOf(const QString& location)
{
    return QUrl(location, QUrl::StrictMode);
}

bool isService(const QString& location)
{
    return location.startsWith(Service);
}

} // namespace

bool ServerLocation::isServer(const QString& location)
{
    // No file begins like this: a mistyped location could have a password, and would be shown as the file's name.
    static const QRegularExpression start(
        QStringLiteral("^(postgres(ql)?:|service *=)"), QRegularExpression::CaseInsensitiveOption);
    return start.match(location).hasMatch();
}

Status ServerLocation::refusal(const QString& location)
{
    if (isService(location)) {
        static const QRegularExpression name(QStringLiteral("^[\\w.-]+$"));
        return name.match(location.mid(Service.size())).hasMatch() ? Status() : Error::MalformedLocation;
    }
    const QUrl url = urlOf(location);
    if (url.userInfo().contains(QLatin1Char(':')) || location.contains(QLatin1String("password=")))
        return Error::PasswordInLocation;
    const bool hasName = url.path().size() > 1 && url.path().count(QLatin1Char('/')) == 1;
    const bool isWhole = url.isValid() && hasName && !url.hasQuery() && !url.hasFragment();
    return isWhole ? Status() : Error::MalformedLocation;
}

void ServerLocation::apply(const QString& location, QSqlDatabase& connection)
{
    if (isService(location)) {
        connection.setConnectOptions(location + QLatin1Char(';') + Waiting);
        return;
    }
    const QUrl url = urlOf(location);
    connection.setHostName(url.host());
    connection.setPort(url.port());
    connection.setUserName(url.userName(QUrl::FullyDecoded));
    connection.setDatabaseName(url.path(QUrl::FullyDecoded).mid(1));
    connection.setConnectOptions(Waiting);
}
