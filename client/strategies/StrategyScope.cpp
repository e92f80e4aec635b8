#include "StrategyScope.h"

#include <algorithm>
#include <optional>

namespace {

using Entries = QVector<StrategyScope::Entry>;

const QString Asia = QStringLiteral("AsiaPacificJapan");

bool hasIncluded(const Entries& entries)
{
    return std::any_of(entries.cbegin(), entries.cend(), [](const auto& entry) { return entry.isIncluded; });
}

/// Whether a code is included or excluded; nothing if the entries do not name it.
std::optional<bool> named(const Entries& entries, const QString& code)
{
    for (const StrategyScope::Entry& entry : entries) {
        if (entry.code == code)
            return entry.isIncluded;
    }
    return std::nullopt;
}

bool containsCountry(const QVector<StrategyScope::Region>& regions, const QString& country)
{
    Entries names;
    for (const StrategyScope::Region& region : regions) {
        names.append(region.entry);
        if (region.entry.code != Asia)
            continue;
        if (const std::optional<bool> isIncluded = named(region.countries, country))
            return *isIncluded;
        // Included countries are the only ones of their region.
        if (hasIncluded(region.countries))
            return false;
    }
    return named(names, Asia).value_or(!hasIncluded(names));
}

bool containsType(const Entries& types, const QStringList& codes)
{
    bool isExcluded = false;
    for (const StrategyScope::Entry& type : types) {
        if (!codes.contains(type.code))
            continue;
        if (type.isIncluded)
            return true;
        isExcluded = true;
    }
    return !isExcluded && !hasIncluded(types);
}

} // namespace

bool StrategyScope::contains(const TradedSecurity& security) const
{
    if (!containsType(securityTypes, security.types))
        return false;
    if (const std::optional<bool> isIncluded = named(markets, security.market))
        return *isIncluded;
    // A market that is included is the only one, unless regions add theirs.
    if (regions.isEmpty())
        return !hasIncluded(markets);
    return containsCountry(regions, security.country);
}
