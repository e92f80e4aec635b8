#pragma once

#include "AutoParamSetting.h"
#include "ClientSession.h"
#include "DatabaseProbe.h"
#include "ExpectedRecord.h"
#include "FormDriver.h"
#include "LoggedTest.h"
#include "MessageBoxResponder.h"
#include "SampleSession.h"

#include <QDate>
#include <QTemporaryDir>
#include <QWidget>

/// A test of the plan editor in the real client, on a sample database and filled in by mouse and keyboard. Before each
/// test function today is the sample's.
class ClientFormTest : public LoggedTest {
protected:
    inline static const QString FreeAccount = QStringLiteral("100001"); ///< its instructions need no review
    inline static const QString ReviewedAccount = QStringLiteral("100002");
    inline static const QString CreditAccount = QStringLiteral("200001");
    inline static const QString Executor = QStringLiteral("苏砚"); ///< the first who may execute a reduction

    /// A share of the Shanghai main board.
    static QString share();
    /// A plan of that share; see `PlanForm::ordinary`.
    static PlanForm ordinary(const QString& account = FreeAccount) { return PlanForm::ordinary(account, share()); }

    /// Logs in on a new database.
    void startSession();
    SampleSession& session() const { return *m_session; }
    static PlanStore plans() { return ClientSession::instance().plans(); }
    static QString newestPlan() { return plans().page(0, 1)->value(0).id; }
    /// Where a stored plan is not as it was filled in; empty if it is.
    QString differences(const QString& planId, const PlanForm& form, const ShownDates& dates) const;
    /// Stores a plan as if the editor had sent it, and returns its id.
    QString store(const PlanForm& form, const ShownDates& dates);

    /// Makes a day the present one, for the editor and for the client.
    static void goTo(const QDate& day);
    /// A new editor in a window of its own; replaces the earlier one.
    void open();
    /// The same for a stored plan: for an edit or for a copy.
    void openPlan(const QString& planId, bool edits);
    AutoParamSetting& editor() const { return *m_editor; }
    FormDriver& driver() const { return *m_driver; }
    MessageBoxResponder& boxes() { return m_boxes; }

    /// Presses OK, accepts the boxes of a name and closes the others. Returns the driver's problems, then the boxes as
    /// "name: text".
    QStringList ok(const QString& accepted = QStringLiteral("msgBoxTip"));
    /// The boxes after a new and after a changed plan.
    static QStringList created() { return { QStringLiteral("msgBoxTip: 交易自动规划创建成功!") }; }
    static QStringList modified(const QString& planId);
    /// How often the editor asked to be closed since it was opened.
    int closed() const { return m_closed; }

    void prepare() override;
    void tidyUp() override;
    /// Ends the session with its database.
    void endSession() { m_session.reset(); }

private:
    std::unique_ptr<QTemporaryDir> m_settings; ///< of the program, new for each test function
    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<QWidget> m_window;
    AutoParamSetting* m_editor = nullptr;
    std::unique_ptr<FormDriver> m_driver;
    MessageBoxResponder m_boxes;
    int m_closed = 0;
};
