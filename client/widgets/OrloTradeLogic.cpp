#include "OrloTradeLogic.h"

#include "BondConversion.h"
#include "OrloWidget.h"

#include <QApplication>

OrloTradeLogic& OrloTradeLogic::instance()
{
    static OrloTradeLogic logic;
    return logic;
}

bool OrloTradeLogic::checkMarginBondConvertEnable(
    const QString& account, const QString& symbol, const QString& side, bool withMessage)
{
    const QString reason = bondConversionError(account, symbol, side);
    if (withMessage && !reason.isEmpty())
        OrloWidget::ShowWarningMsgBox(reason, QApplication::activeWindow());
    return reason.isEmpty();
}
