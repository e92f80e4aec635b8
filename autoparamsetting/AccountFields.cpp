#include "Accessibility.h"
#include "AgreementDC.h"
#include "AutoParamSetting.h"
#include "ComboItems.h"
#include "ExchangeAccounts.h"
#include "FieldGroups.h"
#include "InstructionBusinessDataInterface.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>
#include <QSet>

namespace {

// Requested from the client's account list: accounts that may trade (3) and are open to automatic plans (16).
constexpr int TradingAccounts = 3;
constexpr int AutoPlanAccounts = 16;

// The enumerators have different names in each client, but the number of the forwarding node is the same in all.
const auto ForwardNode = static_cast<VorInstructionNodeType>(0);

// Bond trading requires a Shanghai or Shenzhen account here, although the instruction type itself accepts Beijing: no
// bonds are traded there, so an account limited to bonds in Beijing could not trade anything.
bool isUsable(const QString& tradingAccount)
{
    using Instruction = InstructionBusinessDataInterface;
    const auto accounts = OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAccount(tradingAccount);
    if (Instruction::hasOrderAuthority(tradingAccount, AutoPlanInstructionType::Ordinary) && holdsMainland(accounts))
        return true;
    if (Instruction::hasOrderAuthority(tradingAccount, AutoPlanInstructionType::HkConnect)
        && accounts.contains(Orlo_Values::Exchange::HkStockCirculation))
        return true;
    if (Instruction::hasOrderAuthority(tradingAccount, AutoPlanInstructionType::Credit)
        && holdsShanghaiOrShenzhen(accounts))
        return true;
    return Instruction::hasOrderAuthority(tradingAccount, AutoPlanInstructionType::Bond)
        && holdsShanghaiOrShenzhen(accounts);
}

void removeUnusable(QList<tagUserAccountInfo>& accounts)
{
    for (int i = accounts.size() - 1; i >= 0; --i) {
        if (!isUsable(accounts.at(i).tradingAccount))
            accounts.removeAt(i);
    }
}

QStringList sortedWithoutDuplicates(QStringList users)
{
    users.removeDuplicates();
    users.sort();
    return users;
}

} // namespace

void AutoParamSetting::InitComboxFundList()
{
    QList<tagUserAccountInfo> accounts = OrloBusinessDataInterface::GetFundAccountListByFundProp(
        TradingAccounts, AutoPlanAccounts, false, QStringList(), true);
    if (accounts.isEmpty()) {
        ui->combx_fundAccount->SetAccountList(accounts);
        ui->combx_fundAccount->setEnabled(false);
        return;
    }
    removeUnusable(accounts);
    for (const tagUserAccountInfo& account : qAsConst(accounts))
        m_accountInfoMap.insert(account.tradingAccount, account);
    ui->combx_fundAccount->SetAccountList(accounts);
    if (accounts.size() > 1)
        ui->combx_fundAccount->setCurrentIndex(-1);
    else
        ui->combx_fundAccount->setEnabled(false);
    GetUnsignedClientNoList(); // requested early, so that the service can cache the answer for a holdings reduction
}

QStringList AutoParamSetting::GetUnsignedClientNoList() const
{
    const QStringList unsignedNumbers =
        AgreementDC::instance().GetUnsignedClientNoList(Orlo_Values::ProtocolId::AutoPlanReduceAgree);
    QSet<QString> offered;
    for (const tagUserAccountInfo& account : m_accountInfoMap)
        offered.insert(account.clientNo);
    return offered.intersect(QSet<QString>(unsignedNumbers.cbegin(), unsignedNumbers.cend())).values();
}

void AutoParamSetting::InitComboxAssignTo()
{
    // Signals are not blocked, unlike in the other boxes: nothing is connected to this one.
    ui->combx_assignTo->clear();
    const bool reducesHoldings = currentCode(ui->combx_planType) == AutoPlanTemplate::ReduceHoldings;
    const QString tradingAccount = ui->combx_fundAccount->GetCurTradingAccount();
    // A holdings reduction requires an executor, so the users are requested even without an account.
    if (tradingAccount.isEmpty() && !reducesHoldings) {
        ui->combx_assignTo->addItem(AutoPlanAssignee::NotSpecified, QString());
        ui->combx_assignTo->setCurrentIndex(0);
        return;
    }
    const QString chainKey = InstructionBusinessDataInterface::getChainKeyForTraddingAccout(
        tradingAccount, currentCode(ui->combx_instructionType));
    if (reducesHoldings) {
        const QStringList users = InstructionBusinessDataInterface::GetExcuteUsers(chainKey);
        ui->combx_assignTo->addItems(users);
        qDebug() << "AutoParamSetting::InitComboxAssignTo" << chainKey << users.size();
        return;
    }
    const QStringList users = InstructionBusinessDataInterface::GetForwardUsers(chainKey, ForwardNode);
    ui->combx_assignTo->addItem(AutoPlanAssignee::NotSpecified, QString());
    ui->combx_assignTo->addItems(sortedWithoutDuplicates(users));
    ui->combx_assignTo->setCurrentIndex(0);
}

void AutoParamSetting::IsReduceHodingsMode(const QString& planType)
{
    const bool reduces = planType == AutoPlanTemplate::ReduceHoldings;
    // Every plan has a target. A reduction is measured by its ratio, so only the unit is hidden.
    ui->la_targetTotalNum->setVisible(true);
    ui->le_targetTotalNum->setVisible(true);
    FieldGroups::setVisible(FieldGroups::ordinaryRows(*ui), !reduces);
    FieldGroups::setVisible(FieldGroups::reductionRows(*ui), reduces);
    ui->date_effectivePeriod_Multi->setVisible(!reduces);
    ui->date_effectivePeriod_Single->setVisible(reduces);
    ui->la_effectivePeriod->setBuddy(reduces ? ui->date_effectivePeriod_Single : ui->date_effectivePeriod_Multi);
    Accessibility::setCaption(ui->la_assignTo, reduces ? tr("执行人") : tr("分配给"));
}

void AutoParamSetting::slotComboxAccountChanged()
{
    InitComboxInstructionType();
}
