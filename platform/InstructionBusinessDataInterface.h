#pragma once

#include "VorInstructionNodeType.h"
#include "VorMarginTradeType.h"

#include <QStringList>

/// Provides the rules, authorities and users of instructions.
class InstructionBusinessDataInterface {
public:
    InstructionBusinessDataInterface() = delete;

    /// Returns true if the logged-in user may place instructions of a type for an account.
    static bool hasOrderAuthority(QString tradingAccount, QString instructionType);

    /// Returns the rule property of the logged-in user for an account and instruction type: 1 if the user's
    /// instructions are reviewed, 0 if they are not or the property is unknown.
    static int GetCurrentUserInstructionRuleProper(const QString& tradingAccount, const QString& instructionType);

    /// Returns the key of the approval chain of an account for an instruction type; empty if there is none.
    static QString getChainKeyForTraddingAccout(const QString& tradingAccount, QString instructionType);

    /// Returns the names of the users who may execute instructions of a chain, in the order of the chain.
    static QStringList GetExcuteUsers(const QString& chainKey);

    /// Returns the names of the users to whom an instruction of a chain may be forwarded. A name may occur twice.
    static QStringList GetForwardUsers(const QString& chainKey, VorInstructionNodeType nodeType);

    /// Returns the names of the algorithms allowed for an instruction type, target type and security.
    static QStringList getWhiteAlgoNameList(
        const QString& instructionType, const QString& targetType, const QString& symbol);

    /// Returns the names of the algorithms forbidden for a target type.
    static QStringList getBlackAlgoNameList(const QString& targetType);

    /// Returns the number of an entrust type (`Orlo_Values::SideUnion`); `VorMarginTradeType::None` for any other code.
    static VorMarginTradeType transSideUnion2Enum(const QString& sideUnion);

    /// Returns the entrust type of a number; empty if the number has none.
    static QString transEnum2SideUnion(const VorMarginTradeType& tradeType);
};
