#include "AutoParamSetting.h"

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "Kelvo_Fields.h"
#include "OrloWidget.h"
#include "ui_AutoParamSetting.h"
#include <QPointer>

namespace {

using PlanRecord = QMap<QString, QVariant>;

// While one OK is being worked on, with its boxes open, a second one would send the same plan again.
class SilentButton {
public:
    explicit SilentButton(QAbstractButton* button)
        : m_button(button)
        , m_wasBlocked(button->blockSignals(true))
    {
    }

    ~SilentButton()
    {
        if (m_button)
            m_button->blockSignals(m_wasBlocked);
    }

    Q_DISABLE_COPY(SilentButton)

private:
    QPointer<QAbstractButton> m_button;
    bool m_wasBlocked;
};

// The service may run an event loop of its own, in which the host may delete the editor. Both operations are true when
// the plan is stored and the editor still there.

bool createPlan(const PlanRecord& record, QWidget* editor)
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

// An edit keeps the security account with which the plan was created, whatever the account's data say today.
bool modifyPlan(PlanRecord record, const QString& planId, QWidget* editor)
{
    const QPointer<QWidget> alive(editor);
    const PlanRecord stored = AutoPlanLogic::instance().GetPlanInfo(planId);
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
        const SilentButton pressedOnce(ui->btn_ok);
        if (!checkParam())
            return;
        const PlanRecord record = procUiDataByCreatePlan();
        // A copy: the host may reset the editor while the service works, and the result names the plan.
        const QString planId = m_planId;
        if (!(planId.isEmpty() ? createPlan(record, this) : modifyPlan(record, planId, this)))
            return;
    }
    // OK is live again: a host may go on with this editor as soon as it is told.
    clearUiData();
    Q_EMIT signalBtnCancelClicked();
}
