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
    static const CodeWords words{ { PlanType::CumulativeQty, chinese(QT_TRANSLATE_NOOP("Caption", "累计数量")),
                                      others("cumulative") },
        { PlanType::AverageQty, chinese(QT_TRANSLATE_NOOP("Caption", "平均数量")), others("average") },
        { PlanType::SameElements, chinese(QT_TRANSLATE_NOOP("Caption", "相同要素")), others("same") },
        { PlanType::ReduceHoldings, chinese(QT_TRANSLATE_NOOP("Caption", "减持")), others("reduction") } };
    return words;
}

const CodeWords& CodeWords::instructionTypes()
{
    static const CodeWords words{ { InstructionType::Ordinary, chinese(QT_TRANSLATE_NOOP("Caption", "普通交易")),
                                      others("普通 ordinary") },
        { InstructionType::Credit, chinese(QT_TRANSLATE_NOOP("Caption", "信用交易")), others("信用 credit") },
        { InstructionType::Bond, chinese(QT_TRANSLATE_NOOP("Caption", "债券交易")), others("债券 bond") },
        { InstructionType::HkConnect, chinese(QT_TRANSLATE_NOOP("Caption", "港股通交易")), others("港股通 connect") } };
    return words;
}

const CodeWords& CodeWords::sides()
{
    static const CodeWords words{ { Kelvo_Values::OrderSide::buy, chinese(QT_TRANSLATE_NOOP("Caption", "买入")),
                                      others("买 buy B") },
        { Kelvo_Values::OrderSide::sell, chinese(QT_TRANSLATE_NOOP("Caption", "卖出")), others("卖 sell S") } };
    return words;
}

const CodeWords& CodeWords::priceModes()
{
    static const CodeWords words{ { PriceModel::NoLimit, chinese(QT_TRANSLATE_NOOP("Caption", "不限价")),
                                      others("market") },
        { PriceModel::Custom, chinese(QT_TRANSLATE_NOOP("Caption", "自定义")), others("custom") },
        { PriceModel::CompareMax, chinese(QT_TRANSLATE_NOOP("Caption", "比较值取最大")), others("larger") },
        { PriceModel::CompareMin, chinese(QT_TRANSLATE_NOOP("Caption", "比较值取最小")), others("smaller") } };
    return words;
}

const CodeWords& CodeWords::instructionModes()
{
    static const CodeWords words{ { InstMode::ActiveManage, chinese(QT_TRANSLATE_NOOP("Caption", "主动管理")),
                                      others("active") },
        { InstMode::NormalReview, chinese(QT_TRANSLATE_NOOP("Caption", "普通交易复核")), others("review") },
        { InstMode::AlgoReview, chinese(QT_TRANSLATE_NOOP("Caption", "算法交易复核")), others("algorithm") } };
    return words;
}

const CodeWords& CodeWords::priceTypes()
{
    static const CodeWords words{ { Orlo_Values::HKTimeInForce::InTrade,
                                      chinese(QT_TRANSLATE_NOOP("Caption", "增强限价盘")) },
        { Orlo_Values::HKTimeInForce::BeforeTrade, chinese(QT_TRANSLATE_NOOP("Caption", "竞价限价盘")) } };
    return words;
}

const CodeWords& CodeWords::exchanges()
{
    static const CodeWords words{ { Kelvo_Values::Exchange::sh, chinese(QT_TRANSLATE_NOOP("Caption", "上海证券交易所")),
                                      others("上海 上交所 SH") },
        { Kelvo_Values::Exchange::sz, chinese(QT_TRANSLATE_NOOP("Caption", "深圳证券交易所")),
            others("深圳 深交所 SZ") },
        { Orlo_Values::Exchange::bj, chinese(QT_TRANSLATE_NOOP("Caption", "北京证券交易所")),
            others("北京 北交所 BJ") },
        { Orlo_Values::Exchange::HkStockCirculation, chinese(QT_TRANSLATE_NOOP("Caption", "港股通")),
            others("香港 HK") } };
    return words;
}

const CodeWords& CodeWords::securityTypes()
{
    using namespace Kelvo_Values::MdcSecurityType;
    static const CodeWords words{ { StockType, chinese(QT_TRANSLATE_NOOP("Caption", "股票")) },
        { BondType, chinese(QT_TRANSLATE_NOOP("Caption", "债券")) },
        { FundType, chinese(QT_TRANSLATE_NOOP("Caption", "基金")) } };
    return words;
}

const CodeWords& CodeWords::securitySubTypes()
{
    using namespace Kelvo_Values::MdcSubSecurityType;
    using namespace Orlo_Values::MdcSubSecurityType;
    static const CodeWords words{ { Ashares, chinese(QT_TRANSLATE_NOOP("Caption", "主板")) },
        { Smallandmediumstock, chinese(QT_TRANSLATE_NOOP("Caption", "中小板")) },
        { Gemstock, chinese(QT_TRANSLATE_NOOP("Caption", "创业板")) },
        { ScienTechInnovateBoard, chinese(QT_TRANSLATE_NOOP("Caption", "科创板")) },
        { BjSelectedStock, chinese(QT_TRANSLATE_NOOP("Caption", "北交所股票")) },
        { HStcokCirculation, chinese(QT_TRANSLATE_NOOP("Caption", "港股通股票")) },
        { PaidRationStock, chinese(QT_TRANSLATE_NOOP("Caption", "配股")) },
        { TradingopenindexfundETF, chinese(QT_TRANSLATE_NOOP("Caption", "ETF")) },
        { Reits, chinese(QT_TRANSLATE_NOOP("Caption", "REITs")), others("公募REITs") },
        { Assetbackedsecurities, chinese(QT_TRANSLATE_NOOP("Caption", "资产支持证券")) },
        { DirectedConBond, chinese(QT_TRANSLATE_NOOP("Caption", "定向可转债")) },
        { PaidRationBond, chinese(QT_TRANSLATE_NOOP("Caption", "配债")) },
        { QStringLiteral("bond-convertible"), chinese(QT_TRANSLATE_NOOP("Caption", "可转债")) },
        { QStringLiteral("bond-exchangeable"), chinese(QT_TRANSLATE_NOOP("Caption", "可交换债")) },
        { QStringLiteral("bond-treasury"), chinese(QT_TRANSLATE_NOOP("Caption", "国债")) },
        { QStringLiteral("bond-local-government"), chinese(QT_TRANSLATE_NOOP("Caption", "地方政府债")) },
        { QStringLiteral("bond-policy-bank"), chinese(QT_TRANSLATE_NOOP("Caption", "政策性金融债")) },
        { QStringLiteral("bond-corporate"), chinese(QT_TRANSLATE_NOOP("Caption", "公司债")) },
        { QStringLiteral("bond-enterprise"), chinese(QT_TRANSLATE_NOOP("Caption", "企业债")) } };
    return words;
}

const CodeWords& CodeWords::assetProperties()
{
    static const CodeWords words{ { QStringLiteral("ordinary"), chinese(QT_TRANSLATE_NOOP("Caption", "普通")) },
        { Orlo_Values::FundAccountType::Credit, chinese(QT_TRANSLATE_NOOP("Caption", "信用")) } };
    return words;
}

const CodeWords& CodeWords::specialTreatments()
{
    static const CodeWords words{ { Orlo_Values::StFlag::Normal, chinese(QT_TRANSLATE_NOOP("Caption", "正常")),
                                      others("无 none") },
        { QStringLiteral("ST"), QStringLiteral("ST") }, { QStringLiteral("*ST"), QStringLiteral("*ST") } };
    return words;
}

const CodeWords& CodeWords::answers()
{
    static const CodeWords words{ { QStringLiteral("1"), chinese(QT_TRANSLATE_NOOP("Caption", "是")),
                                      others("yes true y") },
        { QStringLiteral("0"), chinese(QT_TRANSLATE_NOOP("Caption", "否")), others("no false n") } };
    return words;
}

const CodeWords& CodeWords::calendarMarkets()
{
    static const CodeWords words{ { QStringLiteral("mainland"), chinese(QT_TRANSLATE_NOOP("Caption", "内地")) },
        { QStringLiteral("hongkong"), chinese(QT_TRANSLATE_NOOP("Caption", "香港")) } };
    return words;
}

const CodeWords& CodeWords::closureStatuses()
{
    static const CodeWords words{ { QStringLiteral("announced"), chinese(QT_TRANSLATE_NOOP("Caption", "已公布")) },
        { QStringLiteral("provisional"), chinese(QT_TRANSLATE_NOOP("Caption", "暂定")) },
        { QStringLiteral("computed"), chinese(QT_TRANSLATE_NOOP("Caption", "推算")) } };
    return words;
}

const CodeWords& CodeWords::planStates()
{
    static const CodeWords words{ { StateName::Active, chinese(QT_TRANSLATE_NOOP("Caption", "进行中")),
                                      others("running") },
        { StateName::Paused, chinese(QT_TRANSLATE_NOOP("Caption", "已暂停")), {} },
        { StateName::Stopped, chinese(QT_TRANSLATE_NOOP("Caption", "已停止")), {} },
        { StateName::Archived, chinese(QT_TRANSLATE_NOOP("Caption", "已归档")), {} } };
    return words;
}
