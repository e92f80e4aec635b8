#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// One execution algorithm of the algorithm service. A default-constructed strategy stands for "no such strategy":
/// every text is empty.
struct AesStrategy {
    QString name;     ///< name; the key of a strategy everywhere
    QString alias;    ///< name as shown to the trader
    QString provider; ///< who runs the algorithm
    QString version;  ///< version of its parameter list
};

Q_DECLARE_METATYPE(AesStrategy)
