#pragma once

#include <QComboBox>

/// Code of the current item; empty when there is none.
inline QString currentCode(const QComboBox* box)
{
    return box->currentData(Qt::UserRole).toString();
}

/// Empties a box without announcing it, so that the first item appended announces itself, also in a box whose signals
/// were blocked before.
inline void clearSilently(QComboBox* box)
{
    box->blockSignals(true);
    box->clear();
    box->blockSignals(false);
}

/// Selects the item with a code; no item when none has it.
inline void selectCode(QComboBox* box, const QString& code)
{
    box->setCurrentIndex(box->findData(code, Qt::UserRole, Qt::MatchCaseSensitive));
}
