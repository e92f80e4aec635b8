#pragma once

#include "OrloComboBox.h"
#include "tagUserAccountInfo.h"

class OrloAccountComboBox : public OrloComboBox {
public:
    using OrloComboBox::OrloComboBox;
    void SetAccountList(const QList<tagUserAccountInfo>& accounts)
    {
        clear();
        for (const tagUserAccountInfo& account : accounts)
            addItem(account.fundAccount, account.tradingAccount);
    }
    QString GetCurTradingAccount() const { return currentData().toString(); }
    QString GetCurFundAccount() const { return currentText(); }
};
