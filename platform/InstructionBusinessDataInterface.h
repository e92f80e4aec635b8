#pragma once

#include "VorInstructionNodeType.h"
#include "VorMarginTradeType.h"
#include <QStringList>

/// Rules, authorities and users of instructions.
class InstructionBusinessDataInterface {
public:
    InstructionBusinessDataInterface() = delete;

    /// True when the logged-in user may place instructions of a type for an account.
    static bool hasOrderAuthority(QString tradingAccount, QString instructionType);

    /// Rule property of the logged-in user for an account and instruction type: 1 when the user's instructions go
    /// through review, 0 when not or unknown.
    static int GetCurrentUserInstructionRuleProper(const QString& tradingAccount, const QString& instructionType);

    /// Key of the approval chain of an account for an instruction type; empty when there is none.
    static QString getChainKeyForTraddingAccout(const QString& tradingAccount, QString instructionType);

    /// Names of the users who may execute instructions of a chain, in the chain's order.
    static QStringList GetExcuteUsers(const QString& chainKey);

    /// Names of the users to whom an instruction of a chain may be handed on; a user may stand in it twice.
    static QStringList GetForwardUsers(const QString& chainKey, VorInstructionNodeType nodeType);

    /// Names of the algorithms allowed for an instruction type, target type and security.
    static QStringList getWhiteAlgoNameList(
        const QString& instructionType, const QString& targetType, const QString& symbol);

    /// Names of the algorithms forbidden for a target type.
    static QStringList getBlackAlgoNameList(const QString& targetType);

    /// Number of an entrust type (`Orlo_Values::SideUnion`); `VorMarginTradeType::None` when the code is none.
    static VorMarginTradeType transSideUnion2Enum(const QString& sideUnion);

    /// The inverse; an empty text for a number that stands for no entrust type.
    static QString transEnum2SideUnion(const VorMarginTradeType& tradeType);
};
