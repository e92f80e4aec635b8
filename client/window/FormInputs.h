#pragma once

#include "Status.h"

#include <QStringList>

class QWidget;

// What the window adds to the inputs of a form, which it knows by their object names.

namespace FormInputs {

/// Lets the number fields know the unit beside them and the lot of the chosen security.
void provideUnits(const QWidget& form);

/// The first visible field whose text is neither a number nor a date that can be used; null if there is none.
QWidget* refusedField(const QWidget& form);

/// The same as a failure for the trader; success if there is none.
Status checkTyped(const QWidget& form);

/// The name and the content of each box and line, to be compared.
QStringList contents(const QWidget& form);

} // namespace FormInputs
