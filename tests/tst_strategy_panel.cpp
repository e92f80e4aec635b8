#include "LoggedTest.h"
#include "ParameterForm.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QToolButton>
#include <QtTest>

using namespace StrategyTexts;

namespace {

QString xml(const char* text)
{
    return QString::fromUtf8(text).replace(QLatin1Char('\''), QLatin1Char('"'));
}

const QString Values = xml("<EnumPair enumID='a' wireValue='A'/><EnumPair enumID='b' wireValue='B'/>"
                           "<EnumPair enumID='c' wireValue='C'/>");
const QString Items = xml("<lay:ListItem enumID='a' uiRep='甲'/><lay:ListItem enumID='b' uiRep='乙'/>"
                          "<lay:ListItem enumID='c' uiRep='丙'/>");

StrategyDefinition definitionOf(const QString& text)
{
    const StrategyFile file = read(text);
    if (!file.failure || !file.strategies.constFirst().remarks.refusal)
        qWarning().noquote() << errorText(file.failure);
    return file.strategies.value(0).definition;
}

StrategyDefinition listStrategy(const char* parameterType, const char* controlType, const char* more = "")
{
    return definitionOf(parts(parameter(type(parameterType), Values),
        control(QStringLiteral("xsi:type=\"lay:%1\" %2").arg(QLatin1String(controlType), xml(more)), Items)));
}

} // namespace

class StrategyPanelTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override { m_form.reset(); }
    void tidyUp() override { m_form.reset(); }

private Q_SLOTS:
    void aDropDownListIsChosenByKeys()
    {
        open(listStrategy("Char_t", "DropDownList_t", "initValue='b'"));
        auto* const box = input<QComboBox>("input_P");
        QCOMPARE(box->currentText(), QStringLiteral("乙"));
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(value(), QStringLiteral("C"));
        QTest::keyClick(box, Qt::Key_Home);
        QCOMPARE(value(), QString());
    }

    void anEditableListTakesEntriesAndOtherTexts()
    {
        open(listStrategy("String_t", "EditableDropDownList_t"));
        auto* const box = input<QComboBox>("input_P");
        QTest::keyClicks(box->lineEdit(), QStringLiteral("other"));
        QCOMPARE(value(), QStringLiteral("other"));
        box->lineEdit()->selectAll();
        box->lineEdit()->insert(QStringLiteral("乙"));
        QCOMPARE(value(), QStringLiteral("B"));
        m_form->setValues({ { QStringLiteral("P"), QStringLiteral("C") } });
        QCOMPARE(box->currentText(), QStringLiteral("丙"));
    }

    void aSingleListHasOneEntry()
    {
        open(listStrategy("Char_t", "SingleSelectList_t", "initValue='a'"));
        auto* const list = input<QListWidget>("input_P");
        list->setCurrentRow(0);
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(value(), QStringLiteral("B"));
        QCOMPARE(list->selectedItems().size(), 1);
    }

    void aMultipleListHasSeveral()
    {
        open(listStrategy("MultipleCharValue_t", "MultiSelectList_t", "initValue='c'"));
        auto* const list = input<QListWidget>("input_P");
        QCOMPARE(value(), QStringLiteral("C"));
        list->setCurrentRow(0, QItemSelectionModel::NoUpdate);
        QTest::keyClick(list, Qt::Key_Space);
        QCOMPARE(value(), QStringLiteral("A C"));
        m_form->setValues({ { QStringLiteral("P"), QStringLiteral("B C") } });
        QCOMPARE(list->selectedItems().size(), 2);
        QCOMPARE(value(), QStringLiteral("B C"));
    }

    void checkBoxesInAList()
    {
        open(listStrategy("MultipleStringValue_t", "CheckBoxList_t", "initValue='a b' orientation='VERTICAL'"));
        const auto boxes = m_form->findChildren<QCheckBox*>();
        QCOMPARE(boxes.size(), 3);
        QVERIFY(boxes.at(1)->y() > boxes.at(0)->y());
        QTest::keyClick(boxes.at(0), Qt::Key_Space);
        QCOMPARE(value(), QStringLiteral("B"));
        QCOMPARE(boxes.at(0)->accessibleDescription(), QStringLiteral("标签"));
    }

    void radioButtonsInAList()
    {
        open(listStrategy("Char_t", "RadioButtonList_t", "orientation='HORIZONTAL'"));
        const auto buttons = m_form->findChildren<QRadioButton*>();
        QCOMPARE(buttons.size(), 3);
        QCOMPARE(buttons.at(0)->y(), buttons.at(1)->y());
        QCOMPARE(value(), QString());
        QTest::keyClick(buttons.at(2), Qt::Key_Space);
        QCOMPARE(value(), QStringLiteral("C"));
    }

    void radioButtonsOfAGroup()
    {
        const auto radio = [](const char* id) {
            return xml("<lay:Control ID='r_%1' xsi:type='lay:RadioButton_t' parameterRef='P' label='%1' radioGroup='g' "
                       "checkedEnumRef='%1'/>")
                .arg(QLatin1String(id));
        };
        open(definitionOf(parts(parameter(type("Char_t"), Values), radio("a") + radio("b") + radio("c"))));
        QTest::keyClick(input<QRadioButton>("input_r_b"), Qt::Key_Space);
        QCOMPARE(value(), QStringLiteral("B"));
        QTest::keyClick(input<QRadioButton>("input_r_c"), Qt::Key_Space);
        QCOMPARE(value(), QStringLiteral("C"));
        QVERIFY(!input<QRadioButton>("input_r_b")->isChecked());
        QCOMPARE(input<QRadioButton>("input_r_c")->accessibleName(), QStringLiteral("c"));
    }

    void aSliderOverEntries()
    {
        open(listStrategy("Char_t", "Slider_t", "initValue='b'"));
        auto* const slider = m_form->findChild<QSlider*>();
        QCOMPARE(slider->accessibleName(), QStringLiteral("标签 乙"));
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(value(), QStringLiteral("C"));
        QTest::keyClick(slider, Qt::Key_Home);
        QCOMPARE(value(), QStringLiteral("A"));
    }

    void aSliderOverARange()
    {
        open(definitionOf(parts(parameter(type("Percentage_t") + xml(" minValue='0.1' maxValue='0.5'")),
            control(type("lay:Slider_t") + xml(" increment='0.1'")))));
        QCOMPARE(value(), QString());
        auto* const slider = m_form->findChild<QSlider*>();
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(value(), QStringLiteral("0.2"));
        QCOMPARE(slider->accessibleName(), QStringLiteral("标签 20"));
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(value(), QStringLiteral("0.5"));
    }

    void aSliderWithoutARangeIsASpinner()
    {
        open(definitionOf(parts(parameter(type("Float_t")), control(type("lay:Slider_t")))));
        QVERIFY(input<QAbstractSpinBox>("input_P") != nullptr);
    }

    void aDoubleSpinnerHasTwoSteps()
    {
        open(definitionOf(parts(parameter(type("Price_t")),
            control(
                type("lay:DoubleSpinner_t") + xml(" initValue='10' innerIncrementPolicy='Tick' outerIncrement='5'")))));
        m_form->setSecurity(100, 2);
        auto* const spinner = input<QAbstractSpinBox>("input_P");
        QTest::keyClick(spinner, Qt::Key_Up);
        QCOMPARE(value(), QStringLiteral("10.01"));
        QTest::keyClick(spinner, Qt::Key_PageUp);
        QCOMPARE(value(), QStringLiteral("15.01"));
    }

    void aSpinnerStepsByLots()
    {
        open(definitionOf(parts(parameter(type("Qty_t")),
            control(type("lay:SingleSpinner_t") + xml(" increment='7' incrementPolicy='LotSize'")))));
        auto* const spinner = input<QAbstractSpinBox>("input_P");
        QTest::keyClick(spinner, Qt::Key_Up);
        QCOMPARE(value(), QStringLiteral("7"));
        m_form->setSecurity(100, 2);
        QTest::keyClick(spinner, Qt::Key_Up);
        QCOMPARE(value(), QStringLiteral("107"));
        QTest::keyClick(spinner, Qt::Key_PageDown);
        QCOMPARE(value(), QStringLiteral("0"));
    }

    void aClockShowsItsTimeZone()
    {
        open(definitionOf(parts(parameter(type("UTCTimeOnly_t") + xml(" localMktTz='Asia/Tokyo'")),
            control(type("lay:Clock_t") + xml(" localMktTz='Asia/Shanghai' initValue='09:30:00'")))));
        QCOMPARE(value(), QStringLiteral("10:30:00"));
        QCOMPARE(input<QLabel>("unit_P")->text(), QStringLiteral("Asia/Tokyo"));
    }

    void aLabelAndAHiddenField()
    {
        open(definitionOf(parts(parameter(type("String_t")),
            xml("<lay:Control ID='l' xsi:type='lay:Label_t' label='x' initValue='&lt;b&gt;text'/>"
                "<lay:Control ID='h' xsi:type='lay:HiddenField_t' parameterRef='P' initValue='hidden'/>"))));
        QCOMPARE(input<QLabel>("input_l")->text(), QStringLiteral("<b>text"));
        QCOMPARE(input<QLabel>("input_l")->textFormat(), Qt::PlainText);
        QCOMPARE(captionOf("input_l"), QStringLiteral("x"));
        QVERIFY(input<QWidget>("input_P") == nullptr);
        QCOMPARE(value(), QStringLiteral("hidden"));
    }

    void aLabelWithoutAValueShowsItsCaption()
    {
        open(definitionOf(parts(QString(), xml("<lay:Control ID='l' xsi:type='lay:Label_t' label='x'/>"))));
        QCOMPARE(input<QLabel>("input_l")->text(), QStringLiteral("x"));
        QCOMPARE(captionOf("input_l"), QString());
    }

    void aLabelOfAParameterShowsItsValue()
    {
        open(definitionOf(
            parts(parameter(type("Percentage_t")), control(type("lay:Label_t") + xml(" initValue='0.25'")))));
        QCOMPARE(input<QLabel>("input_P")->text(), QStringLiteral("25"));
        QCOMPARE(captionOf("input_P"), QStringLiteral("标签"));
        QCOMPARE(input<QLabel>("unit_P")->text(), QStringLiteral("%"));
        QVERIFY(!input<QLabel>("hint_P"));
        QCOMPARE(value(), QStringLiteral("0.25"));
        m_form->setValues({ { QStringLiteral("P"), QStringLiteral("0.5") } });
        QCOMPARE(input<QLabel>("input_P")->text(), QStringLiteral("50"));
        QCOMPARE(m_form->check().status, Status());
    }

    void aControlStartsWithAFieldOfTheOrder()
    {
        open(definitionOf(parts(parameter(type("String_t")),
            control(type("lay:TextField_t")
                + xml(" initPolicy='UseFixField' initFixField='FIX_Account' initValue='none'")))));
        QCOMPARE(value(), QStringLiteral("none"));
        m_form->setOrderFields({ { QStringLiteral("FIX_Account"), QStringLiteral("A1") } });
        QCOMPARE(value(), QStringLiteral("A1"));
        m_form->setOrderFields({ { QStringLiteral("FIX_Account"), QStringLiteral("A2") } });
        QCOMPARE(value(), QStringLiteral("A1"));
    }

    void aClearedFieldOfTheOrderStaysCleared()
    {
        const StrategyDefinition strategy = definitionOf(parts(parameter(type("String_t")),
            control(type("lay:TextField_t") + xml(" initPolicy='UseFixField' initFixField='FIX_Symbol'"))));
        const QMap<QString, QString> order{ { QStringLiteral("FIX_Symbol"), QStringLiteral("600000.SH") } };
        open(strategy);
        m_form->setOrderFields(order);
        QCOMPARE(value(), QStringLiteral("600000.SH"));
        auto* const edit = input<QLineEdit>("input_P");
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        m_form->setOrderFields(order);
        QCOMPARE(value(), QString());

        const QMap<QString, QString> stored = m_form->values();
        open(strategy);
        m_form->setValues(stored);
        m_form->setOrderFields(order);
        QCOMPARE(value(), QString());
    }

    void everyInputHasANameForScreenReaders()
    {
        open(definitionOf(parts(parameter(type("Int_t") + xml(" minValue='1'")),
            xml("<lay:Control ID='c' xsi:type='lay:SingleSpinner_t' parameterRef='P' "
                "tooltip='tip'><lay:HelpText>long</lay:HelpText></lay:Control>"))));
        auto* const spinner = input<QWidget>("input_P");
        QCOMPARE(spinner->accessibleName(), QStringLiteral("P"));
        QCOMPARE(spinner->accessibleDescription(), QStringLiteral("tip，不小于 1，选填，long"));
        QVERIFY(spinner->whatsThis().contains(QStringLiteral("long")));
    }

    void panelsLieSideBySideOrBelow()
    {
        open(definitionOf(strategy(
            xml("<Parameter name='A' xsi:type='Int_t'/><Parameter name='B' xsi:type='Int_t'/><Parameter name='C' "
                "xsi:type='Int_t'/>"
                "<lay:StrategyLayout><lay:StrategyPanel orientation='HORIZONTAL'>"
                "<lay:StrategyPanel title='左' orientation='VERTICAL' border='Line'>"
                "<lay:Control ID='a' xsi:type='lay:TextField_t' parameterRef='A' label='a'/>"
                "<lay:Control ID='b' xsi:type='lay:TextField_t' parameterRef='B' label='b'/></lay:StrategyPanel>"
                "<lay:StrategyPanel title='右' orientation='VERTICAL' collapsible='true' collapsed='true'>"
                "<lay:Control ID='c' xsi:type='lay:TextField_t' parameterRef='C' label='c'/></lay:StrategyPanel>"
                "</lay:StrategyPanel></lay:StrategyLayout>"))));
        const auto place = [this](const char* name) { return input<QWidget>(name)->mapTo(m_form.get(), QPoint()); };
        QVERIFY(place("input_B").y() > place("input_A").y());
        QCOMPARE(place("input_B").x(), place("input_A").x());
        auto* const title = input<QToolButton>("panelTitle");
        QVERIFY(title->mapTo(m_form.get(), QPoint()).x() > place("input_A").x());
        QVERIFY(!input<QWidget>("input_C")->isVisible());
        QCOMPARE(title->accessibleDescription(), QStringLiteral("已折叠"));
        QTest::keyClick(title, Qt::Key_Space);
        QVERIFY(input<QWidget>("input_C")->isVisible());
        QTest::keyClick(title, Qt::Key_Space);
        m_form->markFault(QStringLiteral("C"));
        QVERIFY(input<QWidget>("input_C")->isVisible());
    }

    void stateRulesSettleWithOneKey()
    {
        open(definitionOf(parts(parameter(type("Int_t")),
            xml("<lay:Control ID='x' xsi:type='lay:CheckBox_t' label='x'/>"
                "<lay:Control ID='c' xsi:type='lay:SingleSpinner_t' parameterRef='P' initValue='5'>"
                "<flow:StateRule enabled='true'><val:Edit field='x' operator='EQ' value='true'/></flow:StateRule>"
                "<flow:StateRule value='{NULL}'><val:Edit field='x' operator='NE' "
                "value='true'/></flow:StateRule></lay:Control>"
                "<lay:Control ID='t' xsi:type='lay:TextField_t' label='t'>"
                "<flow:StateRule visible='true'><val:Edit field='c' operator='GT' "
                "value='4'/></flow:StateRule></lay:Control>"))));
        auto* const box = input<QCheckBox>("input_x");
        auto* const spinner = input<QAbstractSpinBox>("input_P");
        QVERIFY(!spinner->isEnabled());
        QCOMPARE(spinner->text(), QString());
        QVERIFY(!input<QWidget>("input_t")->isVisible());
        QTest::keyClick(box, Qt::Key_Space);
        QVERIFY(spinner->isEnabled());
        QCOMPARE(spinner->text(), QStringLiteral("5"));
        QVERIFY(input<QWidget>("input_t")->isVisible());
        QTest::keyClick(spinner, Qt::Key_Down);
        QVERIFY(!input<QWidget>("input_t")->isVisible());
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(value(), QString());
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(value(), QStringLiteral("4"));
    }

    void aBrokenRuleMarksItsFirstParameter()
    {
        open(definitionOf(parts(parameter(type("Int_t")), control(type("lay:SingleSpinner_t") + xml(" initValue='6'")),
            xml("<val:StrategyEdit errorMessage='zu groß'><val:Edit logicOperator='OR'><val:Edit field='P' "
                "operator='NX'/>"
                "<val:Edit field='P' operator='LT' value='5'/></val:Edit></val:StrategyEdit>"))));
        const ParameterForm::Fault fault = m_form->check();
        QCOMPARE(fault.status, Status(Error::RuleBroken, { QStringLiteral("zu groß") }));
        QCOMPARE(fault.parameter, QStringLiteral("P"));
        m_form->setValues({ { QStringLiteral("P"), QStringLiteral("4") } });
        QCOMPARE(m_form->check().status, Status());
    }

private:
    void open(const StrategyDefinition& strategy)
    {
        m_form = std::make_unique<ParameterForm>(strategy, nullptr);
        m_form->show();
        QApplication::setActiveWindow(m_form.get());
        QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
    }
    template <typename Widget> Widget* input(const char* name) const
    {
        return m_form->findChild<Widget*>(QLatin1String(name));
    }
    /// The text beside an input; null without one.
    QString captionOf(const char* name) const
    {
        const QList<QLabel*> labels = m_form->findChildren<QLabel*>();
        for (const QLabel* const label : labels) {
            if (label->buddy() == input<QWidget>(name))
                return label->text();
        }
        return QString();
    }
    QString value() const { return m_form->values().value(QStringLiteral("P")); }

    std::unique_ptr<ParameterForm> m_form;
};

QTEST_MAIN(StrategyPanelTest)
#include "tst_strategy_panel.moc"
