#pragma once

#include <QString>

class OrloTradeLogic {
public:
    static OrloTradeLogic& instance()
    {
        static OrloTradeLogic only;
        return only;
    }
    bool checkMarginBondConvertEnable(const QString&, const QString&, const QString&, bool) const { return false; }
};
