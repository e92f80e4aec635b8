#pragma once

#include "FormDraft.h"
#include "PlanEvents.h"

#include <QDialog>
#include <QPointer>
#include <QStringList>
#include <QTimer>

class AdvisorPanel;
class AdvisorSide;
class AutoParamSetting;
class ChangeNotice;
class NoticeLine;
class QScrollArea;

/// A window around the plan editor, with the advisor beside it. It reuses the editor if it can be reset: after a plan
/// was stored the form is cleared, and `AutoParamSetting::resetEnable` makes it a new one. A form that was left with
/// values is replaced. Other windows can be used while it is open.
class EditorDialog : public QDialog {
    Q_OBJECT

public:
    EditorDialog();
    ~EditorDialog() override;

    /// Open the editor for a new plan, to edit a stored plan, and to copy one. Must not be called while the dialog is
    /// open. The plan is edited in its present version: if someone else changes it meanwhile, the service refuses the
    /// form, and the dialog shows the difference.
    void openNew();
    void openEdit(const QString& planId);
    void openCopy(const QString& planId);
    /// Opens the editor as it was left, and says what it could not be filled with.
    void openDraft(const FormDraft& draft);

    /// Sets the style sheet of this editor and later ones.
    void setSkin(const QString& sheet);
    /// Whether it is open with changes that were not sent.
    bool isChanged() const;
    /// Closes without asking.
    void leave();
    /// Closes after it has become known that the form is stored, unless it was changed since it was sent.
    void closeStored();
    /// Says above the form if someone else has changed the edited plan, or if the form has old lists.
    void lookForChange();
    AdvisorPanel* advisor() const { return m_advisor; }
    /// The plan that it edits; empty if none.
    const QString& editedPlan() const { return m_pinnedPlan; }
    /// The plan that was stored since it was opened; empty if none was.
    const QString& storedPlan() const { return m_storedPlan; }
    /// What is filled in, with an id of its own for each opening.
    FormDraft draft() const;
    /// The editor; null before the first opening.
    AutoParamSetting* editor() const { return m_editor; }

Q_SIGNALS:
    /// The trader, or a choice of his, has changed a field.
    void changed();

public Q_SLOTS:
    /// Asks before closing.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void prepare(const QString& title);
    void makeEditor();
    void focusAdvisor();
    void present();
    void fit();
    void followChanges();
    void planStored(const QString& planId);
    void confirm();
    Status checkSent();
    void pin(const QString& planId, int version);
    void unpin();
    void lookForLists();
    void takeLists();
    int noticeHeight(int width) const;
    void noteConflict(const PlanConflict& conflict);
    void showConflict(const PlanConflict& conflict);

    ChangeNotice* m_notice;
    NoticeLine* m_oldLists; ///< above the form if accounts, rights or securities have changed since it read them
    QScrollArea* m_area;
    AdvisorSide* m_side;
    AdvisorPanel* m_advisor;
    QPointer<QWidget> m_lastField; ///< had the focus before the advisor
    AutoParamSetting* m_editor = nullptr;
    QString m_skin;
    QString m_pinnedPlan; ///< the edited plan; empty if none
    int m_pinnedVersion = 0;
    QStringList m_sentWith;   ///< contents of the form when it was sent without an answer
    QStringList m_openedWith; ///< contents of the form when it was opened
    QTimer m_changes;         ///< merges changes before they are announced
    QString m_draftId;
    QString m_storedPlan;       ///< since the form was opened
    bool m_isSending = false;   ///< the plan service is storing the form
    int m_lists = 0;            ///< number of the session's lists that the editor has read
    bool m_holdsValues = false; ///< the form has values that `resetEnable` does not clear
};
