#include "AutoParamSetting.h"

#include "Accessibility.h"
#include "AesStrategy.h"
#include "AlgoTradeLogicNew.h"
#include "AutoPlanLogic.h"
#include "ComboItems.h"
#include "FieldGroups.h"
#include "PlanVocabulary.h"
#include "SenderGuard.h"
#include "ui_AutoParamSetting.h"

namespace {

constexpr int AlgoButtonWidth = 82;
constexpr int FormulaMaxLength = 300;
constexpr int SingleDateMode = 0;
constexpr int DateRangeMode = 1;
constexpr int PromptWhileTyping = 1;

// tr() is the only inline function of the class. Taking its address makes the library contain and export it.
[[gnu::used]] QString (*const ExportedTr)(const char*, const char*, int) = &AutoParamSetting::tr;

} // namespace

AutoParamSetting::AutoParamSetting(QWidget* parent)
    : QWidget(parent)
    , ui(new Ui::AutoParamSetting)
    , m_reserved(0)
    , m_algoParamWidget(nullptr)
    , m_startDayOffset(0)
{
    ui->setupUi(this);
    Accessibility::nameFields(*ui);
    initWidget();
    initGuiData();
    initConnect();
    // A single account is chosen and locked before the connections exist, so its cascade has to be started here.
    if (!ui->combx_fundAccount->isEnabled())
        InitComboxInstructionType();
}

AutoParamSetting::~AutoParamSetting()
{
    SenderGuard::release(ui->combx_planType);
    SenderGuard::release(ui->le_symbol);
    delete ui;
}

void AutoParamSetting::resetEnable()
{
    m_planId.clear();
    const FieldGroups::Group identity = FieldGroups::identity(*ui);
    for (QWidget* const field : identity) {
        // The plan type is kept, and a holdings reduction can only sell.
        if (field == ui->combx_tradeSide && currentCode(ui->combx_planType) == AutoPlanTemplate::ReduceHoldings)
            field->setEnabled(false);
        else
            FieldGroups::enable(field);
    }
    FieldGroups::enable({ ui->combx_priceType, ui->combx_priceMode, ui->lineEdit_price1, ui->lineEdit_price2,
        ui->le_targetTotalNum, ui->le_entrustMaxNum, ui->le_reduceHRatio });
    FieldGroups::enable(FieldGroups::execution(*ui));
    ui->date_effectivePeriod_Single->setEnabled(true);
    ui->date_effectivePeriod_Multi->SetStartCalendarEnabled(true);
    InitDateEffectivePeriod();
    ui->combx_reduceHMode->setEnabled(true);
    ui->le_remark->setEnabled(true);
    // Without a plan, no instruction mode restricts the items any more.
    InitComboxPriceType(QString());
    InitComboxPriceMode(QString());
}

void AutoParamSetting::loadSkin(const QVariant& skin)
{
    if (!skin.isValid())
        return;
    setStyleSheet(skin.toString());
}

void AutoParamSetting::initWidget()
{
    ui->combx_fundAccount->setSearchEnabled();
    ui->le_exchange->setEnabled(false);
    ui->btn_algoParamSetting->setStyleType(OrloPushButton::BtnStyleType::Text);
    ui->btn_algoParamSetting->setFixedWidth(AlgoButtonWidth);
    InitHideWidget();
    ui->btn_ok->setStyleType(OrloPushButton::BtnStyleType::Highlight);
    ui->btn_cancel->setStyleType(OrloPushButton::BtnStyleType::Normal);
    ui->subTitleWidget_basicParam->SetTitle(tr("基本参数"));
    ui->subTitleWidget_detailParam->SetTitle(tr("交易计划参数"));
    setQtyStepVisible(false, QString());
}

void AutoParamSetting::InitHideWidget()
{
    FieldGroups::setVisible(FieldGroups::reductionRows(*ui), false);
    ui->date_effectivePeriod_Single->hide();
    FieldGroups::setVisible(FieldGroups::hongKongRow(*ui), false);
    FieldGroups::setVisible(FieldGroups::creditRow(*ui), false);
}

void AutoParamSetting::initGuiData()
{
    InitComboxFundList();
    InitComboxInstructionType();
    InitComboxInstructionTargetType();
    InitComboxPlanType();
    InitLeSymbol();
    // Nothing is connected yet, so slots on which later fields depend are called directly.
    slotSymbolChange();
    InitComboxTradeSide();
    InitComboxPriceType(QString());
    InitComboxPriceMode(QString());
    slotComboxPriceModeChanged();
    InitLeTargetTotalNumAndMaxNumAndPlanNum();
    InitComboxAssignTo();

    const QList<int> weekend = { Qt::Sunday, Qt::Saturday };
    ui->date_effectivePeriod_Multi->SetMode(DateRangeMode, false);
    ui->date_effectivePeriod_Multi->SetExceptDayOfWeek(weekend);
    ui->date_effectivePeriod_Single->SetMode(SingleDateMode, false);
    ui->date_effectivePeriod_Single->SetExceptDayOfWeek(weekend);
    InitDateEffectivePeriod();

    ui->combx_reduceHMode->addItem(tr("连续90天减持不超过总股本1%"), ReduceHoldingsMode::Continuous90Days);
    ui->lineEdit_price1->setMode(PromptWhileTyping);
    ui->lineEdit_price1->setMaxLength(FormulaMaxLength);
    ui->lineEdit_price2->setMode(PromptWhileTyping);
    ui->lineEdit_price2->setMaxLength(FormulaMaxLength);
}

void AutoParamSetting::initConnect()
{
    // The services may emit from other threads, so the argument types must be registered before connecting.
    qRegisterMetaType<AesStrategy>();
    qRegisterMetaType<QList<AesStrategy>>("QList<AesStrategy>");

    connect(AlgoTradeLogicNew::GetInstance(), &AlgoTradeLogicNew::sigQryAlgoStrategiesRsp, this,
        &AutoParamSetting::slotUpdateAlgoWhiteList);
    connect(ui->combx_fundAccount, &QComboBox::currentTextChanged, this, &AutoParamSetting::slotComboxAccountChanged);
    connect(ui->combx_instructionType, &QComboBox::currentTextChanged, this,
        &AutoParamSetting::slotComboxInstructionTypeChanged);
    connect(ui->combx_instructionTargetType, &QComboBox::currentTextChanged, this,
        &AutoParamSetting::slotComboxInstructionTargetTypeChanged);
    connect(ui->combx_planType, &QComboBox::currentTextChanged, this, &AutoParamSetting::slotComboxPlanTypeChanged);
    connect(ui->le_symbol, &VorSearchBox::selectStockCodeChange, this, &AutoParamSetting::slotSymbolChange);
    connect(ui->le_symbol, &VorSearchBox::selectStockNameChange, this, &AutoParamSetting::slotSymbolNameChange);
    connect(ui->combx_tradeSide, &QComboBox::currentTextChanged, this, &AutoParamSetting::slotComboxTradeSideChanged);
    connect(
        ui->combx_entrustType, &QComboBox::currentTextChanged, this, &AutoParamSetting::slotComboxEntrustTypeChanged);
    connect(ui->combx_priceType, &QComboBox::currentTextChanged, this, &AutoParamSetting::slotComboxPriceTypeChanged);
    connect(ui->combx_priceMode, &QComboBox::currentTextChanged, this, &AutoParamSetting::slotComboxPriceModeChanged);
    connect(ui->combx_instructionMode, &QComboBox::currentTextChanged, this,
        &AutoParamSetting::slotComboxInstructionModeChanged);
    connect(
        ui->btn_algoParamSetting, &QAbstractButton::clicked, this, &AutoParamSetting::slotBtnAlgoParamSettingClicked);
    connect(ui->btn_ok, &QAbstractButton::clicked, this, &AutoParamSetting::slotBtnOkClicked);
    connect(ui->btn_cancel, &QAbstractButton::clicked, this, &AutoParamSetting::signalBtnCancelClicked);
    connect(this, &AutoParamSetting::signalQuerySymbolMAInfo, &AutoPlanLogic::instance(),
        &AutoPlanLogic::signalQuerySymbolMAInfo);
    connect(&AutoPlanLogic::instance(), &AutoPlanLogic::signalQuerySymbolMAResponse, this,
        &AutoParamSetting::slotQuerySymbolMAResponse);
}
