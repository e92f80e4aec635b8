#include "FormReader.h"

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
