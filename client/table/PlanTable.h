#pragma once

#include "PlanTableModel.h"

#include <QColor>
#include <QSet>
#include <QTableView>

#include <functional>

class QScrollBar;

/// The table of the stored plans. Its model has some hundred rows around the visible ones; other rows are read when the
/// user scrolls to them, with any of the usual keys, the wheel or `positionBar`. The current plan and the selected ones
/// are kept by their ids, also while they are no rows; a selection can reach beyond the rows.
class PlanTable : public QTableView {
    Q_OBJECT
    // Set by the skins.
    Q_PROPERTY(QColor buyColor MEMBER m_buyColor READ buyColor)
    Q_PROPERTY(QColor sellColor MEMBER m_sellColor READ sellColor)
    Q_PROPERTY(QColor filledColor MEMBER m_filledColor READ filledColor)
    Q_PROPERTY(QColor issuedColor MEMBER m_issuedColor READ issuedColor)
    Q_PROPERTY(QColor groundColor MEMBER m_groundColor READ groundColor)

public:
    explicit PlanTable(QWidget* parent);

    /// The colours of the sides, and of the parts of a plan's progress.
    QColor buyColor() const { return m_buyColor; }
    QColor sellColor() const { return m_sellColor; }
    QColor filledColor() const { return m_filledColor; }
    QColor issuedColor() const { return m_issuedColor; }
    QColor groundColor() const { return m_groundColor; }

    /// The vertical scroll bar, which moves in the whole list. It belongs beside the table.
    QScrollBar* positionBar() const { return m_bar; }

    /// Reads another list from its start and makes its first plan the current one. If it fails, nothing changes.
    Status show(const PlanList& list);
    const PlanList& list() const { return m_plans->list(); }
    /// Reads the plans again. The current plan stays current, and the rows that are visible stay where they are, also
    /// if there are new plans above them. If it fails, the table shows what was read before.
    Status refresh();
    /// The number of plans in the list.
    int planCount() const { return m_plans->planCount(); }
    /// Whether there may be more plans, which are being counted.
    bool isCounting() const { return m_plans->isCounting(); }
    /// How many plans have appeared above the visible rows since those were visible.
    int newAbove() const { return m_newAbove; }

    /// Makes a plan the current one; an unknown id clears the selection.
    void selectPlan(const QString& planId);
    /// The current plan; a default plan (empty id) if there is none.
    const StoredPlan& currentPlan() const { return m_current; }
    /// The ids of the selected plans, in the order of the list as far as they are rows.
    QStringList selectedPlans() const;

    void keyboardSearch(const QString& text) override;

Q_SIGNALS:
    void currentPlanChanged();
    /// The user has chosen another order or filter, which is shown now, or it could not be read.
    void listChanged(const Status& read);
    /// All plans have been counted.
    void counted();
    /// The user wanted to select more plans than can be selected at once.
    void tooManySelected(int most);
    /// The user typed a character, which begins a search.
    void searchTyped(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Selection;

    void copySelected();
    void selectRange();
    void selectAllPlans();
    void select(const QStringList& ids);
    void sortBy(int column);
    void showOrder();
    void keepPlans(const std::function<void()>& change);
    void restore();
    void makeCurrent(int row);
    void noteCurrent(const StoredPlan& plan);
    int anchorRow() const;
    int visibleRows() const;
    void extendAround(int row);
    void extendAroundVisible();
    void scrolled();
    void scrollToPosition(int position);
    void showPosition();

    QColor m_buyColor;
    QColor m_sellColor;
    QColor m_filledColor;
    QColor m_issuedColor;
    QColor m_groundColor;
    PlanTableModel* m_plans;
    QScrollBar* m_bar;
    StoredPlan m_current;
    StoredPlan m_rangeStart;      ///< where a selection with Shift begins
    QSet<QString> m_selected;     ///< ids
    bool m_isChanging = false;    ///< the rows are being changed, not by the user
    bool m_showsPosition = false; ///< `positionBar` is being moved, not by the user
    bool m_isExtending = false;
    bool m_isRange = false; ///< a key or a click with Shift is being handled
    int m_newAbove = 0;
    bool m_isPressed = false; ///< since it has the focus, by the mouse
};
