#include "SampleBoards.h"

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "Security.h"

#include <algorithm>
#include <numeric>

namespace {

namespace Exchange {
using namespace Kelvo_Values::Exchange;
using namespace Orlo_Values::Exchange;
} // namespace Exchange

namespace SubType {
using namespace Kelvo_Values::MdcSubSecurityType;
using namespace Orlo_Values::MdcSubSecurityType;
} // namespace SubType

using Kelvo_Values::MdcSecurityType::BondType;
using Kelvo_Values::MdcSecurityType::FundType;
using Kelvo_Values::MdcSecurityType::StockType;

const QString& suffixOf(const QString& exchange)
{
    if (exchange == Exchange::sh)
        return Kelvo_Values::SymbolPost::sh;
    if (exchange == Exchange::sz)
        return Kelvo_Values::SymbolPost::sz;
    return exchange == Exchange::bj ? SymbolSuffix::Bj : SymbolSuffix::Hk;
}

SampleBoard shares(const QString& exchange, const CodeRange& range, int count, int limitPerMille, int step = 100)
{
    return { SampleKind::Share, StockType, exchange, suffixOf(exchange), { range }, count, limitPerMille, 2, 1, step };
}

SampleBoard funds(const QString& exchange, const CodeRange& range, int count, int limitPerMille = 100)
{
    return { SampleKind::Fund, FundType, exchange, suffixOf(exchange), { range }, count, limitPerMille, 3, 1, 100 };
}

SampleBoard trusts(const QString& exchange, const CodeRange& range, int count)
{
    return { SampleKind::Trust, FundType, exchange, suffixOf(exchange), { range }, count, 100, 3, 1, 100 };
}

// Shanghai stores bonds in lots of ten.
SampleBoard bonds(SampleKind kind, const QString& exchange, const QVector<CodeRange>& ranges, int count)
{
    const int limit = kind == SampleKind::Convertible ? 200 : 0;
    const int factor = exchange == Exchange::sh ? 10 : 1;
    return { kind, BondType, exchange, suffixOf(exchange), ranges, count, limit, 3, factor, 10 };
}

QStringList plainBondSubTypes()
{
    QStringList subTypes = SubType::AllBondNoRepurchaseTypeList;
    const auto isConvertible = [](const QString& subType) {
        return SubType::ConvertableBondTypeList.contains(subType);
    };
    subTypes.erase(std::remove_if(subTypes.begin(), subTypes.end(), isConvertible), subTypes.end());
    return subTypes;
}

QStringList listedConvertibleSubTypes()
{
    QStringList subTypes = SubType::ConvertableBondTypeList;
    subTypes.removeAll(SubType::DirectedConBond);
    return subTypes;
}

/// Ranges of a thousand codes each, the sub-types taken in turn.
QVector<CodeRange> thousands(const QVector<int>& firsts, const QStringList& subTypes)
{
    QVector<CodeRange> ranges;
    for (int i = 0; i < firsts.size(); ++i)
        ranges << CodeRange{ firsts.at(i) * 1000, 1000, subTypes.at(i % subTypes.size()) };
    return ranges;
}

QVector<int> span(int first, int last)
{
    QVector<int> values(last - first + 1);
    std::iota(values.begin(), values.end(), first);
    return values;
}

QVector<SampleBoard> shareBoards()
{
    using namespace SubType;
    return {
        shares(Exchange::sh, { 600000, 1000, Ashares }, 620, 100),
        shares(Exchange::sh, { 601000, 1000, Ashares }, 230, 100),
        shares(Exchange::sh, { 603000, 1000, Ashares }, 600, 100),
        shares(Exchange::sh, { 605000, 600, Ashares }, 250, 100),
        shares(Exchange::sh, { 688000, 1000, ScienTechInnovateBoard }, 590, 200, 1),
        shares(Exchange::sz, { 1, 999, Ashares }, 400, 100),
        shares(Exchange::sz, { 1200, 200, Ashares }, 200, 100),
        shares(Exchange::sz, { 2001, 999, Smallandmediumstock }, 950, 100),
        shares(Exchange::sz, { 3000, 50, Ashares }, 50, 100),
        shares(Exchange::sz, { 300001, 999, Gemstock }, 960, 200),
        shares(Exchange::sz, { 301001, 700, Gemstock }, 300, 200),
        shares(Exchange::bj, { 430000, 1000, BjSelectedStock }, 20, 300),
        shares(Exchange::bj, { 830000, 10000, BjSelectedStock }, 120, 300),
        shares(Exchange::bj, { 870000, 4000, BjSelectedStock }, 80, 300),
        shares(Exchange::bj, { 920000, 1000, BjSelectedStock }, 30, 300),
    };
}

QVector<SampleBoard> fundBoards()
{
    using namespace SubType;
    return {
        funds(Exchange::sh, { 510010, 8990, TradingopenindexfundETF }, 300),
        funds(Exchange::sh, { 560000, 4000, TradingopenindexfundETF }, 180),
        funds(Exchange::sh, { 588000, 1000, TradingopenindexfundETF }, 120, 200),
        funds(Exchange::sz, { 159100, 900, TradingopenindexfundETF }, 300),
        trusts(Exchange::sh, { 508000, 100, Reits }, 46),
        trusts(Exchange::sz, { 180101, 899, Reits }, 24),
    };
}

QVector<SampleBoard> convertibleBoards()
{
    const QStringList subTypes = listedConvertibleSubTypes();
    const QString& convertible = subTypes.constFirst();
    const QString& exchangeable = subTypes.constLast();
    return {
        bonds(SampleKind::Convertible, Exchange::sh,
            { { 110000, 100, convertible }, { 111000, 100, convertible }, { 113000, 700, convertible },
                { 118000, 100, convertible } },
            230),
        bonds(SampleKind::Convertible, Exchange::sh, { { 132000, 100, exchangeable } }, 20),
        bonds(SampleKind::Convertible, Exchange::sz,
            { { 123000, 300, convertible }, { 127000, 200, convertible }, { 128000, 200, convertible } }, 240),
        bonds(SampleKind::Convertible, Exchange::sz, { { 120000, 100, exchangeable } }, 10),
    };
}

QVector<SampleBoard> bondBoards()
{
    const QStringList plain = plainBondSubTypes();
    const QStringList assetBacked{ SubType::Assetbackedsecurities };
    const QStringList directed{ SubType::DirectedConBond };
    const QVector<int> shPlain = span(10, 20) + span(136, 140) + span(143, 145) + span(150, 155) + span(160, 164)
        + span(170, 178) + span(184, 188) + span(194, 198) + span(230, 259);
    const QVector<int> shAssetBacked =
        QVector<int>{ 142, 146, 156, 159, 165, 168, 169, 179, 183, 189, 193, 199 } + span(260, 279);
    const QVector<int> szPlain = span(100, 102) + span(104, 109) + QVector<int>{ 112, 114, 133, 134, 148, 149, 524 };
    const QVector<int> szAssetBacked{ 116, 119, 135, 138, 139, 143, 144, 146 };
    return {
        bonds(SampleKind::Bond, Exchange::sh, thousands(shPlain, plain), 1700),
        bonds(SampleKind::AssetBacked, Exchange::sh, thousands(shAssetBacked, assetBacked), 500),
        bonds(SampleKind::DirectedConvertible, Exchange::sh, { { 110800, 200, directed.constFirst() } }, 40),
        bonds(SampleKind::Bond, Exchange::sz, thousands(szPlain, plain), 500),
        bonds(SampleKind::AssetBacked, Exchange::sz, thousands(szAssetBacked, assetBacked), 220),
        bonds(SampleKind::DirectedConvertible, Exchange::sz, { { 124000, 200, directed.constFirst() } }, 40),
    };
}

QVector<SampleBoard> hongKongBoards()
{
    return { { SampleKind::HongKong, StockType, Exchange::HkStockCirculation, SymbolSuffix::Hk,
        { { 1, 3999, SubType::HStcokCirculation }, { 6001, 999, SubType::HStcokCirculation },
            { 9601, 399, SubType::HStcokCirculation } },
        500, 0, 3, 1, 0 } };
}

// Codes outside the boards of a market of standard size; used when all other codes are in use.
QVector<SampleBoard> furtherBondBoards()
{
    const QStringList plain = plainBondSubTypes();
    return {
        bonds(SampleKind::Bond, Exchange::sh, thousands(span(280, 499) + span(700, 899), plain), 0),
        bonds(SampleKind::Bond, Exchange::sz, thousands(span(310, 394) + span(525, 999), plain), 0),
    };
}

} // namespace

int SampleBoard::capacity() const
{
    return std::accumulate(
        ranges.cbegin(), ranges.cend(), 0, [](int sum, const CodeRange& range) { return sum + range.size; });
}

const QVector<SampleBoard>& sampleBoards()
{
    static const QVector<SampleBoard> boards =
        shareBoards() + fundBoards() + convertibleBoards() + bondBoards() + hongKongBoards() + furtherBondBoards();
    return boards;
}
