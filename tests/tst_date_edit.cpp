#include "CalendarPopup.h"
#include "ClientClock.h"
#include "DateField.h"
#include "HintReader.h"
#include "LoggedTest.h"
#include "OrloDateEdit.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QTest>

namespace {

const QDate Monday(2025, 11, 24);
const QDate Holiday(2025, 11, 26);
const QDate LastDay(2026, 2, 24);

/// The day that a screen reader names.
QDate markedDay(const CalendarPopup* calendar)
{
    return QDate::fromString(calendar->accessibleName().section(QStringLiteral("，"), 1), Qt::ISODate);
}

} // namespace

class DateEditTest : public FieldTest {
    Q_OBJECT

private:
    void prepare() override
    {
        FieldTest::prepare();
        setClientToday(Monday.addDays(-3));
        m_edit = new OrloDateEdit(&window());
        m_edit->SetMode(1, false);
        m_edit->SetExceptDayOfWeek({ 7, 6 });
        m_edit->SetExceptDateList({ Holiday });
        m_edit->SetMinDate(Monday);
        m_edit->SetMaxDate(LastDay);
        m_edit->SetStartEndDate(Monday, Monday);
        m_edit->SetDate(Monday);
        m_edit->resize(360, 30);
        showWith(line("le_start"));
    }

    template <typename Widget> Widget* child(const char* name) const
    {
        return m_edit->findChild<Widget*>(QString::fromLatin1(name));
    }
    QLineEdit* line(const char* name) const { return child<QLineEdit>(name); }
    QString hint(const char* name) const { return hintAt(line(name)->parentWidget()); }

    /// Types a date into a field, then presses a key.
    void enter(const char* name, const QString& text, Qt::Key key = Qt::Key_Return)
    {
        retype(line(name), text);
        QTest::keyClick(line(name), key);
    }

    /// Replaces the text of a field; the characters that are no keys come from an input method.
    void type(const char* name, const QString& text)
    {
        retype(line(name), QString());
        QTest::keyClick(line(name), Qt::Key_Delete);
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(line(name), &event);
    }

    bool isMarked(const char* name) const { return line(name)->property("refused").toBool(); }

    CalendarPopup* open(const char* button)
    {
        QTest::mouseClick(child<QToolButton>(button), Qt::LeftButton);
        return child<CalendarPopup>("calendarPopup");
    }

    OrloDateEdit* m_edit = nullptr;

private Q_SLOTS:
    void theModeSaysWhichFieldsAreShown()
    {
        QVERIFY(line("le_start")->isVisible());
        QVERIFY(line("le_end")->isVisible());
        QVERIFY(!line("le_date")->isVisible());
        m_edit->SetMode(0, false);
        QVERIFY(!line("le_start")->isVisible());
        QVERIFY(line("le_date")->isVisible());
    }

    void whatIsSetIsShownAndNeverMoved()
    {
        m_edit->SetStartEndDate(QDate(2020, 1, 4), QDate(2019, 1, 1));
        QCOMPARE(m_edit->GetStartDate(), QDate(2020, 1, 4));
        QCOMPARE(m_edit->GetEndDate(), QDate(2019, 1, 1));
        QCOMPARE(line("le_start")->text(), QStringLiteral("2020-01-04"));
        m_edit->SetDate(Holiday);
        QCOMPARE(m_edit->GetDate(), Holiday);
    }

    void aDateThatCannotBeChosenIsMarked()
    {
        auto* start = line("le_start");
        QVERIFY(!start->property("refused").toBool());
        m_edit->SetStartEndDate(Holiday, Holiday);
        QVERIFY(start->property("refused").toBool());
        QCOMPARE(start->toolTip(), QStringLiteral("2025-11-26不是交易日，不能选择"));
        m_edit->SetExceptDateList({});
        QVERIFY(!start->property("refused").toBool());
        QCOMPARE(start->toolTip(), QString());
    }

    void boundsDoNotClamp()
    {
        m_edit->SetMinDate(QDate(2025, 12, 1));
        m_edit->SetMaxDate(QDate(2025, 11, 1));
        QCOMPARE(m_edit->GetStartDate(), Monday);
        QCOMPARE(m_edit->GetDate(), Monday);
    }

    void noDateIsAnEmptyField()
    {
        m_edit->SetStartEndDate(QDate(), QDate());
        QVERIFY(!m_edit->GetStartDate().isValid());
        QCOMPARE(line("le_start")->text(), QString());
        QVERIFY(!line("le_start")->property("refused").toBool());
    }

    void whatTradersTypeIsUnderstood_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QDate>("day");
        const auto row = [](const char* name, const char* typed, const QDate& day) {
            QTest::newRow(name) << QString::fromUtf8(typed) << day;
        };
        row("the usual form", "2025-12-05", QDate(2025, 12, 5));
        row("digits", "20251205", QDate(2025, 12, 5));
        row("month and day", "12-5", QDate(2025, 12, 5));
        row("month and day as digits", "1205", QDate(2025, 12, 5));
        row("slashes", "2025/12/5", QDate(2025, 12, 5));
        row("points", "12.5", QDate(2025, 12, 5));
        row("Chinese", "2025年12月5日", QDate(2025, 12, 5));
        row("Chinese without a year", "12月5日", QDate(2025, 12, 5));
        row("full width", "２０２５－１２－０５", QDate(2025, 12, 5));
        row("blanks around", " 2025-12-05 ", QDate(2025, 12, 5));
        row("a day of the next year", "1-5", QDate(2026, 1, 5));
        row("the next trading day", "+1", Monday);
        row("over a holiday", "+3", QDate(2025, 11, 27));
        row("over a weekend", "+5", QDate(2025, 12, 1));
    }

    void whatTradersTypeIsUnderstood()
    {
        QFETCH(QString, typed);
        QFETCH(QDate, day);
        type("le_start", typed);
        // The date follows every key, so that OK cannot take an earlier one.
        QCOMPARE(m_edit->GetStartDate(), day);
        QTest::keyClick(line("le_start"), Qt::Key_Tab);
        QCOMPARE(m_edit->GetStartDate(), day);
        QCOMPARE(line("le_start")->text(), QLocale::c().toString(day, QStringLiteral("yyyy-MM-dd")));
        QVERIFY(!isMarked("le_start"));
        QCOMPARE(hint("le_start"), QString());
    }

    void clickingIntoAnUnchangedFieldSelectsItsDate()
    {
        auto* const end = line("le_end");
        QTest::mouseClick(end, Qt::LeftButton);
        QCOMPARE(end->selectedText(), QStringLiteral("2025-11-24"));
        QTest::keyClicks(end, QStringLiteral("1205"));
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 5));
        QTest::mouseClick(end, Qt::LeftButton);
        QVERIFY(!end->hasSelectedText());
    }

    void theMeaningIsShownWhileItIsTyped()
    {
        type("le_end", QStringLiteral("12-5"));
        QCOMPARE(hint("le_end"), QStringLiteral("= 2025-12-05 周五"));
        type("le_end", QStringLiteral("11-29"));
        QCOMPARE(hint("le_end"), QStringLiteral("2025-11-29不是交易日，不能选择"));
        QVERIFY(!isMarked("le_end"));
        type("le_end", QStringLiteral("11-3"));
        QCOMPARE(hint("le_end").left(10), QStringLiteral("2026-11-03"));
        type("le_end", QStringLiteral("2025-1"));
        QCOMPARE(hint("le_end"), QString());
        type("le_end", QStringLiteral("2025-12-05"));
        QCOMPARE(hint("le_end"), QString());
    }

    void daysOfTheEndAreCountedFromTheStart()
    {
        m_edit->SetStartEndDate(QDate(2025, 12, 1), QDate(2025, 12, 1));
        enter("le_end", QStringLiteral("+5"));
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 8));
    }

    void aTextThatIsNoDateStaysWithItsReason_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const char* typed, const char* reason) {
            QTest::newRow(name) << QString::fromUtf8(typed) << QString::fromUtf8(reason);
        };
        const auto malformed = [row](const char* name, const char* typed) {
            const QString form = QStringLiteral("无法识别“%1”，请输入日期，例如2026-12-04、1204、12-4或+5");
            row(name, typed, form.arg(QString::fromUtf8(typed)).toUtf8().constData());
        };
        row("a Saturday", "2025-11-29", "2025-11-29不是交易日，不能选择，按↑键或点击此处改为2025-12-01 周一");
        row("a Saturday without its year", "11-29",
            "2025-11-29不是交易日，不能选择，按↑键或点击此处改为2025-12-01 周一");
        row("an excluded date", "20251126", "2025-11-26不是交易日，不能选择，按↑键或点击此处改为2025-11-27 周四");
        row("before the first", "2025-11-21",
            "2025-11-21早于最早可选日期2025-11-24，按↑键或点击此处改为2025-11-24 周一");
        row("after the last", "2026-02-25", "2026-02-25晚于最晚可选日期2026-02-24，按↑键或点击此处改为2026-02-24 周二");
        row("a day that does not exist", "2025-11-31", "没有“2025-11-31”这一天");
        row("a month that does not exist", "1301", "没有“1301”这一天");
        row("more days than there are", "+100", "可选的交易日不足100个");
        malformed("half a date", "2025-12");
        malformed("three digits", "124");
        malformed("a word", "abc");
        malformed("no days", "+0");
        malformed("days back", "-5");
    }

    void aTextThatIsNoDateStaysWithItsReason()
    {
        QFETCH(QString, typed);
        QFETCH(QString, reason);
        type("le_start", typed);
        QVERIFY(!m_edit->GetStartDate().isValid());
        QTest::keyClick(line("le_start"), Qt::Key_Return);
        QVERIFY(!m_edit->GetStartDate().isValid());
        QCOMPARE(line("le_start")->text(), typed);
        QVERIFY(isMarked("le_start"));
        QCOMPARE(hint("le_start"), reason);
        QTest::keyClick(line("le_start"), Qt::Key_Tab);
        QCOMPARE(line("le_start")->text(), typed);
        QVERIFY(!m_edit->GetStartDate().isValid());
        QCOMPARE(hint("le_start"), reason);
        // What is set is shown again.
        m_edit->SetStartEndDate(Monday, Monday);
        QVERIFY(!isMarked("le_start"));
        QCOMPARE(line("le_start")->toolTip(), QString());
    }

    void aKeyTakesTheOfferedDay()
    {
        enter("le_end", QStringLiteral("11-29"), Qt::Key_Tab);
        line("le_end")->setFocus();
        QTest::keyClick(line("le_end"), Qt::Key_Up);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
        QCOMPARE(line("le_end")->text(), QStringLiteral("2025-12-01"));
        QVERIFY(!isMarked("le_end"));
        QCOMPARE(hint("le_end"), QString());
    }

    void aClickTakesTheOfferedDay()
    {
        enter("le_end", QStringLiteral("11-29"), Qt::Key_Tab);
        auto* const notice = line("le_end")->parentWidget()->findChild<QLabel*>(QStringLiteral("fieldHint"));
        QTest::mouseClick(notice, Qt::LeftButton);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
        QVERIFY(!notice->isVisible());
    }

    void aTextThatIsNoDateHasNoOffer()
    {
        enter("le_end", QStringLiteral("abc"));
        QTest::keyClick(line("le_end"), Qt::Key_Up);
        QCOMPARE(line("le_end")->text(), QStringLiteral("abc"));
        QVERIFY(!m_edit->GetEndDate().isValid());
    }

    void anEmptiedFieldHasNoDate()
    {
        auto* const end = line("le_end");
        end->setFocus();
        QTest::keyClick(end, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(end, Qt::Key_Delete);
        QTest::keyClick(end, Qt::Key_Tab);
        QCOMPARE(end->text(), QString());
        QVERIFY(!m_edit->GetEndDate().isValid());
        QVERIFY(!isMarked("le_end"));
    }

    void leavingTheFieldTakesWhatIsTyped()
    {
        enter("le_end", QStringLiteral("2025-12-01"), Qt::Key_Tab);
        QVERIFY(child<QToolButton>("btn_endCalendar")->hasFocus());
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
    }

    void arrowKeysStepOverExcludedDays()
    {
        auto* end = line("le_end");
        end->setFocus();
        QTest::keyClick(end, Qt::Key_Up);
        QTest::keyClick(end, Qt::Key_Up);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 11, 27));
        QTest::keyClick(end, Qt::Key_Down);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 11, 25));
    }

    void theCalendarGreysOutWhatCannotBeChosen()
    {
        const CalendarPopup* calendar = open("btn_startCalendar");
        QVERIFY(calendar);
        const auto isEnabled = [calendar](const char* day) {
            const auto* button = calendar->findChild<QToolButton*>(QStringLiteral("day_") + QString::fromLatin1(day));
            return button && button->isEnabled();
        };
        for (const char* const day : { "2025-11-24", "2025-11-25" })
            QVERIFY2(isEnabled(day), day);
        for (const char* const day : { "2025-11-21", "2025-11-26", "2025-11-29", "2025-11-30" })
            QVERIFY2(!isEnabled(day), day);
    }

    void theCalendarTakesAClick()
    {
        CalendarPopup* calendar = open("btn_endCalendar");
        QTest::mouseClick(calendar->findChild<QToolButton*>(QStringLiteral("btnNextMonth")), Qt::LeftButton);
        QTest::mouseClick(calendar->findChild<QToolButton*>(QStringLiteral("day_2025-12-02")), Qt::LeftButton);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 2));
        QCOMPARE(line("le_end")->text(), QStringLiteral("2025-12-02"));
        QTRY_VERIFY(!child<CalendarPopup>("calendarPopup"));
    }

    void theCalendarRefusesAClickOnAGreyDay()
    {
        CalendarPopup* calendar = open("btn_endCalendar");
        QTest::mouseClick(calendar->findChild<QToolButton*>(QStringLiteral("day_2025-11-26")), Qt::LeftButton);
        QCOMPARE(m_edit->GetEndDate(), Monday);
        QVERIFY(calendar->isVisible());
    }

    void theCalendarIsUsableByKeyboard()
    {
        CalendarPopup* calendar = open("btn_endCalendar");
        QCOMPARE(markedDay(calendar), Monday);
        const QList<QPair<Qt::Key, QDate>> moves{ { Qt::Key_Left, Monday }, { Qt::Key_Right, Monday.addDays(1) },
            { Qt::Key_Right, QDate(2025, 11, 27) }, { Qt::Key_Down, QDate(2025, 12, 4) },
            { Qt::Key_PageDown, QDate(2026, 1, 5) }, { Qt::Key_PageUp, QDate(2025, 12, 5) } };
        for (const auto& move : moves) {
            QTest::keyClick(calendar, move.first);
            QCOMPARE(markedDay(calendar), move.second);
        }
        QTest::keyClick(calendar, Qt::Key_Return);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 5));
        calendar = open("btn_endCalendar");
        QTest::keyClick(calendar, Qt::Key_Right);
        QTest::keyClick(calendar, Qt::Key_Escape);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 5));
    }

    void aKeyOpensTheCalendar()
    {
        QTest::keyClick(line("le_end"), Qt::Key_Down, Qt::AltModifier);
        QVERIFY(child<CalendarPopup>("calendarPopup"));
    }

    // It belongs to the window, which opens another one.
    void aKeyOfTheWindowIsLeftToIt()
    {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F4, Qt::NoModifier);
        QCoreApplication::sendEvent(line("le_end"), &key);
        QVERIFY(!key.isAccepted());
        QVERIFY(!child<CalendarPopup>("calendarPopup"));
    }

    void anEndBeforeTheStartIsRefused()
    {
        m_edit->SetStartEndDate(QDate(2025, 12, 1), QDate(2025, 12, 5));
        enter("le_end", QStringLiteral("2025-11-28"));
        QVERIFY(!m_edit->GetEndDate().isValid());
        QCOMPARE(
            hint("le_end"), QStringLiteral("结束日期不能早于开始日期2025-12-01，按↑键或点击此处改为2025-12-01 周一"));
    }

    void aLaterStartMovesTheEndAndShowsAHint()
    {
        enter("le_start", QStringLiteral("2025-12-01"));
        QCOMPARE(m_edit->GetStartDate(), QDate(2025, 12, 1));
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
        QCOMPARE(hint("le_end"), QStringLiteral("结束日期已随开始日期改为2025-12-01"));
    }

    void theStartCanBeLocked()
    {
        m_edit->SetStartCalendarEnabled(false);
        QVERIFY(!line("le_start")->isEnabled());
        QVERIFY(!child<QToolButton>("btn_startCalendar")->isEnabled());
        QVERIFY(child<QToolButton>("btn_endCalendar")->isEnabled());
        QVERIFY(!open("btn_startCalendar"));
        m_edit->SetStartCalendarEnabled(true);
        QVERIFY(child<QToolButton>("btn_startCalendar")->isEnabled());
    }

    void aSingleDateCannotBeChangedWhileDisabled()
    {
        m_edit->SetMode(0, false);
        m_edit->setEnabled(false);
        QVERIFY(!open("btn_dateCalendar"));
        m_edit->setEnabled(true);
        QVERIFY(open("btn_dateCalendar"));
    }
};

QTEST_MAIN(DateEditTest)
#include "tst_date_edit.moc"
