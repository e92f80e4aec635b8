// The stages at the desk: what the client adds to the editor.
#include "AdvisorPanel.h"
#include "AutoParamSetting.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "EditorDialog.h"
#include "ErrorText.h"
#include "Language.h"
#include "MainWindow.h"
#include "PlanCodes.h"
#include "WalkThrough.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace PlanCodes;

namespace {

// In milliseconds.
constexpr int LongestRead = 30000;
constexpr int ShortWait = 10;

/// A Saturday at least a week ahead.
QString saturday()
{
    QDate day = clientToday().addDays(7);
    while (day.dayOfWeek() != Qt::Saturday)
        day = day.addDays(1);
    return day.toString(Qt::ISODate);
}

} // namespace

// The price is above what the market allows, and the period too short for the target.
void WalkThrough::showAdvisor()
{
    beginStage(QStringLiteral("warned"), QStringLiteral("顾问的提醒"));
    if (!openEditor(Qt::Key_N))
        return;
    FormDriver driver(m_dialog.editor());
    driver.fill(ordinaryForm().priced(PriceModel::Custom, QStringLiteral("昨收价*1.2")));
    collect(driver.takeProblems());
    pictureForm(QStringLiteral("form"));
    m_dialog.leave();
}

void WalkThrough::refuseDate()
{
    beginStage(QStringLiteral("date"), QStringLiteral("拒绝日期"));
    if (!openEditor(Qt::Key_N))
        return;
    FormDriver driver(m_dialog.editor());
    const PlanForm form = ordinaryForm();
    driver.fill(form);
    ShownDates dates = driver.dates();
    const QString refused = saturday();
    driver.type("le_end", refused);
    collect(driver.takeProblems());
    const Status reason(Error::DateExcluded, { refused });
    auto* const end = m_dialog.editor()->findChild<QLineEdit*>(QStringLiteral("le_end"));
    send({ { QStringLiteral("msgBoxError"), errorText({ Error::InputRefused, { end->accessibleName() }, reason }),
        true } });
    if (!m_dialog.isVisible() || end->text() != refused)
        problem(QStringLiteral("不能使用的日期没有保留"));
    // The reason is shown while the field has the focus.
    takeKeyboard(&m_dialog);
    QTest::mouseClick(end, Qt::LeftButton);
    pictureForm(QStringLiteral("form"));
    driver.type("le_end", dates.end);
    collect(driver.takeProblems());
    send({ { QStringLiteral("msgBoxTip"), editorText("交易自动规划创建成功!"), true } });
    checkStored(newestPlan(), form, dates);
}

void WalkThrough::previewDay()
{
    beginStage(QStringLiteral("issue"), QStringLiteral("预览当日指令"));
    press(Qt::Key_I, Qt::ControlModifier);
    auto* const sheet = m_window.findChild<QDialog*>(QStringLiteral("issueSheet"));
    const auto* const progress = sheet ? sheet->findChild<QProgressBar*>(QStringLiteral("issueProgress")) : nullptr;
    if (!progress || !QTest::qWaitFor([progress] { return !progress->isVisible(); }, LongestRead)) {
        problem(QStringLiteral("当日的计划没有列出"));
        return;
    }
    print(QStringLiteral("  %1").arg(sheet->findChild<QLabel*>(QStringLiteral("issueText"))->text()));
    picture(sheet, QStringLiteral("sheet"));
    QTest::keyClick(sheet, Qt::Key_Escape);
    if (sheet->isVisible())
        problem(QStringLiteral("下达窗口没有关闭"));
}

void WalkThrough::pausePlan()
{
    beginStage(QStringLiteral("pause"), QStringLiteral("暂停"));
    m_window.selectPlan(m_ordinaryPlan);
    chooseFromMenu("action_pause");
    expectState(m_ordinaryPlan, PlanState::Paused);
    picture(&m_window, QStringLiteral("window"));
}

void WalkThrough::stopPlan()
{
    beginStage(QStringLiteral("stop"), QStringLiteral("停止"));
    const QString plan = newestPlan();
    m_window.selectPlan(plan);
    // The dialog runs an event loop of its own.
    QTimer untilAsked;
    QObject::connect(&untilAsked, &QTimer::timeout, [this, &untilAsked] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (!dialog || dialog->objectName() != QLatin1String("reasonDialog"))
            return;
        untilAsked.stop();
        giveReason(dialog);
    });
    untilAsked.start(ShortWait);
    chooseFromMenu("action_stop");
    if (untilAsked.isActive())
        problem(QStringLiteral("没有询问停止的原因"));
    expectState(plan, PlanState::Stopped);
    picture(&m_window, QStringLiteral("window"));
}

void WalkThrough::giveReason(QWidget* dialog)
{
    FormDriver driver(dialog);
    driver.type("le_reason", QStringLiteral("策略调整，不再买入"));
    collect(driver.takeProblems());
    picture(dialog, QStringLiteral("reason"));
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("btn_stop")), Qt::LeftButton);
}

void WalkThrough::chooseFromMenu(const char* action)
{
    takeKeyboard(&m_window);
    auto* const wanted = m_window.findChild<QAction*>(QLatin1String(action));
    QMenuBar* const bar = m_window.menuBar();
    for (QAction* const entry : bar->actions()) {
        if (!entry->menu()->actions().contains(wanted))
            continue;
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->actionGeometry(entry).center());
        QTest::mouseClick(
            entry->menu(), Qt::LeftButton, Qt::NoModifier, entry->menu()->actionGeometry(wanted).center());
        return;
    }
    problem(QStringLiteral("菜单中没有%1").arg(QLatin1String(action)));
}

void WalkThrough::expectState(const QString& planId, PlanState state)
{
    const auto hasState = [&] { return ClientSession::instance().plans().plan(planId).valueOr({}).state == state; };
    if (!QTest::qWaitFor(hasState, LongestRead))
        problem(QStringLiteral("计划%1的状态没有改变").arg(planId));
    if (!QTest::qWaitFor([this] { return !m_window.findChild<QWidget*>(QStringLiteral("stateProgress")); }))
        problem(QStringLiteral("状态的变更没有结束"));
}
