#include "OrloAccountComboBox.h"

#include <QSignalBlocker>
#include <QStandardItemModel>

namespace {

constexpr int FundAccountRole = Qt::UserRole + 1;

QString shownText(const tagUserAccountInfo& account, OrloAccountComboBox::DisplayMode mode)
{
    if (mode == OrloAccountComboBox::DisplayMode::FundAccount || account.accountName.isEmpty())
        return account.fundAccount;
    if (mode == OrloAccountComboBox::DisplayMode::AccountName || account.fundAccount.isEmpty())
        return account.accountName;
    return OrloAccountComboBox::tr("%1（%2）").arg(account.accountName, account.fundAccount);
}

QStandardItem* newItem(const tagUserAccountInfo& account, OrloAccountComboBox::DisplayMode mode)
{
    auto* const item = new QStandardItem(shownText(account, mode));
    item->setData(account.tradingAccount, Qt::UserRole);
    item->setData(account.fundAccount, FundAccountRole);
    return item;
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
    // The first item emits signals at once and must be complete by then; the others are added together.
    QList<QStandardItem*> rows;
    rows.reserve(accounts.size());
    for (const tagUserAccountInfo& account : accounts)
        rows << newItem(account, d->mode);
    auto* const items = qobject_cast<QStandardItemModel*>(model());
    items->appendRow(rows.takeFirst());
    items->invisibleRootItem()->appendRows(rows);
}

QString OrloAccountComboBox::GetCurTradingAccount() const
{
    return currentData(Qt::UserRole).toString();
}

QString OrloAccountComboBox::GetCurFundAccount() const
{
    return currentData(FundAccountRole).toString();
}
