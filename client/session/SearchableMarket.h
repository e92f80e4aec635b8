#pragma once

#include "Market.h"

#include <memory>

/// The market of the session with its search indexes. Both are replaced together, because another thread reads the
/// market's names while it prepares the indexes.
class SearchableMarket {
public:
    /// Constructs an empty market.
    SearchableMarket();

    const Market& market() const { return *m_market; }

    /// Loads every security of the database. If reading fails, keeps the market.
    Status load(Database& database);
    /// Takes securities that were loaded elsewhere.
    void take(const Market& market) { replace(std::make_unique<const Market>(market)); }
    /// Clears the market. After it returns, no thread reads names.
    void clear();
    /// Prepares the indexes when pending events have been processed, so that a window under construction comes first.
    void prepareSearch();

private:
    void replace(std::unique_ptr<const Market> market);

    std::unique_ptr<const Market> m_market;
};
