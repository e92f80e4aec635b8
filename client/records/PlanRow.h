#pragma once

#include "Status.h"
#include "StoredPlan.h"

#include <QSqlQuery>

#include <optional>

/// The row of a plan. The fields that are looked up, sorted or constrained have columns; the others are one JSON object
/// of texts.
namespace PlanRow {

/// The columns of a record, separated by commas, and as many placeholders.
const QString& recordColumns();
const QString& recordPlaceholders();
/// The values of `recordColumns`, NULL for an absent field.
QVariantList recordValues(const QMap<QString, QVariant>& record);

/// A state's text in its column, and the state of a text; absent for another text.
QString stateText(PlanState state);
std::optional<PlanState> state(const QString& text);

/// The columns of a whole plan.
QString columns();
/// The plan of a row of `columns`. Refuses contents that the store does not write.
Result<StoredPlan> plan(const QSqlQuery& row);

} // namespace PlanRow
