#pragma once

#include "PlanEvents.h"

#include <QDialog>

class QDialogButtonBox;
class QTableWidget;

/// Shows the fields of a plan that someone else changed while its form was open, or in which a refused form differs
/// from the stored plan, and asks how to go on from the stored version.
class ConflictDialog : public QDialog {
    Q_OBJECT

public:
    /// Results besides `QDialog::Rejected`, after which the form is still one of the old version.
    enum Choice {
        /// Read the stored version into the form.
        Reload = 2,
        /// Keep the form; sent again, it replaces the stored version.
        Keep
    };

    ConflictDialog(const PlanConflict& conflict, QWidget* parent);

private:
    void fill(const PlanConflict& conflict);
    void addRow(const QStringList& texts, bool isForeign);
    void addButton(const QString& objectName, const QString& text, int result);

    QTableWidget* m_table;
    QDialogButtonBox* m_buttons;
};
