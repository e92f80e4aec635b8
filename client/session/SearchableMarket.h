#pragma once

#include "Market.h"

#include <memory>

/// The market of the session together with the indexes that search it: both are replaced at once, because another
/// thread reads the market's names while indexes are being prepared.
class SearchableMarket {
public:
    /// Holds an empty market.
    SearchableMarket();

    const Market& market() const { return *m_market; }

    /// Loads every security of the database. When reading fails the market stays as it was.
    Status load(Database& database);
    /// Goes back to an empty market. Once it returns, no thread reads names any more.
    void clear();
    /// Begins to prepare the indexes once events are worked off: a window that is being built needs the processor more.
    void prepareSearch();

private:
    void replace(std::unique_ptr<const Market> market);

    std::unique_ptr<const Market> m_market;
};
