#include "services/AccountRecord.h"

tagUserAccountInfo accountRecord(const StoredAccount& account)
{
    return { account.tradingAccount, account.fundAccount, account.name, account.clientNo, account.branchNo };
}
