#include "HintReader.h"
#include "LoggedTest.h"
#include "OrloDecimalLineEdit.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>

class DecimalLineEditTest : public FieldTest {
    Q_OBJECT

private:
    void prepare() override
    {
        FieldTest::prepare();
        m_edit = new OrloDecimalLineEdit(&window());
        m_edit->setRange(0, 2000000000);
        m_edit->setDecimals(2);
        showWith(m_edit);
    }

    void retype(const QString& text) { FieldTest::retype(m_edit, text); }
    void leave() { QTest::keyClick(m_edit, Qt::Key_Tab); }

    OrloDecimalLineEdit* m_edit = nullptr;

private Q_SLOTS:
    void withoutEmptyModeItStartsAtItsMinimum()
    {
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("0.00"));
        m_edit->setRange(5, 10);
        QCOMPARE(m_edit->value(), 5.0);
        m_edit->setMinimum(2);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("5.00"));
    }

    void inEmptyModeItStartsEmpty()
    {
        m_edit->setEmptyMode(true);
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
        m_edit->setRange(0, 1);
        m_edit->setDecimals(4);
        QCOMPARE(m_edit->GetStrValue(), QString());
    }

    void textNeverHoldsGrouping()
    {
        m_edit->setLocale(QLocale(QLocale::English));
        m_edit->setGroupSeparatorShown(true);
        m_edit->setValue(1234567.5);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("1234567.50"));
    }

    void typingIsRefusedWithAHint_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("reason");
        const QString form = QStringLiteral("请输入数字，不带千分位和其他符号");
        const auto row = [](const char* name, const char* typed, const char* shown, const QString& reason) {
            QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(shown) << reason;
        };
        row("beyond the maximum", "2000000001", "200000000", QStringLiteral("不能大于2000000000"));
        row("the maximum itself", "2000000000", "2000000000", QString());
        row("a third decimal", "1.234", "1.23", QStringLiteral("最多输入2位小数"));
        row("an exponent", "1e", "1", form);
        row("a letter", "n", "0.00", form);
        row("infinity", "i", "0.00", form);
        row("a plus sign", "+", "0.00", form);
        row("grouping", "1,", "1", form);
        row("a blank", "1 ", "1", form);
        row("a minus sign", "-", "0.00", QStringLiteral("不能小于0"));
    }

    void typingIsRefusedWithAHint()
    {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(QString, reason);
        retype(typed);
        QCOMPARE(m_edit->GetStrValue(), shown);
        QCOMPARE(hintAt(m_edit), reason);
        QCOMPARE(m_edit->value(), shown.toDouble());
    }

    void aRatioShowsNoTrailingZeros()
    {
        m_edit->SetShowType(2);
        m_edit->setRange(0, 1);
        m_edit->setDecimals(4);
        m_edit->setValue(0.25);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("0.25"));
        m_edit->setValue(1);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("1"));
    }

    void anAmountShowsItsDecimals()
    {
        m_edit->SetShowType(1);
        m_edit->setValue(10000.5);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("10000.50"));
    }

    void aNumberThatDoesNotFitEmptiesTheField_data()
    {
        QTest::addColumn<double>("number");
        QTest::newRow("above the maximum") << 2000000001.0;
        QTest::newRow("below the minimum") << -1.0;
        QTest::newRow("not a number") << std::nan("");
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    }

    void aNumberThatDoesNotFitEmptiesTheField()
    {
        QFETCH(double, number);
        m_edit->setValue(7);
        log().expectWarning(QStringLiteral("OrloDoubleSpinBox::setValue"));
        m_edit->setValue(number);
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
    }

    void clearEmpties()
    {
        m_edit->setValue(7);
        m_edit->clear();
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
        m_edit->setValue(0);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("0.00"));
    }

    void anEmptyFieldStaysEmptyOnLeaving()
    {
        m_edit->setValue(7);
        m_edit->selectAll();
        QTest::keyClick(m_edit, Qt::Key_Delete);
        leave();
        QVERIFY(nextField().hasFocus());
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
    }

    void anEmptyFieldIsZeroAlsoBelowTheMinimum()
    {
        m_edit->setRange(10, 100);
        m_edit->setValue(50);
        m_edit->clear();
        QCOMPARE(m_edit->value(), 0.0);
        m_edit->setRange(20, 60);
        QCOMPARE(m_edit->value(), 0.0);
        QCOMPARE(m_edit->GetStrValue(), QString());
        retype(QStringLiteral("61"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("不能大于60"));
        retype(QStringLiteral("20"));
        QCOMPARE(m_edit->value(), 20.0);
        QCOMPARE(m_edit->minimum(), 20.0);
        QCOMPARE(m_edit->maximum(), 60.0);
        QTest::keyClick(m_edit, Qt::Key_Backspace);
        QTest::keyClick(m_edit, Qt::Key_Backspace);
        QCOMPARE(m_edit->value(), 0.0);
        leave();
        QCOMPARE(m_edit->GetStrValue(), QString());
    }

    void aNumberLeftBelowTheMinimumIsRefused()
    {
        m_edit->setRange(10, 100);
        m_edit->setValue(50);
        retype(QStringLiteral("5"));
        QCOMPARE(m_edit->value(), 50.0);
        leave();
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("50.00"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("不能小于10"));
    }

    void anUnfinishedNumberIsFinishedOnLeaving()
    {
        retype(QStringLiteral("12."));
        leave();
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("12.00"));
        QCOMPARE(m_edit->value(), 12.0);
        m_edit->setFocus();
        retype(QStringLiteral("."));
        leave();
        QVERIFY(!m_edit->GetStrValue().contains(QStringLiteral("..")));
    }

    void aRangeWithoutTheNumberEmptiesTheField()
    {
        m_edit->setValue(50);
        log().expectWarning(QStringLiteral("the range has left out"));
        m_edit->setMaximum(10);
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
    }

    void fewerDecimalsRoundVisibly()
    {
        m_edit->setValue(10.75);
        m_edit->setDecimals(0);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("11"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("已按0位小数取整"));
        retype(QStringLiteral("1."));
        QCOMPARE(hintAt(m_edit), QStringLiteral("只能输入整数"));
    }

    void moreDecimalsShowMore()
    {
        m_edit->setDecimals(0);
        m_edit->setValue(10);
        m_edit->setDecimals(2);
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("10.00"));
        QCOMPARE(hintAt(m_edit), QString());
    }

    void theWheelDoesNothing()
    {
        m_edit->setValue(7);
        QVERIFY(!turnWheel(m_edit, 1));
        QCOMPARE(m_edit->value(), 7.0);
    }

    void arrowKeysDoNotChangeANumberWithoutButtons()
    {
        m_edit->setValue(7);
        QTest::keyClick(m_edit, Qt::Key_Up);
        QTest::keyClick(m_edit, Qt::Key_PageDown);
        QCOMPARE(m_edit->value(), 7.0);
    }

    void stepsNeverLeaveTheRange()
    {
        OrloDoubleSpinBox spin(&window());
        spin.setRange(0, 10);
        spin.setDecimals(1);
        spin.show();
        spin.setValue(9.5);
        QTest::keyClick(&spin, Qt::Key_Up);
        QCOMPARE(spin.value(), 9.5);
        QCOMPARE(hintAt(&spin), QStringLiteral("不能大于10"));
        QTest::keyClick(&spin, Qt::Key_Down);
        QCOMPARE(spin.value(), 8.5);
        spin.clear();
        QTest::keyClick(&spin, Qt::Key_Up);
        QCOMPARE(spin.value(), 1.0);
    }

    void typingAnnouncesTheNumber()
    {
        QSignalSpy numbers(m_edit, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        retype(QStringLiteral("12"));
        QCOMPARE(numbers.count(), 2);
        QCOMPARE(numbers.last().first().toDouble(), 12.0);
    }

    void pastedTextIsCheckedToo()
    {
        m_edit->selectAll();
        m_edit->findChild<QLineEdit*>()->insert(QStringLiteral("1e3"));
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("0.00"));
        QVERIFY(!hintAt(m_edit).isEmpty());
    }
};

QTEST_MAIN(DecimalLineEditTest)
#include "tst_decimal_line_edit.moc"
