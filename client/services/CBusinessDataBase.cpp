#include "CBusinessDataBase.h"

#include "Kelvo_Fields.h"
#include "services/AccountRecord.h"
#include "session/ClientSession.h"

#include <algorithm>

namespace {

// No security of the market has expired, so asking for the expired ones as well adds none.
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

} // namespace

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
    return security && security->hasPriceLimit();
}
