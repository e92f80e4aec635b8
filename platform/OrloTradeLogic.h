#pragma once

#include <QString>

/// Trade rules that depend on the state of an account. One object per process.
class OrloTradeLogic {
public:
    static OrloTradeLogic& instance(); ///< returns the rules, which live as long as the process

    /// Returns true if a bond conversion can be entered for an account (the current data of the account box), a
    /// security and a side. If not, `withMessage` shows the reason to the trader.
    bool checkMarginBondConvertEnable(
        const QString& account, const QString& symbol, const QString& side, bool withMessage);

private:
    OrloTradeLogic() = default;
};
