#include "WalkThrough.h"

#include "AdvisorPanel.h"
#include "AutoParamSetting.h"
#include "ClientSession.h"
#include "EditorDialog.h"
#include "ExpectedRecord.h"
#include "MainWindow.h"
#include "PlanCodes.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QTest>
#include <QTextStream>

using namespace PlanCodes;

namespace {

QString accountWith(int ruleProperty, const QStringList& instructionTypes)
{
    const AccountDirectory& directory = ClientSession::instance().accounts();
    for (const StoredAccount& account : directory.accounts()) {
        bool fits = true;
        for (const QString& type : instructionTypes)
            fits = fits && directory.hasAuthority(account.tradingAccount, type)
                && directory.ruleProperty(account.tradingAccount, type) == ruleProperty;
        if (fits)
            return account.tradingAccount;
    }
    return QString();
}

/// A widget with the hints at its fields, which are windows of their own.
QPixmap grab(QWidget* widget)
{
    QPixmap shown = widget->grab();
    QPainter painter(&shown);
    const QList<QLabel*> hints = widget->findChildren<QLabel*>(QStringLiteral("fieldHint"));
    for (QLabel* const hint : hints) {
        if (hint->isVisible())
            painter.drawPixmap(widget->mapFromGlobal(hint->mapToGlobal(QPoint())), hint->grab());
    }
    return shown;
}

} // namespace

WalkThrough::WalkThrough(MainWindow& window, const QString& folder)
    : m_window(window)
    , m_dialog(*window.editorDialog())
    , m_folder(folder)
    , m_probe(ClientSession::instance().database().location())
{
    m_boxes.setOnShown([this](QWidget* box) { picture(box, QStringLiteral("box")); });
}

bool WalkThrough::run()
{
    if (!prepare())
        return false;
    createOrdinary();
    createBond();
    createHongKong();
    createReduction();
    createWithAlgorithm();
    createByAmount();
    editStarted();
    copyOrdinary();
    answerQuestion();
    showAdvisor();
    refuseDate();
    previewDay();
    pausePlan();
    stopPlan();
    showOtherSkin();
    print(QStringLiteral("\n核对一致的计划%1个，问题%2个，图片%3张在%4")
              .arg(QString::number(m_stored), QString::number(m_problems), QString::number(m_pictures),
                  m_folder.absolutePath()));
    return m_problems == 0;
}

bool WalkThrough::prepare()
{
    beginStage(QStringLiteral("start"), QStringLiteral("准备"));
    if (!m_folder.mkpath(QStringLiteral(".")))
        problem(QStringLiteral("不能建立目录%1").arg(m_folder.absolutePath()));
    m_freeAccount = accountWith(0, { InstructionType::Ordinary, InstructionType::Bond, InstructionType::HkConnect });
    m_reviewedAccount = accountWith(1, { InstructionType::Ordinary });
    if (m_freeAccount.isEmpty() || m_reviewedAccount.isEmpty())
        problem(QStringLiteral("用户%1没有演示所需的账户").arg(ClientSession::instance().user().id));
    if (!m_probe.error().isEmpty())
        problem(m_probe.error());
    if (m_problems == 0 && !QTest::qWaitForWindowExposed(&m_window))
        problem(QStringLiteral("主窗口没有显示"));
    return m_problems == 0;
}

void WalkThrough::beginStage(const QString& name, const QString& title)
{
    m_stage = name;
    print(QStringLiteral("\n== %1").arg(title));
}

/// Presses a key in the main window. If the window cannot be activated, returns false and adds a problem.
bool WalkThrough::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!takeKeyboard(&m_window)) {
        problem(QStringLiteral("主窗口不能取得焦点"));
        return false;
    }
    QTest::keyClick(&m_window, key, modifiers);
    return true;
}

bool WalkThrough::openEditor(Qt::Key key)
{
    const bool open = press(key, Qt::ControlModifier) && m_dialog.isVisible() && QTest::qWaitForWindowActive(&m_dialog);
    if (!open)
        problem(QStringLiteral("编辑器没有打开"));
    return open;
}

/// Presses OK, answers the boxes and compares their texts.
void WalkThrough::send(const QVector<MessageBoxResponder::Box>& boxes)
{
    for (const MessageBoxResponder::Box& box : boxes)
        m_boxes.expect(box.name, box.accepted);
    FormDriver(m_dialog.editor()).confirm();
    const QVector<MessageBoxResponder::Box> seen = m_boxes.take();
    for (int i = 0; i < qMax(seen.size(), boxes.size()); ++i) {
        const MessageBoxResponder::Box came = seen.value(i);
        const MessageBoxResponder::Box wanted = boxes.value(i);
        print(QStringLiteral("  提示框：%1").arg(came.text));
        if (came.name != wanted.name || came.text != wanted.text)
            problem(QStringLiteral("提示框应为“%1”，实为“%2”").arg(wanted.text, came.text));
    }
}

void WalkThrough::checkStored(const QString& planId, const PlanForm& form, const ShownDates& dates)
{
    if (m_dialog.isVisible()) {
        problem(QStringLiteral("计划没有被接受"));
        m_dialog.leave();
        return;
    }
    const QMap<QString, QString> record = m_probe.record(planId);
    print(QStringLiteral("  数据库中的计划%1：").arg(planId));
    for (auto it = record.cbegin(); it != record.cend(); ++it)
        print(QStringLiteral("    %1 = %2").arg(it.key(), *it));
    const ExpectedRecord expected(form, dates, ClientSession::instance().user().id, m_probe);
    const QStringList differences = expected.differences(record);
    collect(differences);
    if (m_window.currentPlan() != planId)
        problem(QStringLiteral("列表没有选中计划%1").arg(planId));
    if (differences.isEmpty())
        ++m_stored;
}

QString WalkThrough::newestPlan()
{
    const QStringList ids = m_probe.planIds();
    return ids.isEmpty() ? QString() : ids.constLast();
}

void WalkThrough::print(const QString& line)
{
    QTextStream(stdout) << line << QLatin1Char('\n');
}

void WalkThrough::picture(QWidget* widget, const QString& what)
{
    QApplication::processEvents();
    const QString name = QStringLiteral("%1-%2-%3.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(m_stage, what);
    if (!grab(widget).save(m_folder.filePath(name)))
        problem(QStringLiteral("不能写入图片%1").arg(m_folder.absoluteFilePath(name)));
}

void WalkThrough::pictureForm(const QString& what)
{
    const AdvisorPanel* const advisor = m_dialog.advisor();
    if (!QTest::qWaitFor([advisor] { return advisor->isSettled(); }))
        problem(QStringLiteral("顾问没有读到数据"));
    picture(m_dialog.editor(), what);
    picture(&m_dialog, QStringLiteral("advisor"));
}

void WalkThrough::problem(const QString& text)
{
    ++m_problems;
    print(QStringLiteral("  问题：%1").arg(text));
}

void WalkThrough::collect(const QStringList& problems)
{
    for (const QString& text : problems)
        problem(text);
}
