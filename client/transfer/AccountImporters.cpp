// Accounts, users with their rights, and positions.
#include "AccountAdministration.h"
#include "AccountRights.h"
#include "Kelvo_Values.h"
#include "MasterImporters.h"
#include "UserAdministration.h"
#include "UserStore.h"

#include <QRegularExpression>

using namespace TransferForms;

namespace {

constexpr double LargestQuantity = 1e14;

QString line(const QString& text, const QString& first, const QString& second)
{
    return text.arg(first, second);
}

} // namespace

AccountImporter::AccountImporter(Database& database, ImportReport& report)
    : m_database(database)
    , m_store(database)
    , m_report(report)
{
}

Status AccountImporter::take(ImportRow& row)
{
    const QString account = row.neededText(AccountColumn::Account);
    m_keys.check(row, AccountColumn::Account, account);
    AccountAdministration::Items items;
    for (int column = AccountColumn::Name; column < form().columns.size(); ++column) {
        const QString text = column == AccountColumn::Asset ? row.code(column, CodeWords::assetProperties(), QString())
                                                            : row.text(column);
        if (!text.isEmpty())
            items.insert(form().columns.at(column).id, text);
    }
    const Result<StoredAccount> stored = m_store.account(account);
    if (!stored || row.isRefused())
        return stored.status();
    QStringList lines;
    if (const Status status = AccountAdministration::write(m_database, account, items, lines); !status) {
        row.refuse(status);
        return {};
    }
    for (int column = AccountColumn::FirstExchange; column < form().columns.size(); ++column) {
        const QString exchange = form().columns.at(column).id;
        if (!row.has(column) || items.contains(exchange) || !stored->exchangeAccounts.contains(exchange))
            continue;
        lines << line(ImportTexts::tr("账户%1：取消%2"), account, AccountAdministration::captionOf(exchange));
        if (Status status = m_store.removeExchange(account, exchange); !status)
            return status;
    }
    m_report.count(stored->tradingAccount.isEmpty(), lines);
    return {};
}

Status AccountImporter::findRemovals()
{
    const auto accounts = m_store.accounts();
    const Result<QStringList> used = m_store.usedAccounts();
    if (!accounts || !used)
        return accounts ? used.status() : accounts.status();
    for (const StoredAccount& account : *accounts) {
        if (m_keys.contains(account.tradingAccount))
            continue;
        if (used->contains(account.tradingAccount))
            m_report.refuse({ 0, 0, QString(), { Error::StillInUse, { account.tradingAccount } } });
        m_report.removals << account.tradingAccount;
    }
    return {};
}

Status AccountImporter::remove()
{
    Status status;
    for (const QString& account : qAsConst(m_report.removals)) {
        if (status)
            status = m_store.remove(account);
    }
    return status;
}

UserImporter::UserImporter(Database& database, ImportReport& report)
    : m_database(database)
    , m_report(report)
{
}

QStringList UserImporter::types(ImportRow& row, int column)
{
    static const QRegularExpression separators(QStringLiteral("[、,，;；/\\s]+"));
    QStringList codes;
    const QStringList words = row.text(column).split(separators, Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const QString code = CodeWords::instructionTypes().code(word);
        if (code.isNull())
            row.refuse(column, { Error::UnknownCode, { QStringLiteral("指令类型"), word } });
        codes << code;
    }
    return codes;
}

// Whether the types are reviewed is a yes or no for all, or those that are.
QMap<QString, int> UserImporter::rights(ImportRow& row)
{
    const QStringList codes = types(row, UserColumn::Types);
    const QString answer = CodeWords::answers().code(row.text(UserColumn::Review));
    const QStringList reviewed = answer.isNull() ? types(row, UserColumn::Review)
        : answer == QLatin1String("1")           ? codes
                                                 : QStringList();
    QMap<QString, int> properties;
    for (const QString& code : codes)
        properties.insert(code, reviewed.contains(code) ? 1 : 0);
    return properties;
}

Status UserImporter::take(ImportRow& row)
{
    const StoredUser user{ row.neededText(UserColumn::User), row.neededText(UserColumn::Name) };
    const QString account = row.text(UserColumn::Account);
    m_keys.check(row, UserColumn::User, account.isEmpty() ? user.id : line(QStringLiteral("%1 %2"), user.id, account));
    const QString name = m_names.value(user.id, user.name);
    if (name != user.name)
        row.refuse(UserColumn::Name, { Error::UserHasOtherName, { user.id, name } });
    m_names.insert(user.id, name);
    const Result<StoredUser> stored = UserStore(m_database).user(user.id);
    if (!stored || row.isRefused())
        return stored.status();
    QStringList lines;
    Status status = write(row, user, account, lines);
    if (status && !row.isRefused())
        m_report.count(stored->id.isEmpty(), lines);
    return status;
}

Status UserImporter::write(ImportRow& row, const StoredUser& user, const QString& account, QStringList& lines)
{
    const QMap<QString, int> properties = rights(row);
    if (row.isRefused())
        return {};
    if (const Status status = UserAdministration::write(m_database, user, {}, lines); !status) {
        row.refuse(status);
        return {};
    }
    if (account.isEmpty()) {
        if (!properties.isEmpty())
            row.refuse(UserColumn::Account, { Error::CellMissing, { QStringLiteral("账户") } });
        return {};
    }
    if (const Status status = Administration::checkAccount(m_database, account); !status) {
        row.refuse(UserColumn::Account, status);
        return {};
    }
    return AccountRights(m_database, user.id, account, lines).set(properties);
}

// The users themselves stay, because plans and the history name them.
Status UserImporter::findRemovals()
{
    const auto users = UserStore(m_database).users();
    if (!users)
        return users.status();
    for (const StoredUser& user : *users) {
        const auto accounts = AccountStore(m_database).accountsOf(user.id);
        if (!accounts)
            return accounts.status();
        for (const StoredAccount& account : *accounts) {
            if (m_keys.contains(line(QStringLiteral("%1 %2"), user.id, account.tradingAccount)))
                continue;
            m_removals << qMakePair(user.id, account.tradingAccount);
            m_report.removals << line(ImportTexts::tr("用户%1的账户%2"), user.id, account.tradingAccount);
        }
    }
    return {};
}

Status UserImporter::remove()
{
    Status status;
    QStringList lines;
    for (const auto& removal : qAsConst(m_removals)) {
        if (status)
            status = AccountRights(m_database, removal.first, removal.second, lines).unassign();
    }
    return status;
}

PositionImporter::PositionImporter(Database& database, ImportReport& report)
    : m_store(database)
    , m_accounts(database)
    , m_securities(database)
    , m_report(report)
{
}

Status PositionImporter::securityOf(ImportRow& row, Security& security)
{
    const QString symbol = row.neededText(PositionColumn::Symbol).toUpper();
    const Result<Security> found = m_securities.security(symbol);
    security = found.valueOr({});
    if (found && !symbol.isEmpty() && security.symbol.isEmpty())
        row.refuse(PositionColumn::Symbol, { Error::UnknownSecurity, { symbol } });
    return found.status();
}

Status PositionImporter::accountOf(ImportRow& row, StoredAccount& account)
{
    const QString number = row.neededText(PositionColumn::Account);
    const Result<StoredAccount> found = m_accounts.account(number);
    account = found.valueOr({});
    if (found && !number.isEmpty() && account.tradingAccount.isEmpty())
        row.refuse(PositionColumn::Account, { Error::UnknownAccount, { number } });
    return found.status();
}

StoredPosition PositionImporter::read(ImportRow& row, const StoredAccount& account, const Security& security) const
{
    const QString usual = account.exchangeAccounts.value(security.exchange);
    const QString given = row.text(PositionColumn::SecurityAccount);
    if (usual.isEmpty())
        row.refuse(PositionColumn::Account, { Error::NoSecurityAccount, { account.tradingAccount } });
    else if (!given.isEmpty() && given != usual)
        row.refuse(PositionColumn::SecurityAccount, { Error::ForeignSecurityAccount, { given } });
    const bool isBond = security.type == Kelvo_Values::MdcSecurityType::BondType;
    const NumberUnit unit{ isBond ? QStringLiteral("张") : QStringLiteral("股"), security.quantityStep, false };
    const auto quantity = [&](int column) {
        const auto shown = static_cast<qint64>(row.neededNumber(column, { 0, LargestQuantity, 0 }, unit).value_or(0));
        if (shown % security.displayFactor != 0)
            row.refuse(
                column, { Error::NotInUnits, { QString::number(shown), QString::number(security.displayFactor) } });
        return shown / security.displayFactor;
    };
    const StoredPosition position{ account.tradingAccount, usual, security.symbol, quantity(PositionColumn::Quantity),
        quantity(PositionColumn::Tradeable) };
    if (position.tradeableQuantity > position.quantity)
        row.refuse(PositionColumn::Tradeable,
            { Error::TradeableAboveQuantity,
                { QString::number(position.tradeableQuantity * security.displayFactor),
                    QString::number(position.quantity * security.displayFactor) } });
    return position;
}

Status PositionImporter::take(ImportRow& row)
{
    Security security;
    StoredAccount account;
    Status status = accountOf(row, account);
    if (status)
        status = securityOf(row, security);
    if (!status || row.isRefused())
        return status;
    const StoredPosition position = read(row, account, security);
    const QString key = line(QStringLiteral("%1 %2"), position.tradingAccount, position.symbol);
    m_keys.check(row, PositionColumn::Symbol, key);
    const auto stored = m_store.stored(position.tradingAccount, position.securityAccount, position.symbol);
    if (!stored || row.isRefused())
        return stored.status();
    const StoredPosition before = stored->value(0);
    const bool isNew = stored->isEmpty();
    if (!isNew && before.quantity == position.quantity && before.tradeableQuantity == position.tradeableQuantity) {
        m_report.count(false, {});
        return {};
    }
    const auto text = [&security](const StoredPosition& one) {
        return line(ImportTexts::tr("%1（可卖%2）"), QString::number(one.quantity * security.displayFactor),
            QString::number(one.tradeableQuantity * security.displayFactor));
    };
    m_report.count(isNew,
        { isNew ? ImportTexts::tr("持仓%1：新增%2").arg(key, text(position))
                : ImportTexts::tr("持仓%1：由%2改为%3").arg(key, text(before), text(position)) });
    return m_store.set(position);
}

Status PositionImporter::findRemovals()
{
    const auto all = m_store.all();
    if (!all)
        return all.status();
    for (const StoredPosition& position : *all) {
        const QString key = line(QStringLiteral("%1 %2"), position.tradingAccount, position.symbol);
        if (m_keys.contains(key))
            continue;
        m_removals << position;
        m_report.removals << key;
    }
    return {};
}

Status PositionImporter::remove()
{
    Status status;
    for (const StoredPosition& position : qAsConst(m_removals)) {
        if (status)
            status = m_store.remove(position);
    }
    return status;
}
