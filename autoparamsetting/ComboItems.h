#pragma once

#include <QComboBox>

/// Returns the code of the current item; empty if there is no current item.
inline QString currentCode(const QComboBox* box)
{
    return box->currentData(Qt::UserRole).toString();
}

/// Clears a box without emitting signals and leaves its signals unblocked, even if they were blocked before. The first
/// item appended then becomes current and emits them.
inline void clearSilently(QComboBox* box)
{
    box->blockSignals(true);
    box->clear();
    box->blockSignals(false);
}

/// Selects the item with a code; deselects if no item has the code.
inline void selectCode(QComboBox* box, const QString& code)
{
    const int index = box->findData(code, Qt::UserRole, Qt::MatchCaseSensitive);
    // Qt 6 also emits signals if nothing was selected before.
    if (index != box->currentIndex())
        box->setCurrentIndex(index);
}
