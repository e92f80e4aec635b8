#pragma once

#include <QDate>
#include <QList>
#include <QObject>

class Alerts;
class Journal;
class QAction;
class QMainWindow;
class QPushButton;
class QTimer;

/// The journal and the alerts of the window: their actions, and a button in its status bar that counts the alerts.
class DayWindows : public QObject {
    Q_OBJECT

public:
    explicit DayWindows(QMainWindow* window);

    QList<QAction*> actions() const { return { m_showAlerts, m_showJournal }; }

Q_SIGNALS:
    /// The user wants to see a plan.
    void planWanted(const QString& planId);
    /// Another day than before.
    void dayBegan();

private:
    QAction* addAction(const QString& name, const QString& text, const QKeySequence& key);
    void openJournal();
    void readRegularly();
    void showCount();

    QMainWindow* m_window;
    Alerts* m_alerts;
    Journal* m_journal = nullptr; ///< null until it is opened
    QAction* m_showAlerts;
    QAction* m_showJournal;
    QPushButton* m_count;
    QDate m_day;
    QTimer* m_untilRead; ///< merges changes that follow each other
};
