#pragma once

#include <QStringList>

enum class VorInstructionNodeType { Forward };
enum class VorMarginTradeType { None };

struct InstructionBusinessDataInterface {
    static bool hasOrderAuthority(const QString&, const QString& instructionType)
    {
        return instructionType == QLatin1String("1");
    }
    static int GetCurrentUserInstructionRuleProper(const QString&, const QString&) { return 0; }
    static QString getChainKeyForTraddingAccout(const QString& tradingAccount, const QString&)
    {
        return tradingAccount;
    }
    static QStringList GetExcuteUsers(const QString&) { return {}; }
    static QStringList GetForwardUsers(const QString&, VorInstructionNodeType)
    {
        return { QStringLiteral("night desk"), QStringLiteral("day desk") };
    }
    static QStringList getWhiteAlgoNameList(const QString&, const QString&, const QString&) { return {}; }
    static QStringList getBlackAlgoNameList(const QString&) { return {}; }
    static VorMarginTradeType transSideUnion2Enum(const QString&) { return VorMarginTradeType::None; }
    static QString transEnum2SideUnion(VorMarginTradeType) { return {}; }
};
