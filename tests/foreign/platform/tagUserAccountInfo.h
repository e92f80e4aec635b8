#pragma once

#include <QString>

struct tagUserAccountInfo {
    QString clientNo;
    QString branchNo;
    QString fundAccount;
    QString tradingAccount;
};
