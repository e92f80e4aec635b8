#include "RecordCheck.h"

#include "AutoPlanField.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "PlanCodes.h"
#include "StoredTexts.h"

#include <QSet>

namespace {

const QSet<QString>& knownFields()
{
    using namespace AutoPlanField::BaseField;
    static const QSet<QString> fields{ Kelvo_Fields::UserAccount::userID, Orlo_Fields::AutoPlan::templateCode,
        Orlo_Fields::AutoPlan::subType, Kelvo_Fields::UserAccount::tradingAccount, PlanCodes::FieldId::Branch,
        Kelvo_Fields::Security::symbol, Kelvo_Fields::UserAccount::securityExchange,
        Kelvo_Fields::UserAccount::securityAccount, orderSide, priceModel, priceFormula1, priceFormula2, priceFixed,
        totalQty, InstMode, expectedUser, executeUser, beginDate, endDate, planOtherParam, remark };
    return fields;
}

int longest(const QString& field)
{
    const bool isOtherParam = field == AutoPlanField::BaseField::planOtherParam;
    return isOtherParam ? RecordCheck::LongestOtherParam : RecordCheck::LongestField;
}

Status fieldRefusal(const QString& field, const QVariant& value)
{
    if (!knownFields().contains(field))
        return { Error::FieldUnknown, { field.left(32) } };
    if (value.userType() != QMetaType::QString)
        return { Error::FieldNotText, { field } };
    const QString text = value.toString();
    if (text.size() > longest(field))
        return { Error::FieldTooLong, { field, QString::number(longest(field)) } };
    return StoredTexts::isStorable(text) ? Status() : Status(Error::FieldNotStorable, { field });
}

} // namespace

Status RecordCheck::refusal(const QMap<QString, QVariant>& record)
{
    if (record.isEmpty())
        return Error::EmptyPlan;
    for (auto field = record.cbegin(); field != record.cend(); ++field) {
        if (Status refused = fieldRefusal(field.key(), field.value()); !refused)
            return refused;
    }
    return {};
}
