#include "EditorForm.h"

#include "OrloDateEdit.h"
#include "OrloDoubleSpinBox.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QSignalBlocker>

QComboBox* box(const QWidget& form, const char* name)
{
    return field<QComboBox>(form, name);
}

QStringList codes(const QWidget& form, const char* name)
{
    const QComboBox* const combo = box(form, name);
    QStringList found;
    for (int i = 0; i < combo->count(); ++i)
        found.append(combo->itemData(i, Qt::UserRole).toString());
    return found;
}

QStringList texts(const QWidget& form, const char* name)
{
    const QComboBox* const combo = box(form, name);
    QStringList found;
    for (int i = 0; i < combo->count(); ++i)
        found.append(combo->itemText(i));
    return found;
}

QString code(const QWidget& form, const char* name)
{
    return box(form, name)->currentData(Qt::UserRole).toString();
}

QString text(const QWidget& form, const char* name)
{
    return field<QWidget>(form, name)->property("text").toString();
}

void choose(const QWidget& form, const char* name, const QString& code)
{
    QComboBox* const combo = box(form, name);
    const int index = combo->findData(code, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        qFatal("The box %s offers no item of the code %s", name, qPrintable(code));
    combo->setCurrentIndex(index);
}

bool isOffered(const QWidget& form, const char* name)
{
    return !field<QWidget>(form, name)->isHidden();
}

bool isUsable(const QWidget& form, const char* name)
{
    return field<QWidget>(form, name)->isEnabled();
}

void chooseText(const QWidget& form, const char* name, const QString& text)
{
    QComboBox* const combo = box(form, name);
    const int index = combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        qFatal("The box %s offers no item of the text %s", name, qPrintable(text));
    combo->setCurrentIndex(index);
}

void chooseSilently(const QWidget& form, const char* name, const QString& code)
{
    QComboBox* const combo = box(form, name);
    const QSignalBlocker blocker(combo);
    if (combo->findData(code) < 0)
        combo->addItem(code, code);
    combo->setCurrentIndex(combo->findData(code));
}

void chooseNothing(const QWidget& form, const char* name)
{
    const QSignalBlocker blocker(box(form, name));
    box(form, name)->setCurrentIndex(-1);
}

void chooseSecurity(const QWidget& form, const QString& symbol)
{
    field<VorSearchBox>(form, "le_symbol")->setSymbol(symbol);
}

void type(const QWidget& form, const char* name, const QString& text)
{
    field<QLineEdit>(form, name)->setText(text);
}

void enter(const QWidget& form, const char* name, double number)
{
    field<OrloDoubleSpinBox>(form, name)->setValue(number);
}

void pickRange(const QWidget& form, const QDate& start, const QDate& end)
{
    field<OrloDateEdit>(form, "date_effectivePeriod_Multi")->SetStartEndDate(start, end);
}

void pickDate(const QWidget& form, const QDate& date)
{
    field<OrloDateEdit>(form, "date_effectivePeriod_Single")->SetDate(date);
}

void press(const QWidget& form, const char* button)
{
    field<QAbstractButton>(form, button)->click();
}
