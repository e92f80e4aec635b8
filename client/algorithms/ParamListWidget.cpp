#include "ParamListWidget.h"

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
