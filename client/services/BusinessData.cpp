#include "BusinessDataInterface.h"
#include "CBusinessDataBase.h"
#include "CDataBase.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "EntrustTypes.h"
#include "ErrorText.h"
#include "Kelvo_Fields.h"
#include "OrloBusiUtils.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Values.h"
#include "PositionStore.h"
#include "ReadReport.h"
#include "Rulebook.h"

#include <QDebug>

#include <algorithm>

namespace {

// The account properties in the editor's query: every account that may trade, and that is open to automatic plans.
constexpr int TradingAccounts = 3;
constexpr int PlanAccounts = 16;

// The answers for an unknown security.
constexpr int UsualPrecision = 2;
constexpr int UsualFactor = 1;

const Security* securityOf(const QString& symbol)
{
    return ClientSession::instance().market().find(symbol);
}

const StoredAccount* accountOf(const QString& tradingAccount)
{
    return ClientSession::instance().accounts().find(tradingAccount);
}

// No security of the market has expired, so including expired ones adds none.
SymbolList symbolsWithout(const SymbolList& symbols, const QStringList& excluded)
{
    if (excluded.isEmpty())
        return symbols;
    SymbolList kept;
    for (QStringList run : symbols.runs()) {
        run.erase(std::remove_if(
                      run.begin(), run.end(), [&excluded](const QString& symbol) { return excluded.contains(symbol); }),
            run.end());
        kept += run;
    }
    return kept;
}

tagUserAccountInfo accountRecord(const StoredAccount& account)
{
    return { account.tradingAccount, account.fundAccount, account.name, account.clientNo, account.branchNo };
}

} // namespace

// No account of the store is closed or frozen, so the two flags have no effect.
QList<tagUserAccountInfo> OrloBusinessDataInterface::GetFundAccountListByFundProp(
    int fundProperty, int assetProperty, bool withClosed, const QStringList& accountTypes, bool onlyUsable)
{
    Q_UNUSED(withClosed);
    Q_UNUSED(onlyUsable);
    if (fundProperty != TradingAccounts || assetProperty != PlanAccounts) {
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
    return security ? Rulebook::present().onDay(*security, clientToday()).quantityStep : 0;
}

int OrloBusinessDataInterface::GetDispFactorBySymbol(const QString& symbol)
{
    const Security* security = securityOf(symbol);
    return security ? security->displayFactor : UsualFactor;
}

// Every security of the market trades on one exchange, with one precision.
int OrloBusinessDataInterface::GetPricePrecisionBySymbol(const QString& symbol, const QString& exchange)
{
    Q_UNUSED(exchange);
    const Security* security = securityOf(symbol);
    return security ? security->pricePrecision : UsualPrecision;
}

QString OrloBusinessDataInterface::GetSymbolStType(const QString& symbol, QString& description)
{
    const Security* security = securityOf(symbol);
    description = security ? security->stText : QString();
    return security ? security->stFlag : Orlo_Values::StFlag::Normal;
}

CBusinessDataBase* CBusinessDataBase::GetInstance()
{
    static CBusinessDataBase cache;
    return &cache;
}

QMap<QString, QVariant> CBusinessDataBase::GetLoginAccountDetail()
{
    const ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return {};
    return { { Kelvo_Fields::UserAccount::userID, session.user().id } };
}

tagUserAccountInfo CBusinessDataBase::GetAccountDetailsByTradinngAccount(const QString& tradingAccount)
{
    const StoredAccount* account = ClientSession::instance().accounts().find(tradingAccount);
    return account ? accountRecord(*account) : tagUserAccountInfo();
}

SymbolList CBusinessDataBase::GetAllSymbolByTypeList(const QString& securityType, const QStringList& subTypes,
    const QStringList& suffixes, bool withExpired, const QStringList& excluded)
{
    Q_UNUSED(withExpired);
    return symbolsWithout(ClientSession::instance().market().symbols(securityType, subTypes, suffixes), excluded);
}

SymbolList CBusinessDataBase::GetAllSymbolByType(const QString& securityType, const QString& subType,
    const QString& suffix, bool withExpired, const QStringList& excluded)
{
    const QStringList suffixes = suffix.isEmpty() ? QStringList() : QStringList{ suffix };
    return GetAllSymbolByTypeList(securityType, { subType }, suffixes, withExpired, excluded);
}

QString CBusinessDataBase::GetSecuritySubTypeBySymbol(const QString& symbol)
{
    const Security* security = ClientSession::instance().market().find(symbol);
    return security ? security->subType : QString();
}

bool CBusinessDataBase::IsSymbolHasPriceLimit(const QString& symbol)
{
    const Security* security = ClientSession::instance().market().find(symbol);
    return security && Rulebook::present().onDay(*security, clientToday()).hasPriceLimit();
}

QList<QMap<QString, QVariant>> BusinessDataInterface::GetPositionListByAccount(const tagUserAccountInfo& account,
    const QString& securityAccount, const QString& symbol, const QString& currency, const QString& portfolio,
    const QString& strategy, const QString& seat)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen() || !session.accounts().find(account.tradingAccount))
        return {};
    // Positions are not divided by currency, portfolio, strategy or seat, so these filters have no effect.
    if (!(currency + portfolio + strategy + seat).isEmpty())
        return {};
    QList<QMap<QString, QVariant>> fields;
    const QVector<StoredPosition> positions = valueOrReport(
        PositionStore(session.database()).positions(account.tradingAccount, securityAccount, symbol, clientToday()),
        {});
    for (const StoredPosition& position : positions) {
        fields << QMap<QString, QVariant>{ { Kelvo_Fields::UserAccount::tradingAccount, position.tradingAccount },
            { Kelvo_Fields::UserAccount::securityAccount, position.securityAccount },
            { Kelvo_Fields::Security::symbol, position.symbol },
            { Kelvo_Fields::Security::tradeableQty, position.tradeableQuantity } };
    }
    return fields;
}

CDataBase* CDataBase::GetInstance()
{
    static CDataBase configuration;
    return &configuration;
}

QString CDataBase::GetStaticCfgValue(const QString& category, const QString& key, const QString& defaultValue)
{
    const Result<QString> text = ClientSession::instance().staticText(category, key);
    if (text && text->isEmpty())
        return defaultValue;
    return valueOrReport(text, QString());
}

QString OrloBusiUtils::GetSideUnionChineseName(const QString& sideUnion)
{
    return captionText(entrustTypeOfCode(sideUnion).name);
}
