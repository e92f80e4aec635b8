#pragma once

#include "Database.h"
#include "Security.h"
#include "SecurityStore.h"

#include <QDate>

#include <functional>

/// What the sample market is made of.
struct SampleMarketOptions {
    /// The same seed makes the same market.
    quint64 seed = 20240506;
    /// Number of securities; `SampleMarket::standardSize` unless asked otherwise.
    int size = 0;
    /// Day of the last close; a trading day.
    QDate lastDay;
};

/// An invented market with the boards, code ranges, lots and limits of the real one.
class SampleMarket {
public:
    /// Told how many securities of how many are written; false stops the writing.
    using Progress = std::function<bool(int done, int total)>;

    static int standardSize();
    /// The code ranges hold no more than this.
    static int largestSize();
    /// Closes of a security that was listed long enough ago.
    static int closesPerSecurity();

    /// Writes the market in one transaction, so that a market that was stopped or failed leaves nothing behind.
    /// A size of more than `largestSize` or less than one security of every kind is refused.
    static Status write(Database& database, const SampleMarketOptions& options, const Progress& progress = {});
};
