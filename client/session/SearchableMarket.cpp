#include "SearchableMarket.h"

#include "SymbolIndexes.h"

#include <QTimer>

// The indexes are created before the market and outlive it.
SearchableMarket::SearchableMarket()
    : m_market(std::make_unique<const Market>())
{
    SymbolIndexes::instance();
    SymbolIndexes::ofInitials();
}

Status SearchableMarket::load(Database& database)
{
    auto market = std::make_unique<Market>();
    Status status = market->load(database);
    if (status)
        replace(std::move(market));
    return status;
}

void SearchableMarket::clear()
{
    replace(std::make_unique<const Market>());
}

void SearchableMarket::replace(std::unique_ptr<const Market> market)
{
    SymbolIndexes::instance().forget();
    SymbolIndexes::ofInitials().forget();
    m_market = std::move(market);
}

void SearchableMarket::prepareSearch()
{
    QTimer::singleShot(0, &SymbolIndexes::instance(), [this] {
        const auto nameOf = [this](const QString& symbol) {
            const Security* security = m_market->find(symbol);
            return security ? security->name : QString();
        };
        SymbolIndexes::instance().prepare(m_market->symbols().runs(), nameOf);
    });
}
