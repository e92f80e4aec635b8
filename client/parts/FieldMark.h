#pragma once

#include <QColor>
#include <QString>

class QWidget;

/// The mark of a field whose input is wrong: a property for the skins, and without a skin the colour of its text.
namespace FieldMark {

/// A field marks its own input with "refused"; its window marks it with "faulty".
constexpr auto Refused = "refused";
constexpr auto Faulty = "faulty";

/// Readable on light and dark grounds.
QColor colour();

void set(QWidget* field, const char* property, bool isMarked);
bool isSet(const QWidget* field, const char* property);

/// Sets why the typed text of a field cannot be used, which therefore has no value; empty if it can. The mark is set
/// apart, because a text that is still being typed is not marked.
void refuseInput(QWidget* field, const QString& reason);
/// Why the typed text of a field cannot be used; empty if it can.
QString refusedInput(const QWidget* field);

} // namespace FieldMark
