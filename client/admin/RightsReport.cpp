#include "RightsReport.h"

#include "AccountStore.h"
#include "AuthorityStore.h"
#include "ErrorText.h"
#include "LimitStore.h"
#include "LoginRoles.h"
#include "UserStore.h"

#include <QJsonArray>

namespace {

Result<QJsonObject> limitsOf(Database& database, const QString& account)
{
    const Result<AccountLimits> limits = LimitStore(database).own(account);
    if (!limits)
        return limits.status();
    QJsonObject object;
    const auto insert = [&object](const char* name, const std::optional<qint64>& limit) {
        if (limit)
            object.insert(QLatin1String(name), *limit);
    };
    insert("quantity", limits->quantity);
    insert("amount", limits->amount);
    insert("price-band", limits->priceBandPerMille);
    return object;
}

Result<QJsonArray> chainsOf(Database& database, const QString& account)
{
    AuthorityStore store(database);
    const Result<QStringList> types = store.chainTypes(account);
    if (!types)
        return types.status();
    QJsonArray chains;
    for (const QString& type : *types) {
        const Result<QString> key = store.chainKey(account, type);
        if (!key)
            return key.status();
        const Result<QStringList> executors = store.chainUsers(*key, ChainRole::Execute);
        const Result<QStringList> reviewers = store.chainUsers(*key, ChainRole::Forward);
        if (!executors || !reviewers)
            return executors ? reviewers.status() : executors.status();
        chains << QJsonObject{ { QStringLiteral("type"), type },
            { QStringLiteral("executors"), QJsonArray::fromStringList(*executors) },
            { QStringLiteral("reviewers"), QJsonArray::fromStringList(*reviewers) } };
    }
    return chains;
}

Result<QJsonObject> accountObject(Database& database, const StoredAccount& account)
{
    const Result<QJsonObject> limits = limitsOf(database, account.tradingAccount);
    if (!limits)
        return limits.status();
    const Result<QJsonArray> chains = chainsOf(database, account.tradingAccount);
    if (!chains)
        return chains.status();
    QJsonObject exchanges;
    for (auto it = account.exchangeAccounts.cbegin(); it != account.exchangeAccounts.cend(); ++it)
        exchanges.insert(it.key(), it.value());
    return QJsonObject{ { QStringLiteral("account"), account.tradingAccount }, { QStringLiteral("name"), account.name },
        { QStringLiteral("fund"), account.fundAccount }, { QStringLiteral("client"), account.clientNo },
        { QStringLiteral("asset"), account.assetProperty }, { QStringLiteral("branch"), account.branchNo },
        { QStringLiteral("exchanges"), exchanges }, { QStringLiteral("limits"), *limits },
        { QStringLiteral("chains"), *chains } };
}

Result<QJsonObject> rightsObject(Database& database, const QString& user, const QString& account)
{
    AuthorityStore store(database);
    const Result<QStringList> types = store.types(user, account);
    if (!types)
        return types.status();
    QStringList reviewed;
    for (const QString& type : *types) {
        const Result<Rights> rights = store.rights(user, account, type);
        if (!rights)
            return rights.status();
        if (rights->ruleProperty != 0)
            reviewed << type;
    }
    return QJsonObject{ { QStringLiteral("account"), account },
        { QStringLiteral("types"), QJsonArray::fromStringList(*types) },
        { QStringLiteral("reviewed"), QJsonArray::fromStringList(reviewed) } };
}

Result<QJsonObject> userObject(Database& database, const StoredUser& user)
{
    // A file has no roles: everybody who can read it may log in.
    const bool hasRoles = !database.role().isEmpty();
    const Result<LoginRoles::Role> role =
        hasRoles ? LoginRoles(database).role(user.id) : Result<LoginRoles::Role>(LoginRoles::Role());
    if (!role)
        return role.status();
    const auto accounts = AccountStore(database).accountsOf(user.id);
    if (!accounts)
        return accounts.status();
    QJsonArray rights;
    for (const StoredAccount& account : *accounts) {
        const Result<QJsonObject> object = rightsObject(database, user.id, account.tradingAccount);
        if (!object)
            return object.status();
        rights << *object;
    }
    return QJsonObject{ { QStringLiteral("id"), user.id }, { QStringLiteral("name"), user.name },
        { QStringLiteral("login"), !hasRoles || role->isActive() }, { QStringLiteral("accounts"), rights } };
}

template <typename Row>
Status append(QJsonArray& array, Database& database, const Result<QVector<Row>>& rows,
    Result<QJsonObject> (*objectOf)(Database& database, const Row& row))
{
    if (!rows)
        return rows.status();
    for (const Row& row : *rows) {
        const Result<QJsonObject> object = objectOf(database, row);
        if (!object)
            return object.status();
        array << *object;
    }
    return {};
}

QString joined(const QJsonValue& texts)
{
    return listText(texts.toVariant().toStringList());
}

QString limitsText(const QJsonObject& limits)
{
    QStringList texts;
    const auto add = [&](const char* name, const char* format) {
        const QJsonValue limit = limits.value(QLatin1String(name));
        if (!limit.isUndefined())
            texts << Administration::tr(format).arg(limit.toVariant().toLongLong());
    };
    add("quantity", QT_TRANSLATE_NOOP("Administration", "最大数量%1"));
    add("amount", QT_TRANSLATE_NOOP("Administration", "最大金额%1元"));
    add("price-band", QT_TRANSLATE_NOOP("Administration", "价格偏离%1‰"));
    return texts.isEmpty() ? Administration::tr("通用限额") : listText(texts);
}

QString rightsLine(const QString& user, const QJsonObject& rights)
{
    const QString reviewed = joined(rights.value(QStringLiteral("reviewed")));
    const QString types = joined(rights.value(QStringLiteral("types")));
    return Administration::tr("用户%1：账户%2，指令类型%3，须复核%4")
        .arg(user, rights.value(QStringLiteral("account")).toString(),
            types.isEmpty() ? Administration::tr("无") : types,
            reviewed.isEmpty() ? Administration::tr("无") : reviewed);
}

QStringList userLines(const QJsonObject& user)
{
    const QString id = user.value(QStringLiteral("id")).toString();
    const bool mayLogIn = user.value(QStringLiteral("login")).toBool();
    QStringList lines{ Administration::tr("用户%1：姓名%2，%3")
                           .arg(id, user.value(QStringLiteral("name")).toString(),
                               mayLogIn ? Administration::tr("可以登录") : Administration::tr("不能登录")) };
    const QJsonArray accounts = user.value(QStringLiteral("accounts")).toArray();
    for (const QJsonValue& rights : accounts)
        lines << rightsLine(id, rights.toObject());
    return lines;
}

QString accountLine(const QJsonObject& account)
{
    const auto text = [&account](const char* name) { return account.value(QLatin1String(name)).toString(); };
    QStringList exchanges;
    const QVariantMap accounts = account.value(QStringLiteral("exchanges")).toObject().toVariantMap();
    for (auto it = accounts.cbegin(); it != accounts.cend(); ++it)
        exchanges << it.key() + QLatin1Char('=') + it->toString();
    return Administration::tr("账户%1：名称%2，资金账号%3，客户号%4，营业部%5，资产属性%6，证券账户%7，%8")
        .arg(text("account"), text("name"), text("fund"), text("client"), text("branch"), text("asset"),
            exchanges.isEmpty() ? Administration::tr("无") : listText(exchanges),
            limitsText(account.value(QStringLiteral("limits")).toObject()));
}

QStringList chainLines(const QJsonObject& account)
{
    QStringList lines;
    const QJsonArray chains = account.value(QStringLiteral("chains")).toArray();
    for (const QJsonValue& value : chains) {
        const QJsonObject chain = value.toObject();
        const QString executors = joined(chain.value(QStringLiteral("executors")));
        const QString reviewers = joined(chain.value(QStringLiteral("reviewers")));
        lines << Administration::tr("账户%1：指令类型%2，执行人%3，复核人%4")
                     .arg(account.value(QStringLiteral("account")).toString(),
                         chain.value(QStringLiteral("type")).toString(),
                         executors.isEmpty() ? Administration::tr("无") : executors,
                         reviewers.isEmpty() ? Administration::tr("无") : reviewers);
    }
    return lines;
}

} // namespace

Result<QJsonObject> RightsReport::json(Administration& administration)
{
    QJsonArray users;
    QJsonArray accounts;
    QJsonObject usual;
    Database& database = administration.database();
    const Status read = database.snapshot([&]() -> Status {
        if (Status status = append(users, database, UserStore(database).users(), userObject); !status)
            return status;
        if (Status status = append(accounts, database, AccountStore(database).accounts(), accountObject); !status)
            return status;
        const Result<QJsonObject> limits = limitsOf(database, QString());
        usual = limits.valueOr({});
        return limits.status();
    });
    if (!read)
        return read;
    return QJsonObject{ { QStringLiteral("users"), users }, { QStringLiteral("accounts"), accounts },
        { QStringLiteral("limits"), usual } };
}

QStringList RightsReport::lines(const QJsonObject& report)
{
    QStringList lines;
    const QJsonArray users = report.value(QStringLiteral("users")).toArray();
    for (const QJsonValue& user : users)
        lines << userLines(user.toObject());
    const QJsonArray accounts = report.value(QStringLiteral("accounts")).toArray();
    for (const QJsonValue& account : accounts)
        lines << accountLine(account.toObject()) << chainLines(account.toObject());
    lines << Administration::tr("通用限额：%1").arg(limitsText(report.value(QStringLiteral("limits")).toObject()));
    return lines;
}
