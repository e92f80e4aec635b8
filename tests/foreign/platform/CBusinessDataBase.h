#pragma once

#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "SymbolList.h"
#include "tagUserAccountInfo.h"
#include <QMap>
#include <QVariant>

/// A market of two shares.
class CBusinessDataBase {
public:
    static CBusinessDataBase* GetInstance()
    {
        static CBusinessDataBase only;
        return &only;
    }
    QMap<QString, QVariant> GetLoginAccountDetail() const
    {
        return { { Kelvo_Fields::UserAccount::userID, QStringLiteral("stranger") } };
    }
    tagUserAccountInfo GetAccountDetailsByTradinngAccount(const QString& account) const
    {
        return { QString(), QString(), QString(), account };
    }
    SymbolList GetAllSymbolByTypeList(
        const QString& type, const QStringList&, const QStringList&, bool, const QStringList&) const
    {
        if (type != Kelvo_Values::MdcSecurityType::StockType)
            return {};
        return { QStringLiteral("alpha@XSHG"), QStringLiteral("beta@XSHG") };
    }
    SymbolList GetAllSymbolByType(const QString&, const QString&, const QString&, bool, const QStringList&) const
    {
        return {};
    }
    QString GetSecuritySubTypeBySymbol(const QString&) const { return Kelvo_Values::MdcSubSecurityType::Ashares; }
    bool IsSymbolHasPriceLimit(const QString&) const { return true; }
};
