#pragma once

#include "OrloComboBox.h"
#include "tagUserAccountInfo.h"

class OrloAccountComboBox : public OrloComboBox {
public:
    enum class DisplayMode { Short, Long, Full };

    OrloAccountComboBox(QWidget* parent, DisplayMode mode)
        : OrloComboBox(parent)
        , m_mode(mode)
    {
    }
    void SetAccountList(const QList<tagUserAccountInfo>& accounts)
    {
        clear();
        for (const tagUserAccountInfo& account : accounts)
            addItem(account.fundAccount, account.tradingAccount);
    }
    QString GetCurTradingAccount() const { return currentData().toString(); }
    QString GetCurFundAccount() const { return currentText(); }
    DisplayMode displayMode() const { return m_mode; }

private:
    DisplayMode m_mode;
};
