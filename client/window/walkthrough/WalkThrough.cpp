#include "WalkThrough.h"

#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "EditorDialog.h"
#include "ExpectedRecord.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Language.h"
#include "MainWindow.h"
#include "OrloConstants.h"
#include "Orlo_Values.h"
#include "defines/PlanCodes.h"
#include "services/ClientClock.h"
#include "services/ClientSession.h"

#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QTextStream>

namespace Base = AutoPlanField::BaseField;
namespace SubType = Kelvo_Values::MdcSubSecurityType;
using namespace PlanCodes;

namespace {

const QString tip = QStringLiteral("msgBoxTip");
const QString warning = QStringLiteral("msgBoxWarning");
const QString question = QStringLiteral("msgBoxQuestion");
const char* const created = "交易自动规划创建成功!";

void print(const QString& line)
{
    QTextStream(stdout) << line << QLatin1Char('\n');
}

QString dateText(const QDate& date)
{
    return date.toString(OrloConstants::DateTimeFormatString::STD_DATE_FORMAT);
}

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

/// The trading day that lies `steps` trading days away; invalid beyond the calendar.
QDate tradeDay(const QString& exchange, int steps)
{
    const TradeCalendar& calendar = ClientSession::instance().calendar();
    QDate day = clientToday();
    for (int left = qAbs(steps); left > 0;) {
        day = day.addDays(steps > 0 ? 1 : -1);
        if (calendar.day(exchange, day) == TradeCalendar::Day::Unknown)
            return QDate();
        if (calendar.day(exchange, day) == TradeCalendar::Day::Trades)
            --left;
    }
    return day;
}

PlanStore::Record storedForm(const ExpectedRecord& expected)
{
    PlanStore::Record record;
    for (auto it = expected.fields().cbegin(); it != expected.fields().cend(); ++it)
        record.insert(it.key(), *it);
    const QJsonDocument other(QJsonObject::fromVariantMap(expected.other()));
    record.insert(Base::planOtherParam, QString::fromUtf8(other.toJson(QJsonDocument::Compact)));
    return record;
}

} // namespace

WalkThrough::WalkThrough(MainWindow& window, const QString& folder)
    : m_window(window)
    , m_dialog(*window.editorDialog())
    , m_folder(folder)
    , m_facts(ClientSession::instance().database().fileName())
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
    if (!m_facts.error().isEmpty())
        problem(m_facts.error());
    if (m_problems == 0 && !QTest::qWaitForWindowExposed(&m_window))
        problem(QStringLiteral("主窗口没有显示"));
    return m_problems == 0;
}

PlanForm WalkThrough::ordinaryForm()
{
    PlanForm form;
    form.account = m_freeAccount;
    form.instructionType = InstructionType::Ordinary;
    form.targetType = InstructionTargetType::QtyOrder;
    form.planType = PlanType::CumulativeQty;
    form.symbol = m_facts.firstOf(SubType::Ashares, Kelvo_Values::Exchange::sh).symbol;
    form.side = Kelvo_Values::OrderSide::buy;
    form.priceMode = PriceModel::Custom;
    form.price1 = QStringLiteral("max(昨收价*0.99,MA5)");
    form.target = QStringLiteral("120000");
    form.perDay = QStringLiteral("8000");
    form.instructionMode = InstMode::ActiveManage;
    form.endSteps = 9;
    form.remark = QStringLiteral("分批建仓，每日不超过八千股");
    return form;
}

void WalkThrough::createOrdinary()
{
    beginStage(QStringLiteral("ordinary"), QStringLiteral("普通交易，按数量"));
    createPlan(ordinaryForm());
    m_ordinaryPlan = newestPlan();
}

void WalkThrough::createBond()
{
    beginStage(QStringLiteral("bond"), QStringLiteral("债券交易"));
    PlanForm form = ordinaryForm();
    form.instructionType = InstructionType::Bond;
    form.planType = PlanType::AverageQty;
    form.symbol =
        m_facts
            .firstOf(Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.constFirst(), Kelvo_Values::Exchange::sh)
            .symbol;
    form.priceMode = PriceModel::CompareMin;
    form.price1 = QStringLiteral("昨收价*1.01");
    form.price2 = QStringLiteral("涨停价");
    form.target = QStringLiteral("5000");
    form.perDay = QStringLiteral("500");
    form.beginSteps = 2;
    form.remark.clear();
    createPlan(form);
}

void WalkThrough::createHongKong()
{
    beginStage(QStringLiteral("hongkong"), QStringLiteral("港股通交易"));
    const ClientFacts::Security share = m_facts.held(m_freeAccount, Orlo_Values::Exchange::HkStockCirculation,
        Orlo_Values::MdcSubSecurityType::HStcokCirculation, true);
    PlanForm form = ordinaryForm();
    form.instructionType = InstructionType::HkConnect;
    form.planType = PlanType::SameElements;
    form.symbol = share.symbol;
    form.side = Kelvo_Values::OrderSide::sell;
    form.priceType = Orlo_Values::HKTimeInForce::BeforeTrade;
    form.price1 = QStringLiteral("昨收价*1.02");
    form.target = QString::number(4 * share.quantityStep);
    form.perDay = QString::number(share.quantityStep);
    form.endSteps = 3;
    form.remark = QStringLiteral("竞价时段卖出");
    createPlan(form);
}

void WalkThrough::createReduction()
{
    beginStage(QStringLiteral("reduction"), QStringLiteral("减持"));
    PlanForm form = ordinaryForm();
    form.planType = PlanType::ReduceHoldings;
    form.symbol = m_facts.held(m_freeAccount, Kelvo_Values::Exchange::sh, SubType::Ashares, true).symbol;
    form.side = Kelvo_Values::OrderSide::sell;
    form.price1 = QStringLiteral("昨收价");
    form.target = QStringLiteral("100000");
    form.perDay.clear();
    form.ratio = QStringLiteral("0.15");
    form.beginSteps = 1;
    form.endSteps = 0;
    const QString chain = ClientSession::instance().accounts().chainKey(form.account, form.instructionType);
    form.assignee = ClientSession::instance().accounts().executors(chain).value(1);
    form.remark.clear();
    createPlan(form);
}

void WalkThrough::createWithAlgorithm()
{
    beginStage(QStringLiteral("algorithm"), QStringLiteral("算法交易复核"));
    PlanForm form = ordinaryForm();
    form.account = m_reviewedAccount;
    form.priceMode = PriceModel::NoLimit;
    form.price1.clear();
    form.instructionMode = InstMode::AlgoReview;
    form.strategy = QStringLiteral("TWAP");
    form.parameters = { { QStringLiteral("StartTime"), QStringLiteral("10:00:00") },
        { QStringLiteral("SliceInterval"), QStringLiteral("120") } };
    form.remark = QStringLiteral("按时间均匀买入");
    createPlan(form);
}

void WalkThrough::createByAmount()
{
    beginStage(QStringLiteral("amount"), QStringLiteral("按金额"));
    PlanForm form = ordinaryForm();
    form.account = m_reviewedAccount;
    form.targetType = InstructionTargetType::AmountOrder;
    form.target = QStringLiteral("1500000.5");
    form.perDay = QStringLiteral("100000");
    form.instructionMode = InstMode::AlgoReview;
    form.strategy = QStringLiteral("VWAP");
    form.remark.clear();
    createPlan(form);
}

void WalkThrough::editStarted()
{
    beginStage(QStringLiteral("started"), QStringLiteral("修改已开始的计划"));
    PlanForm form = ordinaryForm();
    const QString& exchange = Kelvo_Values::Exchange::sh;
    ShownDates dates{ dateText(tradeDay(exchange, -1)), dateText(tradeDay(exchange, 3)) };
    const QString plan = storeStartedPlan(form, dates);
    m_window.selectPlan(plan);
    if (plan.isEmpty() || !openEditor(Qt::Key_E))
        return;
    FormDriver driver(m_dialog.editor());
    driver.type("le_targetTotalNum", QStringLiteral("3000"));
    picture(m_dialog.editor(), QStringLiteral("form"));
    send({ { warning, editorText("目标数量不得小于该计划已成交和在下达总和，请重新输入！"), true } });
    if (!m_dialog.isVisible())
        problem(QStringLiteral("修改被拒绝后，表单没有保留"));
    form.target = QStringLiteral("60000");
    driver.type("le_targetTotalNum", form.target);
    driver.stepDate("date_effectivePeriod_Multi", "le_end", 2);
    dates = driver.dates();
    collect(driver.takeProblems());
    picture(m_dialog.editor(), QStringLiteral("corrected"));
    send({ { tip, editorText("交易计划%1修改成功!").arg(plan), true } });
    checkStored(plan, form, dates);
}

/// A plan that began on an earlier day, with an instruction of that day: no form can make one.
QString WalkThrough::storeStartedPlan(const PlanForm& form, const ShownDates& dates)
{
    ClientSession& session = ClientSession::instance();
    const ExpectedRecord record(form, dates, session.user().id, m_facts);
    const PlanStore::Created plan =
        session.plans().create(storedForm(record), session.user().id, QDateTime::currentDateTime().addDays(-3));
    InstructionStore::Added instruction;
    if (plan.reason.isEmpty())
        instruction = session.instructions().add(plan.id, tradeDay(Kelvo_Values::Exchange::sh, -1),
            { { FieldId::TradeDate, dates.begin }, { FieldId::EndState, EndState::Ended },
                { FieldId::TargetType, InstructionTargetType::QtyOrder },
                { FieldId::IssuedQty, QStringLiteral("8000") }, { FieldId::FilledQty, QStringLiteral("5000") } });
    collect(plan.reason.isEmpty() ? QStringList() : QStringList{ plan.reason });
    collect(instruction.reason.isEmpty() ? QStringList() : QStringList{ instruction.reason });
    press(Qt::Key_F5);
    return plan.id;
}

void WalkThrough::copyOrdinary()
{
    beginStage(QStringLiteral("copy"), QStringLiteral("复制"));
    m_window.selectPlan(m_ordinaryPlan);
    if (!openEditor(Qt::Key_D))
        return;
    PlanForm form = ordinaryForm();
    form.remark = QStringLiteral("复制自%1").arg(m_ordinaryPlan);
    FormDriver driver(m_dialog.editor());
    driver.type("le_remark", form.remark);
    picture(m_dialog.editor(), QStringLiteral("form"));
    const ShownDates dates = driver.dates();
    if (dates.begin != m_ordinaryDates.begin || dates.end != m_ordinaryDates.end)
        problem(QStringLiteral("复制未开始的计划时，生效时段没有带出"));
    collect(driver.takeProblems());
    send({ { tip, editorText(created), true } });
    checkStored(newestPlan(), form, dates);
}

void WalkThrough::answerQuestion()
{
    beginStage(QStringLiteral("question"), QStringLiteral("拒绝，然后接受询问"));
    const ClientFacts::Security share =
        m_facts.held(m_freeAccount, Kelvo_Values::Exchange::sh, SubType::Ashares, false);
    PlanForm form = ordinaryForm();
    form.symbol = share.symbol;
    form.side = Kelvo_Values::OrderSide::sell;
    form.target = QString::number(share.held + 1000);
    form.perDay = QStringLiteral("100");
    if (!openEditor(Qt::Key_N))
        return;
    FormDriver driver(m_dialog.editor());
    driver.fill(form);
    collect(driver.takeProblems());
    const ShownDates dates = driver.dates();
    const QString text =
        editorText("当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，"
                   "否则点击【取消】")
            .arg(ClientSession::instance().accounts().find(form.account)->fundAccount, editorText("创建"));
    const QString before = newestPlan();
    send({ { question, text, false } });
    if (newestPlan() != before || !m_dialog.isVisible())
        problem(QStringLiteral("拒绝询问后，计划仍被提交"));
    send({ { question, text, true }, { tip, editorText(created), true } });
    checkStored(newestPlan(), form, dates);
}

void WalkThrough::showOtherSkin()
{
    beginStage(QStringLiteral("skin"), QStringLiteral("换肤"));
    const QString former = m_window.skin();
    press(Qt::Key_F8);
    if (m_window.skin() == former)
        problem(QStringLiteral("皮肤没有更换"));
    m_window.selectPlan(m_ordinaryPlan);
    picture(&m_window, QStringLiteral("window"));
    if (!openEditor(Qt::Key_D))
        return;
    picture(m_dialog.editor(), QStringLiteral("form"));
    FormDriver(m_dialog.editor()).cancel();
    if (m_dialog.isVisible())
        problem(QStringLiteral("取消后，编辑器没有关闭"));
}

void WalkThrough::beginStage(const QString& name, const QString& title)
{
    m_stage = name;
    print(QStringLiteral("\n== %1").arg(title));
}

/// A key in the main window; false, and a problem, when it cannot have the keyboard.
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

void WalkThrough::createPlan(const PlanForm& form)
{
    if (!openEditor(Qt::Key_N))
        return;
    FormDriver driver(m_dialog.editor());
    driver.setOnPanel([this](QWidget* panel) { picture(panel, QStringLiteral("panel")); });
    driver.fill(form);
    collect(driver.takeProblems());
    picture(m_dialog.editor(), QStringLiteral("form"));
    const ShownDates dates = driver.dates();
    if (m_stage == QLatin1String("ordinary"))
        m_ordinaryDates = dates;
    send({ { tip, editorText(created), true } });
    checkStored(newestPlan(), form, dates);
    picture(&m_window, QStringLiteral("window"));
}

/// Presses OK, answers the boxes and compares what they said.
void WalkThrough::send(const QVector<BoxWatcher::Box>& boxes)
{
    for (const BoxWatcher::Box& box : boxes)
        m_boxes.expect(box.name, box.accepted);
    FormDriver(m_dialog.editor()).confirm();
    const QVector<BoxWatcher::Box> seen = m_boxes.take();
    for (int i = 0; i < qMax(seen.size(), boxes.size()); ++i) {
        const BoxWatcher::Box came = seen.value(i);
        const BoxWatcher::Box wanted = boxes.value(i);
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
    const QMap<QString, QString> record = m_facts.record(planId);
    print(QStringLiteral("  数据库中的计划%1：").arg(planId));
    for (auto it = record.cbegin(); it != record.cend(); ++it)
        print(QStringLiteral("    %1 = %2").arg(it.key(), *it));
    const ExpectedRecord expected(form, dates, ClientSession::instance().user().id, m_facts);
    const QStringList differences = expected.differences(record);
    collect(differences);
    if (m_window.currentPlan() != planId)
        problem(QStringLiteral("列表没有选中计划%1").arg(planId));
    if (differences.isEmpty())
        ++m_stored;
}

QString WalkThrough::newestPlan()
{
    const QStringList ids = m_facts.planIds();
    return ids.isEmpty() ? QString() : ids.constLast();
}

void WalkThrough::picture(QWidget* widget, const QString& what)
{
    QApplication::processEvents();
    const QString name = QStringLiteral("%1-%2-%3.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(m_stage, what);
    if (!widget->grab().save(m_folder.filePath(name)))
        problem(QStringLiteral("不能写入图片%1").arg(m_folder.absoluteFilePath(name)));
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
