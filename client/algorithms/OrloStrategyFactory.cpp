#include "OrloStrategyFactory.h"
#include "algorithms/AlgorithmPanel.h"

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
