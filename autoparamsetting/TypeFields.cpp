#include "Accessibility.h"
#include "AgreementDialog.h"
#include "AutoParamSetting.h"
#include "CDataBase.h"
#include "ComboItems.h"
#include "ExchangeAccounts.h"
#include "FieldGroups.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloBusiUtils.h"
#include "OrloBusinessDataInterface.h"
#include "OrloTradeLogic.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>

namespace {

constexpr int QuantityDecimals = 0;
constexpr int AmountDecimals = 2;

void appendConfigured(QComboBox* box, const QString& category, const QString& code)
{
    box->addItem(CDataBase::GetInstance()->GetStaticCfgValue(category, code), code);
}

void appendInstructionType(QComboBox* box, const QString& code)
{
    appendConfigured(box, AutoPlanStaticCfg::InstructionType, code);
}

void appendCreditTypes(QComboBox* box, const QString& tradingAccount, const QMap<QString, QString>& accounts)
{
    if (InstructionBusinessDataInterface::hasOrderAuthority(tradingAccount, AutoPlanInstructionType::Credit)
        && holdsShanghaiOrShenzhen(accounts))
        appendInstructionType(box, AutoPlanInstructionType::Credit);
}

void appendOtherTypes(QComboBox* box, const QString& tradingAccount, const QMap<QString, QString>& accounts)
{
    for (const QString& code : { AutoPlanInstructionType::Ordinary, AutoPlanInstructionType::Bond }) {
        if (InstructionBusinessDataInterface::hasOrderAuthority(tradingAccount, code) && holdsMainland(accounts))
            appendInstructionType(box, code);
    }
    if (InstructionBusinessDataInterface::hasOrderAuthority(tradingAccount, AutoPlanInstructionType::HkConnect)
        && accounts.contains(Orlo_Values::Exchange::HkStockCirculation))
        appendInstructionType(box, AutoPlanInstructionType::HkConnect);
}

void appendEntrustTypes(QComboBox* box, const QStringList& codes)
{
    for (const QString& code : codes)
        box->addItem(OrloBusiUtils::GetSideUnionChineseName(code), code);
}

void appendOrdinaryEntrustTypes(QComboBox* box, const QString& account, const QString& symbol, const QString& side)
{
    namespace Union = Orlo_Values::SideUnion;
    if (side == Union::normalBuy) {
        appendEntrustTypes(
            box, { Union::collateralBuy, Union::financingBuy, Union::marginBuyNormal, Union::marginBuy });
        return;
    }
    appendEntrustTypes(
        box, { Union::collateralSell, Union::marginSellNormal, Union::marginSell, Union::financingSell });
    if (OrloTradeLogic::instance().checkMarginBondConvertEnable(account, symbol, side, false))
        appendEntrustTypes(box, { Union::BondConversion });
}

bool entrustTypeAllowsAlgorithms(const QString& entrustType)
{
    namespace Union = Orlo_Values::SideUnion;
    return QStringList{ Union::collateralBuy, Union::collateralSell, Union::marginBuy, Union::marginSell,
        Union::financingBuy }
        .contains(entrustType);
}

} // namespace

void AutoParamSetting::InitComboxInstructionType()
{
    clearSilently(ui->combx_instructionType);
    const QString tradingAccount = ui->combx_fundAccount->GetCurTradingAccount();
    const auto accounts = OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAccount(tradingAccount);
    if (OrloBusinessDataInterface::GetAccountAssetPropByTradingAccount(tradingAccount)
        == Orlo_Values::FundAccountType::Credit)
        appendCreditTypes(ui->combx_instructionType, tradingAccount, accounts);
    else
        appendOtherTypes(ui->combx_instructionType, tradingAccount, accounts);
}

void AutoParamSetting::InitComboxInstructionTargetType()
{
    clearSilently(ui->combx_instructionTargetType);
    appendConfigured(ui->combx_instructionTargetType, AutoPlanStaticCfg::TargetType, InstructionTargetType::QtyOrder);
    const QString type = currentCode(ui->combx_instructionType);
    const int ruleProperty = InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(
        ui->combx_fundAccount->GetCurTradingAccount(), type);
    const bool canBeAmount = type == AutoPlanInstructionType::Ordinary || type == AutoPlanInstructionType::Credit
        || type == AutoPlanInstructionType::Bond;
    if (ruleProperty == AutoPlanRuleProperty::Review && canBeAmount)
        appendConfigured(
            ui->combx_instructionTargetType, AutoPlanStaticCfg::TargetType, InstructionTargetType::AmountOrder);
}

void AutoParamSetting::InitComboxPlanType()
{
    clearSilently(ui->combx_planType);
    ui->combx_planType->addItem(tr("累计数量"), AutoPlanTemplate::CumulativeQty);
    ui->combx_planType->addItem(tr("平均数量"), AutoPlanTemplate::AverageQty);
    ui->combx_planType->addItem(tr("相同要素"), AutoPlanTemplate::SameElements);
    if (currentCode(ui->combx_instructionType) == AutoPlanInstructionType::Ordinary
        && currentCode(ui->combx_instructionTargetType) == InstructionTargetType::QtyOrder)
        ui->combx_planType->addItem(tr("减持"), AutoPlanTemplate::ReduceHoldings);
}

void AutoParamSetting::InitComboxTradeSide()
{
    clearSilently(ui->combx_tradeSide);
    if (currentCode(ui->combx_instructionType) != AutoPlanInstructionType::HkConnect)
        ui->combx_tradeSide->addItem(tr("买入"), Kelvo_Values::OrderSide::buy);
    ui->combx_tradeSide->addItem(tr("卖出"), Kelvo_Values::OrderSide::sell);
}

void AutoParamSetting::InitComboxEntrustType()
{
    clearSilently(ui->combx_entrustType);
    if (currentCode(ui->combx_instructionType) != AutoPlanInstructionType::Credit)
        return;
    const QString account = currentCode(ui->combx_fundAccount);
    const QString symbol = ui->le_symbol->getSymbol();
    const QString side = currentCode(ui->combx_tradeSide);
    if (account.isEmpty() || symbol.isEmpty() || side.isEmpty())
        return;
    namespace Union = Orlo_Values::SideUnion;
    namespace SubType = Orlo_Values::MdcSubSecurityType;
    const QString subType = OrloBusinessDataInterface::GetSecuritySubTypeBySymbol(symbol);
    qDebug() << "AutoParamSetting::InitComboxEntrustType" << account << symbol << side << subType;
    // The plan's side is compared with an entrust type: clients use the same code for an ordinary buy.
    if (subType == SubType::PaidRationStock || subType == SubType::PaidRationBond)
        appendEntrustTypes(ui->combx_entrustType, { Union::paidRationShare });
    else if (SubType::ConvertableBondTypeList.contains(subType))
        appendEntrustTypes(
            ui->combx_entrustType, { side == Union::normalBuy ? Union::collateralBuy : Union::collateralSell });
    else
        appendOrdinaryEntrustTypes(ui->combx_entrustType, account, symbol, side);
}

void AutoParamSetting::InitComboxInstructionMode()
{
    // The mode of an edited plan is locked; changes of other fields must not rebuild its items.
    if (!m_planId.isEmpty() && !ui->combx_instructionMode->isEnabled())
        return;
    const QString type = currentCode(ui->combx_instructionType);
    const int ruleProperty = InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(
        ui->combx_fundAccount->GetCurTradingAccount(), type);
    const QString priceType = currentCode(ui->combx_priceType);
    const QString priceMode = currentCode(ui->combx_priceMode);
    qDebug() << "AutoParamSetting::InitComboxInstructionMode" << type << ruleProperty << priceType << priceMode
             << ui->combx_fundAccount->GetCurFundAccount();
    // Signals are not blocked, unlike in the other boxes: without a mode the algorithm button must be hidden.
    ui->combx_instructionMode->clear();
    // Returns before the panel is notified: without review, algorithms are not offered.
    if (ruleProperty != AutoPlanRuleProperty::Review) {
        ui->combx_instructionMode->addItem(tr("主动管理"), AutoPlanInstMode::ActiveManage);
        ui->btn_algoParamSetting->hide();
        return;
    }
    if (currentCode(ui->combx_instructionTargetType) == InstructionTargetType::QtyOrder
        && priceMode != AutoPlanPriceModel::NoLimit)
        ui->combx_instructionMode->addItem(tr("普通交易复核"), AutoPlanInstMode::NormalTradeReview);
    bool allowsAlgorithms = true;
    if (type == AutoPlanInstructionType::HkConnect)
        allowsAlgorithms = priceType == Orlo_Values::HKTimeInForce::InTrade;
    else if (type == AutoPlanInstructionType::Credit)
        allowsAlgorithms = entrustTypeAllowsAlgorithms(currentCode(ui->combx_entrustType));
    if (allowsAlgorithms)
        ui->combx_instructionMode->addItem(tr("算法交易复核"), AutoPlanInstMode::AlgoTradeReview);
    if (m_algoParamWidget)
        m_algoParamWidget->ReInit();
}

void AutoParamSetting::slotComboxInstructionTypeChanged()
{
    InitComboxInstructionTargetType();
    InitComboxPlanType();
    InitLeSymbol();
    slotSymbolChange();
    InitComboxTradeSide();
    const QString type = currentCode(ui->combx_instructionType);
    FieldGroups::setVisible(FieldGroups::hongKongRow(*ui), type == AutoPlanInstructionType::HkConnect);
    FieldGroups::setVisible(FieldGroups::creditRow(*ui), type == AutoPlanInstructionType::Credit);
    InitComboxEntrustType();
    InitComboxInstructionMode();
    InitLineEditPrice1AndPrice2(true);
    // Called again, because a security chosen while the boxes were refilled used the side and modes of the previous
    // type.
    slotSymbolChange();
    InitComboxAssignTo();
}

void AutoParamSetting::slotComboxInstructionTargetTypeChanged()
{
    InitComboxPlanType();
    InitLeSymbol();
    slotSymbolChange();
    const QString targetType = currentCode(ui->combx_instructionTargetType);
    if (targetType == InstructionTargetType::QtyOrder || targetType == InstructionTargetType::AmountOrder) {
        const int decimals = targetType == InstructionTargetType::QtyOrder ? QuantityDecimals : AmountDecimals;
        ui->le_targetTotalNum->setDecimals(decimals);
        ui->le_entrustMaxNum->setDecimals(decimals);
    }
    setDisplayUnit(ui->le_symbol->getSymbol());
    InitComboxInstructionMode();
    slotUpdateAlgoWhiteList();
}

void AutoParamSetting::slotComboxPlanTypeChanged()
{
    const QString planType = currentCode(ui->combx_planType);
    const bool isSameEachDay = planType == AutoPlanTemplate::SameElements;
    Accessibility::setCaption(ui->la_entrustMaxNum, isSameEachDay ? tr("每日计划量") : tr("每日最大委托量"));
    if (planType != AutoPlanTemplate::ReduceHoldings) {
        // The side is enabled but not switched back to buying: the side before the reduction is not stored.
        ui->combx_tradeSide->setEnabled(true);
        IsReduceHodingsMode(planType);
        InitComboxAssignTo();
        return;
    }
    if (currentCode(ui->combx_tradeSide) == Kelvo_Values::OrderSide::buy)
        selectCode(ui->combx_tradeSide, Kelvo_Values::OrderSide::sell);
    ui->combx_tradeSide->setEnabled(false);
    IsReduceHodingsMode(planType);
    // A hidden form is only being initialized or filled. The result of signing is ignored: OK checks it again.
    const QStringList unsignedNumbers = GetUnsignedClientNoList();
    if (!unsignedNumbers.isEmpty() && isVisible() && !AgreementDialog::run(this, ui->combx_planType, unsignedNumbers))
        return;
    InitComboxAssignTo();
}

void AutoParamSetting::slotComboxTradeSideChanged()
{
    InitComboxEntrustType();
}

void AutoParamSetting::slotComboxPriceTypeChanged()
{
    InitComboxInstructionMode();
}

// Same as for the price type: each of the two decides, for its instruction type, whether algorithms are offered.
void AutoParamSetting::slotComboxEntrustTypeChanged()
{
    InitComboxInstructionMode();
}

void AutoParamSetting::slotComboxInstructionModeChanged()
{
    ui->btn_algoParamSetting->setVisible(currentCode(ui->combx_instructionMode) == AutoPlanInstMode::AlgoTradeReview);
}
