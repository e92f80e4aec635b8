#include "ChainAdministration.h"

#include "AccountStore.h"
#include "AuthorityStore.h"
#include "CodeWords.h"
#include "ErrorText.h"
#include "UserStore.h"

namespace {

/// Users of a chain with their place in it.
struct ChainItem {
    QString name;
    QString caption;
    ChainRole role;
};

const QVector<ChainItem>& itemsOfChains()
{
    static const QVector<ChainItem> all{
        { QStringLiteral("executors"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "执行人")), ChainRole::Execute },
        { QStringLiteral("reviewers"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "复核人")), ChainRole::Forward },
    };
    return all;
}

Status checkUsers(Database& database, const QStringList& names)
{
    const auto users = UserStore(database).users();
    if (!users)
        return users.status();
    QStringList known;
    for (const StoredUser& user : *users)
        known << user.name;
    for (const QString& name : names) {
        if (!known.contains(name))
            return { Error::UnknownUser, { name } };
    }
    return {};
}

/// One chain, which is added when it gets its first users.
class Chain {
public:
    Chain(Database& database, const QString& account, const QString& type, QStringList& lines)
        : m_database(database)
        , m_store(database)
        , m_account(account)
        , m_type(type)
        , m_lines(lines)
    {
    }

    Status set(const ChainAdministration::Items& items)
    {
        const Result<QString> present = m_store.chainKey(m_account, m_type);
        if (!present)
            return present.status();
        m_key = *present;
        for (const ChainItem& item : itemsOfChains()) {
            const Status status = items.contains(item.name) ? setUsers(item, items.value(item.name)) : Status();
            if (!status)
                return status;
        }
        return {};
    }

private:
    Status setUsers(const ChainItem& item, const QString& given)
    {
        const QStringList names = given.isEmpty() ? QStringList() : given.split(QLatin1Char(','));
        if (Status status = checkUsers(m_database, names); !status)
            return status;
        const Result<QStringList> present = m_store.chainUsers(m_key, item.role);
        if (!present || *present == names)
            return present.status();
        const auto text = [](const QStringList& users) { return listText(users); };
        m_lines << Administration::tr("账户%1指令类型%2：%3由“%4”改为“%5”")
                       .arg(m_account, captionText(CodeWords::instructionTypes().word(m_type)),
                           captionText(item.caption), text(*present), text(names));
        Status status = add();
        if (status)
            status = m_store.removeChainUsers(m_key, item.role);
        return status ? m_store.addChainUsers(m_key, item.role, names) : status;
    }

    Status add()
    {
        if (!m_key.isEmpty())
            return {};
        m_key = QStringLiteral("CHAIN-%1-%2").arg(m_account, m_type);
        return m_store.addChain(m_account, m_type, m_key);
    }

    Database& m_database;
    AuthorityStore m_store;
    const QString m_account;
    const QString m_type;
    QStringList& m_lines;
    QString m_key; ///< empty if there is no chain yet
};

} // namespace

ChainAdministration::ChainAdministration(Administration& administration)
    : m_administration(administration)
{
}

Result<QStringList> ChainAdministration::setChain(const QString& account, const QString& type, const Items& items)
{
    return m_administration.run(
        [&](Database& database, QStringList& lines) { return write(database, account, type, items, lines); });
}

Status ChainAdministration::write(
    Database& database, const QString& account, const QString& type, const Items& items, QStringList& lines)
{
    if (Status status = Administration::checkTypes({ type }); !status)
        return status;
    const Status known = Administration::checkAccount(database, account);
    return known ? Chain(database, account, type, lines).set(items) : known;
}

QStringList ChainAdministration::items()
{
    QStringList names;
    for (const ChainItem& item : itemsOfChains())
        names << item.name;
    return names;
}
