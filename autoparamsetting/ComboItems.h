#pragma once

#include <QComboBox>
#include <QSignalBlocker>

/// Code of the current item; empty when there is none.
inline QString currentCode(const QComboBox* box)
{
    return box->currentData(Qt::UserRole).toString();
}

/// Empties a box without announcing it, so that the first item appended announces itself.
inline void clearSilently(QComboBox* box)
{
    const QSignalBlocker blocker(box);
    box->clear();
}

/// Selects the item with a code; no item when none has it.
inline void selectCode(QComboBox* box, const QString& code)
{
    box->setCurrentIndex(box->findData(code, Qt::UserRole, Qt::MatchCaseSensitive));
}
