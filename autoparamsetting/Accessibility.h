#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace Ui {
class AutoParamSetting;
}

// Accessible names and descriptions of the form's fields. Names are the captions, in the language of the form.

namespace Accessibility {

/// Sets the accessible name of each field to its caption and describes in a sentence what the field holds. Call this
/// after the form's texts are set.
void nameFields(const Ui::AutoParamSetting& ui);

/// Changes a caption and the accessible name of its buddy, if it has one. A host may have removed the buddy.
void setCaption(QLabel* caption, const QString& text);

/// Shows a unit next to a field and names it in the field's accessible description.
void setUnit(QLabel* label, QWidget* field, const QString& unit);

} // namespace Accessibility
