#pragma once

#include "DraftFile.h"
#include "Status.h"
#include "StoredPlan.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class EditorDialog;
class QWidget;

/// The forms beside the window of the plans: one for each plan that is edited, and any number for new plans. A form
/// that was closed is used again.
class EditorForms : public QObject {
    Q_OBJECT

public:
    /// `window`: of the plans.
    explicit EditorForms(QWidget* window);
    ~EditorForms() override;

    /// Opens a form, or says why the user cannot fill it in.
    void openNew();
    /// Brings the form of a plan that is already edited to the front. Says why a plan cannot be changed, as far as it
    /// is known without reading it again.
    void openEdit(const StoredPlan& plan);
    void openCopy(const QString& planId);
    /// Opens a form that was not sent before the client was killed.
    void openDraft(const FormDraft& draft);

    /// What has been filled in and not sent. A form writes its changes and removes them when it is closed.
    DraftFile& drafts() { return m_drafts; }
    /// The form that was used last. It may be closed.
    EditorDialog* last() const { return m_forms.back().get(); }
    bool isAnyOpen() const;
    /// Sets the style sheet of these forms and of later ones.
    void setSkin(const QString& sheet);
    /// True if no form was changed, or the trader agrees to lose the changes of all. `window`: what is to be closed.
    bool mayClose(QWidget* window) const;
    /// Closes all forms without asking.
    void leaveAll();
    /// Closes the form that is now known to be stored, unless it was changed since it was sent.
    void closeStored();
    /// Says in each form if someone else has changed its plan.
    void lookForChange();

Q_SIGNALS:
    /// A form was closed, after it had stored a plan, or without (empty).
    void closed(const QString& storedPlan);

private:
    bool mayOpenNew() const;
    bool isPossible(const Status& status) const;
    EditorDialog* add();
    EditorDialog* unused();
    void use(const EditorDialog* form);

    QWidget* m_window;
    DraftFile m_drafts;
    std::vector<std::unique_ptr<EditorDialog>> m_forms; ///< the one that was used last is at the end
    QString m_skin;
};
