#pragma once

class QWidget;

// Adjusts a form to the window that shows it, for any font and zoom.

namespace FormArrangement {

/// Makes the captions' column equally wide in all sections, with captions of a fixed width at its right edge.
void lineUpCaptions(const QWidget& form);

/// Gives labels with a limited width a font in which their texts fit.
void fitNarrowLabels(const QWidget& form);

/// Adds tool tips to the labels of the lot steps, which show only a number.
void explainSteps(const QWidget& form);

} // namespace FormArrangement
