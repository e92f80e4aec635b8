#include "Accessibility.h"
#include "AutoParamSetting.h"
#include "CBusinessDataBase.h"
#include "CDataBase.h"
#include "ComboItems.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "Orlo_Values.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"
#include "SenderGuard.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>
#include <QPointer>

namespace {

namespace Type = Kelvo_Values::MdcSecurityType;
namespace SubType = Kelvo_Values::MdcSubSecurityType;
namespace OtherSubType = Orlo_Values::MdcSubSecurityType;

constexpr int SearchByCodeAndName = 1;
constexpr int MinMatchLength = 6;
constexpr double LargestTarget = 2000000000;
constexpr int NumberShowType = 0;
constexpr int RatioShowType = 2;
constexpr int RatioDecimals = 4;

// The return type is deduced: each client's securities cache defines its own type of symbol list.
auto symbolsOf(const QString& type, const QStringList& subTypes, const QStringList& suffixes)
{
    return CBusinessDataBase::GetInstance()->GetAllSymbolByTypeList(type, subTypes, suffixes, false, QStringList());
}

auto symbolsOf(const QString& type, const QString& subType)
{
    return CBusinessDataBase::GetInstance()->GetAllSymbolByType(type, subType, QString(), false, QStringList());
}

QStringList mainland()
{
    return { Kelvo_Values::SymbolPost::sh, Kelvo_Values::SymbolPost::sz };
}

// Unlike for margin plans, Beijing shares are included, and small and medium board shares are not.
auto ordinarySecurities(bool byAmount)
{
    auto symbols = symbolsOf(Type::StockType,
        { SubType::Ashares, SubType::Gemstock, OtherSubType::ScienTechInnovateBoard, OtherSubType::BjSelectedStock },
        QStringList());
    if (byAmount)
        return symbols;
    symbols += symbolsOf(Type::FundType, SubType::TradingopenindexfundETF);
    symbols += symbolsOf(Type::FundType, { OtherSubType::Reits }, mainland());
    return symbols;
}

auto creditSecurities(bool byAmount)
{
    auto symbols = symbolsOf(Type::StockType,
        { SubType::Ashares, SubType::Smallandmediumstock, SubType::Gemstock, OtherSubType::ScienTechInnovateBoard },
        QStringList());
    symbols += symbolsOf(Type::BondType, OtherSubType::ConvertableBondTypeList, mainland());
    if (!byAmount)
        symbols += symbolsOf(Type::FundType, { OtherSubType::Reits }, mainland());
    return symbols;
}

auto bondSecurities()
{
    QStringList subTypes = OtherSubType::AllBondNoRepurchaseTypeList;
    subTypes.removeAll(OtherSubType::DirectedConBond);
    subTypes.append(SubType::Assetbackedsecurities);
    return symbolsOf(Type::BondType, subTypes, mainland());
}

auto securitiesFor(const QString& instructionType, bool byAmount)
{
    if (instructionType == AutoPlanInstructionType::Ordinary)
        return ordinarySecurities(byAmount);
    if (instructionType == AutoPlanInstructionType::Credit)
        return creditSecurities(byAmount);
    if (instructionType == AutoPlanInstructionType::Bond)
        return bondSecurities();
    if (instructionType == AutoPlanInstructionType::HkConnect)
        return symbolsOf(Type::StockType, OtherSubType::HStcokCirculation);
    return decltype(bondSecurities())();
}

void initQuantity(OrloDecimalLineEdit* field)
{
    field->SetShowType(NumberShowType);
    field->setEmptyMode(false);
    field->setMinimum(0);
    field->setMaximum(LargestTarget);
}

} // namespace

void AutoParamSetting::InitLeSymbol()
{
    ui->le_symbol->setSymbol(QString());
    const bool byAmount = currentCode(ui->combx_instructionTargetType) == InstructionTargetType::AmountOrder;
    ui->le_symbol->setSecurityList(securitiesFor(currentCode(ui->combx_instructionType), byAmount));
    ui->le_symbol->setSearchMode(SearchByCodeAndName);
    ui->le_symbol->setMinMatchLength(MinMatchLength);
}

void AutoParamSetting::slotSymbolChange()
{
    const QString symbol = ui->le_symbol->getSymbol();
    // The other fields are derived from the security; without one they keep their state.
    if (symbol.isEmpty()) {
        ui->la_symbolName->setText(QString());
        ui->le_exchange->setText(QString());
        setQtyStepVisible(false, QString());
        return;
    }
    const QString exchange = OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(symbol);
    ui->le_exchange->setText(
        CDataBase::GetInstance()->GetStaticCfgValue(OrloConstants::DictionaryKey::exchangeChineseName, exchange));
    if (OrloBusinessDataInterface::GetSecuritySubTypeBySymbol(symbol) == OtherSubType::HStcokCirculation)
        setQtyStepVisible(true, QString::number(OrloBusinessDataInterface::GetQtyStepBySymbol(symbol)));
    else
        setQtyStepVisible(false, QString());

    setDisplayUnit(symbol);
    InitComboxEntrustType();
    slotComboxPriceModeChanged();
    slotUpdateAlgoWhiteList();
    if (m_algoParamWidget)
        m_algoParamWidget->ReInit();
    m_maPriceList.clear();
    // A slot connected to this signal may delete the editor.
    const QPointer<AutoParamSetting> self(this);
    const SenderGuard guard(ui->le_symbol);
    Q_EMIT signalQuerySymbolMAInfo(ui->combx_fundAccount->GetCurTradingAccount(), symbol);
    if (self)
        InitDateEffectivePeriod();
}

void AutoParamSetting::slotSymbolNameChange(QString name)
{
    ui->la_symbolName->setText(name);
}

void AutoParamSetting::setDisplayUnit(const QString& symbol)
{
    const QString targetType = currentCode(ui->combx_instructionTargetType);
    QString unit;
    if (targetType == InstructionTargetType::QtyOrder)
        unit = OrloBusinessDataInterface::GetSecurityTypeBySymbol(symbol) == Type::BondType ? tr("张") : tr("股");
    else if (targetType == InstructionTargetType::AmountOrder)
        unit = tr("元");
    else
        return;
    Accessibility::setUnit(ui->lab_targetTotalNumUnit, ui->le_targetTotalNum, unit);
    Accessibility::setUnit(ui->lab_entrustMaxNumUnit, ui->le_entrustMaxNum, unit);
}

void AutoParamSetting::setQtyStepVisible(bool visible, const QString& step)
{
    ui->label_targetQtyStep->setText(step);
    ui->label_maxEntrustQtyStep->setText(step);
    ui->label_targetQtyStep->setVisible(visible);
    ui->label_maxEntrustQtyStep->setVisible(visible);
}

void AutoParamSetting::InitLeTargetTotalNumAndMaxNumAndPlanNum()
{
    initQuantity(ui->le_targetTotalNum);
    initQuantity(ui->le_entrustMaxNum);
    ui->le_reduceHRatio->SetShowType(RatioShowType);
    ui->le_reduceHRatio->setEmptyMode(true);
    ui->le_reduceHRatio->setMinimum(0);
    ui->le_reduceHRatio->setMaximum(1);
    ui->le_reduceHRatio->setDecimals(RatioDecimals);
}

void AutoParamSetting::slotQuerySymbolMAResponse(QString symbol, QStringList priceList, QString failReason)
{
    qDebug() << "AutoParamSetting::slotQuerySymbolMAResponse" << symbol << priceList << failReason;
    if (symbol != ui->le_symbol->getSymbol())
        return;
    // The items are rebuilt after an error too: those of the previous security must not remain.
    if (failReason.isEmpty())
        m_maPriceList = priceList;
    InitLineEditPrice1AndPrice2(false);
}
