#include "EntrustTypes.h"

#include "Orlo_Values.h"

#include <algorithm>

namespace {

template <typename Match> EntrustType firstThat(const Match& match)
{
    const QVector<EntrustType>& all = entrustTypes();
    const auto found = std::find_if(all.cbegin(), all.cend(), match);
    return found == all.cend() ? EntrustType() : *found;
}

} // namespace

const QVector<EntrustType>& entrustTypes()
{
    namespace Side = Orlo_Values::SideUnion;
    using Number = VorMarginTradeType;
    static const QVector<EntrustType> types{
        { Number::None, Side::normalBuy, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "普通买入")) },
        { Number::CollateralBuy, Side::collateralBuy, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "担保品买入")) },
        { Number::CollateralSell, Side::collateralSell, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "担保品卖出")) },
        { Number::MarginBuy, Side::marginBuy, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "买券还券")) },
        { Number::MarginSell, Side::marginSell, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "融券卖出")) },
        { Number::FinancingBuy, Side::financingBuy, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "融资买入")) },
        { Number::FinancingSell, Side::financingSell, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "卖券还款")) },
        { Number::MarginBuyNormal, Side::marginBuyNormal,
            QStringLiteral(QT_TRANSLATE_NOOP("Caption", "信用普通买入")) },
        { Number::MarginSellNormal, Side::marginSellNormal,
            QStringLiteral(QT_TRANSLATE_NOOP("Caption", "信用普通卖出")) },
        { Number::BondConversion, Side::BondConversion, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "债券转股")) },
        { Number::PaidRationShare, Side::paidRationShare, QStringLiteral(QT_TRANSLATE_NOOP("Caption", "配股缴款")) },
    };
    return types;
}

EntrustType entrustTypeOfCode(const QString& code)
{
    return firstThat([&code](const EntrustType& type) { return type.code == code; });
}

EntrustType entrustTypeOfNumber(VorMarginTradeType number)
{
    if (number == VorMarginTradeType::None)
        return EntrustType();
    return firstThat([number](const EntrustType& type) { return type.number == number; });
}
