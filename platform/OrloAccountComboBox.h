#pragma once

#include "OrloComboBox.h"
#include "tagUserAccountInfo.h"

#include <QList>

/// Combo box that selects an account. The item data (`Qt::UserRole`) is the trading account.
class OrloAccountComboBox : public OrloComboBox {
    Q_OBJECT

public:
    /// Text of an item.
    enum class DisplayMode {
        FundAccount = 0,
        AccountName = 1,
        NameAndFundAccount = 2,
    };

    /// Constructs an empty box. Forms pass the mode 2.
    OrloAccountComboBox(QWidget* parent, DisplayMode mode);
    ~OrloAccountComboBox() override;

    DisplayMode displayMode() const; ///< text of an item

    /// Replaces the accounts. The first one becomes current.
    void SetAccountList(const QList<tagUserAccountInfo>& accounts);
    /// Returns the trading account of the current item; empty if there is no current item.
    QString GetCurTradingAccount() const;
    /// Returns the fund account of the current item; empty if there is no current item.
    QString GetCurFundAccount() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
