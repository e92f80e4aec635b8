#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// One fund account of the operator, as the business data deliver it. A default-constructed record stands for
/// "no such account": every text is empty.
struct tagUserAccountInfo {
    QString tradingAccount; ///< trading account; the key of an account everywhere
    QString fundAccount;    ///< fund account as shown to the trader
    QString accountName;    ///< name of the account as shown to the trader
    QString clientNo;       ///< number of the client who owns the account; agreements are signed under it
    QString branchNo;       ///< branch at which the account is kept; stored in a plan under the field id 10112
};

Q_DECLARE_METATYPE(tagUserAccountInfo)
