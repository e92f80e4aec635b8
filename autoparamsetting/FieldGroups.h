#pragma once

#include <QVector>

class QWidget;

namespace Ui {
class AutoParamSetting;
}

// Fields of the form that lock or hide together, each group in the order in which its fields are walked.

namespace FieldGroups {

using Group = QVector<QWidget*>;

/// What identifies a plan, account to order property.
Group identity(const Ui::AutoParamSetting& ui);
/// Who carries a plan out, and how.
Group execution(const Ui::AutoParamSetting& ui);
/// Rows of ordinary plans only.
Group ordinaryRows(const Ui::AutoParamSetting& ui);
/// Rows of a holdings reduction only.
Group reductionRows(const Ui::AutoParamSetting& ui);
/// The row of Hong Kong connect only.
Group hongKongRow(const Ui::AutoParamSetting& ui);
/// The row of credit instructions only.
Group creditRow(const Ui::AutoParamSetting& ui);

void setVisible(const Group& group, bool visible);
void disable(const Group& group);
/// Enables one field; a combo box of the client does so in its own way.
void enable(QWidget* field);
void enable(const Group& group);

} // namespace FieldGroups
