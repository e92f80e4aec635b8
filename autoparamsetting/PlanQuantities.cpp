#include "PlanQuantities.h"

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "BusinessDataInterface.h"
#include "CBusinessDataBase.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "OrloBusinessDataInterface.h"
#include "Orlo_Fields.h"
#include "PlanVocabulary.h"
#include "QuantityRounding.h"

#include <QDebug>
#include <QLoggingCategory>

namespace {

const QString InstructionHasEnded = QStringLiteral("1");

double numberOf(const FieldMap& fields, const QString& key)
{
    const auto field = fields.constFind(key);
    return field == fields.cend() ? 0 : field->toDouble();
}

bool holdsText(const FieldMap& fields, const QString& key, const QString& text)
{
    const auto field = fields.constFind(key);
    return field != fields.cend() && field->toString() == text;
}

/// Adds what one instruction uses of the plan: the filled part if it has ended, otherwise the issued part. A plan can
/// have thousands of instructions, so the log line is formatted only if debug output is enabled.
double addUsed(const QString& planId, const QString& instructionId, const FieldMap& fields, double sumBefore)
{
    const bool ended = holdsText(fields, AutoPlanFieldId::InstructionEnded, InstructionHasEnded);
    const bool byAmount = holdsText(fields, AutoPlanFieldId::TargetType, InstructionTargetType::AmountOrder);
    const QString& filled = byAmount ? Orlo_Fields::Security::cumAmount : AutoPlanFieldId::FilledQty;
    const QString& issued = byAmount ? AutoPlanFieldId::IssuedAmount : AutoPlanFieldId::IssuedQty;
    const double sum = sumBefore + numberOf(fields, ended ? filled : issued);
    if (QLoggingCategory::defaultCategory()->isDebugEnabled())
        qDebug() << "AutoParamSetting::checkParam" << planId << instructionId << ended << numberOf(fields, filled)
                 << numberOf(fields, issued) << sum;
    return sum;
}

} // namespace

double usedQuantity(const QString& planId)
{
    const QMap<QString, FieldMap> instructions = AutoPlanLogic::instance().GetPlanInstruction(planId);
    double sum = 0;
    for (auto it = instructions.cbegin(); it != instructions.cend(); ++it)
        sum = addUsed(planId, it.key(), it.value(), sum);
    return sum;
}

double availableHoldings(const QString& tradingAccount, const QString& symbol, const QString& targetText)
{
    const int factor =
        usableDisplayFactor(OrloBusinessDataInterface::GetDispFactorBySymbol(symbol), "AutoParamSetting::checkParam");
    const tagUserAccountInfo account =
        CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(tradingAccount);
    const QString exchange = OrloBusinessDataInterface::GetFirstSecurityExchangeBySymbol(symbol);
    const QString securityAccount =
        OrloBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(tradingAccount, exchange);
    const QList<FieldMap> positions = BusinessDataInterface::GetPositionListByAccount(
        account, securityAccount, symbol, QString(), QString(), QString(), QString());
    double available = 0;
    for (const FieldMap& position : positions)
        available += position.value(Kelvo_Fields::Security::tradeableQty).toDouble() * factor;
    qInfo() << "AutoParamSetting::checkParam" << symbol << securityAccount << available << targetText;
    return available;
}
