#include "Algo_Fields.h"
#include "AlgorithmParameters.h"
#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ComboItems.h"
#include "FieldGroups.h"
#include "FormulaItems.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "ParamListWidget_single.h"
#include "PlanVocabulary.h"
#include "QuantityRounding.h"
#include "Today.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>
#include <QLocale>
#include <QPointer>
#include <QSignalBlocker>

#include <cmath>
#include <optional>

namespace {

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

/// A stored plan, prepared for the form: texts by key, with modes that match the user's rule.
class StoredPlan {
public:
    StoredPlan(const FieldMap& record, const FieldMap& other)
        : m_record(record)
        , m_other(other)
        , priceMode(text(Base::priceModel))
        , instructionMode(text(Base::InstMode))
    {
    }

    QString text(const QString& key) const { return m_record.value(key).toString(); }
    QString otherText(const QString& key) const { return m_other.value(key).toString(); }
    FieldMap otherMap(const QString& key) const { return m_other.value(key).toMap(); }
    QString tradingAccount() const { return text(Kelvo_Fields::UserAccount::tradingAccount); }
    QString symbol() const { return text(Kelvo_Fields::Security::symbol); }
    QString instructionType() const { return text(Orlo_Fields::AutoPlan::subType); }
    QString targetType() const
    {
        const QString code = otherText(AutoPlanFieldId::TargetType);
        return code.isEmpty() ? InstructionTargetType::QtyOrder : code;
    }
    QString planType() const { return text(Orlo_Fields::AutoPlan::templateCode); }
    bool reducesHoldings() const { return planType() == AutoPlanTemplate::ReduceHoldings; }
    QString entrustType() const
    {
        const int number = m_other.value(AutoPlanFieldId::MarginInstructionSideType).toInt();
        return InstructionBusinessDataInterface::transEnum2SideUnion(static_cast<VorMarginTradeType>(number));
    }
    QDate date(const QString& key) const
    {
        return QLocale::c().toDate(text(key), OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
    }

    // A user whose instructions are reviewed must not get an actively managed plan, and vice versa. When the mode
    // changes, the price mode becomes no limit: the new owner must enter the price again.
    void reconcileWithRule()
    {
        const int rule =
            InstructionBusinessDataInterface::GetCurrentUserInstructionRuleProper(tradingAccount(), instructionType());
        const bool active = instructionMode == AutoPlanInstMode::ActiveManage;
        const bool reviewed = instructionMode == AutoPlanInstMode::NormalTradeReview
            || instructionMode == AutoPlanInstMode::AlgoTradeReview;
        if (active && rule == AutoPlanRuleProperty::Review)
            instructionMode = AutoPlanInstMode::AlgoTradeReview;
        else if (reviewed && rule == AutoPlanRuleProperty::NoReview)
            instructionMode = AutoPlanInstMode::ActiveManage;
        else
            return;
        priceMode = AutoPlanPriceModel::NoLimit;
    }

private:
    FieldMap m_record;
    FieldMap m_other;

public:
    QString priceMode;
    QString instructionMode;
};

/// Reads a stored plan. Logs a warning and returns nothing if the service does not know the id or the plan has no other
/// parameters. Texts that only appear in the log are not translated.
std::optional<StoredPlan> readPlan(const QString& planId)
{
    const FieldMap record = AutoPlanLogic::instance().GetPlanInfo(planId);
    if (record.isEmpty()) {
        qWarning().noquote() << "AutoParamSetting::copyPlan"
                             << QStringLiteral("计划复制失败，失败原因：未找到计划ID【%1】的计划信息").arg(planId);
        return std::nullopt;
    }
    const FieldMap other = AutoPlanLogic::instance().GetPlanOtherParamFromPlanInfo(record);
    if (other.isEmpty()) {
        qWarning().noquote() << "AutoParamSetting::copyPlan"
                             << QStringLiteral("计划复制失败，失败原因：未找到计划ID【%1】的计划扩展信息").arg(planId);
        return std::nullopt;
    }
    StoredPlan plan(record, other);
    plan.reconcileWithRule();
    return plan;
}

/// Shows a stored number multiplied by a factor. If the text is not a number, clears the field instead of showing zero.
void showNumber(OrloDecimalLineEdit* field, const QString& text, double factor)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (text.isEmpty() || (isNumber && std::isfinite(value))) {
        field->setValue(value * factor);
        return;
    }
    qWarning() << "AutoParamSetting::copyPlan" << field->objectName() << "stored text is no number" << text;
    field->clear();
}

void fillPriceType(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    if (plan.instructionType() != AutoPlanInstructionType::HkConnect)
        return;
    QString code = plan.otherText(Kelvo_Fields::Security::timeInForce);
    // Older plans store the price type under the former key.
    if (code.isEmpty())
        code = plan.otherText(Kelvo_Fields::Security::transActTime);
    selectCode(ui.combx_priceType, code);
}

void fillPrices(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    selectCode(ui.combx_priceMode, plan.priceMode);
    ui.lineEdit_price1->SetFunctionItems(functionItems(plan.priceMode));
    if (plan.priceMode == AutoPlanPriceModel::NoLimit) {
        const int decimals = OrloBusinessDataInterface::GetPricePrecisionBySymbol(plan.symbol(), QString());
        ui.lineEdit_price1->setText(zeroPrice(decimals));
    } else {
        ui.lineEdit_price1->setText(plan.text(Base::priceFormula1));
    }
    ui.lineEdit_price2->setText(plan.text(Base::priceFormula2));
}

int displayFactor(const QString& symbol)
{
    return usableDisplayFactor(OrloBusinessDataInterface::GetDispFactorBySymbol(symbol), "AutoParamSetting::copyPlan");
}

void fillQuantities(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    const bool byAmount = plan.targetType() == InstructionTargetType::AmountOrder;
    const double factor = byAmount ? 1 : displayFactor(plan.symbol());
    showNumber(ui.le_targetTotalNum, byAmount ? plan.otherText(Base::tradeAmount) : plan.text(Base::totalQty), factor);
    if (plan.reducesHoldings()) {
        ui.le_entrustMaxNum->clear();
        showNumber(ui.le_reduceHRatio, plan.otherText(Base::JCRatio), 1);
        return;
    }
    showNumber(ui.le_entrustMaxNum,
        plan.otherText(byAmount ? Base::dayMaxTradeAmount : AutoPlanField::Progress::CurrentQty), factor);
    ui.le_reduceHRatio->clear();
}

// Signals are not blocked here, so that each choice refills the boxes below before an item is selected in them.
void selectTypes(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    selectCode(ui.combx_fundAccount, plan.tradingAccount());
    selectCode(ui.combx_instructionType, plan.instructionType());
    selectCode(ui.combx_instructionTargetType, plan.targetType());
    selectCode(ui.combx_planType, plan.planType());
}

void selectSilently(QComboBox* box, int index)
{
    const QSignalBlocker blocker(box);
    box->setCurrentIndex(index);
}

void setSymbolSilently(VorSearchBox* box, const QString& symbol)
{
    const QSignalBlocker blocker(box);
    box->setSymbol(symbol);
}

FieldMap algorithmBaseData(const StoredPlan& plan, const QString& entrustType)
{
    FieldMap data = plan.otherMap(Base::algoParam);
    if (!data.contains(Content::TradingAccount))
        data.insert(Content::TradingAccount, plan.tradingAccount());
    data.insert(Content::Symbol, plan.symbol());
    AlgorithmParameters::insertSide(data, plan.text(Base::orderSide));
    data.insert(Content::EntrustProp, AlgorithmParameters::orderProperty(entrustType));
    return data;
}

void fillAlgorithm(ParamListWidget_single* algorithm, const StoredPlan& plan, const QString& entrustType)
{
    if (!plan.otherText(Base::algoStrategyName).isEmpty())
        algorithm->setBaseInfoData(algorithmBaseData(plan, entrustType), false);
}

void fillAssignee(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    QString user = plan.text(plan.reducesHoldings() ? Base::executeUser : Base::expectedUser);
    if (user.isEmpty() && !plan.reducesHoldings())
        user = AutoPlanAssignee::NotSpecified;
    ui.combx_assignTo->setCurrentIndex(ui.combx_assignTo->findData(user, Qt::DisplayRole, Qt::MatchCaseSensitive));
}

void fillFutureDates(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    if (plan.reducesHoldings())
        ui.date_effectivePeriod_Single->SetDate(plan.date(Base::beginDate));
    else
        ui.date_effectivePeriod_Multi->SetStartEndDate(plan.date(Base::beginDate), plan.date(Base::endDate));
}

// The end of a started plan can be changed, its beginning cannot.
void fillStartedDates(const Ui::AutoParamSetting& ui, const StoredPlan& plan)
{
    const QDate begin = plan.date(Base::beginDate);
    if (plan.reducesHoldings()) {
        ui.date_effectivePeriod_Single->SetMinDate(begin);
        ui.date_effectivePeriod_Single->SetMaxDate(begin);
        ui.date_effectivePeriod_Single->SetDate(begin);
        ui.date_effectivePeriod_Single->setEnabled(false);
        return;
    }
    ui.date_effectivePeriod_Multi->SetMinDate(begin);
    ui.date_effectivePeriod_Multi->SetStartCalendarEnabled(false);
    ui.date_effectivePeriod_Multi->SetStartEndDate(begin, plan.date(Base::endDate));
}

void fillDates(const Ui::AutoParamSetting& ui, const StoredPlan& plan, bool edits)
{
    const QDate begin = plan.date(Base::beginDate);
    // An invalid date is less than every other date, so a plan without a readable beginning counts as started.
    if (!begin.isValid())
        qWarning() << "AutoParamSetting::copyPlan stored text is no date" << plan.text(Base::beginDate);
    if (begin > today())
        fillFutureDates(ui, plan);
    // A copy of a started plan is a new plan, so it keeps the form's default dates.
    else if (edits)
        fillStartedDates(ui, plan);
}

} // namespace

void AutoParamSetting::editPlan(const QString& planId)
{
    const QPointer<AutoParamSetting> self(this);
    m_planId = planId;
    copyPlan(planId);
    if (!self)
        return;
    FieldGroups::disable(FieldGroups::identity(*ui));
    if (currentCode(ui->combx_planType) == AutoPlanTemplate::ReduceHoldings)
        FieldGroups::disable({ ui->le_entrustMaxNum, ui->le_reduceHRatio, ui->combx_reduceHMode });
    FieldGroups::disable(FieldGroups::execution(*ui));
}

void AutoParamSetting::copyPlan(const QString& planId)
{
    const std::optional<StoredPlan> stored = readPlan(planId);
    if (!stored)
        return;
    const StoredPlan& plan = *stored;
    const QPointer<AutoParamSetting> self(this);
    selectTypes(*ui, plan);
    // Selecting a holdings reduction may have opened the agreement dialog, and the host may have closed the editor
    // while the dialog was open.
    if (!self)
        return;
    // Set without signals, so that slotSymbolChange() runs only once.
    setSymbolSilently(ui->le_symbol, plan.symbol());
    slotSymbolChange();
    if (!self)
        return;
    ui->la_symbolName->setText(OrloBusinessDataInterface::GetSecurityChineseName(plan.symbol()));
    selectCode(ui->combx_tradeSide, plan.text(Base::orderSide));
    const QString entrustType = plan.entrustType();
    selectCode(ui->combx_entrustType, entrustType);
    InitComboxPriceType(plan.instructionMode);
    fillPriceType(*ui, plan);
    InitComboxPriceMode(plan.instructionMode);
    fillPrices(*ui, plan);
    fillQuantities(*ui, plan);
    selectCode(ui->combx_instructionMode, plan.instructionMode);
    if (plan.instructionMode == AutoPlanInstMode::AlgoTradeReview) {
        if (!m_algoParamWidget)
            m_algoParamWidget = AlgorithmParameters::createWidget(this, m_algoWhiteList);
        AlgorithmParameters::refreshLists(m_algoParamWidget, m_algoWhiteList, m_algoBlackList);
        fillAlgorithm(m_algoParamWidget, plan, entrustType);
        if (!self)
            return;
    }
    fillAssignee(*ui, plan);
    fillDates(*ui, plan, !m_planId.isEmpty());
    if (plan.reducesHoldings())
        selectCode(ui->combx_reduceHMode, plan.otherText(Base::JCModel));
    ui->le_remark->setText(plan.text(Base::remark));
}

void AutoParamSetting::clearUiData()
{
    // A single account stays selected: the trader could not select it again in the locked box.
    if (ui->combx_fundAccount->isEnabled())
        selectSilently(ui->combx_fundAccount, -1);
    selectSilently(ui->combx_instructionType, -1);
    selectSilently(ui->combx_planType, 0);
    ui->le_symbol->setSymbol(QString());
    ui->la_symbolName->setText(QString());
    ui->le_exchange->clear();
    // Signals are not blocked, because the entrust types of the previous side must be removed.
    ui->combx_tradeSide->setCurrentIndex(0);
    selectSilently(ui->combx_priceType, 0);
    selectSilently(ui->combx_priceMode, 0);
    ui->lineEdit_price1->clear();
    ui->lineEdit_price2->clear();
    // Hides only the inputs; the next change of price mode or plan type updates their captions.
    ui->lineEdit_price2->hide();
    ui->le_targetTotalNum->clear();
    ui->le_entrustMaxNum->clear();
    ui->le_reduceHRatio->clear();
    ui->le_reduceHRatio->hide();
    selectSilently(ui->combx_instructionMode, 0);
    ui->btn_algoParamSetting->hide();
    if (m_algoParamWidget)
        m_algoParamWidget->ClearParams();
    ui->combx_assignTo->setCurrentIndex(0);
    const QDate first = today().addDays(m_startDayOffset);
    ui->date_effectivePeriod_Multi->SetStartEndDate(first, first);
    ui->date_effectivePeriod_Single->SetDate(first);
    selectSilently(ui->combx_reduceHMode, 0);
    ui->combx_reduceHMode->hide();
    ui->le_remark->clear();
}
