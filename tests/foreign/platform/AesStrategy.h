#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

struct AesStrategy {
    QString name;
    QString alias;
};

Q_DECLARE_METATYPE(AesStrategy)
