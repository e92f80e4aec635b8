#include "ScriptedPanel.h"

#include "OrloStrategyFactory.h"
#include "Script.h"

class ParamListWidget_single::Private { };

ParamListWidget_single::ParamListWidget_single(QWidget* parent)
    : QWidget(parent)
{
}

ParamListWidget_single::~ParamListWidget_single() = default;

void ParamListWidget_single::setAlgoWhiteList(QStringList names)
{
    Script::instance().record(QStringLiteral("panel.setAlgoWhiteList"), { names });
}

void ParamListWidget_single::setAlgoBlackList(QStringList names)
{
    Script::instance().record(QStringLiteral("panel.setAlgoBlackList"), { names });
}

QStringList ParamListWidget_single::getAuthorityAlgoList() const
{
    Script::instance().record(QStringLiteral("panel.getAuthorityAlgoList"), {});
    return Script::instance().authorityAlgoNames;
}

AlgoErrorCode ParamListWidget_single::setBaseInfoData(QMap<QString, QVariant> baseData, bool resetParams)
{
    Script::instance().panelBaseData = baseData;
    Script::instance().record(QStringLiteral("panel.setBaseInfoData"), { baseData, resetParams });
    return Script::instance().panelBaseDataAnswer;
}

ScriptedPanel::ScriptedPanel(QWidget* parent)
    : ParamListWidget_single(parent)
{
}

QString ScriptedPanel::LoadStrategy(const AesStrategy& strategy, const QMap<QString, QVariant>& defaults,
    const QMap<QString, QVariant>& parameters, const QString& symbol)
{
    Script::instance().record(QStringLiteral("panel.LoadStrategy"), { strategy.name, defaults, parameters, symbol });
    if (!strategy.name.isEmpty())
        show();
    return Script::instance().panelLoadAnswer;
}

QMap<QString, QVariant> ScriptedPanel::GetParamMap() const
{
    Script::instance().record(QStringLiteral("panel.GetParamMap"), {});
    return Script::instance().panelParams;
}

QString ScriptedPanel::GetStrategyName() const
{
    Script::instance().record(QStringLiteral("panel.GetStrategyName"), {});
    return Script::instance().panelStrategy;
}

void ScriptedPanel::RefreshAlgoList()
{
    Script::instance().record(QStringLiteral("panel.RefreshAlgoList"), {});
}

void ScriptedPanel::ReInit()
{
    Script::instance().record(QStringLiteral("panel.ReInit"), {});
}

bool ScriptedPanel::HasParams() const
{
    Script::instance().record(QStringLiteral("panel.HasParams"), {});
    return Script::instance().panelHasParams;
}

void ScriptedPanel::ClearParams()
{
    Script& script = Script::instance();
    script.record(QStringLiteral("panel.ClearParams"), {});
    script.panelStrategy.clear();
    script.panelParams.clear();
    script.panelHasParams = false;
}

OrloStrategyFactory& OrloStrategyFactory::instance()
{
    static OrloStrategyFactory factory;
    return factory;
}

ParamListWidget_single* OrloStrategyFactory::CreateStrategyWgt(StrategyMode mode, QWidget* parent,
    const QString& globalType, QStringList whiteList, QStringList blackList, int flags)
{
    Script::instance().record(QStringLiteral("CreateStrategyWgt"),
        { static_cast<int>(mode), parent == nullptr ? QString() : parent->objectName(), globalType, whiteList,
            blackList, flags });
    return new ScriptedPanel(parent);
}
