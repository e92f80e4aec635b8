#include "CalendarPopup.h"
#include "DateField.h"
#include "HintReader.h"
#include "LoggedTest.h"
#include "OrloDateEdit.h"

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

    void aTypedDateIsTaken()
    {
        retype(line("le_end"), QStringLiteral("2025-12-01"));
        QCOMPARE(m_edit->GetEndDate(), Monday);
        QTest::keyClick(line("le_end"), Qt::Key_Return);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
        QCOMPARE(m_edit->GetStartDate(), Monday);
        QCOMPARE(hint("le_end"), QString());
    }

    void aTypedDateThatCannotBeChosenIsRefused_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const char* typed, const char* reason) {
            QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromUtf8(reason);
        };
        row("a Saturday", "2025-11-29", "2025-11-29不是交易日，不能选择");
        row("an excluded date", "2025-11-26", "2025-11-26不是交易日，不能选择");
        row("before the first", "2025-11-21", "2025-11-21早于最早可选日期2025-11-24");
        row("after the last", "2026-02-25", "2026-02-25晚于最晚可选日期2026-02-24");
        const char* const form = "请输入有效日期，格式为yyyy-MM-dd";
        row("a day that does not exist", "2025-11-31", form);
        row("another format", "2025/12/1", form);
        row("half a date", "2025-12", form);
        row("a word", "abc", form);
    }

    void aTypedDateThatCannotBeChosenIsRefused()
    {
        QFETCH(QString, typed);
        QFETCH(QString, reason);
        enter("le_start", typed);
        QCOMPARE(m_edit->GetStartDate(), Monday);
        QCOMPARE(line("le_start")->text(), QStringLiteral("2025-11-24"));
        QCOMPARE(hint("le_start"), reason);
    }

    void leavingTheFieldTakesWhatIsTyped()
    {
        enter("le_end", QStringLiteral("2025-12-01"), Qt::Key_Tab);
        QVERIFY(child<QToolButton>("btn_endCalendar")->hasFocus());
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
        enter("le_end", QStringLiteral("2025-12-06"), Qt::Key_Tab);
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 1));
        QCOMPARE(hint("le_end"), QStringLiteral("2025-12-06不是交易日，不能选择"));
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

    void aKeyOpensTheCalendar_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier);
        QTest::newRow("Alt and Down") << int(Qt::Key_Down) << int(Qt::AltModifier);
    }

    void aKeyOpensTheCalendar()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QTest::keyClick(line("le_end"), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(child<CalendarPopup>("calendarPopup"));
    }

    void anEndBeforeTheStartIsRefused()
    {
        m_edit->SetStartEndDate(QDate(2025, 12, 1), QDate(2025, 12, 5));
        enter("le_end", QStringLiteral("2025-11-28"));
        QCOMPARE(m_edit->GetEndDate(), QDate(2025, 12, 5));
        QCOMPARE(hint("le_end"), QStringLiteral("结束日期不能早于开始日期2025-12-01"));
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
