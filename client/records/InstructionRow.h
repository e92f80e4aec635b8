#pragma once

#include "Status.h"

#include <QMap>
#include <QSqlQuery>
#include <QVariant>

#include <optional>

/// The row of an instruction: its day and its fields as typed columns.
namespace InstructionRow {

using Fields = QMap<QString, QVariant>;

/// Columns and the values that they get.
struct Assignment {
    QStringList columns;
    QVariantList values;
};

/// The columns of some fields. Refuses fields without a column and numbers that would not be read back as they are.
Result<Assignment> assignment(const Fields& fields);

/// The columns of a whole instruction, separated by commas.
QString columns();
/// The fields of a row of `columns`, with the day.
Fields fields(const QSqlQuery& row);
/// The position in its plan of a row of `columns`.
int position(const QSqlQuery& row);

/// Conversion between an instruction's id ("AP00000012-000003") and its position in the plan.
QString id(const QString& planId, int position);
/// Absent unless the text is an id from `id` for that plan.
std::optional<int> positionOf(const QString& planId, const QString& id);

} // namespace InstructionRow
