#pragma once

#include <QMainWindow>

class EditorDialog;
class PlanDetails;
class PlanTableModel;
class QAction;
class QTableView;

/// The client's window: the stored plans, the chosen plan's fields beside them, and the editor in its dialog.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Takes a skin for the whole client; a name that is none is logged and changes nothing.
    void setSkin(const QString& name);
    QString skin() const { return m_skin; }
    EditorDialog* editorDialog() const { return m_editor; }

    /// Makes a plan the current one; an unknown id makes none current.
    void selectPlan(const QString& planId);
    /// Id of the current plan; empty when there is none.
    QString currentPlan() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildTable();
    void buildActions();
    void buildStatus();
    QAction* addAction(const QString& name, const QString& text, const QList<QKeySequence>& keys);
    void planStored(const QString& planId);
    void editorClosed();
    void refresh();
    void showCurrent();
    void switchSkin();
    void issueToday();
    void openEdit();
    void openCopy();

    PlanTableModel* m_plans;
    QTableView* m_table;
    PlanDetails* m_details;
    EditorDialog* m_editor;
    QAction* m_edit = nullptr;
    QAction* m_copy = nullptr;
    QString m_skin;
    QString m_storedPlan; ///< the plan that was stored while the editor was open; empty when none was
};
