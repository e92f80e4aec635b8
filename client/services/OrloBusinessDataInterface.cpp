#include "OrloBusinessDataInterface.h"

#include "Orlo_Values.h"
#include "services/AccountRecord.h"
#include "session/ClientSession.h"

#include <QDebug>

namespace {

// The account properties by which the editor asks: every account that may trade, and is open to automatic plans.
constexpr int tradingAccounts = 3;
constexpr int planAccounts = 16;

// What is told of a security that nobody knows.
constexpr int usualPrecision = 2;
constexpr int usualFactor = 1;

const Security* securityOf(const QString& symbol)
{
    return ClientSession::instance().market().find(symbol);
}

const StoredAccount* accountOf(const QString& tradingAccount)
{
    return ClientSession::instance().accounts().find(tradingAccount);
}

} // namespace

// No account of the store is closed or frozen, so neither of the two flags leaves any out or adds one.
QList<tagUserAccountInfo> OrloBusinessDataInterface::GetFundAccountListByFundProp(
    int fundProperty, int assetProperty, bool withClosed, const QStringList& accountTypes, bool onlyUsable)
{
    Q_UNUSED(withClosed);
    Q_UNUSED(onlyUsable);
    if (fundProperty != tradingAccounts || assetProperty != planAccounts) {
        qWarning() << "OrloBusinessDataInterface::GetFundAccountListByFundProp" << fundProperty << assetProperty
                   << "select no account";
        return {};
    }
    QList<tagUserAccountInfo> records;
    for (const StoredAccount& account : ClientSession::instance().accounts().accounts()) {
        if (accountTypes.isEmpty() || accountTypes.contains(account.assetProperty))
            records << accountRecord(account);
    }
    return records;
}

QMap<QString, QString> OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAccount(
    const QString& tradingAccount)
{
    const StoredAccount* account = accountOf(tradingAccount);
    return account ? account->exchangeAccounts : QMap<QString, QString>();
}

QString OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(
    const QString& tradingAccount, const QString& exchange)
{
    const StoredAccount* account = accountOf(tradingAccount);
    return account ? account->exchangeAccounts.value(exchange) : QString();
}

QString OrloBusinessDataInterface::GetAccountAssetPropByTradingAccount(const QString& tradingAccount)
{
    const StoredAccount* account = accountOf(tradingAccount);
    return account ? account->assetProperty : QString();
}

QString OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->exchange : QString();
}

QString OrloBusinessDataInterface::GetSecurityTypeBySymbol(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->type : QString();
}

QString OrloBusinessDataInterface::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->subType : QString();
}

QString OrloBusinessDataInterface::GetSecurityChineseName(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->name : QString();
}

int OrloBusinessDataInterface::GetQtyStepBySymbol(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->quantityStep : 0;
}

int OrloBusinessDataInterface::GetDispFactorBySymbol(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->displayFactor : usualFactor;
}

// Every security of the market trades on one exchange, with one precision.
int OrloBusinessDataInterface::GetPricePrecisionBySymbol(const QString& symbol, const QString& exchange)
{
    Q_UNUSED(exchange);
    const Security* security = securityOf(symbol);
    return security ? security->pricePrecision : usualPrecision;
}

QString OrloBusinessDataInterface::GetSymbolStType(const QString& symbol, QString& description)
{
    const Security* security = securityOf(symbol);
    description = security ? security->stText : QString();
    return security ? security->stFlag : Orlo_Values::StFlag::Normal;
}
