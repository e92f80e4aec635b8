#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// One execution algorithm of the algorithm service. A default-constructed strategy, with empty texts, means "no such
/// strategy".
struct AesStrategy {
    QString name;     ///< name; identifies the strategy everywhere
    QString alias;    ///< name shown to the trader
    QString provider; ///< provider that runs the algorithm
    QString version;  ///< version of its parameter list
};

Q_DECLARE_METATYPE(AesStrategy)
