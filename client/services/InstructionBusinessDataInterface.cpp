#include "InstructionBusinessDataInterface.h"

#include "ClientSession.h"
#include "EntrustTypes.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "ReadReport.h"
#include "StrategyLibrary.h"

namespace {

/// The FIX codes of a security's type.
QStringList fixTypes(const Security& security)
{
    using namespace Kelvo_Values;
    if (security.type == MdcSecurityType::FundType)
        return { QStringLiteral("MF") };
    if (security.type != MdcSecurityType::BondType)
        return { QStringLiteral("CS") };
    if (Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.contains(security.subType))
        return { QStringLiteral("CB"), QStringLiteral("CORP") };
    if (security.subType == MdcSubSecurityType::Assetbackedsecurities)
        return { QStringLiteral("ABS") };
    return { QStringLiteral("CORP"), QStringLiteral("TBOND"), QStringLiteral("GO") };
}

TradedSecurity tradedSecurity(const Security& security)
{
    const QMap<QString, QString> markets{ { Kelvo_Values::Exchange::sh, QStringLiteral("XSHG") },
        { Kelvo_Values::Exchange::sz, QStringLiteral("XSHE") }, { Orlo_Values::Exchange::bj, QStringLiteral("BJSE") } };
    const QString market = markets.value(security.exchange, QStringLiteral("XHKG"));
    const bool isHongKong = !markets.contains(security.exchange);
    return { market, isHongKong ? QStringLiteral("HK") : QStringLiteral("CN"), fixTypes(security) };
}

/// A white list without the strategies that are not meant for a security. An empty list allows every strategy.
QStringList withoutOthers(const QStringList& allowed, const QString& symbol)
{
    const Security* const security = ClientSession::instance().market().find(symbol);
    if (!security)
        return allowed;
    const StrategyLibrary& library = StrategyLibrary::instance();
    const QStringList others = library.namesNotFor(tradedSecurity(*security));
    if (others.isEmpty())
        return allowed;
    QStringList left = allowed.isEmpty() ? library.names() : allowed;
    for (const QString& other : others)
        left.removeAll(other);
    return left.isEmpty() ? QStringList{ QString() } : left;
}

} // namespace

bool InstructionBusinessDataInterface::hasOrderAuthority(QString tradingAccount, QString instructionType)
{
    return ClientSession::instance().accounts().hasAuthority(tradingAccount, instructionType);
}

int InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(
    const QString& tradingAccount, const QString& instructionType)
{
    return ClientSession::instance().accounts().ruleProperty(tradingAccount, instructionType);
}

QString InstructionBusinessDataInterface::getChainKeyForTraddingAccout(
    const QString& tradingAccount, QString instructionType)
{
    return ClientSession::instance().accounts().chainKey(tradingAccount, instructionType);
}

QStringList InstructionBusinessDataInterface::GetExcuteUsers(const QString& chainKey)
{
    return ClientSession::instance().accounts().executors(chainKey);
}

QStringList InstructionBusinessDataInterface::GetForwardUsers(const QString& chainKey, VorInstructionNodeType nodeType)
{
    switch (nodeType) {
    case VorInstructionNodeType::Forward:
        return ClientSession::instance().accounts().forwarders(chainKey);
    case VorInstructionNodeType::Execute:
        return ClientSession::instance().accounts().executors(chainKey);
    case VorInstructionNodeType::Review:
        break;
    }
    return {};
}

QStringList InstructionBusinessDataInterface::getWhiteAlgoNameList(
    const QString& instructionType, const QString& targetType, const QString& symbol)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return {};
    // An empty list allows every strategy.
    const QStringList none{ QString() };
    return withoutOthers(valueOrReport(session.whiteList(instructionType, targetType, symbol), none), symbol);
}

QStringList InstructionBusinessDataInterface::getBlackAlgoNameList(const QString& targetType)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return {};
    const Result<QStringList> names = session.blackList(targetType);
    return valueOrReport(names, names ? QStringList() : StrategyLibrary::instance().names());
}

VorMarginTradeType InstructionBusinessDataInterface::transSideUnion2Enum(const QString& sideUnion)
{
    return entrustTypeOfCode(sideUnion).number;
}

QString InstructionBusinessDataInterface::transEnum2SideUnion(const VorMarginTradeType& tradeType)
{
    return entrustTypeOfNumber(tradeType).code;
}
