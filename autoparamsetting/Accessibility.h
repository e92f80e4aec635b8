#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace Ui {
class AutoParamSetting;
}

// What a screen reader says of the form beside its texts. Names follow the captions, so they are in their language.

namespace Accessibility {

/// Names each field after its caption and says in a sentence what it holds. To be called once the form has its texts.
void nameFields(const Ui::AutoParamSetting& ui);

/// Changes a caption and with it the name of its field, if it has one: a host may take the buddy away.
void setCaption(QLabel* caption, const QString& text);

/// Changes the unit of a field, which the field's description tells.
void setUnit(QLabel* label, QWidget* field, const QString& unit);

} // namespace Accessibility
