#pragma once

#include <QHeaderView>

/// The header of the plan table. The user chooses the columns in its menu, moves and resizes them, and finds them again
/// after the next start.
class PlanHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit PlanHeader(QWidget* table);

    /// Shows the columns as they were left, otherwise wide enough for usual texts. The table must have its model.
    void setUp();

private:
    int lastColumn() const;
    void restore();
    void save() const;
    void showMenu(const QPoint& place);
};
