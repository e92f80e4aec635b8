#pragma once

#include <QComboBox>
#include <QDate>
#include <QStringList>
#include <QWidget>

// Access to the fields of the editor's form by their object names.

/// The widget with a name and class. Aborts the test program if there is none, because the test cannot continue.
template <class Widget> Widget* field(const QWidget& form, const char* name)
{
    Widget* const found = form.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr)
        qFatal("The form holds no such widget of that class: %s", name);
    return found;
}

/// The combo box with a name.
QComboBox* box(const QWidget& form, const char* name);

/// Item data of a combo box, from first to last.
QStringList codes(const QWidget& form, const char* name);
/// Item texts of a combo box, from first to last.
QStringList texts(const QWidget& form, const char* name);
/// Item data of the current item; empty if there is none.
QString code(const QWidget& form, const char* name);
/// Text of a label, line edit or button.
QString text(const QWidget& form, const char* name);

/// True unless the widget itself was hidden. The form may be hidden.
bool isOffered(const QWidget& form, const char* name);
/// True unless the widget itself was disabled.
bool isUsable(const QWidget& form, const char* name);

/// Selects the item with a code, like a trader. Aborts the test program if there is none.
void choose(const QWidget& form, const char* name, const QString& code);
/// The same by the item's text.
void chooseText(const QWidget& form, const char* name, const QString& text);
/// Selects the item with a code without a signal; adds the item if the box has none.
void chooseSilently(const QWidget& form, const char* name, const QString& code);
/// Clears the selection of a box without a signal.
void chooseNothing(const QWidget& form, const char* name);
/// Selects a security in the search box; an empty text clears the selection.
void chooseSecurity(const QWidget& form, const QString& symbol);
/// Sets the text of a line edit.
void type(const QWidget& form, const char* name, const QString& text);
/// Sets the value of a number input.
void enter(const QWidget& form, const char* name, double number);
/// Chooses the days of the range of dates.
void pickRange(const QWidget& form, const QDate& start, const QDate& end);
/// Chooses the single date.
void pickDate(const QWidget& form, const QDate& date);
void press(const QWidget& form, const char* button);
