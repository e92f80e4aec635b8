#include "Accessibility.h"
#include "AutoParamSetting.h"
#include "CBusinessDataBase.h"
#include "ComboItems.h"
#include "FormulaItems.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "ui_AutoParamSetting.h"

namespace {

constexpr int DefaultPriceDecimals = 2;

QStringList formulaItems(const QString& symbol, const QString& securityType, const QStringList& movingAverages)
{
    QStringList items = { AutoPlanFormula::PreviousClose };
    if (CBusinessDataBase::GetInstance()->IsSymbolHasPriceLimit(symbol))
        items << AutoPlanFormula::UpperLimit << AutoPlanFormula::LowerLimit;
    if (!symbol.isEmpty() && securityType != Kelvo_Values::MdcSecurityType::BondType)
        items += movingAverages;
    return inPromptOrder(items);
}

void clearOrRestore(QLineEdit* input, const QString& text, bool clearText)
{
    if (text.isEmpty())
        return;
    if (clearText)
        input->clear();
    else
        input->setText(text);
}

} // namespace

void AutoParamSetting::InitComboxPriceMode(const QString& instructionMode)
{
    clearSilently(ui->combx_priceMode);
    // The mode of an edited plan is locked, and ordinary review rejects plans without a price limit.
    if (m_planId.isEmpty() || instructionMode != AutoPlanInstMode::NormalTradeReview)
        ui->combx_priceMode->addItem(tr("不限价"), AutoPlanPriceModel::NoLimit);
    ui->combx_priceMode->addItem(tr("自定义"), AutoPlanPriceModel::Custom);
    ui->combx_priceMode->addItem(tr("比较值取最大"), AutoPlanPriceModel::CompareMax);
    ui->combx_priceMode->addItem(tr("比较值取最小"), AutoPlanPriceModel::CompareMin);
    ui->combx_priceMode->setCurrentIndex(0);
}

void AutoParamSetting::InitComboxPriceType(const QString& instructionMode)
{
    clearSilently(ui->combx_priceType);
    ui->combx_priceType->addItem(tr("增强限价盘"), Orlo_Values::HKTimeInForce::InTrade);
    // The mode of an edited plan is locked, and algorithms support only the first price type.
    if (m_planId.isEmpty() || instructionMode == AutoPlanInstMode::NormalTradeReview
        || instructionMode == AutoPlanInstMode::ActiveManage)
        ui->combx_priceType->addItem(tr("竞价限价盘"), Orlo_Values::HKTimeInForce::BeforeTrade);
}

void AutoParamSetting::InitLineEditPrice1AndPrice2(bool clearTexts)
{
    const QString symbol = ui->le_symbol->getSymbol();
    const QString securityType = OrloBusinessDataInterface::GetSecurityTypeBySymbol(symbol);
    const QString priceMode = currentCode(ui->combx_priceMode);
    ui->lineEdit_price1->SetFunctionItems(functionItems(priceMode));

    const QStringList items = formulaItems(symbol, securityType, m_maPriceList);
    // Setting new items may change the text of an input.
    const QString text1 = ui->lineEdit_price1->text();
    const QString text2 = ui->lineEdit_price2->text();
    ui->lineEdit_price1->SetFormulaItems(items);
    ui->lineEdit_price2->SetFormulaItems(items);

    const int decimals = symbol.isEmpty() ? DefaultPriceDecimals
                                          : OrloBusinessDataInterface::GetPricePrecisionBySymbol(symbol, QString());
    if (priceMode == AutoPlanPriceModel::NoLimit) {
        ui->lineEdit_price1->setText(zeroPrice(decimals));
        return;
    }
    clearOrRestore(ui->lineEdit_price1, text1, clearTexts);
    clearOrRestore(ui->lineEdit_price2, text2, clearTexts);
}

void AutoParamSetting::slotComboxPriceModeChanged()
{
    // Cleared before the items change, so that a formula of the previous mode is never combined with the new items.
    ui->lineEdit_price1->clear();
    ui->lineEdit_price2->clear();
    InitLineEditPrice1AndPrice2(true);

    const QString priceMode = currentCode(ui->combx_priceMode);
    const bool unlimited = priceMode == AutoPlanPriceModel::NoLimit;
    const bool compares = !unlimited && priceMode != AutoPlanPriceModel::Custom;
    Accessibility::setCaption(ui->label_price1, compares ? tr("价格1") : tr("价格"));
    ui->lineEdit_price1->setEnabled(!unlimited);
    ui->label_price2->setVisible(compares);
    ui->lineEdit_price2->setVisible(compares);
    ui->label_28->setVisible(compares);
    InitComboxInstructionMode();
}
