#include "ControlValue.h"
#include "EditEvaluation.h"
#include "LoggedTest.h"
#include "PanelState.h"
#include "ParameterValue.h"
#include "StrategyLibrary.h"
#include "StrategyTexts.h"
#include "TestStatus.h"
#include "WireValue.h"

#include <QtTest>

using namespace StrategyTexts;

namespace {

QString xml(const char* text)
{
    return QString::fromUtf8(text).replace(QLatin1Char('\''), QLatin1Char('"'));
}

StrategyDefinition definitionOf(const QString& text)
{
    const StrategyFile file = read(text);
    const StrategyRemarks remarks =
        file.strategies.isEmpty() ? StrategyRemarks() : file.strategies.constFirst().remarks;
    if (!file.failure || !remarks.refusal)
        qWarning().noquote() << errorText(file.failure) << errorText(remarks.refusal);
    return file.strategies.isEmpty() ? StrategyDefinition() : file.strategies.constFirst().definition;
}

/// Parameters N and M, numbers; S and T, texts; R, a percentage; B, yes or no; E, one of A and B; L, a list; U to X,
/// times.
const QString Parameters =
    xml("<Parameter name='N' xsi:type='Int_t'/><Parameter name='M' xsi:type='Float_t'/>"
        "<Parameter name='S' xsi:type='String_t'/><Parameter name='T' xsi:type='String_t'/>"
        "<Parameter name='R' xsi:type='Percentage_t' multiplyBy100='true'/>"
        "<Parameter name='B' xsi:type='Boolean_t'/>"
        "<Parameter name='E' xsi:type='Char_t'><EnumPair enumID='e_a' wireValue='A'/>"
        "<EnumPair enumID='e_b' wireValue='B'/></Parameter>"
        "<Parameter name='L' xsi:type='MultipleCharValue_t'/>"
        "<Parameter name='U' xsi:type='UTCTimeOnly_t'/><Parameter name='V' xsi:type='LocalMktTime_t'/>"
        "<Parameter name='W' xsi:type='UTCTimeOnly_t' localMktTz='America/New_York'/>"
        "<Parameter name='X' xsi:type='UTCTimeOnly_t' localMktTz='Asia/Shanghai'/>");

/// Whether a rule holds with values "N=1 S=x".
struct RuleCase {
    const char* row;
    const char* edit;
    const char* values;
    bool holds;
};

constexpr RuleCase RuleCases[]{
    { "less", "<val:Edit field='N' operator='LT' value='5'/>", "N=4", true },
    { "not less", "<val:Edit field='N' operator='LT' value='5'/>", "N=5", false },
    { "less or equal", "<val:Edit field='N' operator='LE' value='5'/>", "N=5", true },
    { "more than", "<val:Edit field='N' operator='GT' value='5'/>", "N=5", false },
    { "more or equal", "<val:Edit field='N' operator='GE' value='5'/>", "N=5", true },
    { "equal as numbers", "<val:Edit field='M' operator='EQ' value='5.0'/>", "M=5", true },
    { "not equal as numbers", "<val:Edit field='M' operator='NE' value='5.0'/>", "M=5", false },
    { "numbers are not compared as texts", "<val:Edit field='N' operator='LT' value='10'/>", "N=9", true },
    { "texts are compared letter by letter", "<val:Edit field='S' operator='EQ' value='ab'/>", "S=aB", false },
    { "field against field", "<val:Edit field='N' operator='LT' field2='M'/>", "N=1 M=1.5", true },
    { "field against field, not", "<val:Edit field='N' operator='GT' field2='M'/>", "N=1 M=1.5", false },
    { "exists", "<val:Edit field='S' operator='EX'/>", "S=x", true },
    { "exists, not", "<val:Edit field='S' operator='EX'/>", "", false },
    { "missing", "<val:Edit field='S' operator='NX'/>", "", true },
    { "missing, not", "<val:Edit field='S' operator='NX'/>", "S=x", false },
    { "equal to nothing", "<val:Edit field='S' operator='EQ' value='{NULL}'/>", "", true },
    { "different from nothing", "<val:Edit field='S' operator='NE' value=''/>", "", false },
    { "a relation with an empty field is not checked", "<val:Edit field='N' operator='LT' value='5'/>", "", true },
    { "nor is its opposite", "<val:Edit logicOperator='NOT'><val:Edit field='N' operator='LT' value='5'/></val:Edit>",
        "", true },
    { "a percentage is compared as it is sent", "<val:Edit field='R' operator='LE' value='50'/>", "R=0.5", true },
    { "a percentage above", "<val:Edit field='R' operator='LE' value='50'/>", "R=0.51", false },
    { "yes", "<val:Edit field='B' operator='EQ' value='Y'/>", "B=Y", true },
    { "the word for yes", "<val:Edit field='B' operator='EQ' value='true'/>", "B=N", false },
    { "a wire value", "<val:Edit field='E' operator='EQ' value='A'/>", "E=A", true },
    { "an id in place of a wire value", "<val:Edit field='E' operator='EQ' value='e_b'/>", "E=B", true },
    { "lists in any order", "<val:Edit field='L' operator='EQ' value='B A'/>", "L=A,B", true },
    { "lists with other members", "<val:Edit field='L' operator='EQ' value='B C'/>", "L=A,B", false },
    { "a time in UTC", "<val:Edit field='U' operator='GE' value='01:30:00'/>", "U=09:30:00", true },
    { "a time in UTC, before", "<val:Edit field='U' operator='GE' value='01:30:00'/>", "U=09:29:59", false },
    { "a time of the market", "<val:Edit field='V' operator='GE' value='09:30:00'/>", "V=09:30:00", true },
    { "time against time", "<val:Edit field='U' operator='LT' field2='V'/>", "U=09:30:00 V=09:31:00", true },
    { "times of different zones", "<val:Edit field='W' operator='LT' field2='U'/>", "W=20:00:00 U=10:00:00", true },
    { "times of different zones, not", "<val:Edit field='W' operator='LT' field2='V'/>", "W=20:00:00 V=08:00:00",
        false },
    { "times of the market on two days of UTC", "<val:Edit field='X' operator='LT' field2='V'/>",
        "X=07:30:00 V=09:00:00", true },
    { "a number and a text of one", "<val:Edit field='N' operator='LT' field2='S'/>", "N=9 S=10", true },
    { "a number and another text", "<val:Edit field='N' operator='EQ' field2='S'/>", "N=9 S=x", false },
    { "a text of a number and a number", "<val:Edit field='S' operator='GT' field2='M'/>", "S=10 M=9.5", true },
    { "a time in UTC and a text of one", "<val:Edit field='U' operator='GT' field2='S'/>", "U=09:30:00 S=1:29", true },
    { "a text of a time and a time of the market", "<val:Edit field='S' operator='LE' field2='V'/>",
        "S=9:31 V=09:30:00", false },
    { "a time and a text of none is not checked", "<val:Edit field='V' operator='LT' field2='S'/>", "S=x V=09:30:00",
        true },
    { "yes and its text", "<val:Edit field='B' operator='EQ' field2='S'/>", "B=Y S=Y", true },
    { "all",
        "<val:Edit logicOperator='AND'><val:Edit field='N' operator='EX'/><val:Edit field='S' "
        "operator='EX'/></val:Edit>",
        "N=1 S=x", true },
    { "not all",
        "<val:Edit logicOperator='AND'><val:Edit field='N' operator='EX'/><val:Edit field='S' "
        "operator='EX'/></val:Edit>",
        "N=1", false },
    { "one of them",
        "<val:Edit logicOperator='OR'><val:Edit field='N' operator='EX'/><val:Edit field='S' "
        "operator='EX'/></val:Edit>",
        "S=x", true },
    { "none of them",
        "<val:Edit logicOperator='OR'><val:Edit field='N' operator='EX'/><val:Edit field='S' "
        "operator='EX'/></val:Edit>",
        "", false },
    { "an unknown relation does not spoil another one that holds",
        "<val:Edit logicOperator='OR'><val:Edit field='N' operator='LT' value='5'/><val:Edit field='S' "
        "operator='EX'/></val:Edit>",
        "S=x", true },
    { "an unknown relation does not save another one that fails",
        "<val:Edit logicOperator='AND'><val:Edit field='N' operator='LT' value='5'/><val:Edit field='S' "
        "operator='EX'/></val:Edit>",
        "", false },
    { "exactly one of three",
        "<val:Edit logicOperator='XOR'><val:Edit field='N' operator='EX'/><val:Edit field='S' operator='EX'/><val:Edit "
        "field='T' operator='EX'/></val:Edit>",
        "S=x", true },
    { "two of three",
        "<val:Edit logicOperator='XOR'><val:Edit field='N' operator='EX'/><val:Edit field='S' operator='EX'/><val:Edit "
        "field='T' operator='EX'/></val:Edit>",
        "N=1 S=x", false },
    { "all three",
        "<val:Edit logicOperator='XOR'><val:Edit field='N' operator='EX'/><val:Edit field='S' operator='EX'/><val:Edit "
        "field='T' operator='EX'/></val:Edit>",
        "N=1 S=x T=x", false },
    { "the opposite", "<val:Edit logicOperator='NOT'><val:Edit field='N' operator='EX'/></val:Edit>", "N=1", false },
    { "nested",
        "<val:Edit logicOperator='OR'><val:Edit field='N' operator='NX'/><val:Edit logicOperator='AND'>"
        "<val:Edit field='N' operator='GE' value='1'/><val:Edit field='N' operator='LE' "
        "value='50'/></val:Edit></val:Edit>",
        "N=51", false },
    { "a reference to the strategy's own", "<val:EditRef id='own'/>", "N=1", true },
    { "a reference to the file's", "<val:EditRef id='shared'/>", "S=x", true },
    { "a reference to a condition with a reference", "<val:EditRef id='both'/>", "N=1", false },
};

QMap<QString, QString> valuesOf(const QString& text)
{
    QMap<QString, QString> values;
    for (const QString& pair : text.split(QLatin1Char(' '))) {
        const QString value = pair.section(QLatin1Char('='), 1).replace(QLatin1Char(','), QLatin1Char(' '));
        if (!value.isEmpty())
            values.insert(pair.section(QLatin1Char('='), 0, 0), value);
    }
    return values;
}

/// A text field for a rule.
QString field(const char* id, const char* rules, const char* attributes = "")
{
    return xml("<lay:Control ID='%1' xsi:type='lay:TextField_t' %2>%3</lay:Control>\n")
        .arg(QLatin1String(id), xml(attributes), xml(rules));
}

QString checkBox(const char* id, const char* attributes = "")
{
    return xml("<lay:Control ID='%1' xsi:type='lay:CheckBox_t' %2/>\n").arg(QLatin1String(id), xml(attributes));
}

QString rule(const char* attributes, const char* edit)
{
    return xml("<flow:StateRule %1>%2</flow:StateRule>").arg(xml(attributes), xml(edit));
}

const char* const OnX = "<val:Edit field='x' operator='EQ' value='true'/>";
const char* const OnY = "<val:Edit field='y' operator='EQ' value='true'/>";

} // namespace

class StrategyRulesTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void relationsAreCheckedAsTheStandardSays_data()
    {
        QTest::addColumn<QString>("edit");
        QTest::addColumn<QString>("values");
        QTest::addColumn<bool>("holds");
        for (const RuleCase& one : RuleCases)
            QTest::newRow(one.row) << xml(one.edit) << QString::fromLatin1(one.values) << one.holds;
    }

    void relationsAreCheckedAsTheStandardSays()
    {
        QFETCH(QString, edit);
        QFETCH(QString, values);
        QFETCH(bool, holds);
        const QString text = root(xml("<val:Edit id='shared' field='S' operator='EX'/>"
                                      "<Strategy name='S' version='1' wireValue='s'>")
            + Parameters
            + xml("<val:Edit id='own' field='N' operator='EX'/><val:Edit id='both' logicOperator='AND'>"
                  "<val:EditRef id='own'/><val:EditRef id='shared'/></val:Edit>"
                  "<val:StrategyEdit errorMessage='m'><Description>d</Description>%1</val:StrategyEdit></Strategy>")
                  .arg(edit));
        const StrategyDefinition strategy = definitionOf(text);
        QCOMPARE(strategy.rules.size(), 1);
        const StrategyRule* const broken = StrategyRules::firstBroken(strategy, valuesOf(values));
        QCOMPARE(broken == nullptr, holds);
    }

    void rulesOnAFieldOfTheOrderAreAllLeftOut_data()
    {
        QTest::addColumn<QString>("named");
        const auto row = [](const char* name, const char* named) { QTest::newRow(name) << xml(named); };
        row("a comparison", "<val:Edit id='fix' field='FIX_TimeInForce' operator='EX'/>");
        row("with another field", "<val:Edit id='fix' field='N' operator='LT' field2='FIX_OrderQty'/>");
        row("inside a combination",
            "<val:Edit id='fix' logicOperator='OR'><val:Edit field='FIX_TimeInForce' operator='EX'/>"
            "<val:Edit field='N' operator='EX'/></val:Edit>");
    }

    void rulesOnAFieldOfTheOrderAreAllLeftOut()
    {
        QFETCH(QString, named);
        const auto relation = [](const char* field) {
            return xml("<val:StrategyEdit errorMessage='m'><val:Edit logicOperator='OR'>\n<val:EditRef id='fix'/>"
                       "<val:Edit field='%1' operator='EX'/></val:Edit></val:StrategyEdit>\n")
                .arg(QLatin1String(field));
        };
        const StrategyFile file =
            read(StrategyTexts::strategy(Parameters + named + QLatin1Char('\n') + relation("S") + relation("T")
                + xml("<val:StrategyEdit errorMessage='m'><val:Edit field='M' operator='EX'/></val:StrategyEdit>")));
        const ReadStrategy strategy = file.strategies.value(0);
        QCOMPARE(strategy.remarks.refusal, Status());
        const Status skipped(Error::RuleSkipped,
            { named.contains(QLatin1String("Qty")) ? QStringLiteral("FIX_OrderQty")
                                                   : QStringLiteral("FIX_TimeInForce") });
        QVERIFY(strategy.remarks.warnings.contains(StrategyRemarks::inLine(3, skipped)));
        QVERIFY(strategy.remarks.warnings.contains(StrategyRemarks::inLine(7, skipped)));
        QCOMPARE(strategy.definition.rules.size(), 1);
        QVERIFY(StrategyRules::firstBroken(strategy.definition, {}) != nullptr);
    }

    void aRuleEnablesAndDisables()
    {
        PanelState panel(definitionOf(parts({}, checkBox("x") + field("a", qPrintable(rule("enabled='true'", OnX))))));
        QVERIFY(!panel.isEnabled(1));
        panel.enter(0, QStringLiteral("true"));
        QVERIFY(panel.isEnabled(1));
        panel.enter(0, QStringLiteral("false"));
        QVERIFY(!panel.isEnabled(1));
    }

    void aRuleHidesAndShows()
    {
        PanelState panel(definitionOf(parts({}, checkBox("x") + field("a", qPrintable(rule("visible='false'", OnX))))));
        QVERIFY(panel.isVisible(1));
        panel.enter(0, QStringLiteral("true"));
        QVERIFY(!panel.isVisible(1));
        panel.enter(0, QStringLiteral("false"));
        QVERIFY(panel.isVisible(1));
    }

    void aRuleThatHoldsGoesBeforeTheOppositeOfAnother()
    {
        const QString rules = rule("enabled='false'", OnX) + rule("enabled='false'", OnY);
        PanelState panel(definitionOf(parts({}, checkBox("x") + checkBox("y") + field("a", qPrintable(rules)))));
        QVERIFY(panel.isEnabled(2));
        panel.enter(0, QStringLiteral("true"));
        QVERIFY(!panel.isEnabled(2));
        panel.enter(1, QStringLiteral("true"));
        panel.enter(0, QStringLiteral("false"));
        QVERIFY(!panel.isEnabled(2));
        panel.enter(1, QStringLiteral("false"));
        QVERIFY(panel.isEnabled(2));
    }

    void aValueIsSetWhenTheConditionBeginsAndStays()
    {
        PanelState panel(
            definitionOf(parts({}, checkBox("x") + field("a", qPrintable(rule("value='5'", OnX)), "initValue='1'"))));
        QCOMPARE(panel.value(1), QStringLiteral("1"));
        panel.enter(0, QStringLiteral("true"));
        QCOMPARE(panel.value(1), QStringLiteral("5"));
        panel.enter(1, QStringLiteral("7"));
        QCOMPARE(panel.value(1), QStringLiteral("7"));
        panel.enter(0, QStringLiteral("false"));
        QCOMPARE(panel.value(1), QStringLiteral("7"));
        panel.enter(0, QStringLiteral("true"));
        QCOMPARE(panel.value(1), QStringLiteral("5"));
    }

    void aClearedValueComesBack()
    {
        PanelState panel(definitionOf(
            parts({}, checkBox("x") + field("a", qPrintable(rule("value='{NULL}'", OnX)), "initValue='1'"))));
        panel.enter(1, QStringLiteral("2"));
        panel.enter(0, QStringLiteral("true"));
        QCOMPARE(panel.value(1), QString());
        panel.enter(0, QStringLiteral("false"));
        QCOMPARE(panel.value(1), QStringLiteral("2"));
        panel.enter(1, QString());
        panel.enter(0, QStringLiteral("true"));
        panel.enter(0, QStringLiteral("false"));
        QCOMPARE(panel.value(1), QStringLiteral("1"));
    }

    void aValueStaysClearedUntilTheLastRuleLifts()
    {
        const QString rules = rule("value='{NULL}'", OnX) + rule("value='{NULL}'", OnY);
        PanelState panel(definitionOf(parts(
            {}, checkBox("x", "initValue='true'") + checkBox("y") + field("a", qPrintable(rules), "initValue='1'"))));
        QCOMPARE(panel.value(2), QString());
        panel.enter(1, QStringLiteral("true"));
        panel.enter(0, QStringLiteral("false"));
        QCOMPARE(panel.value(2), QString());
        panel.enter(1, QStringLiteral("false"));
        QCOMPARE(panel.value(2), QStringLiteral("1"));
    }

    void rulesThatFollowEachOtherSettleAtOnce()
    {
        // The last control comes first in the file.
        const QString controls =
            field(
                "c", qPrintable(rule("value='last' enabled='true'", "<val:Edit field='b' operator='EQ' value='mid'/>")))
            + field("b", qPrintable(rule("value='mid'", "<val:Edit field='a' operator='EQ' value='first'/>")))
            + field("a", qPrintable(rule("value='first'", OnX))) + checkBox("x");
        PanelState panel(definitionOf(parts({}, controls)));
        QVERIFY(!panel.isEnabled(0));
        panel.enter(3, QStringLiteral("true"));
        QCOMPARE(panel.value(2), QStringLiteral("first"));
        QCOMPARE(panel.value(1), QStringLiteral("mid"));
        QCOMPARE(panel.value(0), QStringLiteral("last"));
        QVERIFY(panel.isEnabled(0));
    }

    void anEmptyControlDiffersFromEveryValue()
    {
        const QString controls = field("a", "")
            + field("n", qPrintable(rule("enabled='true'", "<val:Edit field='a' operator='NE' value='1'/>")))
            + field("e", qPrintable(rule("enabled='true'", "<val:Edit field='a' operator='EQ' field2='n'/>")))
            + field("l", qPrintable(rule("enabled='true'", "<val:Edit field='a' operator='LT' value='1'/>")));
        PanelState panel(definitionOf(parts({}, controls)));
        QVERIFY(panel.isEnabled(1));
        QVERIFY(panel.isEnabled(2));
        QVERIFY(!panel.isEnabled(3));
    }

    void aListWithoutIdsServesRules()
    {
        const QString list = xml("<lay:Control ID='l' xsi:type='lay:CheckBoxList_t' initValue='Two words'>"
                                 "<lay:ListItem uiRep='One'/><lay:ListItem uiRep='Two words'/></lay:Control>");
        const StrategyDefinition strategy = definitionOf(parts({},
            list
                + field(
                    "a", qPrintable(rule("enabled='true'", "<val:Edit field='l' operator='EQ' value='Two words'/>")))
                + field("b",
                    qPrintable(rule("enabled='true'", "<val:Edit field='l' operator='EQ' value='Two words,One'/>")))));
        PanelState panel(strategy);
        QCOMPARE(strategy.controls.at(0).items.at(1).text, QStringLiteral("Two words"));
        QVERIFY(panel.isEnabled(1));
        QVERIFY(!panel.isEnabled(2));
        panel.enter(0, QStringLiteral("One ") + strategy.controls.at(0).items.at(1).id);
        QVERIFY(!panel.isEnabled(1));
        QVERIFY(panel.isEnabled(2));
    }

    void aHelperIsComparedAsANumberIfItIsOne()
    {
        const QString spinner = xml("<lay:Control ID='n' xsi:type='lay:SingleSpinner_t' parameterRef='N'/>");
        PanelState panel(definitionOf(parts(Parameters,
            spinner + field("t", "")
                + field("a", qPrintable(rule("enabled='true'", "<val:Edit field='n' operator='LT' field2='t'/>")))
                + field("b", qPrintable(rule("enabled='true'", "<val:Edit field='t' operator='GT' value='9'/>"))))));
        panel.enter(0, QStringLiteral("9"));
        panel.enter(1, QStringLiteral("10"));
        QVERIFY(panel.isEnabled(2));
        QVERIFY(panel.isEnabled(3));
        panel.enter(1, QStringLiteral("8"));
        QVERIFY(!panel.isEnabled(2));
        QVERIFY(!panel.isEnabled(3));
    }

    void clocksOfDifferentZonesAreCompared()
    {
        const auto clock = [](const char* id, const char* zone) {
            return xml("<lay:Control ID='%1' xsi:type='lay:Clock_t' localMktTz='%2'/>")
                .arg(QLatin1String(id), QLatin1String(zone));
        };
        PanelState panel(definitionOf(parts({},
            clock("w", "America/New_York") + clock("u", "Asia/Shanghai") + field("t", "")
                + field("a", qPrintable(rule("enabled='true'", "<val:Edit field='w' operator='LT' field2='u'/>")))
                + field("b", qPrintable(rule("enabled='true'", "<val:Edit field='u' operator='GT' field2='t'/>"))))));
        panel.enter(0, QStringLiteral("20:00:00"));
        panel.enter(1, QStringLiteral("10:00:00"));
        panel.enter(2, QStringLiteral("9:59"));
        QVERIFY(panel.isEnabled(3));
        QVERIFY(panel.isEnabled(4));
        panel.enter(1, QStringLiteral("08:00:00"));
        QVERIFY(!panel.isEnabled(3));
        QVERIFY(!panel.isEnabled(4));
    }

    void oneButtonOfAGroupIsChecked()
    {
        const auto radio = [](const char* id, const char* checked, const char* more) {
            return xml("<lay:Control ID='%1' xsi:type='lay:RadioButton_t' parameterRef='E' radioGroup='g' "
                       "checkedEnumRef='%2' %3/>")
                .arg(QLatin1String(id), QLatin1String(checked), xml(more));
        };
        PanelState panel(definitionOf(parts(Parameters,
            radio("r", "e_a", "initValue='true'") + radio("s", "e_b", "")
                + field("f", qPrintable(rule("enabled='true'", "<val:Edit field='r' operator='EQ' value='true'/>"))))));
        QCOMPARE(panel.parameters().value(QStringLiteral("E")), QStringLiteral("A"));
        QVERIFY(panel.isEnabled(2));
        panel.enter(1, QStringLiteral("true"));
        QCOMPARE(panel.value(0), QStringLiteral("false"));
        QVERIFY(!panel.isEnabled(2));
        QCOMPARE(panel.parameters().value(QStringLiteral("E")), QStringLiteral("B"));
    }

    void buttonsOfOneParameterBelongTogether()
    {
        const auto radio = [](const char* id) {
            return xml("<lay:Control ID='r%1' xsi:type='lay:RadioButton_t' parameterRef='E' checkedEnumRef='%1'/>")
                .arg(QLatin1String(id));
        };
        PanelState panel(definitionOf(parts(Parameters, radio("e_a") + radio("e_b"))));
        panel.enter(0, QStringLiteral("true"));
        panel.enter(1, QStringLiteral("true"));
        QCOMPARE(panel.value(0), QStringLiteral("false"));
        QCOMPARE(panel.parameters().value(QStringLiteral("E")), QStringLiteral("B"));
    }

    void aCheckBoxSendsItsIds()
    {
        const QString box = xml("<lay:Control ID='b' xsi:type='lay:CheckBox_t' parameterRef='E' checkedEnumRef='e_a' "
                                "uncheckedEnumRef='e_b'/>");
        PanelState panel(definitionOf(parts(Parameters, box)));
        QCOMPARE(panel.parameters().value(QStringLiteral("E")), QStringLiteral("B"));
        panel.enter(0, QStringLiteral("true"));
        QCOMPARE(panel.parameters().value(QStringLiteral("E")), QStringLiteral("A"));
    }

    void noMayBeSentAsNothing()
    {
        const StrategyDefinition strategy = definitionOf(
            parts(parameter(type("Boolean_t") + xml(" falseWireValue='{NULL}' trueWireValue='Q' use='required'")),
                control(type("lay:CheckBox_t"))));
        PanelState panel(strategy);
        QCOMPARE(panel.parameters().value(QStringLiteral("P")), QString());
        QCOMPARE(ParameterValue::check(strategy.parameters.constFirst(), QString()), Status());
        panel.enter(0, QStringLiteral("true"));
        QCOMPARE(panel.parameters().value(QStringLiteral("P")), QStringLiteral("Q"));
    }

    void aLoadedPlanKeepsItsValues()
    {
        const QString controls = checkBox("x")
            + field("a",
                qPrintable(rule("enabled='true'", OnX)
                    + rule("value='{NULL}'", "<val:Edit field='x' operator='NE' value='true'/>")),
                "parameterRef='S'")
            + field("b", qPrintable(rule("value='9'", OnX)), "parameterRef='T'");
        const StrategyDefinition strategy = definitionOf(parts(Parameters, controls));
        PanelState panel(strategy);
        QCOMPARE(panel.value(0), QStringLiteral("false"));
        QMap<QString, QString> stored = panel.parameters();
        stored.insert(QStringLiteral("S"), QStringLiteral("kept"));
        stored.insert(QStringLiteral("T"), QStringLiteral("8"));
        panel.load(stored);
        // The helping check box is as it was when the value was entered.
        QCOMPARE(panel.value(0), QStringLiteral("true"));
        QCOMPARE(panel.parameters(), stored);
        QVERIFY(panel.isEnabled(1));
        panel.enter(0, QStringLiteral("false"));
        QCOMPARE(panel.parameters().value(QStringLiteral("S")), QString());
    }

    void anEntryThatSendsNothingIsLoaded_data()
    {
        QTest::addColumn<QString>("controls");
        QTest::addColumn<QString>("value");
        const QString entries = xml("<lay:ListItem enumID='some' uiRep='a'/><lay:ListItem enumID='none' uiRep='b'/>");
        const auto row = [&](const char* name, const char* kind, const QString& items, const char* value) {
            QTest::newRow(name)
                << xml("<lay:Control ID='c' parameterRef='Z' xsi:type='lay:%1'>%2</lay:Control>").arg(xml(kind), items)
                << QString::fromLatin1(value);
        };
        row("a drop-down list", "DropDownList_t' initValue='some", entries, "none");
        row("a list", "SingleSelectList_t' initValue='some", entries, "none");
        row("radio buttons", "RadioButtonList_t' initValue='some", entries, "none");
        row("a checked box", "CheckBox_t' checkedEnumRef='none' uncheckedEnumRef='some", {}, "true");
        row("a radio button", "RadioButton_t' checkedEnumRef='none", {}, "true");
    }

    void anEntryThatSendsNothingIsLoaded()
    {
        QFETCH(QString, controls);
        QFETCH(QString, value);
        const QString given =
            xml("<Parameter name='Z' xsi:type='String_t' use='required'><EnumPair enumID='some' wireValue='1'/>"
                "<EnumPair enumID='none' wireValue='{NULL}'/></Parameter><Parameter name='S' xsi:type='String_t'/>");
        const QString edit = QStringLiteral("<val:Edit field='c' operator='EQ' value='%1'/>").arg(value);
        const StrategyDefinition strategy = definitionOf(parts(
            given, controls + field("s", qPrintable(rule("enabled='true'", qPrintable(edit))), "parameterRef='S'")));
        PanelState panel(strategy);
        QVERIFY(!panel.isEnabled(1));
        panel.enter(0, value);
        panel.enter(1, QStringLiteral("x"));
        const QMap<QString, QString> stored = panel.parameters();
        QCOMPARE(stored.value(QStringLiteral("Z")), QString());
        QCOMPARE(ParameterValue::check(strategy.parameters.constFirst(), QString()), Status());

        PanelState loaded(strategy);
        loaded.load(stored);
        QCOMPARE(loaded.value(0), value);
        QVERIFY(loaded.isEnabled(1));
        QCOMPARE(loaded.parameters(), stored);
    }

    void ofSeveralEntriesOneMaySendNothing()
    {
        const QString list = xml("<lay:Control ID='c' parameterRef='P' xsi:type='lay:CheckBoxList_t'/>");
        PanelState panel(definitionOf(parts(parameter(type("MultipleStringValue_t"),
                                                xml("<EnumPair enumID='a' wireValue='A'/><EnumPair enumID='none' "
                                                    "wireValue='{NULL}'/>")),
            list)));
        panel.enter(0, QStringLiteral("a none"));
        QCOMPARE(panel.parameters().value(QStringLiteral("P")), QStringLiteral("A"));
    }

    void valuesAreSentAsFixWritesThem_data()
    {
        QTest::addColumn<QString>("attributes");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("sent");
        const auto row = [](const char* name, const char* attributes, const char* stored, const char* sent) {
            QTest::newRow(name) << xml(attributes) << QString::fromLatin1(stored) << QString::fromLatin1(sent);
        };
        row("a number", "xsi:type='Int_t'", "5", "5");
        row("a percentage", "xsi:type='Percentage_t'", "0.155", "0.155");
        row("a percentage times 100", "xsi:type='Percentage_t' multiplyBy100='true'", "0.155", "15.5");
        row("a time of the market", "xsi:type='LocalMktTime_t'", "09:30:00", "09:30:00");
        row("a time in UTC", "xsi:type='UTCTimeOnly_t'", "09:30:00", "01:30:00");
        row("a time in UTC of another place in summer", "xsi:type='UTCTimeOnly_t' localMktTz='America/Chicago'",
            "08:30:00", "13:30:00");
        row("a moment in UTC", "xsi:type='UTCTimestamp_t' localMktTz='America/Chicago'", "08:30:00",
            "20100701-13:30:00");
        row("a moment in UTC on the day before", "xsi:type='UTCTimestamp_t'", "07:00:00", "20100630-23:00:00");
        row("a time with its zone", "xsi:type='TZTimeOnly_t'", "09:30:00", "09:30:00+08");
        row("a time with a half hour", "xsi:type='TZTimeOnly_t' localMktTz='Asia/Kolkata'", "09:30:00",
            "09:30:00+05:30");
        row("a time in London's winter time all year", "xsi:type='TZTimeOnly_t' localMktTz='UTC'", "09:30:00",
            "09:30:00Z");
        row("nothing", "xsi:type='Int_t'", "", "");
    }

    void valuesAreSentAsFixWritesThem()
    {
        QFETCH(QString, attributes);
        QFETCH(QString, stored);
        QFETCH(QString, sent);
        const StrategyDefinition strategy = definitionOf(StrategyTexts::strategy(parameter(attributes)));
        QCOMPARE(WireValue::of(strategy.parameters.constFirst(), stored, QDate(2010, 7, 1)), sent);
    }

    void aListIsSentInverted()
    {
        const StrategyDefinition strategy =
            definitionOf(StrategyTexts::strategy(parameter(xml("xsi:type='MultipleCharValue_t' invertOnWire='true'"),
                xml("<EnumPair enumID='a' wireValue='1'/><EnumPair enumID='b' wireValue='2'/><EnumPair enumID='c' "
                    "wireValue='3'/>"))));
        QCOMPARE(WireValue::of(strategy.parameters.constFirst(), QStringLiteral("2"), QDate(2024, 5, 6)),
            QStringLiteral("1 3"));
    }

    void aMessageHasTagsOrTheGroup()
    {
        const QString content =
            QStringLiteral("<Strategy name=\"POV\" wireValue=\"v\" version=\"1\">"
                           "<Parameter name=\"PctVol\" xsi:type=\"Percentage_t\" %1 constValue=\"0.15\"/>"
                           "<Parameter name=\"FC\" xsi:type=\"Boolean_t\" %2 constValue=\"Y\"/></Strategy>");
        const auto fields = [&](const char* one, const char* two, const char* support) {
            const StrategyDefinition strategy = definitionOf(root(content.arg(xml(one), xml(two)),
                xml("strategyIdentifierTag='7000' versionIdentifierTag='7001' tag957Support='%1'")
                    .arg(QLatin1String(support))));
            return WireValue::fields(strategy, ControlValue::defaults(strategy), QDate(2024, 5, 6));
        };
        QCOMPARE(fields("fixTag='7002'", "fixTag='7003'", "true"), QStringLiteral("7000=v|7001=1|7002=0.15|7003=Y"));
        QCOMPARE(fields("fixTag='7002'", "", "true"),
            QStringLiteral("7000=v|7001=1|957=2|958=PctVol|959=11|960=0.15|958=FC|959=13|960=Y"));
        QCOMPARE(fields("fixTag='7002'", "", "false"), QStringLiteral("7000=v|7001=1|7002=0.15"));
    }

    void aStrategyIsMeantForSecurities_data()
    {
        QTest::addColumn<QString>("scope");
        QTest::addColumn<QString>("markets"); // of those of Shanghai, Shenzhen and Hong Kong for which it is meant
        const auto row = [](const char* name, const char* scope, const char* markets) {
            QTest::newRow(name) << xml(scope) << QString::fromLatin1(markets);
        };
        row("nothing is said", "", "XSHG XSHE XHKG");
        row("a market", "<Markets><Market MICCode='XSHG' inclusion='Include'/></Markets>", "XSHG");
        row("a market in small letters", "<Markets><Market MICCode='xshg' inclusion='Include'/></Markets>", "XSHG");
        row("a region in small letters", "<Regions><Region name='asiapacificjapan' inclusion='Exclude'/></Regions>",
            "");
        row("not a market", "<Markets><Market MICCode='XSHG' inclusion='Exclude'/></Markets>", "XSHE XHKG");
        row("a market goes before one that is left out",
            "<Markets><Market MICCode='XSHG' inclusion='Include'/><Market MICCode='XSHE' "
            "inclusion='Exclude'/></Markets>",
            "XSHG");
        row("another region", "<Regions><Region name='TheAmericas' inclusion='Include'/></Regions>", "");
        row("not another region", "<Regions><Region name='TheAmericas' inclusion='Exclude'/></Regions>",
            "XSHG XSHE XHKG");
        row("the region", "<Regions><Region name='AsiaPacificJapan' inclusion='Include'/></Regions>", "XSHG XSHE XHKG");
        row("a country",
            "<Regions><Region name='AsiaPacificJapan' inclusion='Include'><Country CountryCode='CN' "
            "inclusion='Include'/></Region></Regions>",
            "XSHG XSHE");
        row("not a country",
            "<Regions><Region name='AsiaPacificJapan' inclusion='Include'><Country CountryCode='HK' "
            "inclusion='Exclude'/></Region></Regions>",
            "XSHG XSHE");
        row("a country of a region that is left out",
            "<Regions><Region name='AsiaPacificJapan' inclusion='Exclude'><Country CountryCode='HK' "
            "inclusion='Include'/></Region></Regions>",
            "XHKG");
        row("a market of a region that is left out",
            "<Regions><Region name='AsiaPacificJapan' inclusion='Exclude'/></Regions><Markets><Market MICCode='XSHE' "
            "inclusion='Include'/></Markets>",
            "XSHE");
        row("a security type", "<SecurityTypes><SecurityType name='CS' inclusion='Include'/></SecurityTypes>",
            "XSHG XSHE XHKG");
        row("another security type", "<SecurityTypes><SecurityType name='FUT' inclusion='Include'/></SecurityTypes>",
            "");
        row("not the security type", "<SecurityTypes><SecurityType name='CS' inclusion='Exclude'/></SecurityTypes>",
            "");
    }

    void aStrategyIsMeantForSecurities()
    {
        QFETCH(QString, scope);
        QFETCH(QString, markets);
        const StrategyDefinition strategy = definitionOf(StrategyTexts::strategy(scope));
        QStringList found;
        for (const QString& market : { QStringLiteral("XSHG"), QStringLiteral("XSHE"), QStringLiteral("XHKG") }) {
            const QString country = market == QLatin1String("XHKG") ? QStringLiteral("HK") : QStringLiteral("CN");
            if (strategy.scope.contains({ market, country, { QStringLiteral("CS") } }))
                found.append(market);
        }
        QCOMPARE(found.join(QLatin1Char(' ')), markets);
    }

    void theLibraryTakesTheUsersStrategies()
    {
        StrategyLibrary library;
        QVector<StrategyFile> files{ read(
            root(xml("<Strategy name='TWAP' version='1' wireValue='t' providerID='ME'/>"
                     "<Strategy name='VWAP' version='1' wireValue='v'/>"
                     "<Strategy name='Mine' version='1' wireValue='m'><Markets><Market MICCode='XNAS' "
                     "inclusion='Include'/></Markets></Strategy>"
                     "<Strategy name='Bad'><Banana/></Strategy>"
                     "<Strategy name='List' version='1' wireValue='l' fixMsgType='E'/>"))) };
        library.setFiles(files);
        QCOMPARE(library.names().mid(5),
            QStringList({ QStringLiteral("TWAP@ME"), QStringLiteral("VWAP@test"), QStringLiteral("Mine@test") }));
        QCOMPARE(library.strategy(QStringLiteral("TWAP")).provider, QStringLiteral("PLANDESK"));
        files.append(read(root(xml("<Strategy name='TWAP' version='2' wireValue='t' providerID='ME'/>"))));
        library.setFiles(files);
        QCOMPARE(files.at(1).strategies.constFirst().remarks.obstacles,
            QVector<Status>{ StrategyRemarks::inLine(2, { Error::StrategyNameTaken, { QStringLiteral("TWAP@ME") } }) });
        QCOMPARE(library.strategy(QStringLiteral("TWAP@ME")).version, QStringLiteral("1"));
        const TradedSecurity share{ QStringLiteral("XSHG"), QStringLiteral("CN"), { QStringLiteral("CS") } };
        QCOMPARE(library.namesNotFor(share), QStringList{ QStringLiteral("Mine@test") });
        QVector<StrategyFile> none;
        library.setFiles(none);
        QCOMPARE(library.names().size(), 5);
        QVERIFY(library.strategy(QStringLiteral("Mine@test")).name.isEmpty());
    }
};

QTEST_GUILESS_MAIN(StrategyRulesTest)
#include "tst_strategy_rules.moc"
