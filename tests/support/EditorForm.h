#pragma once

#include <QComboBox>
#include <QDate>
#include <QStringList>
#include <QWidget>

// Reads and fills the editor's form through its object names, as a style sheet would.

/// The widget of a name and class. Aborts the test program when there is none: a form without it proves nothing.
template <class Widget> Widget* field(const QWidget& form, const char* name)
{
    Widget* const found = form.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr)
        qFatal("The form holds no such widget of that class: %s", name);
    return found;
}

/// The combo box of a name.
QComboBox* box(const QWidget& form, const char* name);

/// Item data of a combo box, from first to last.
QStringList codes(const QWidget& form, const char* name);
/// Item texts of a combo box, from first to last.
QStringList texts(const QWidget& form, const char* name);
/// Item data of the current item; empty when there is none.
QString code(const QWidget& form, const char* name);
/// Text of a label, line edit or button.
QString text(const QWidget& form, const char* name);

/// True unless the widget itself was hidden; the form need not be shown.
bool isOffered(const QWidget& form, const char* name);
/// True unless the widget itself was disabled.
bool isUsable(const QWidget& form, const char* name);

/// Makes the item of a code current, like a choice by the trader. Aborts the test program when the box has none.
void choose(const QWidget& form, const char* name, const QString& code);
/// The same by the item's text.
void chooseText(const QWidget& form, const char* name, const QString& text);
/// Makes the item of a code current without a signal; the box gets it when it has none.
void chooseSilently(const QWidget& form, const char* name, const QString& code);
/// Leaves a box without a choice, without a signal.
void chooseNothing(const QWidget& form, const char* name);
/// Chooses a security in the search box; an empty text chooses none.
void chooseSecurity(const QWidget& form, const QString& symbol);
/// Writes into a line edit.
void type(const QWidget& form, const char* name, const QString& text);
/// Writes into a number input.
void enter(const QWidget& form, const char* name, double number);
/// Chooses the days of the range of dates.
void pickRange(const QWidget& form, const QDate& start, const QDate& end);
/// Chooses the single date.
void pickDate(const QWidget& form, const QDate& date);
void press(const QWidget& form, const char* button);
