#include "CodeWords.h"

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"

#include <QCoreApplication>

using namespace PlanCodes;

namespace {

QString chinese(const char* word)
{
    return QString::fromUtf8(word);
}

QStringList others(const char* words)
{
    return QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

QString CodeWords::word(const QString& code) const
{
    for (const Word& known : m_words) {
        if (known.code == code)
            return known.word;
    }
    return code;
}

QString CodeWords::code(const QString& text) const
{
    for (const Word& known : m_words) {
        if (text == known.code || text == known.word || known.others.contains(text, Qt::CaseInsensitive))
            return known.code;
    }
    return QString();
}

const CodeWords& CodeWords::planTypes()
{
    static const CodeWords words{ { PlanType::CumulativeQty, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "累计数量")),
                                      others("cumulative") },
        { PlanType::AverageQty, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "平均数量")), others("average") },
        { PlanType::SameElements, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "相同要素")), others("same") },
        { PlanType::ReduceHoldings, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "减持")), others("reduction") } };
    return words;
}

const CodeWords& CodeWords::instructionTypes()
{
    static const CodeWords words{ { InstructionType::Ordinary, chinese("普通交易"), others("普通 ordinary") },
        { InstructionType::Credit, chinese("信用交易"), others("信用 credit") },
        { InstructionType::Bond, chinese("债券交易"), others("债券 bond") },
        { InstructionType::HkConnect, chinese("港股通交易"), others("港股通 connect") } };
    return words;
}

const CodeWords& CodeWords::sides()
{
    static const CodeWords words{ { Kelvo_Values::OrderSide::buy, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "买入")),
                                      others("买 buy B") },
        { Kelvo_Values::OrderSide::sell, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "卖出")), others("卖 sell S") } };
    return words;
}

const CodeWords& CodeWords::priceModes()
{
    static const CodeWords words{ { PriceModel::NoLimit, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "不限价")),
                                      others("market") },
        { PriceModel::Custom, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "自定义")), others("custom") },
        { PriceModel::CompareMax, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "比较值取最大")), others("larger") },
        { PriceModel::CompareMin, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "比较值取最小")), others("smaller") } };
    return words;
}

const CodeWords& CodeWords::instructionModes()
{
    static const CodeWords words{ { InstMode::ActiveManage, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "主动管理")),
                                      others("active") },
        { InstMode::NormalReview, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "普通交易复核")), others("review") },
        { InstMode::AlgoReview, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "算法交易复核")), others("algorithm") } };
    return words;
}

const CodeWords& CodeWords::priceTypes()
{
    static const CodeWords words{ { Orlo_Values::HKTimeInForce::InTrade,
                                      chinese(QT_TRANSLATE_NOOP("PlanFormatter", "增强限价盘")) },
        { Orlo_Values::HKTimeInForce::BeforeTrade, chinese(QT_TRANSLATE_NOOP("PlanFormatter", "竞价限价盘")) } };
    return words;
}

const CodeWords& CodeWords::exchanges()
{
    static const CodeWords words{ { Kelvo_Values::Exchange::sh, chinese("上海证券交易所"), others("上海 上交所 SH") },
        { Kelvo_Values::Exchange::sz, chinese("深圳证券交易所"), others("深圳 深交所 SZ") },
        { Orlo_Values::Exchange::bj, chinese("北京证券交易所"), others("北京 北交所 BJ") },
        { Orlo_Values::Exchange::HkStockCirculation, chinese("港股通"), others("香港 HK") } };
    return words;
}

const CodeWords& CodeWords::securityTypes()
{
    using namespace Kelvo_Values::MdcSecurityType;
    static const CodeWords words{ { StockType, chinese("股票") }, { BondType, chinese("债券") },
        { FundType, chinese("基金") } };
    return words;
}

const CodeWords& CodeWords::securitySubTypes()
{
    using namespace Kelvo_Values::MdcSubSecurityType;
    using namespace Orlo_Values::MdcSubSecurityType;
    static const CodeWords words{ { Ashares, chinese("主板") }, { Smallandmediumstock, chinese("中小板") },
        { Gemstock, chinese("创业板") }, { ScienTechInnovateBoard, chinese("科创板") },
        { BjSelectedStock, chinese("北交所股票") }, { HStcokCirculation, chinese("港股通股票") },
        { PaidRationStock, chinese("配股") }, { TradingopenindexfundETF, chinese("ETF") },
        { Reits, chinese("REITs"), others("公募REITs") }, { Assetbackedsecurities, chinese("资产支持证券") },
        { DirectedConBond, chinese("定向可转债") }, { PaidRationBond, chinese("配债") },
        { QStringLiteral("bond-convertible"), chinese("可转债") },
        { QStringLiteral("bond-exchangeable"), chinese("可交换债") },
        { QStringLiteral("bond-treasury"), chinese("国债") },
        { QStringLiteral("bond-local-government"), chinese("地方政府债") },
        { QStringLiteral("bond-policy-bank"), chinese("政策性金融债") },
        { QStringLiteral("bond-corporate"), chinese("公司债") },
        { QStringLiteral("bond-enterprise"), chinese("企业债") } };
    return words;
}

const CodeWords& CodeWords::assetProperties()
{
    static const CodeWords words{ { QStringLiteral("ordinary"), chinese("普通") },
        { Orlo_Values::FundAccountType::Credit, chinese("信用") } };
    return words;
}

const CodeWords& CodeWords::specialTreatments()
{
    static const CodeWords words{ { Orlo_Values::StFlag::Normal, chinese("正常"), others("无 none") },
        { QStringLiteral("ST"), QStringLiteral("ST") }, { QStringLiteral("*ST"), QStringLiteral("*ST") } };
    return words;
}

const CodeWords& CodeWords::answers()
{
    static const CodeWords words{ { QStringLiteral("1"), chinese("是"), others("yes true y") },
        { QStringLiteral("0"), chinese("否"), others("no false n") } };
    return words;
}

const CodeWords& CodeWords::calendarMarkets()
{
    static const CodeWords words{ { QStringLiteral("mainland"), chinese("内地") },
        { QStringLiteral("hongkong"), chinese("香港") } };
    return words;
}

const CodeWords& CodeWords::closureStatuses()
{
    static const CodeWords words{ { QStringLiteral("announced"), chinese("已公布") },
        { QStringLiteral("provisional"), chinese("暂定") }, { QStringLiteral("computed"), chinese("推算") } };
    return words;
}

const CodeWords& CodeWords::planStates()
{
    static const CodeWords words{ { StateName::Active, chinese("进行中"), others("running") },
        { StateName::Paused, chinese("已暂停"), {} }, { StateName::Stopped, chinese("已停止"), {} },
        { StateName::Archived, chinese("已归档"), {} } };
    return words;
}
