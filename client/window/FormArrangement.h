#pragma once

class QWidget;

// What a form gets from the window that shows it, whatever font and zoom the trader has.

namespace FormArrangement {

/// Makes the captions' column equally wide in all sections, captions of a fixed width standing at its right edge.
void lineUpCaptions(const QWidget& form);

/// Gives labels of a limited width a font in which their texts fit.
void fitNarrowLabels(const QWidget& form);

/// Gives the labels of the lot steps, which show a number alone, a tool tip that says what it is.
void explainSteps(const QWidget& form);

} // namespace FormArrangement
