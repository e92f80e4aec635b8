#include "AlgorithmParameters.h"

#include "AlgoTradeLogicNew.h"
#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "AutoParamSetting.h"
#include "CDataBase.h"
#include "ComboItems.h"
#include "InstructionBusinessDataInterface.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "OrloStrategyFactory.h"
#include "OrloUtils.h"
#include "OrloWidget.h"
#include "ui_AutoParamSetting.h"

#include <QDebug>
#include <QPointer>

namespace {

namespace Content = Algo_Fields::AlgoInstContentInfo;

// The enumerators have different names in each client, but the number of the single panel is the same in all.
const auto SinglePanel = static_cast<StrategyMode>(2);
constexpr int ChoiceAndParameters = 3;
constexpr int CentredOverWindow = 2;
const QString LoadSucceeded = QStringLiteral("0");

FieldMap baseData(const Ui::AutoParamSetting& ui)
{
    FieldMap data;
    data.insert(Content::TradingAccount, ui.combx_fundAccount->GetCurTradingAccount());
    data.insert(Content::Symbol, ui.le_symbol->getSymbol());
    AlgorithmParameters::insertSide(data, currentCode(ui.combx_tradeSide));
    data.insert(Content::EntrustProp, AlgorithmParameters::orderProperty(currentCode(ui.combx_entrustType)));
    return data;
}

} // namespace

namespace AlgorithmParameters {

ParamListWidget_single* createWidget(QWidget* editor, const QStringList& whiteList)
{
    // The black list is omitted: refreshLists() sets it before every use.
    ParamListWidget_single* const widget = OrloStrategyFactory::instance().CreateStrategyWgt(
        SinglePanel, editor, Algo_Values::AlgoGlobalType::instruction, whiteList, QStringList(), ChoiceAndParameters);
    widget->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    widget->setWindowModality(Qt::ApplicationModal);
    return widget;
}

void refreshLists(ParamListWidget_single* widget, const QStringList& whiteList, const QStringList& blackList)
{
    widget->setAlgoWhiteList(whiteList);
    widget->setAlgoBlackList(blackList);
    widget->RefreshAlgoList();
}

QString algorithmSide(const QString& side)
{
    if (side == Kelvo_Values::OrderSide::buy)
        return Algo_Values::AlgoOrderSide::BuyValue;
    if (side == Kelvo_Values::OrderSide::sell)
        return Algo_Values::AlgoOrderSide::SellValue;
    return QString();
}

void insertSide(FieldMap& baseData, const QString& side)
{
    const QString code = algorithmSide(side);
    if (!code.isEmpty())
        baseData.insert(Content::OrderSide, code);
}

QString orderProperty(const QString& entrustType)
{
    return CDataBase::GetInstance()->GetStaticCfgValue(
        OrloConstants::DictionaryKey::SideUnion2AlgoDefines, entrustType);
}

} // namespace AlgorithmParameters

void AutoParamSetting::slotUpdateAlgoWhiteList()
{
    const QString symbol = ui->le_symbol->getSymbol();
    const QString instructionType = currentCode(ui->combx_instructionType);
    const QString targetType = currentCode(ui->combx_instructionTargetType);
    m_algoWhiteList = InstructionBusinessDataInterface::getWhiteAlgoNameList(instructionType, targetType, symbol);
    m_algoBlackList = InstructionBusinessDataInterface::getBlackAlgoNameList(targetType);
}

void AutoParamSetting::slotBtnAlgoParamSettingClicked()
{
    if (ui->combx_fundAccount->GetCurTradingAccount().isEmpty()) {
        OrloWidget::ShowWarningMsgBox(tr("未选择资金帐号！"), this);
        return;
    }
    if (!m_algoParamWidget)
        m_algoParamWidget = AlgorithmParameters::createWidget(this, m_algoWhiteList);
    QString name = m_algoParamWidget->GetStrategyName();
    FieldMap parameters = m_algoParamWidget->GetParamMap();
    AlgorithmParameters::refreshLists(m_algoParamWidget, m_algoWhiteList, m_algoBlackList);

    const QStringList authorised = m_algoParamWidget->getAuthorityAlgoList();
    qInfo() << "AutoParamSetting::slotBtnAlgoParamSettingClicked" << name << parameters << m_algoWhiteList
            << m_algoBlackList << authorised;
    if (!authorised.isEmpty() && !authorised.contains(name)) {
        name = authorised.first();
        parameters.clear();
    }
    qInfo() << "AutoParamSetting::slotBtnAlgoParamSettingClicked" << name << parameters;

    const AesStrategy strategy = AlgoTradeLogicNew::GetInstance()->GetStrategy(name);
    const QPointer<AutoParamSetting> self(this);
    const QString failure = m_algoParamWidget->LoadStrategy(strategy, {}, parameters, ui->le_symbol->getSymbol());
    // LoadStrategy() and setBaseInfoData() may run event loops in which the host closes the editor.
    if (!self)
        return;
    m_algoParamWidget->move(OrloUtils::GetWidgetPos(m_algoParamWidget, CentredOverWindow));
    m_algoParamWidget->setBaseInfoData(baseData(*ui), false);
    if (!self)
        return;
    // Loading a strategy with a name already shows the widget.
    if (name.isEmpty())
        m_algoParamWidget->show();
    // Reported last: the panel gets its position and base data even if the strategy was not loaded.
    if (failure != LoadSucceeded)
        OrloWidget::ShowErrorMsgBox(failure, this);
}
