#include "SampleTexts.h"

#include "AgreementStore.h"
#include "CodeWords.h"
#include "ConfigurationStore.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"

#include <QVector>

namespace {

struct StaticText {
    QString category;
    QString key;
    QString text;
};

QVector<StaticText> planTexts()
{
    using namespace PlanCodes;
    return {
        { StaticCategory::InstructionType, InstructionType::Ordinary,
            CodeWords::instructionTypes().word(InstructionType::Ordinary) },
        { StaticCategory::InstructionType, InstructionType::Credit,
            CodeWords::instructionTypes().word(InstructionType::Credit) },
        { StaticCategory::InstructionType, InstructionType::Bond,
            CodeWords::instructionTypes().word(InstructionType::Bond) },
        { StaticCategory::InstructionType, InstructionType::HkConnect,
            CodeWords::instructionTypes().word(InstructionType::HkConnect) },
        { StaticCategory::TargetType, InstructionTargetType::QtyOrder, QStringLiteral("按数量") },
        { StaticCategory::TargetType, InstructionTargetType::AmountOrder, QStringLiteral("按金额") },
    };
}

QVector<StaticText> exchangeTexts()
{
    const QString& category = OrloConstants::DictionaryKey::exchangeChineseName;
    return {
        { category, Kelvo_Values::Exchange::sh, CodeWords::exchanges().word(Kelvo_Values::Exchange::sh) },
        { category, Kelvo_Values::Exchange::sz, CodeWords::exchanges().word(Kelvo_Values::Exchange::sz) },
        { category, Orlo_Values::Exchange::bj, CodeWords::exchanges().word(Orlo_Values::Exchange::bj) },
        { category, Orlo_Values::Exchange::HkStockCirculation,
            CodeWords::exchanges().word(Orlo_Values::Exchange::HkStockCirculation) },
    };
}

QVector<StaticText> entrustTexts()
{
    using namespace Orlo_Values::SideUnion;
    const QString& category = OrloConstants::DictionaryKey::SideUnion2AlgoDefines;
    return {
        { category, normalBuy, QStringLiteral("NORMAL") },
        { category, collateralBuy, QStringLiteral("COLLATERAL") },
        { category, collateralSell, QStringLiteral("COLLATERAL") },
        { category, marginBuy, QStringLiteral("MARGIN") },
        { category, marginSell, QStringLiteral("MARGIN") },
        { category, financingBuy, QStringLiteral("FINANCING") },
        { category, financingSell, QStringLiteral("FINANCING") },
        { category, marginBuyNormal, QStringLiteral("MARGIN_NORMAL") },
        { category, marginSellNormal, QStringLiteral("MARGIN_NORMAL") },
        { category, BondConversion, QStringLiteral("BOND_CONVERSION") },
        { category, paidRationShare, QStringLiteral("PAID_RATION") },
    };
}

StoredAgreement reduceAgreement()
{
    return { Orlo_Values::ProtocolId::AutoPlanReduceAgree, QStringLiteral("减持计划风险揭示书"),
        QStringLiteral("尊敬的客户：\n\n"
                       "在使用自动规划功能创建减持计划之前，请您认真阅读以下内容。\n\n"
                       "一、减持计划由系统按照您设定的参数逐日生成指令。受行情、停牌、涨跌停及可用持仓变化的影响，"
                       "计划可能无法全部成交，实际成交价格可能与您的预期存在差异。\n\n"
                       "二、您应当自行确认减持的股份数量、比例和节奏符合法律法规及交易所关于股东减持的规定，"
                       "并依规履行信息披露义务。系统的参数校验不能代替您的合规判断。\n\n"
                       "三、计划执行期间，您可以查看、修改尚未执行的部分，或者终止计划；已经成交的部分不能撤销。\n\n"
                       "四、因网络中断、系统故障等不可抗力造成的延迟或失败，由此产生的损失由您自行承担。\n\n"
                       "签署本揭示书即表示您已经阅读并理解上述全部内容，自愿承担相应风险。\n") };
}

} // namespace

Status SampleTexts::write(Database& database)
{
    return database.transaction([&database] {
        StaticTextStore texts(database);
        const QVector<StaticText> all = planTexts() + exchangeTexts() + entrustTexts();
        for (const StaticText& text : all) {
            if (Status status = texts.set(text.category, text.key, text.text); !status)
                return status;
        }
        return AgreementStore(database).add(reduceAgreement());
    });
}
