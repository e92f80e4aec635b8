#pragma once

#include "store/AccountStore.h"
#include "tagUserAccountInfo.h"

/// A stored account as the services hand it out.
tagUserAccountInfo accountRecord(const StoredAccount& account);
