#include "AutoParamSetting.h"
#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "EditorForm.h"
#include "FormDriver.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "LogCatcher.h"
#include "MessageBoxResponder.h"
#include "OrloDateEdit.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "TestClock.h"

#include <QSignalSpy>
#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

const QDate friday(2024, 5, 10);
const QDate monday(2024, 5, 13);
const QDate tuesday(2024, 5, 14);
const QString beginMoved = QStringLiteral("计划已开始执行，开始日期不支持修改");

PlanForm planForm()
{
    PlanForm form;
    form.account = QStringLiteral("100001");
    form.instructionType = InstructionType::Ordinary;
    form.targetType = InstructionTargetType::QtyOrder;
    form.planType = PlanType::CumulativeQty;
    form.symbol = SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
    form.side = Kelvo_Values::OrderSide::buy;
    form.priceMode = PriceModel::NoLimit;
    form.target = QStringLiteral("10000");
    form.perDay = QStringLiteral("500");
    form.instructionMode = InstMode::ActiveManage;
    return form;
}

PlanForm reductionForm()
{
    PlanForm form = planForm();
    form.planType = PlanType::ReduceHoldings;
    form.side = Kelvo_Values::OrderSide::sell;
    form.perDay.clear();
    form.ratio = QStringLiteral("0.0125");
    form.assignee = QStringLiteral("苏砚");
    return form;
}

/// The editor's day and the client's.
void setDay(const QDate& day)
{
    setToday(day);
    setClientToday(day);
}

QString isoText(const QDate& day)
{
    return day.toString(Qt::ISODate);
}

} // namespace

/// The editor in the real client on days that calendars get wrong, and with a clock that is set back.
class TestCalendarDates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void a_plan_begins_on_the_next_trade_day_data();
    void a_plan_begins_on_the_next_trade_day();
    void a_reduction_ends_a_century_ahead_data();
    void a_reduction_ends_a_century_ahead();
    void a_database_can_be_made_on_any_day_data();
    void a_database_can_be_made_on_any_day();
    void a_clock_set_back_before_sending_harms_no_new_plan();
    void a_clock_set_back_reopens_a_plan_that_had_begun();
    void a_clock_set_back_while_a_plan_is_edited_changes_nothing_that_is_shown();
    void a_day_that_passes_while_a_plan_is_edited_keeps_its_begin();
    void midnight_of_a_new_year_offers_the_days_of_that_year();

private:
    void open();
    void confirm();
    QMap<QString, QVariant> newestRecord() const;
    QString createdOn(const QDate& day, const QDate& begin, const QDate& end);
    const OrloDateEdit& range() const { return *field<OrloDateEdit>(*m_editor, "date_effectivePeriod_Multi"); }

    std::unique_ptr<SampleSession> m_session;
    std::unique_ptr<LogCatcher> m_log;
    std::unique_ptr<QWidget> m_window;
    AutoParamSetting* m_editor = nullptr;
    std::unique_ptr<FormDriver> m_driver;
    MessageBoxResponder m_boxes;
};

void TestCalendarDates::initTestCase()
{
    m_session = std::make_unique<SampleSession>();
    QCOMPARE(m_session->reason(), QString());
}

void TestCalendarDates::init()
{
    m_log = std::make_unique<LogCatcher>();
    setDay(SampleSession::today());
}

void TestCalendarDates::cleanup()
{
    m_driver.reset();
    m_window.reset();
    QCOMPARE(m_log->trouble(), QStringList());
    m_log.reset();
}

void TestCalendarDates::cleanupTestCase()
{
    m_session.reset();
}

void TestCalendarDates::open()
{
    m_window = std::make_unique<QWidget>();
    m_editor = new AutoParamSetting(m_window.get());
    m_window->resize(m_editor->size());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_driver = std::make_unique<FormDriver>(m_editor);
}

void TestCalendarDates::confirm()
{
    QCOMPARE(m_driver->takeProblems(), QStringList());
    QSignalSpy closed(m_editor, &AutoParamSetting::signalBtnCancelClicked);
    m_boxes.expect(QStringLiteral("msgBoxTip"));
    m_driver->confirm();
    const QVector<MessageBoxResponder::Box> boxes = m_boxes.take();
    QCOMPARE(boxes.size(), 1);
    QVERIFY2(boxes.constFirst().name == QLatin1String("msgBoxTip"), qPrintable(boxes.constFirst().text));
    QCOMPARE(closed.count(), 1);
}

QMap<QString, QVariant> TestCalendarDates::newestRecord() const
{
    return ClientSession::instance().plans().page(0, 1).value(0).record;
}

/// A plan of that period, stored on that day; the day is the present one afterwards.
QString TestCalendarDates::createdOn(const QDate& day, const QDate& begin, const QDate& end)
{
    setDay(day);
    QMap<QString, QVariant> record = SampleSession::record();
    record.insert(BaseField::beginDate, isoText(begin));
    record.insert(BaseField::endDate, isoText(end));
    return m_session->create(record);
}

void TestCalendarDates::a_plan_begins_on_the_next_trade_day_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("second");
    QTest::newRow("a Friday") << friday << monday << tuesday;
    QTest::newRow("a Saturday") << QDate(2024, 5, 11) << monday << tuesday;
    QTest::newRow("a Sunday on which offices work and exchanges do not")
        << QDate(2024, 4, 28) << QDate(2024, 4, 29) << QDate(2024, 4, 30);
    QTest::newRow("the last trade day before the spring festival")
        << QDate(2024, 2, 8) << QDate(2024, 2, 19) << QDate(2024, 2, 20);
    QTest::newRow("the last trade day before the national holiday")
        << QDate(2024, 9, 30) << QDate(2024, 10, 8) << QDate(2024, 10, 9);
    QTest::newRow("within the national holiday") << QDate(2024, 10, 3) << QDate(2024, 10, 8) << QDate(2024, 10, 9);
    QTest::newRow("the day before 29 February") << QDate(2024, 2, 28) << QDate(2024, 2, 29) << QDate(2024, 3, 1);
    QTest::newRow("29 February") << QDate(2024, 2, 29) << QDate(2024, 3, 1) << QDate(2024, 3, 4);
    QTest::newRow("28 February of a year without a 29th")
        << QDate(2025, 2, 28) << QDate(2025, 3, 3) << QDate(2025, 3, 4);
    QTest::newRow("31 December") << QDate(2024, 12, 31) << QDate(2025, 1, 2) << QDate(2025, 1, 3);
    QTest::newRow("1 January") << QDate(2025, 1, 1) << QDate(2025, 1, 2) << QDate(2025, 1, 3);
    QTest::newRow("30 November") << QDate(2024, 11, 30) << QDate(2024, 12, 2) << QDate(2024, 12, 3);
}

void TestCalendarDates::a_plan_begins_on_the_next_trade_day()
{
    QFETCH(QDate, day);
    QFETCH(QDate, first);
    QFETCH(QDate, second);
    setDay(day);
    open();
    QCOMPARE(range().GetStartDate(), first);
    QCOMPARE(range().GetEndDate(), first);
    PlanForm form = planForm();
    form.endSteps = 1;
    m_driver->fill(form);
    confirm();
    QCOMPARE(newestRecord().value(BaseField::beginDate).toString(), isoText(first));
    QCOMPARE(newestRecord().value(BaseField::endDate).toString(), isoText(second));
    // The emptied form begins there again.
    QCOMPARE(range().GetStartDate(), first);
}

void TestCalendarDates::a_reduction_ends_a_century_ahead_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QDate>("begin");
    QTest::newRow("the day before 29 February") << QDate(2024, 2, 28) << QDate(2024, 2, 29);
    QTest::newRow("29 February") << QDate(2024, 2, 29) << QDate(2024, 3, 1);
    QTest::newRow("31 December") << QDate(2024, 12, 31) << QDate(2025, 1, 2);
    QTest::newRow("a Friday") << friday << monday;
}

void TestCalendarDates::a_reduction_ends_a_century_ahead()
{
    QFETCH(QDate, day);
    QFETCH(QDate, begin);
    setDay(day);
    open();
    m_driver->fill(reductionForm());
    confirm();
    QCOMPARE(newestRecord().value(BaseField::beginDate).toString(), isoText(begin));
    const QDate end = QDate::fromString(newestRecord().value(BaseField::endDate).toString(), Qt::ISODate);
    QVERIFY2(end.isValid(), qPrintable(newestRecord().value(BaseField::endDate).toString()));
    QVERIFY(end >= begin.addYears(99));
}

void TestCalendarDates::a_database_can_be_made_on_any_day_data()
{
    QTest::addColumn<QDate>("day");
    QTest::newRow("a Friday") << friday;
    QTest::newRow("before the spring festival") << QDate(2024, 2, 8);
    QTest::newRow("after the spring festival") << QDate(2024, 2, 19);
    QTest::newRow("29 February") << QDate(2024, 2, 29);
    QTest::newRow("31 December") << QDate(2024, 12, 31);
    QTest::newRow("1 January") << QDate(2025, 1, 1);
    QTest::newRow("the last day that the calendar knows") << QDate(2027, 12, 31);
    QTest::newRow("a day after the calendar") << QDate(2029, 3, 1);
}

void TestCalendarDates::a_database_can_be_made_on_any_day()
{
    QFETCH(QDate, day);
    m_session->reopen();
    const QTemporaryDir folder;
    setDay(day);
    ClientSession::Options options;
    options.marketSize = 200;
    const QString file = folder.filePath(QStringLiteral("plans.db"));
    QCOMPARE(ClientSession::instance().open(file, QString(), {}, options), QString());
    QCOMPARE(ClientSession::instance().open(file, QString()), QString());
    setDay(SampleSession::today());
    QCOMPARE(m_session->reopen(), QString());
}

void TestCalendarDates::a_clock_set_back_before_sending_harms_no_new_plan()
{
    setDay(friday);
    open();
    m_driver->fill(planForm());
    setDay(friday.addDays(-9));
    confirm();
    QCOMPARE(newestRecord().value(BaseField::beginDate).toString(), isoText(monday));
    // The next plan is offered relative to the day that is now.
    open();
    QCOMPARE(range().GetStartDate(), QDate(2024, 5, 6));
}

// It began on Monday and was seen as begun on Tuesday; then the machine's clock went back to the Friday before.
void TestCalendarDates::a_clock_set_back_reopens_a_plan_that_had_begun()
{
    const QString id = createdOn(friday, monday, tuesday);
    QVERIFY(!id.isEmpty());
    setDay(tuesday);
    open();
    m_editor->editPlan(id);
    QCOMPARE(range().GetStartDate(), monday);
    setDay(friday);
    open();
    m_editor->editPlan(id);
    QCOMPARE(range().GetStartDate(), monday);
    QCOMPARE(range().GetEndDate(), tuesday);
    m_driver->stepDate("date_effectivePeriod_Multi", "le_end", 1);
    confirm();
    const QMap<QString, QVariant> record = AutoPlanLogic::instance().GetPlanInfo(id);
    QCOMPARE(record.value(BaseField::beginDate).toString(), isoText(monday));
    QCOMPARE(record.value(BaseField::endDate).toString(), isoText(tuesday.addDays(1)));
}

void TestCalendarDates::a_clock_set_back_while_a_plan_is_edited_changes_nothing_that_is_shown()
{
    const QString id = createdOn(friday, monday, tuesday);
    setDay(tuesday);
    open();
    m_editor->editPlan(id);
    setDay(friday);
    QCOMPARE(range().GetStartDate(), monday);
    m_driver->type("le_remark", QStringLiteral("later"));
    confirm();
    const QMap<QString, QVariant> record = AutoPlanLogic::instance().GetPlanInfo(id);
    QCOMPARE(record.value(BaseField::beginDate).toString(), isoText(monday));
    QCOMPARE(record.value(BaseField::endDate).toString(), isoText(tuesday));
    QCOMPARE(record.value(BaseField::remark).toString(), QStringLiteral("later"));
}

// The form was opened on Friday, when Monday could still be moved; it is sent on Monday.
void TestCalendarDates::a_day_that_passes_while_a_plan_is_edited_keeps_its_begin()
{
    const QString id = createdOn(friday, monday, tuesday.addDays(3));
    open();
    m_editor->editPlan(id);
    m_driver->stepDate("date_effectivePeriod_Multi", "le_start", 1);
    QCOMPARE(range().GetStartDate(), tuesday);
    setDay(monday);
    m_driver->confirm();
    const QVector<MessageBoxResponder::Box> boxes = m_boxes.take();
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes.constFirst().text, QStringLiteral("计划已开始执行，初始日期不支持修改！"));
    QCOMPARE(AutoPlanLogic::instance().GetPlanInfo(id).value(BaseField::beginDate).toString(), isoText(monday));
    // The service says so, too, whoever asks.
    QMap<QString, QVariant> moved = AutoPlanLogic::instance().GetPlanInfo(id);
    moved.insert(BaseField::beginDate, isoText(tuesday));
    QCOMPARE(AutoPlanLogic::instance().modifyPlan(moved), beginMoved);
}

void TestCalendarDates::midnight_of_a_new_year_offers_the_days_of_that_year()
{
    setDay(QDate(2024, 12, 31));
    open();
    QCOMPARE(range().GetStartDate(), QDate(2025, 1, 2));
    setDay(QDate(2025, 1, 1));
    open();
    QCOMPARE(range().GetStartDate(), QDate(2025, 1, 2));
    setDay(QDate(2025, 1, 2));
    open();
    QCOMPARE(range().GetStartDate(), QDate(2025, 1, 3));
    setDay(QDate(2024, 12, 30));
    open();
    QCOMPARE(range().GetStartDate(), QDate(2024, 12, 31));
}

QTEST_MAIN(TestCalendarDates)
#include "tst_calendar_dates.moc"
