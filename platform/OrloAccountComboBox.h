#pragma once

#include "OrloComboBox.h"
#include "tagUserAccountInfo.h"
#include <QList>

/// The box in which an account is chosen. The item data (`Qt::UserRole`) is the trading account.
class OrloAccountComboBox : public OrloComboBox {
    Q_OBJECT

public:
    /// What an item shows.
    enum class DisplayMode {
        FundAccount = 0,
        AccountName = 1,
        NameAndFundAccount = 2,
    };

    /// An empty box. Forms construct it with the mode 2.
    OrloAccountComboBox(QWidget* parent, DisplayMode mode);
    ~OrloAccountComboBox() override;

    DisplayMode displayMode() const; ///< what an item shows

    /// Replaces the offered accounts; the first becomes current.
    void SetAccountList(const QList<tagUserAccountInfo>& accounts);
    /// Trading account of the current item; empty when there is none.
    QString GetCurTradingAccount() const;
    /// Fund account of the current item; empty when there is none.
    QString GetCurFundAccount() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
