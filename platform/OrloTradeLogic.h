#pragma once

#include <QString>

/// Trade rules that need the account's state. One per process.
class OrloTradeLogic {
public:
    static OrloTradeLogic& instance(); ///< the rules; live as long as the process

    /// True when a bond conversion may be entered for an account (the account box's current data), a security and
    /// a side. `withMessage` tells the trader why not.
    bool checkMarginBondConvertEnable(
        const QString& account, const QString& symbol, const QString& side, bool withMessage);

private:
    OrloTradeLogic() = default;
};
