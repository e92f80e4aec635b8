#pragma once

#include "tagUserAccountInfo.h"
#include <QList>
#include <QMap>
#include <QVariant>

struct BusinessDataInterface {
    static QList<QMap<QString, QVariant>> GetPositionListByAccount(const tagUserAccountInfo&, const QString&,
        const QString&, const QString&, const QString&, const QString&, const QString&)
    {
        return {};
    }
};
