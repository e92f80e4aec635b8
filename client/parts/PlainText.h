#pragma once

#include <QString>

class QLabel;
class QWidget;

/// Texts from data, shown as they are even if they look like HTML. Qt would otherwise render them, with the files that
/// they name.
namespace PlainText {

/// A label with the text.
QLabel* newLabel(const QString& text, QWidget* parent);

/// The tool tip that shows the text.
QString toolTip(const QString& text);

/// The text with full-width characters replaced by those of ASCII.
QString halfWidth(QString text);

} // namespace PlainText
