#include "Administration.h"

#include "AccountStore.h"
#include "PlanCodes.h"
#include "SampleData.h"
#include "ServerLocation.h"
#include "StoredTexts.h"
#include "UserStore.h"

#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int AdminLock = 0x504C4441; // "PLDA"
// For another administrator, who may be moving a file, or for users, in milliseconds.
constexpr int LongestWait = 60000;

Status checkOwner(Database& database)
{
    const auto owns = database.value(QStringLiteral("SELECT pg_has_role(session_user, nspowner, 'USAGE')"
                                                    " FROM pg_namespace WHERE nspname = 'plandesk'"));
    if (!owns)
        return owns.status();
    return owns->toBool() ? Status() : Status(Error::NotAdministrator, { database.role() });
}

} // namespace

Result<QStringList> Administration::initialise(const QString& location)
{
    if (!ServerLocation::isServer(location))
        return Error::AdminNeedsServer;
    Database database;
    const Status present = database.open(location);
    if (present.cause().error() != Error::ServerNotSetUp)
        return present ? Result<QStringList>(QStringList()) : present;
    if (Status status = database.setUp(location); !status)
        return status;
    return QStringList{ Administration::tr("已建立表、角色和权限") };
}

Result<QStringList> Administration::migrate(const QString& location)
{
    if (!ServerLocation::isServer(location))
        return Error::AdminNeedsServer;
    Database database;
    const Status present = database.open(location);
    const Status cause = present.cause();
    if (cause.error() != Error::OlderDatabase)
        return present ? Result<QStringList>(QStringList()) : present;
    if (Status status = database.setUp(location); !status)
        return status;
    return QStringList{
        Administration::tr("数据库已由版本%1升级到版本%2").arg(cause.details().at(0), cause.details().at(1))
    };
}

Status Administration::open(const QString& location)
{
    return ServerLocation::isServer(location) ? openDatabase(location) : Error::AdminNeedsServer;
}

Status Administration::openDatabase(const QString& location)
{
    m_isServer = ServerLocation::isServer(location);
    if (!m_isServer && !QFileInfo::exists(location))
        return { Error::CannotOpenDatabase, { location }, Error::NotAFile };
    m_database.setPatient();
    Status status = m_database.open(location);
    return status && m_isServer ? checkOwner(m_database) : status;
}

Result<QStringList> Administration::run(const Work& work)
{
    QStringList lines;
    Status status = m_database.transaction([&]() -> Status {
        if (!m_isServer)
            return work(m_database, lines);
        Status locked = m_database.configure(
            QStringLiteral("SET LOCAL statement_timeout = 0; SET LOCAL idle_in_transaction_session_timeout = 0;"
                           " SET LOCAL lock_timeout = %1; SELECT pg_advisory_xact_lock(%2)")
                .arg(LongestWait)
                .arg(AdminLock));
        return locked ? work(m_database, lines) : locked;
    });
    return status ? Result<QStringList>(lines) : status;
}

Result<QStringList> Administration::writeSample(int securities, const SampleMarket::Progress& progress)
{
    return run([&](Database& database, QStringList& lines) -> Status {
        const auto users = UserStore(database).users();
        if (!users)
            return users.status();
        lines << (users->isEmpty() ? Administration::tr("已写入示例数据")
                                   : Administration::tr("已有用户，没有写入示例数据"));
        return users->isEmpty() ? SampleData::write(database, securities, progress) : Status();
    });
}

Status Administration::checkText(const QString& caption, const QString& text)
{
    const bool isPrintable = std::all_of(text.cbegin(), text.cend(),
        [](QChar letter) { return letter.category() != QChar::Other_Control && !letter.isNull(); });
    const bool isUsable = isPrintable && StoredTexts::isStorable(text) && !text.isEmpty() && text == text.trimmed();
    return isUsable ? Status() : Status(Error::EmptyText, { caption });
}

Status Administration::checkTypes(const QStringList& types)
{
    using namespace PlanCodes::InstructionType;
    for (const QString& type : types) {
        if (!QStringList{ Ordinary, Credit, Bond, HkConnect }.contains(type))
            return { Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "指令类型")), type } };
    }
    return {};
}

Status Administration::checkAccount(Database& database, const QString& account)
{
    const Result<StoredAccount> known = AccountStore(database).account(account);
    if (!known)
        return known.status();
    return known->tradingAccount.isEmpty() ? Status(Error::UnknownAccount, { account }) : Status();
}
