#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "EditorModel.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Fields.h"
#include "PlanVocabulary.h"
#include "Today.h"

#include <QJsonDocument>
#include <QLocale>

// The sent records, the form after sending, and the algorithm panel.

namespace model {

namespace {

namespace Base = AutoPlanField::BaseField;
namespace Content = Algo_Fields::AlgoInstContentInfo;

QString dateText(const QDate& date)
{
    return QLocale::c().toString(date, OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

} // namespace

bool PanelState::operator==(const PanelState& other) const
{
    return exists == other.exists && hasParams == other.hasParams && strategy == other.strategy
        && params == other.params && baseData == other.baseData;
}

// --- The panel

void EditorModel::createPanel(const QStringList& blackList)
{
    if (panel.exists)
        return;
    panel.exists = true;
    effects.outward.append(call(QStringLiteral("CreateStrategyWgt"),
        { 2, QStringLiteral("AutoParamSetting"), Algo_Values::AlgoGlobalType::instruction, m_white, blackList, 3 }));
}

void EditorModel::reInitPanel()
{
    if (panel.exists)
        effects.outward.append(QStringLiteral("panel.ReInit()"));
}

/// A panel selects the strategy that the data name, with its parameters.
void EditorModel::handOver(const FieldMap& baseData)
{
    effects.outward.append(call(QStringLiteral("panel.setBaseInfoData"), { baseData, false }));
    panel.baseData = baseData;
    if (!baseData.contains(Base::algoStrategyName))
        return;
    panel.hasParams = true;
    panel.strategy = baseData.value(Base::algoStrategyName).toString();
    panel.params = baseData;
}

FieldMap EditorModel::baseData() const
{
    FieldMap data{ { Content::TradingAccount, account() }, { Content::Symbol, form.symbol } };
    if (code(TradeSide) == Kelvo_Values::OrderSide::buy)
        data.insert(Content::OrderSide, Algo_Values::AlgoOrderSide::BuyValue);
    if (code(TradeSide) == Kelvo_Values::OrderSide::sell)
        data.insert(Content::OrderSide, Algo_Values::AlgoOrderSide::SellValue);
    const QString& dictionary = OrloConstants::DictionaryKey::SideUnion2AlgoDefines;
    data.insert(Content::EntrustProp, m_world.staticText(dictionary, code(EntrustType)));
    return data;
}

void EditorModel::loadStrategy(const QString& strategy, const FieldMap& params)
{
    const bool isKnown = m_world.strategyAliases.contains(strategy);
    effects.outward.append(call(
        QStringLiteral("panel.LoadStrategy"), { isKnown ? strategy : QString(), FieldMap(), params, form.symbol }));
    effects.panelShown = isKnown || strategy.isEmpty();
}

void EditorModel::pressAlgorithms()
{
    if (account().isEmpty()) {
        refuse(QStringLiteral("未选择资金帐号！"));
        return;
    }
    createPanel({});
    QString strategy = panel.strategy;
    FieldMap params = panel.params;
    effects.outward << call(QStringLiteral("panel.setAlgoWhiteList"), { m_white })
                    << call(QStringLiteral("panel.setAlgoBlackList"), { m_black })
                    << QStringLiteral("panel.RefreshAlgoList()");
    const QStringList entitled = m_world.authorityAlgoNames;
    if (!entitled.isEmpty() && !entitled.contains(strategy)) {
        strategy = entitled.first();
        params.clear();
    }
    loadStrategy(strategy, params);
    handOver(baseData());
    if (m_world.panelLoadAnswer != QLatin1String("0"))
        effects.boxes.append(QStringLiteral("error: ") + m_world.panelLoadAnswer);
}

void EditorModel::confirmPanel(const QString& strategy)
{
    panel.hasParams = true;
    panel.strategy = strategy;
    panel.params = panel.baseData;
    panel.params.insert(Base::algoStrategyName, strategy);
    panel.params.insert(QStringLiteral("rate"), QStringLiteral("0.2"));
}

// --- Record

QString EditorModel::storedQuantity(Widget which) const
{
    return QString::number(static_cast<int>(number(which).value) / m_world.security(form.symbol).displayFactor);
}

FieldMap EditorModel::record() const
{
    const QString exchange = m_world.security(form.symbol).exchange;
    FieldMap made{
        { Kelvo_Fields::UserAccount::userID,
            m_world.loginAccountDetail.value(Kelvo_Fields::UserAccount::userID).toString() },
        { Orlo_Fields::AutoPlan::templateCode, code(PlanType) },
        { Orlo_Fields::AutoPlan::subType, code(InstructionType) },
        { Kelvo_Fields::UserAccount::tradingAccount, account() },
        { AutoPlanFieldId::Account10112, m_accounts.value(account()).branchNo },
        { Kelvo_Fields::Security::symbol, form.symbol },
        { Kelvo_Fields::UserAccount::securityExchange, exchange },
        { Kelvo_Fields::UserAccount::securityAccount, m_world.securityAccount(account(), exchange) },
        { Base::orderSide, code(TradeSide) },
        { Base::priceModel, code(PriceMode) },
        { Base::priceFormula1, text(Price1) },
        { Base::totalQty, storedQuantity(TargetTotal) },
        { Base::InstMode, code(InstructionMode) },
    };
    if (code(PriceMode) == AutoPlanPriceModel::NoLimit)
        made.insert(Base::priceFixed, text(Price1));
    if (code(PriceMode) == AutoPlanPriceModel::CompareMax || code(PriceMode) == AutoPlanPriceModel::CompareMin)
        made.insert(Base::priceFormula2, text(Price2));
    insertAssignee(made);
    insertPeriod(made);
    made.insert(Base::planOtherParam,
        QString::fromUtf8(QJsonDocument::fromVariant(otherParam()).toJson(QJsonDocument::Compact)));
    if (!text(Remark).isEmpty())
        made.insert(Base::remark, text(Remark));
    return made;
}

void EditorModel::insertAssignee(FieldMap& record) const
{
    if (isReduction())
        record.insert(Base::executeUser, box(AssignTo).text());
    else if (box(AssignTo).text() != AutoPlanAssignee::NotSpecified)
        record.insert(Base::expectedUser, box(AssignTo).text());
}

void EditorModel::insertPeriod(FieldMap& record) const
{
    if (isVisible(Range)) {
        record.insert(Base::beginDate, dateText(form.range.start));
        record.insert(Base::endDate, dateText(form.range.end));
    }
    if (isVisible(Single)) {
        record.insert(Base::beginDate, dateText(form.single.date));
        record.insert(Base::endDate, dateText(form.single.date.addYears(100)));
    }
}

FieldMap EditorModel::otherParam() const
{
    FieldMap other{ { Base::securitySubType, m_world.security(form.symbol).subType } };
    if (isByAmount()) {
        other.insert(AutoPlanFieldId::TargetType, InstructionTargetType::AmountOrder);
        other.insert(Base::tradeAmount, number(TargetTotal).text);
        other.insert(Base::dayMaxTradeAmount, number(DayMax).text);
    }
    if (isVisible(DayMax))
        other.insert(AutoPlanField::Progress::CurrentQty, storedQuantity(DayMax));
    if (code(InstructionMode) == AutoPlanInstMode::AlgoTradeReview) {
        other.insert(Base::algoParam, panel.params);
        other.insert(Base::algoStrategyName, panel.strategy);
    }
    if (isReduction()) {
        other.insert(Base::JCRatio, number(Ratio).text);
        other.insert(Base::JCModel, code(ReduceMode));
    }
    if (isVisible(PriceType))
        other.insert(Kelvo_Fields::Security::timeInForce, code(PriceType));
    if (isVisible(EntrustType))
        other.insert(AutoPlanFieldId::MarginInstructionSideType,
            QString::number(qMax(0, entrustTypes().indexOf(code(EntrustType)))));
    return other;
}

// --- Sending

void EditorModel::pressOk(QList<int> answers)
{
    if (!passesRules(answers))
        return;
    if (m_planId.isEmpty())
        sendNew(record());
    else
        sendChange(record());
}

void EditorModel::sendNew(const FieldMap& plan)
{
    effects.created.append(plan);
    if (!m_world.createAnswer.isEmpty()) {
        effects.boxes.append(QStringLiteral("error: ") + m_world.createAnswer);
        return;
    }
    effects.boxes.append(QStringLiteral("tip: 交易自动规划创建成功!"));
    clearForm();
    ++effects.closes;
}

void EditorModel::sendChange(FieldMap plan)
{
    const QString& securityAccount = Kelvo_Fields::UserAccount::securityAccount;
    plan.insert(Base::autoPlanId, m_planId);
    plan.insert(securityAccount, m_world.plans.value(m_planId).value(securityAccount).toString());
    effects.modified.append(plan);
    if (!m_world.modifyAnswer.isEmpty()) {
        effects.boxes.append(
            QStringLiteral("error: 交易计划%1修改失败，失败原因：%2").arg(m_planId, m_world.modifyAnswer));
        return;
    }
    effects.boxes.append(QStringLiteral("tip: 交易计划%1修改成功!").arg(m_planId));
    clearForm();
    ++effects.closes;
}

void EditorModel::clearForm()
{
    if (widget(FundAccount).enabled)
        selectSilently(FundAccount, -1);
    selectSilently(InstructionType, -1);
    selectSilently(PlanType, 0);
    setSymbol(QString());
    setText(SymbolName, QString());
    setText(Exchange, QString());
    select(TradeSide, 0);
    selectSilently(PriceType, 0);
    selectSilently(PriceMode, 0);
    setText(Price1, QString());
    setText(Price2, QString());
    show({ Price2, Ratio, AlgoButton, ReduceMode }, false);
    for (const Widget which : { TargetTotal, DayMax, Ratio })
        clearNumber(which);
    selectSilently(InstructionMode, 0);
    if (panel.exists) {
        effects.outward.append(QStringLiteral("panel.ClearParams()"));
        panel.hasParams = false;
        panel.strategy.clear();
        panel.params.clear();
    }
    select(AssignTo, 0);
    const QDate first = today().addDays(m_startOffset);
    form.range.start = form.range.end = form.single.date = first;
    selectSilently(ReduceMode, 0);
    setText(Remark, QString());
}

} // namespace model
