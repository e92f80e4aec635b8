#include "EditorForms.h"

#include "ClientSession.h"
#include "EditorDialog.h"
#include "ErrorText.h"
#include "OrloWidget.h"
#include "PlanLife.h"
#include "ReadReport.h"

#include <algorithm>

EditorForms::EditorForms(QWidget* window)
    : QObject(window)
    , m_window(window)
{
    add();
}

EditorForms::~EditorForms() = default;

void EditorForms::openNew()
{
    if (mayOpenNew())
        unused()->openNew();
}

void EditorForms::openEdit(const StoredPlan& plan)
{
    for (const auto& form : m_forms) {
        if (form->isVisible() && form->editedPlan() == plan.id) {
            form->raise();
            form->activateWindow();
            use(form.get());
            return;
        }
    }
    if (isPossible(PlanLife::changeError(plan)))
        unused()->openEdit(plan.id);
}

void EditorForms::openCopy(const QString& planId)
{
    if (mayOpenNew())
        unused()->openCopy(planId);
}

void EditorForms::openDraft(const FormDraft& draft)
{
    unused()->openDraft(draft);
}

bool EditorForms::isAnyOpen() const
{
    return std::any_of(m_forms.cbegin(), m_forms.cend(), [](const auto& form) { return form->isVisible(); });
}

void EditorForms::setSkin(const QString& sheet)
{
    m_skin = sheet;
    for (const auto& form : m_forms)
        form->setSkin(sheet);
}

bool EditorForms::mayClose(QWidget* window) const
{
    const auto changed =
        std::count_if(m_forms.cbegin(), m_forms.cend(), [](const auto& form) { return form->isChanged(); });
    const QString question = changed == 1 ? EditorDialog::tr("计划尚未提交，关闭后填写的内容将丢失，是否关闭？")
                                          : tr("%1个计划尚未提交，关闭后填写的内容将丢失，是否关闭？").arg(changed);
    constexpr int No = 0;
    return changed == 0 || OrloWidget::ShowQuestionMsgBox(question, window, No) != No;
}

void EditorForms::leaveAll()
{
    for (const auto& form : m_forms) {
        if (form->isVisible())
            form->leave();
    }
}

void EditorForms::closeStored()
{
    for (const auto& form : m_forms)
        form->closeStored();
}

void EditorForms::lookForChange()
{
    for (const auto& form : m_forms)
        form->lookForChange();
}

bool EditorForms::mayOpenNew() const
{
    ClientSession& session = ClientSession::instance();
    Status status = session.refreshAccounts();
    if (status)
        status = session.accounts().newPlanError(session.user().id);
    return isPossible(status);
}

/// If it is not, says why.
bool EditorForms::isPossible(const Status& status) const
{
    if (!status)
        OrloWidget::ShowWarningMsgBox(errorText(status), m_window);
    return bool(status);
}

EditorDialog* EditorForms::add()
{
    m_forms.push_back(std::make_unique<EditorDialog>());
    EditorDialog* const form = last();
    form->setSkin(m_skin);
    connect(form, &EditorDialog::finished, this, [this, form] {
        m_drafts.drop(form->draft().id);
        Q_EMIT closed(form->storedPlan());
    });
    connect(form, &EditorDialog::changed, this, [this, form] {
        if (form->isChanged())
            m_drafts.keep(form->draft());
        else
            m_drafts.drop(form->draft().id);
    });
    return form;
}

/// A form that is not open, with the present accounts of the user, as the one that was used last.
EditorDialog* EditorForms::unused()
{
    reportFailure(ClientSession::instance().refreshAccounts());
    for (auto form = m_forms.rbegin(); form != m_forms.rend(); ++form) {
        if (!(*form)->isVisible()) {
            use(form->get());
            return last();
        }
    }
    return add();
}

void EditorForms::use(const EditorDialog* form)
{
    const auto place =
        std::find_if(m_forms.begin(), m_forms.end(), [form](const auto& one) { return one.get() == form; });
    std::rotate(place, place + 1, m_forms.end());
}
