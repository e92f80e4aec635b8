#pragma once

#include "OrloElidedLabel.h"
#include "Status.h"

#include <QTimer>

class PlanTable;

/// The text of the status bar: what was done last, and the number of plans or why they could not be read.
class StatusLine : public OrloElidedLabel {
    Q_OBJECT

public:
    StatusLine(const PlanTable& table, QWidget* parent);

    /// Shows the number of plans, unless it still shows what was done or that the plans could not be read.
    void showCount();
    /// Shows why something could not be read, until the plans are read again.
    void showRead(const Status& read);
    /// Says that the connection is back, unless it shows something else.
    void showRestored();
    /// Shows for a while what was done.
    void showDone(const QString& text);

private:
    /// The number of plans in words.
    QString countText() const;

    const PlanTable& m_table;
    QString m_done;
    QString m_failure;
    QTimer m_untilCount;
};
