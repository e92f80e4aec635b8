#include "AutoPlanField.h"

namespace AutoPlanField {

namespace BaseField {
const QString autoPlanId = QStringLiteral("autoPlanId");
const QString orderSide = QStringLiteral("orderSide");
const QString priceModel = QStringLiteral("priceModel");
const QString priceFixed = QStringLiteral("priceFixed");
const QString priceFormula1 = QStringLiteral("priceFormula1");
const QString priceFormula2 = QStringLiteral("priceFormula2");
const QString totalQty = QStringLiteral("totalQty");
const QString InstMode = QStringLiteral("instMode");
const QString expectedUser = QStringLiteral("expectedUser");
const QString executeUser = QStringLiteral("executeUser");
const QString beginDate = QStringLiteral("beginDate");
const QString endDate = QStringLiteral("endDate");
const QString planOtherParam = QStringLiteral("planOtherParam");
const QString remark = QStringLiteral("remark");
const QString tradeAmount = QStringLiteral("tradeAmount");
const QString dayMaxTradeAmount = QStringLiteral("dayMaxTradeAmount");
const QString algoParam = QStringLiteral("algoParam");
const QString algoStrategyName = QStringLiteral("algoStrategyName");
const QString securitySubType = QStringLiteral("securitySubType");
const QString JCRatio = QStringLiteral("JCRatio");
const QString JCModel = QStringLiteral("JCModel");
} // namespace BaseField

namespace Progress {
const QString CurrentQty = QStringLiteral("currentQty");
} // namespace Progress

} // namespace AutoPlanField
