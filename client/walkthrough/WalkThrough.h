#pragma once

#include "DatabaseProbe.h"
#include "FormDriver.h"
#include "MessageBoxResponder.h"
#include "PlanStore.h"

#include <QDir>
#include <QString>
#include <QStringList>

class EditorDialog;
class MainWindow;

/// Does a trader's work in the client's window: fills in plans by mouse and keyboard, sends them and compares the
/// database with what was filled in. Prints each stored record and saves a picture of every stage in a folder.
class WalkThrough {
public:
    /// The window must be shown; the folder is created if it does not exist.
    WalkThrough(MainWindow& window, const QString& folder);

    /// Returns whether every stage succeeded; problems are printed.
    bool run();

private:
    void createOrdinary();
    void createBond();
    void createHongKong();
    void createReduction();
    void createWithAlgorithm();
    void createByAmount();
    void editStarted();
    void copyOrdinary();
    void answerQuestion();
    void showAdvisor();
    void refuseDate();
    void previewDay();
    void pausePlan();
    void stopPlan();
    void giveReason(QWidget* dialog);
    void showOtherSkin();

    bool prepare();
    PlanForm ordinaryForm();
    QString storeStartedPlan(const PlanForm& form, const ShownDates& dates);

    void beginStage(const QString& name, const QString& title);
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool openEditor(Qt::Key key);
    /// Clicks an entry of the main window's menu.
    void chooseFromMenu(const char* action);
    /// Waits until the plan has the state and the window shows it.
    void expectState(const QString& planId, PlanState state);
    void createPlan(const PlanForm& form);
    void send(const QVector<MessageBoxResponder::Box>& boxes);
    void checkStored(const QString& planId, const PlanForm& form, const ShownDates& dates);
    QString newestPlan();
    void picture(QWidget* widget, const QString& what);
    /// The form, and the dialog with the advisor, which shows what is stored about it.
    void pictureForm(const QString& what);
    static void print(const QString& line);
    void problem(const QString& text);
    void collect(const QStringList& problems);

    MainWindow& m_window;
    EditorDialog& m_dialog;
    const QDir m_folder;
    DatabaseProbe m_probe;
    MessageBoxResponder m_boxes;
    QString m_stage;
    QString m_freeAccount;     ///< an account whose instructions need no review
    QString m_reviewedAccount; ///< an account whose instructions are reviewed
    QString m_ordinaryPlan;
    ShownDates m_ordinaryDates;
    int m_pictures = 0;
    int m_problems = 0;
    int m_stored = 0;
};
