#include "FieldUnit.h"
#include "HintReader.h"
#include "LoggedTest.h"
#include "OrloDecimalLineEdit.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLabel>
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
        m_edit->resize(350, 24);
        showWith(m_edit);
    }

    void retype(const QString& text) { FieldTest::retype(m_edit, text); }
    void leave() { QTest::keyClick(m_edit, Qt::Key_Tab); }
    QLineEdit* line() const { return m_edit->findChild<QLineEdit*>(); }
    bool isMarked() const { return m_edit->property("refused").toBool(); }

    /// Replaces the content of the field from the clipboard.
    void paste(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        m_edit->setFocus();
        QTest::keyClick(m_edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_edit, Qt::Key_V, Qt::ControlModifier);
    }

    /// Sets what the field counts.
    void count(const QString& unit, int lot)
    {
        FieldUnit::provide(m_edit, [unit, lot] { return NumberUnit{ unit, lot }; });
    }

    /// What the input means, as shown in the field; empty if it is not shown.
    QString meaning() const
    {
        const auto* const label = m_edit->findChild<QLabel*>(QStringLiteral("inputMeaning"));
        return label && label->isVisible() ? label->text() : QString();
    }

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

    void whatTradersTypeIsUnderstood_data()
    {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("means");
        const auto row = [](const char* name, const char* pasted, const char* left, const char* means) {
            QTest::newRow(name) << QString::fromUtf8(pasted) << QString::fromUtf8(left) << QString::fromUtf8(means);
        };
        row("digits", "50000", "50,000.00", "= 50,000 股");
        row("groups", "1,250,000", "1,250,000.00", "= 1,250,000 股");
        row("decimals", "1234.5", "1,234.50", "= 1,234.5 股");
        row("zeros behind the last decimal", "12.5000", "12.50", "= 12.5 股");
        row("a point at the end", "12.", "12.00", "= 12 股");
        row("a point at the beginning", ".5", "0.50", "= 0.5 股");
        row("zeros in front", "007", "7.00", "= 7 股");
        row("zero", "0", "0.00", "= 0 股");
        row("the maximum", "2000000000", "2,000,000,000.00", "= 2,000,000,000 股");
        row("a thousand", "3千", "3,000.00", "= 3,000 股");
        row("ten thousands", "5万", "50,000.00", "= 50,000 股");
        row("a million", "2百万", "2,000,000.00", "= 2,000,000 股");
        row("ten millions", "2千万", "20,000,000.00", "= 20,000,000 股");
        row("hundred millions", "1.2亿", "120,000,000.00", "= 120,000,000 股");
        row("a fraction that doubles do not have", "1.1万", "11,000.00", "= 11,000 股");
        row("the unit", "5万股", "50,000.00", "= 50,000 股");
        row("blanks before the unit", "5 万 股", "50,000.00", "= 50,000 股");
        row("lots", "3手", "300.00", "= 300 股");
        row("half a lot", "0.5手", "50.00", "= 50 股");
        row("ten thousands of lots", "1.5万手", "1,500,000.00", "= 1,500,000 股");
        row("full width", "５０，０００．５", "50,000.50", "= 50,000.5 股");
        row("full width lots", "１２手", "1,200.00", "= 1,200 股");
        row("blanks around", " \u3000 50000\u00A0", "50,000.00", "= 50,000 股");
        row("a cell of a spreadsheet", "50,000.00\t\r\n", "50,000.00", "= 50,000 股");
    }

    void whatTradersTypeIsUnderstood()
    {
        QFETCH(QString, pasted);
        QFETCH(QString, left);
        QFETCH(QString, means);
        count(QStringLiteral("股"), 100);
        paste(pasted);
        QCOMPARE(meaning(), means);
        QVERIFY(!isMarked());
        leave();
        QCOMPARE(line()->text(), left);
        QCOMPARE(m_edit->GetStrValue(), QString(left).remove(QLatin1Char(',')));
        QCOMPARE(m_edit->value(), QString(left).remove(QLatin1Char(',')).toDouble());
        QCOMPARE(meaning(), QString());
        QCOMPARE(hintAt(m_edit), QString());
    }

    void whatIsNoNumberStaysWithItsReason_data()
    {
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const char* pasted, const QString& reason) {
            QTest::newRow(name) << QString::fromUtf8(pasted) << reason;
        };
        const QString form = QStringLiteral("无法识别“%1”，请输入数字，例如50000、50,000或5万");
        const QString comma = QStringLiteral("“%1”中的逗号有歧义，千分位须每三位一个，小数点请用“.”");
        const QString unit = QStringLiteral("无法识别单位“%1”，可用千、万、百万、千万、亿");
        row("beyond the maximum", "2000000001", QStringLiteral("不能大于2,000,000,000"));
        row("far beyond it", "99999999999999999999", QStringLiteral("不能大于2,000,000,000"));
        row("negative", "-5", QStringLiteral("不能小于0"));
        row("negative with full width", "－5", QStringLiteral("不能小于0"));
        row("a third decimal", "1.234", QStringLiteral("最多输入2位小数"));
        row("a comma as a point", "1,5", comma.arg(QStringLiteral("1,5")));
        row("a group of four", "1,0000", comma.arg(QStringLiteral("1,0000")));
        row("a comma after the point", "1.5,0", comma.arg(QStringLiteral("1.5,0")));
        row("groups without a beginning", ",500", comma.arg(QStringLiteral(",500")));
        row("two magnitudes", "1亿2000万", unit.arg(QStringLiteral("亿2000万")));
        row("an exponent", "1e3", unit.arg(QStringLiteral("e3")));
        row("a percentage", "5%", unit.arg(QStringLiteral("%")));
        row("another unit", "5张", QStringLiteral("此处以股为单位，不能用张"));
        row("two cells", "100\t200", form.arg(QStringLiteral("100\t200")));
        row("two points", "1.2.3", form.arg(QStringLiteral("1.2.3")));
        row("a plus sign", "+5", form.arg(QStringLiteral("+5")));
        row("infinity", "inf", form.arg(QStringLiteral("inf")));
        row("no number", "nan", form.arg(QStringLiteral("nan")));
        row("Chinese digits", "五万", form.arg(QStringLiteral("五万")));
        row("a magnitude alone", "万", form.arg(QStringLiteral("万")));
        row("a minus sign", "-", QStringLiteral("数字不完整"));
        row("a point", ".", QStringLiteral("数字不完整"));
        row("a long text", "0000000000000000000000000000000000001",
            form.arg(QStringLiteral("00000000000000000000000000000000")));
    }

    void whatIsNoNumberStaysWithItsReason()
    {
        QFETCH(QString, pasted);
        QFETCH(QString, reason);
        count(QStringLiteral("股"), 100);
        m_edit->setValue(7);
        paste(pasted);
        QCOMPARE(m_edit->value(), 0.0);
        QCOMPARE(meaning(), QString());
        leave();
        QCOMPARE(line()->text(), pasted);
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
        QVERIFY(isMarked());
        QCOMPARE(hintAt(m_edit), reason);
        QVERIFY(m_edit->accessibleDescription().endsWith(reason));
        m_edit->setFocus();
        retype(QStringLiteral("8"));
        QVERIFY(!isMarked());
        QCOMPARE(hintAt(m_edit), QString());
        QCOMPARE(m_edit->value(), 8.0);
    }

    void lotsNeedASecurityThatHasThem_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<int>("lot");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no security") << QStringLiteral("股") << 0 << QStringLiteral("请先选择证券，才能以手为单位");
        QTest::newRow("single shares") << QStringLiteral("股") << 1
                                       << QStringLiteral("该证券不以手为单位交易，请输入股数");
        QTest::newRow("yuan") << QStringLiteral("元") << 100 << QStringLiteral("此处以元为单位，不能用手");
    }

    void lotsNeedASecurityThatHasThem()
    {
        QFETCH(QString, unit);
        QFETCH(int, lot);
        QFETCH(QString, reason);
        count(unit, lot);
        paste(QStringLiteral("3手"));
        QCOMPARE(hintAt(m_edit), reason);
        QCOMPARE(m_edit->GetStrValue(), QString());
        // The text is read again with what another field has changed.
        leave();
        count(QStringLiteral("股"), 200);
        m_edit->setFocus();
        QCOMPARE(meaning(), QStringLiteral("= 600 股"));
        QCOMPARE(m_edit->value(), 600.0);
        QVERIFY(!isMarked());
    }

    void anUnfinishedNumberIsOnlyMarkedWhenTheFieldIsLeft()
    {
        for (const char* const typed : { "50,", "50,0", "50,00" }) {
            retype(QLatin1String(typed));
            QCOMPARE(hintAt(m_edit), QString());
            QVERIFY(!isMarked());
            QCOMPARE(m_edit->GetStrValue(), QString());
        }
        leave();
        QVERIFY(isMarked());
        m_edit->setFocus();
        QTest::keyClick(m_edit, Qt::Key_End);
        QTest::keyClicks(m_edit, QStringLiteral("0"));
        QCOMPARE(m_edit->value(), 50000.0);
    }

    void enterShowsTheNumberThatWasMeant()
    {
        paste(QStringLiteral("5万"));
        QTest::keyClick(m_edit, Qt::Key_Return);
        QCOMPARE(line()->text(), QStringLiteral("50000.00"));
        paste(QStringLiteral("5x"));
        QTest::keyClick(m_edit, Qt::Key_Return);
        QCOMPARE(line()->text(), QStringLiteral("5x"));
    }

    void aCompositionCountsWhenItIsDone()
    {
        retype(QStringLiteral("5"));
        QInputMethodEvent composing(QStringLiteral("wan"), {});
        QCoreApplication::sendEvent(m_edit, &composing);
        QCOMPARE(m_edit->value(), 5.0);
        QInputMethodEvent done;
        done.setCommitString(QStringLiteral("万"));
        QCoreApplication::sendEvent(m_edit, &done);
        QCOMPARE(line()->text(), QStringLiteral("5万"));
        QCOMPARE(m_edit->value(), 50000.0);
    }

    void undoReturnsToWhatWasTyped()
    {
        paste(QStringLiteral("5万"));
        QTest::keyClicks(m_edit, QStringLiteral("x"));
        QVERIFY(isMarked());
        QTest::keyClick(m_edit, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(line()->text(), QStringLiteral("5万"));
        QCOMPARE(m_edit->value(), 50000.0);
        QVERIFY(!isMarked());
    }

    void clickingIntoAnUntouchedFieldSelectsAll()
    {
        m_edit->setValue(1234567);
        leave();
        QTest::mouseClick(line(), Qt::LeftButton);
        QCOMPARE(line()->selectedText(), QStringLiteral("1234567.00"));
        QTest::keyClicks(m_edit, QStringLiteral("89"));
        QCOMPARE(m_edit->value(), 89.0);
        // A second click, and a click into a field that was typed in, set the cursor.
        leave();
        QTest::mouseClick(line(), Qt::LeftButton);
        QVERIFY(!line()->hasSelectedText());
    }

    void draggingOverAnUntouchedFieldSelectsAPart()
    {
        m_edit->setValue(1234567);
        leave();
        const int y = line()->height() / 2;
        QTest::mousePress(line(), Qt::LeftButton, Qt::NoModifier, QPoint(4, y));
        const QPointF to(24, y);
        QMouseEvent move(QEvent::MouseMove, to, to, line()->mapToGlobal(to.toPoint()), Qt::LeftButton, Qt::LeftButton,
            Qt::NoModifier);
        QCoreApplication::sendEvent(line(), &move);
        QTest::mouseRelease(line(), Qt::LeftButton, Qt::NoModifier, QPoint(24, y));
        QVERIFY(line()->hasSelectedText());
        QVERIFY(line()->selectedText() != line()->text());
    }

    void aScreenReaderHearsWhatTheInputMeans()
    {
        m_edit->setAccessibleDescription(QStringLiteral("单位：股"));
        paste(QStringLiteral("5万"));
        QCOMPARE(m_edit->accessibleDescription(), QStringLiteral("单位：股，= 50,000"));
        leave();
        QCOMPARE(m_edit->accessibleDescription(), QStringLiteral("单位：股"));
    }

    void aMeaningWithoutRoomIsAHint()
    {
        m_edit->resize(90, m_edit->height());
        count(QStringLiteral("股"), 100);
        paste(QStringLiteral("1.2亿"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("= 120,000,000 股"));
        QCOMPARE(meaning(), QString());
        leave();
        QCOMPARE(hintAt(m_edit), QString());
    }

    void aRatioTakesAPercentage()
    {
        m_edit->SetShowType(2);
        m_edit->setRange(0, 1);
        m_edit->setDecimals(4);
        paste(QStringLiteral("12.5%"));
        QCOMPARE(meaning(), QStringLiteral("= 12.5%"));
        QCOMPARE(m_edit->value(), 0.125);
        leave();
        QCOMPARE(m_edit->GetStrValue(), QStringLiteral("0.125"));
        paste(QStringLiteral("5"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("不能大于1"));
        paste(QStringLiteral("1000%"));
        QCOMPARE(hintAt(m_edit), QStringLiteral("不能大于100%"));
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
        leave();
        QCOMPARE(line()->text(), QStringLiteral("5"));
        QCOMPARE(m_edit->GetStrValue(), QString());
        QCOMPARE(m_edit->value(), 0.0);
        QCOMPARE(hintAt(m_edit), QStringLiteral("不能小于10"));
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
        retype(QStringLiteral("1.5"));
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
};

QTEST_MAIN(DecimalLineEditTest)
#include "tst_decimal_line_edit.moc"
