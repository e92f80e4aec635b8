#pragma once

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "tagUserAccountInfo.h"
#include <QList>
#include <QMap>

/// Two accounts. Every security is a share of which ten are one stored unit.
struct OrloBusinessDataInterface {
    static QList<tagUserAccountInfo> GetFundAccountListByFundProp(int, int, bool, const QStringList&, bool)
    {
        return {
            { QStringLiteral("client 1"), QStringLiteral("branch 1"), QStringLiteral("fund 1"), QStringLiteral("one") },
            { QStringLiteral("client 2"), QStringLiteral("branch 2"), QStringLiteral("fund 2"), QStringLiteral("two") }
        };
    }
    static QMap<QString, QString> GetCurrentSecurityAccountByTradingAccount(const QString& account)
    {
        return { { Kelvo_Values::Exchange::sh, QStringLiteral("holder ") + account } };
    }
    static QString GetCurrentSecurityAccountByTradingAndExchange(const QString& account, const QString& exchange)
    {
        return GetCurrentSecurityAccountByTradingAccount(account).value(exchange);
    }
    static QString GetAccountAssetPropByTradingAccount(const QString&) { return QStringLiteral("cash"); }
    static QString GetFirstSecurityExchangeBySymbol(const QString&) { return Kelvo_Values::Exchange::sh; }
    static QString GetSecurityTypeBySymbol(const QString&) { return Kelvo_Values::MdcSecurityType::StockType; }
    static QString GetSecuritySubTypeBySymbol(const QString&) { return Kelvo_Values::MdcSubSecurityType::Ashares; }
    static QString GetSecurityChineseName(const QString& symbol) { return symbol.section(QLatin1Char('@'), 0, 0); }
    static int GetQtyStepBySymbol(const QString&) { return 100; }
    static int GetDispFactorBySymbol(const QString&) { return 10; }
    static int GetPricePrecisionBySymbol(const QString&, const QString&) { return 3; }
    static QString GetSymbolStType(const QString&, QString&) { return Orlo_Values::StFlag::Normal; }
};
