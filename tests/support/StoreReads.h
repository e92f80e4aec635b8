#pragma once

#include "Status.h"

#include <QPair>
#include <QStringList>
#include <QVector>

#include <functional>

/// Every read of the stores, for tests of failing ones.
namespace StoreReads {

/// What a read finds, as texts, or its failure.
using Answer = Result<QStringList>;
using Read = std::function<Answer()>;

/// The security account, cash, limits, states and other contents of the session's first plan and its account that some
/// reads find. Its day is issued.
Status addContents();

/// The reads by their names, of the session's first plan, its account and its day.
QVector<QPair<const char*, Read>> all();

} // namespace StoreReads
