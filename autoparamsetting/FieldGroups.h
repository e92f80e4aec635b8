#pragma once

#include <QVector>

class QWidget;

namespace Ui {
class AutoParamSetting;
}

// Groups of fields that are locked or hidden together. Functions process the fields of a group in its order.

namespace FieldGroups {

using Group = QVector<QWidget*>;

/// Fields that identify a plan, from the account to the order property.
Group identity(const Ui::AutoParamSetting& ui);
/// Fields that select how a plan is executed and by which user.
Group execution(const Ui::AutoParamSetting& ui);
/// Rows that only ordinary plans have.
Group ordinaryRows(const Ui::AutoParamSetting& ui);
/// Rows that only a holdings reduction has.
Group reductionRows(const Ui::AutoParamSetting& ui);
/// The row that only Hong Kong connect has.
Group hongKongRow(const Ui::AutoParamSetting& ui);
/// The row that only credit instructions have.
Group creditRow(const Ui::AutoParamSetting& ui);

void setVisible(const Group& group, bool visible);
void disable(const Group& group);
/// Enables one field; uses `ResetEnable` for a combo box of the client.
void enable(QWidget* field);
void enable(const Group& group);

} // namespace FieldGroups
