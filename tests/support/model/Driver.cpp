#include "Driver.h"

#include "AlgoTradeLogicNew.h"
#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "ParamListWidget_single.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QVBoxLayout>

namespace model {

namespace {

/// The panel selects the strategy that its base data name, with its parameters.
void takeBaseData(const ScriptCall& call)
{
    Script& script = Script::instance();
    const QString& name = AutoPlanField::BaseField::algoStrategyName;
    if (call.operation != QLatin1String("panel.setBaseInfoData") || !script.panelBaseData.contains(name))
        return;
    script.panelHasParams = true;
    script.panelStrategy = script.panelBaseData.value(name).toString();
    script.panelParams = script.panelBaseData;
}

bool isOutward(const QString& operation)
{
    static const QStringList operations{ QStringLiteral("CreateStrategyWgt"), QStringLiteral("signalQuerySymbolMAInfo"),
        QStringLiteral("le_symbol.setSecurityList"), QStringLiteral("panel.setAlgoWhiteList"),
        QStringLiteral("panel.setAlgoBlackList"), QStringLiteral("panel.setBaseInfoData"),
        QStringLiteral("panel.ReInit"), QStringLiteral("panel.ClearParams"), QStringLiteral("panel.RefreshAlgoList"),
        QStringLiteral("panel.LoadStrategy") };
    return operations.contains(operation) || operation.startsWith(QLatin1String("OrloAgreementSignWidget"));
}

} // namespace

Driver::Driver()
    : m_host(std::make_unique<QWidget>())
{
    m_log.keepSilent();
    Script::instance().onCall = takeBaseData;
    auto* const layout = new QVBoxLayout(m_host.get());
    m_editor = new AutoParamSetting(m_host.get());
    layout->addWidget(m_editor);
    QObject::connect(m_editor, &AutoParamSetting::signalBtnCancelClicked, m_editor, [this] { ++m_closes; });
    m_view = std::make_unique<FormView>(*m_editor);
    m_host->show();
}

Driver::~Driver()
{
    m_host.reset();
    Script::instance().onCall = nullptr;
}

ParamListWidget_single* Driver::panelWidget() const
{
    return m_editor->findChild<ParamListWidget_single*>();
}

void Driver::act(const Action& action)
{
    Script& script = Script::instance();
    switch (action.kind) {
    case ChooseInBox:
        return m_view->at<QComboBox>(action.widget)->setCurrentIndex(action.index);
    case ChooseSecurity:
        return static_cast<VorSearchBox*>(m_view->at<QWidget>(Symbol))->setSymbol(action.text);
    case TypePrice1:
    case TypePrice2:
    case TypeRemark:
        return m_view->at<QLineEdit>(action.widget)->setText(action.text);
    case EnterTargetTotal:
    case EnterDayMax:
    case EnterRatio:
        return m_view->at<OrloDecimalLineEdit>(action.widget)->setValue(action.number);
    case EmptyNumber:
        return m_view->at<OrloDecimalLineEdit>(action.widget)->clear();
    case PickRange:
        return m_view->at<OrloDateEdit>(Range)->SetStartEndDate(action.start, action.end);
    case PickDate:
        return m_view->at<OrloDateEdit>(Single)->SetDate(action.start);
    case PressAlgorithms:
        return m_view->at<QAbstractButton>(AlgoButton)->click();
    case PressOk:
        script.questionAnswers = action.answers;
        m_view->at<QAbstractButton>(OkButton)->click();
        script.questionAnswers.clear();
        return;
    case PressCancel:
        return m_view->at<QAbstractButton>(CancelButton)->click();
    case AveragesArrive:
        Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAResponse(
            action.text, action.texts, action.fails ? QStringLiteral("查询失败") : QString());
        return;
    case StrategiesArrive:
        Q_EMIT AlgoTradeLogicNew::GetInstance()->sigQryAlgoStrategiesRsp({});
        return;
    case EditPlan:
        return m_editor->editPlan(action.text);
    case CopyPlan:
        return m_editor->copyPlan(action.text);
    case ResetEnable:
        return m_editor->resetEnable();
    case HideOrShow:
        return m_host->setVisible(!m_host->isVisible());
    default:
        return;
    }
}

void Driver::confirmPanel(const QString& strategy)
{
    Script& script = Script::instance();
    script.panelHasParams = true;
    script.panelStrategy = strategy;
    script.panelParams = script.panelBaseData;
    script.panelParams.insert(AutoPlanField::BaseField::algoStrategyName, strategy);
    script.panelParams.insert(QStringLiteral("rate"), QStringLiteral("0.2"));
}

PanelState Driver::panel() const
{
    const Script& script = Script::instance();
    return { panelWidget() != nullptr, script.panelHasParams, script.panelStrategy, script.panelParams,
        script.panelBaseData };
}

Effects Driver::takeEffects()
{
    Script& script = Script::instance();
    Effects effects;
    for (const ScriptBox& box : qAsConst(script.boxes)) {
        const QString parent = box.parent == m_editor ? QString() : QStringLiteral(" beside the editor");
        effects.boxes.append(box.kind + QStringLiteral(": ") + box.text + parent);
    }
    for (const ScriptCall& call : qAsConst(script.typedCalls)) {
        if (isOutward(call.operation))
            effects.outward.append(call.text());
    }
    std::swap(effects.created, script.createdRecords);
    std::swap(effects.modified, script.modifiedRecords);
    std::swap(effects.closes, m_closes);
    effects.warnings = m_log.warnings();
    if (ParamListWidget_single* const panel = panelWidget()) {
        effects.panelShown = panel->isVisible();
        panel->hide();
    }
    m_log.clear();
    script.forget();
    return effects;
}

} // namespace model
