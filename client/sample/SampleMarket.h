#pragma once

#include "Database.h"
#include "Security.h"
#include "SecurityStore.h"

#include <QDate>

#include <functional>

/// The parameters of the sample market.
struct SampleMarketOptions {
    /// Equal seeds make equal markets.
    quint64 seed = 20240506;
    /// Number of securities; `SampleMarket::standardSize` unless asked otherwise.
    int size = 0;
    /// Day of the last close; a trading day.
    QDate lastDay;
};

/// An invented market with the boards, code ranges, lots and limits of the real one.
class SampleMarket {
public:
    /// Called with the number of written securities and their total; returning false stops the writing.
    using Progress = std::function<bool(int done, int total)>;

    static int standardSize();
    /// The capacity of the code ranges.
    static int largestSize();

    /// Writes the market in one transaction; if it is stopped or fails, the database is unchanged. Refuses a size above
    /// `largestSize` or below one security of every kind.
    static Status write(Database& database, const SampleMarketOptions& options, const Progress& progress = {});
};
