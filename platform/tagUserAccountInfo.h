#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// One fund account of the operator, from the business data. A default-constructed record, with empty texts, means "no
/// such account".
struct tagUserAccountInfo {
    QString tradingAccount; ///< trading account; identifies the account everywhere
    QString fundAccount;    ///< fund account shown to the trader
    QString accountName;    ///< name of the account shown to the trader
    QString clientNo;       ///< number of the client who owns the account; agreements are signed under it
    QString branchNo;       ///< branch at which the account is kept; stored in a plan under the field id 10112
};

Q_DECLARE_METATYPE(tagUserAccountInfo)
