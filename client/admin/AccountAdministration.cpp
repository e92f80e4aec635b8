#include "AccountAdministration.h"

#include "AccountStore.h"
#include "CashStore.h"
#include "ClientClock.h"
#include "CodeWords.h"
#include "ErrorText.h"
#include "Kelvo_Values.h"
#include "LimitStore.h"
#include "Orlo_Values.h"

#include <QRegularExpression>

namespace {

const QString Usual = QStringLiteral("usual");

QStringList exchanges()
{
    return { Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz, Orlo_Values::Exchange::bj,
        Orlo_Values::Exchange::HkStockCirculation };
}

/// An item of an account with its place in the account.
struct AccountItem {
    QString name;
    QString caption;
    QString StoredAccount::*text;
};

const QVector<AccountItem>& itemsOfAccounts()
{
    static const QVector<AccountItem> all{
        { QStringLiteral("name"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "名称")), &StoredAccount::name },
        { QStringLiteral("fund"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "资金账号")),
            &StoredAccount::fundAccount },
        { QStringLiteral("client"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "客户号")), &StoredAccount::clientNo },
        { QStringLiteral("branch"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "营业部")), &StoredAccount::branchNo },
        { QStringLiteral("asset"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "资产属性")),
            &StoredAccount::assetProperty },
    };
    return all;
}

Status checkAsset(const QString& asset)
{
    if (asset == AccountAsset::Ordinary || asset == Orlo_Values::FundAccountType::Credit)
        return {};
    return { Error::UnknownCode, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "资产属性")), asset } };
}

Status checkComplete(const StoredAccount& account)
{
    QStringList missing;
    for (const AccountItem& item : itemsOfAccounts()) {
        if ((account.*item.text).isEmpty())
            missing << Administration::tr("%1（%2）").arg(captionText(item.caption), item.name);
    }
    if (missing.isEmpty())
        return {};
    return { Error::AccountIncomplete, { account.tradingAccount, listText(missing) } };
}

QString wordOf(const AccountItem& item, const QString& text)
{
    const bool isAsset = item.text == &StoredAccount::assetProperty;
    return isAsset ? captionText(CodeWords::assetProperties().word(text)) : text;
}

/// Takes the items and appends a line for each one that differs.
Status take(const AccountAdministration::Items& items, StoredAccount& account, QStringList& lines)
{
    const QString line = Administration::tr("账户%1：%2由“%3”改为“%4”");
    for (const AccountItem& item : itemsOfAccounts()) {
        QString& text = account.*item.text;
        const QString given = items.value(item.name, text);
        if (given != text)
            lines << line.arg(
                account.tradingAccount, captionText(item.caption), wordOf(item, text), wordOf(item, given));
        text = given;
    }
    for (const QString& exchange : exchanges()) {
        QString& text = account.exchangeAccounts[exchange];
        const QString given = items.value(exchange, text);
        if (given != text)
            lines << line.arg(account.tradingAccount, AccountAdministration::captionOf(exchange), text, given);
        text = given;
        if (text.isEmpty())
            account.exchangeAccounts.remove(exchange);
    }
    return checkAsset(account.assetProperty);
}

Status addOrChange(
    Database& database, const QString& number, const AccountAdministration::Items& items, QStringList& lines)
{
    AccountStore store(database);
    Result<StoredAccount> account = store.account(number);
    if (!account)
        return account.status();
    const bool isNew = account->tradingAccount.isEmpty();
    if (isNew) {
        account->tradingAccount = number;
        account->assetProperty = AccountAsset::Ordinary;
    }
    QStringList changes;
    if (Status status = take(items, *account, changes); !status)
        return status;
    if (Status status = checkComplete(*account); !status)
        return status;
    if (isNew)
        lines << Administration::tr("账户%1：已建立，名称%2").arg(number, account->name);
    else
        lines << changes;
    if (lines.isEmpty())
        return {};
    return isNew ? store.add(*account) : store.change(*account);
}

/// A limit with its place among the limits.
struct LimitItem {
    QString name;
    QString caption;
    std::optional<qint64> AccountLimits::*limit;
    /// The database computes with a multiple of it.
    qint64 largest;
};

constexpr qint64 Largest = 999'999'999'999'999;
constexpr qint64 LargestBand = 1'000'000;

const QVector<LimitItem>& itemsOfLimits()
{
    static const QVector<LimitItem> all{
        { QStringLiteral("quantity"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "最大数量")),
            &AccountLimits::quantity, Largest },
        { QStringLiteral("amount"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "最大金额（元）")),
            &AccountLimits::amount, Largest },
        { QStringLiteral("price-band"), QStringLiteral(QT_TRANSLATE_NOOP("Caption", "价格偏离（‰）")),
            &AccountLimits::priceBandPerMille, LargestBand },
    };
    return all;
}

QString textOf(const std::optional<qint64>& limit)
{
    return limit ? QString::number(*limit) : Usual;
}

Result<std::optional<qint64>> limitOf(const LimitItem& item, const QString& text, bool mayBeUsual)
{
    if (mayBeUsual && text == Usual)
        return std::optional<qint64>();
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber || number <= 0)
        return { Error::NotPositiveWhole, { item.caption, text } };
    if (number > item.largest)
        return { Error::LimitTooLarge, { item.caption, QString::number(item.largest) } };
    return std::optional<qint64>(number);
}

Status changeLimits(
    Database& database, const QString& account, const AccountAdministration::Items& items, QStringList& lines)
{
    const QString key = account == Usual ? QString() : account;
    if (Status status = key.isEmpty() ? Status() : Administration::checkAccount(database, account); !status)
        return status;
    const QString owner = key.isEmpty() ? Administration::tr("通用限额") : Administration::tr("账户%1").arg(account);
    LimitStore store(database);
    Result<AccountLimits> limits = store.own(key);
    if (!limits)
        return limits.status();
    for (const LimitItem& item : itemsOfLimits()) {
        std::optional<qint64>& limit = (*limits).*item.limit;
        const auto given = limitOf(item, items.value(item.name, textOf(limit)), !key.isEmpty());
        if (!given)
            return given.status();
        if (*given != limit)
            lines << Administration::tr("%1：%2由%3改为%4")
                         .arg(owner, captionText(item.caption), textOf(limit), textOf(*given));
        limit = *given;
    }
    return lines.isEmpty() ? Status() : store.set(key, *limits);
}

const QString Unknown = QStringLiteral("unknown");

/// Absent for unknown cash.
Result<std::optional<qint64>> fenOf(const QString& yuan)
{
    if (yuan == Unknown)
        return std::optional<qint64>();
    static const QRegularExpression amount(QStringLiteral("^(0|[1-9][0-9]{0,12})(\\.[0-9]{2})?$"));
    if (!amount.match(yuan).hasMatch())
        return { Error::NotNumber, { QStringLiteral(QT_TRANSLATE_NOOP("Caption", "资金（元）")), yuan.left(32) } };
    const QString fen =
        yuan.contains(QLatin1Char('.')) ? QString(yuan).remove(QLatin1Char('.')) : yuan + QStringLiteral("00");
    return std::optional<qint64>(fen.toLongLong());
}

QString textOfCash(const std::optional<qint64>& fen)
{
    return fen ? Administration::tr("%1元").arg(QString::number(static_cast<double>(*fen) / 100, 'f', 2))
               : Administration::tr("未知");
}

Status changeCash(Database& database, const QString& account, const QString& yuan, QStringList& lines)
{
    if (Status status = Administration::checkAccount(database, account); !status)
        return status;
    const auto fen = fenOf(yuan);
    if (!fen)
        return fen.status();
    CashStore store(database);
    const auto known = store.available(account, clientToday());
    if (!known)
        return known.status();
    if (*known == *fen)
        return {};
    lines << Administration::tr("账户%1：可用资金由%2改为%3").arg(account, textOfCash(*known), textOfCash(*fen));
    return store.set(account, *fen);
}

} // namespace

AccountAdministration::AccountAdministration(Administration& administration)
    : m_administration(administration)
{
}

Result<QStringList> AccountAdministration::addAccount(const QString& account, const Items& items)
{
    return m_administration.run(
        [&](Database& database, QStringList& lines) { return write(database, account, items, lines); });
}

Status AccountAdministration::write(Database& database, const QString& account, const Items& items, QStringList& lines)
{
    if (Status status = Administration::checkText(QStringLiteral(QT_TRANSLATE_NOOP("Caption", "账户")), account);
        !status)
        return status;
    for (auto item = items.cbegin(); item != items.cend(); ++item) {
        if (Status status = Administration::checkText(captionOf(item.key()), item.value()); !status)
            return status;
    }
    return addOrChange(database, account, items, lines);
}

Result<QStringList> AccountAdministration::setLimits(const QString& account, const Items& items)
{
    return m_administration.run(
        [&](Database& database, QStringList& lines) { return changeLimits(database, account, items, lines); });
}

Result<QStringList> AccountAdministration::setCash(const QString& account, const QString& yuan)
{
    return m_administration.run(
        [&](Database& database, QStringList& lines) { return changeCash(database, account, yuan, lines); });
}

QStringList AccountAdministration::accountItems()
{
    QStringList names;
    for (const AccountItem& item : itemsOfAccounts())
        names << item.name;
    return names + exchanges();
}

QString AccountAdministration::captionOf(const QString& item)
{
    for (const AccountItem& known : itemsOfAccounts()) {
        if (known.name == item)
            return captionText(known.caption);
    }
    return Administration::tr("%1的证券账户").arg(captionText(CodeWords::exchanges().word(item)));
}

QStringList AccountAdministration::limitItems()
{
    QStringList names;
    for (const LimitItem& item : itemsOfLimits())
        names << item.name;
    return names;
}
