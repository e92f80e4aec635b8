#include "OrloAccountComboBox.h"

#include <QSignalBlocker>
#include <QStandardItemModel>

namespace {

constexpr int fundAccountRole = Qt::UserRole + 1;

QString shownText(const tagUserAccountInfo& account, OrloAccountComboBox::DisplayMode mode)
{
    if (mode == OrloAccountComboBox::DisplayMode::FundAccount || account.accountName.isEmpty())
        return account.fundAccount;
    if (mode == OrloAccountComboBox::DisplayMode::AccountName || account.fundAccount.isEmpty())
        return account.accountName;
    return QStringLiteral("%1（%2）").arg(account.accountName, account.fundAccount);
}

} // namespace

class OrloAccountComboBox::Private {
public:
    DisplayMode mode;
};

OrloAccountComboBox::OrloAccountComboBox(QWidget* parent, DisplayMode mode)
    : OrloComboBox(parent)
    , d(new Private{ mode })
{
}

OrloAccountComboBox::~OrloAccountComboBox() = default;

OrloAccountComboBox::DisplayMode OrloAccountComboBox::displayMode() const
{
    return d->mode;
}

void OrloAccountComboBox::SetAccountList(const QList<tagUserAccountInfo>& accounts)
{
    if (accounts.isEmpty()) {
        clear();
        return;
    }
    {
        const QSignalBlocker silent(this);
        clear();
    }
    // Whole items are appended: the first announces itself at once and must be complete by then.
    auto* items = qobject_cast<QStandardItemModel*>(model());
    for (const tagUserAccountInfo& account : accounts) {
        auto* item = new QStandardItem(shownText(account, d->mode));
        item->setData(account.tradingAccount, Qt::UserRole);
        item->setData(account.fundAccount, fundAccountRole);
        items->appendRow(item);
    }
}

QString OrloAccountComboBox::GetCurTradingAccount() const
{
    return currentData(Qt::UserRole).toString();
}

QString OrloAccountComboBox::GetCurFundAccount() const
{
    return currentData(fundAccountRole).toString();
}
