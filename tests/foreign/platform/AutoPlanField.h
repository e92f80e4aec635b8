#pragma once

#include <QString>

namespace AutoPlanField {
namespace BaseField {
inline const QString autoPlanId = QStringLiteral("plan.id");
inline const QString orderSide = QStringLiteral("plan.side");
inline const QString priceModel = QStringLiteral("plan.priceMode");
inline const QString priceFixed = QStringLiteral("plan.price");
inline const QString priceFormula1 = QStringLiteral("plan.formula1");
inline const QString priceFormula2 = QStringLiteral("plan.formula2");
inline const QString totalQty = QStringLiteral("plan.quantity");
inline const QString InstMode = QStringLiteral("plan.mode");
inline const QString expectedUser = QStringLiteral("plan.assignee");
inline const QString executeUser = QStringLiteral("plan.executor");
inline const QString beginDate = QStringLiteral("plan.from");
inline const QString endDate = QStringLiteral("plan.to");
inline const QString planOtherParam = QStringLiteral("plan.more");
inline const QString remark = QStringLiteral("plan.note");
inline const QString tradeAmount = QStringLiteral("more.amount");
inline const QString dayMaxTradeAmount = QStringLiteral("more.dailyAmount");
inline const QString algoParam = QStringLiteral("more.algorithm");
inline const QString algoStrategyName = QStringLiteral("more.algorithmName");
inline const QString securitySubType = QStringLiteral("more.kind");
inline const QString JCRatio = QStringLiteral("more.ratio");
inline const QString JCModel = QStringLiteral("more.reduction");
} // namespace BaseField
namespace Progress {
inline const QString CurrentQty = QStringLiteral("more.daily");
}
} // namespace AutoPlanField
