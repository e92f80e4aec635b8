#pragma once

#include "NoticeMerger.h"
#include "PlanEvents.h"
#include "Status.h"

#include <QDateTime>
#include <QMainWindow>

class EditorDialog;
class EditorForms;
class IssueSheet;
class PlanDetails;
class PlanPane;
class PlanTable;
class StatusLine;
class StrategySheet;
class QAction;
class QLabel;
class QSplitter;

/// The client's window: the stored plans and the fields of the current plan. The forms of plans are beside it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Sets the skin of the whole client. An unknown name is logged and ignored.
    void setSkin(const QString& name);
    QString skin() const { return m_skin; }
    /// The form that was used last. It may be closed.
    EditorDialog* editorDialog() const;

    /// Makes a plan the current one; an unknown id clears the selection.
    void selectPlan(const QString& planId);
    /// Id of the current plan; empty if there is none.
    QString currentPlan() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* buildList();
    void buildActions();
    void buildPlanMenu(const QList<QAction*>& ofPlans, QAction* issue);
    QList<QAction*> stateActions();
    void buildStatus();
    void showCalendar();
    QAction* addAction(const QString& name, const QString& text, const QList<QKeySequence>& keys);
    void formClosed(const QString& storedPlan);
    void refresh();
    Status readTable();
    void refreshForOthers();
    bool mayRefresh() const;
    void showFailure(const Status& failure);
    void showLoss(const Status& reason);
    void endLoss();
    void showOutcome(UnknownRequest request, bool isStored, const QString& planId);
    QWidget* frontWindow();
    void keepKeyboard();
    void showCurrent();
    void switchSkin();
    void showStrategies();
    void issueToday();
    void goToPlan(const QString& planId);
    void statesChanged(const QString& text);
    QStringList chosenPlans() const;
    void openEdit();
    void openCopy();

    PlanPane* m_pane;
    PlanTable* m_table;
    QLabel* m_outdated; ///< shown while the rows cannot be read again
    QLabel* m_calendar; ///< hidden unless the calendar ends soon or lacks a file
    PlanDetails* m_details;
    QSplitter* m_halves;
    EditorForms* m_forms;
    StatusLine* m_status;
    IssueSheet* m_issues = nullptr;        ///< null until it is opened
    StrategySheet* m_strategies = nullptr; ///< null until it is opened
    QAction* m_edit = nullptr;
    QAction* m_copy = nullptr;
    NoticeMerger m_changes; ///< by others
    QString m_skin;
    QDateTime m_read;            ///< when the rows were read
    bool m_showsFailure = false; ///< a box with a failed read is open or about to open
};
