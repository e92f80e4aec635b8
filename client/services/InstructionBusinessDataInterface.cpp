#include "InstructionBusinessDataInterface.h"

#include "ClientSession.h"
#include "EntrustTypes.h"
#include "PlanStrategies.h"
#include "ReadReport.h"
#include "StrategyLibrary.h"

namespace {

QStringList withoutOthers(const QStringList& allowed, const QString& symbol)
{
    const Security* const security = ClientSession::instance().market().find(symbol);
    return security ? PlanStrategies::allowed(allowed, *security) : allowed;
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
