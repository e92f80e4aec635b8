#include "ParamListWidget.h"

#include "AlgorithmPanel.h"
#include "OrloStrategyFactory.h"
#include "ParamListWidget_single.h"

ParamListWidget_single::ParamListWidget_single(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
}

ParamListWidget_single::~ParamListWidget_single() = default;

void ParamListWidget_single::setAlgoWhiteList(QStringList names)
{
    d->choice.setWhiteList(names);
}

void ParamListWidget_single::setAlgoBlackList(QStringList names)
{
    d->choice.setBlackList(names);
}

QStringList ParamListWidget_single::getAuthorityAlgoList() const
{
    return d->choice.offered();
}

AlgoErrorCode ParamListWidget_single::setBaseInfoData(QMap<QString, QVariant> baseData, bool resetParams)
{
    const AlgoErrorCode result = d->choice.takeBaseData(baseData, resetParams);
    if (d->baseDataTaken)
        d->baseDataTaken(baseData);
    return result;
}

OrloStrategyFactory& OrloStrategyFactory::instance()
{
    static OrloStrategyFactory factory;
    return factory;
}

ParamListWidget_single* OrloStrategyFactory::CreateStrategyWgt(StrategyMode mode, QWidget* parent,
    const QString& globalType, QStringList whiteList, QStringList blackList, int flags)
{
    // The client has one layout and one kind; both serve whoever asks for another.
    Q_UNUSED(mode)
    Q_UNUSED(globalType)
    auto* const panel = new AlgorithmPanel(flags, parent);
    panel->setAlgoWhiteList(whiteList);
    panel->setAlgoBlackList(blackList);
    panel->RefreshAlgoList();
    return panel;
}
