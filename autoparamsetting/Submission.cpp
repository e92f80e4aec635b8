#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "Kelvo_Fields.h"
#include "OrloWidget.h"
#include "PlanVocabulary.h"
#include "ui_AutoParamSetting.h"

#include <QPointer>

namespace {

// Blocks OK while the previous OK is being processed. Message boxes run event loops, so a second click would send the
// same plan again.
class ReentryGuard {
public:
    explicit ReentryGuard(QAbstractButton* button)
        : m_button(button)
        , m_wasBlocked(button->blockSignals(true))
    {
    }

    ~ReentryGuard()
    {
        if (m_button)
            m_button->blockSignals(m_wasBlocked);
    }

    Q_DISABLE_COPY(ReentryGuard)

private:
    QPointer<QAbstractButton> m_button;
    bool m_wasBlocked;
};

// The service may run an event loop in which the host deletes the editor. Both functions return true if the plan was
// stored and the editor still exists.

bool createPlan(const FieldMap& record, QWidget* editor)
{
    const QPointer<QWidget> alive(editor);
    const QString failure = AutoPlanLogic::instance().CreateNewPlan(record);
    if (!alive)
        return false;
    if (!failure.isEmpty()) {
        OrloWidget::ShowErrorMsgBox(failure, editor);
        return false;
    }
    OrloWidget::ShowTipMsgBox(AutoParamSetting::tr("交易自动规划创建成功!"), editor);
    return !alive.isNull();
}

// A modified plan keeps the security account with which it was created, even if the account's data have changed.
bool modifyPlan(FieldMap record, const QString& planId, QWidget* editor)
{
    const QPointer<QWidget> alive(editor);
    const FieldMap stored = AutoPlanLogic::instance().GetPlanInfo(planId);
    record.insert(AutoPlanField::BaseField::autoPlanId, planId);
    record.insert(Kelvo_Fields::UserAccount::securityAccount,
        stored.value(Kelvo_Fields::UserAccount::securityAccount).toString());
    const QString failure = AutoPlanLogic::instance().modifyPlan(record);
    if (!alive)
        return false;
    if (!failure.isEmpty()) {
        OrloWidget::ShowErrorMsgBox(
            AutoParamSetting::tr("交易计划%1修改失败，失败原因：%2").arg(planId, failure), editor);
        return false;
    }
    OrloWidget::ShowTipMsgBox(AutoParamSetting::tr("交易计划%1修改成功!").arg(planId), editor);
    return !alive.isNull();
}

} // namespace

void AutoParamSetting::slotBtnOkClicked()
{
    {
        const ReentryGuard guard(ui->btn_ok);
        if (!checkParam())
            return;
        const FieldMap record = procUiDataByCreatePlan();
        // A copy: the host may reset the editor while the service works, and the result names the plan.
        const QString planId = m_planId;
        if (!(planId.isEmpty() ? createPlan(record, this) : modifyPlan(record, planId, this)))
            return;
    }
    // OK is enabled again here: a host may reuse the editor in a slot connected to this signal.
    clearUiData();
    Q_EMIT signalBtnCancelClicked();
}
