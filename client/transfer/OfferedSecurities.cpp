#include "OfferedSecurities.h"

#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"

#include <QStringList>

namespace Type = Kelvo_Values::MdcSecurityType;
namespace SubType = Kelvo_Values::MdcSubSecurityType;
namespace OtherSubType = Orlo_Values::MdcSubSecurityType;
using namespace PlanCodes;

namespace {

bool isOf(const Security& security, const QString& type, const QStringList& subTypes)
{
    return security.type == type && subTypes.contains(security.subType);
}

bool isMainland(const Security& security)
{
    return security.symbol.endsWith(Kelvo_Values::SymbolPost::sh)
        || security.symbol.endsWith(Kelvo_Values::SymbolPost::sz);
}

bool isReit(const Security& security)
{
    return isOf(security, Type::FundType, { OtherSubType::Reits }) && isMainland(security);
}

bool isOrdinary(const Security& security, bool byAmount)
{
    const QStringList shares{ SubType::Ashares, SubType::Gemstock, OtherSubType::ScienTechInnovateBoard,
        OtherSubType::BjSelectedStock };
    if (isOf(security, Type::StockType, shares))
        return true;
    return !byAmount && (isOf(security, Type::FundType, { SubType::TradingopenindexfundETF }) || isReit(security));
}

bool isCredit(const Security& security, bool byAmount)
{
    const QStringList shares{ SubType::Ashares, SubType::Smallandmediumstock, SubType::Gemstock,
        OtherSubType::ScienTechInnovateBoard };
    if (isOf(security, Type::StockType, shares))
        return true;
    if (isOf(security, Type::BondType, OtherSubType::ConvertableBondTypeList))
        return isMainland(security);
    return !byAmount && isReit(security);
}

bool isBond(const Security& security)
{
    QStringList subTypes = OtherSubType::AllBondNoRepurchaseTypeList;
    subTypes.removeAll(OtherSubType::DirectedConBond);
    subTypes << SubType::Assetbackedsecurities;
    return isOf(security, Type::BondType, subTypes) && isMainland(security);
}

} // namespace

bool OfferedSecurities::contains(const Security& security, const QString& instructionType, bool byAmount)
{
    if (instructionType == InstructionType::Ordinary)
        return isOrdinary(security, byAmount);
    if (instructionType == InstructionType::Credit)
        return isCredit(security, byAmount);
    if (instructionType == InstructionType::Bond)
        return isBond(security);
    return instructionType == InstructionType::HkConnect && !byAmount
        && isOf(security, Type::StockType, { OtherSubType::HStcokCirculation });
}
