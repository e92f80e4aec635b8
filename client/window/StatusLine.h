#pragma once

#include "OrloElidedLabel.h"

#include <QTimer>

class PlanTable;

/// The text of the status bar: the number of plans, what was done last, or what is wrong.
class StatusLine : public OrloElidedLabel {
    Q_OBJECT

public:
    StatusLine(const PlanTable& table, QWidget* parent);

    /// Shows the number of plans, unless it still shows what was done.
    void showCount();
    /// Shows for a while what was done.
    void showDone(const QString& text);
    /// The number of plans in words.
    QString countText() const;

private:
    const PlanTable& m_table;
    QString m_done;
    QTimer m_untilCount;
};
