#include "OrloTradeLogic.h"

#include "BondConversion.h"
#include "ErrorText.h"
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
    const Status status = bondConversionError(account, symbol, side);
    if (withMessage && !status)
        OrloWidget::ShowWarningMsgBox(errorText(status), QApplication::activeWindow());
    return bool(status);
}
