#include "AlgoTradeLogicNew.h"
#include "LoggedTest.h"
#include "ParameterValue.h"
#include "StrategyFile.h"
#include "StrategyLibrary.h"
#include "StrategyQuery.h"
#include "TestStatus.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString FileName = QStringLiteral("test.xml");

QString root(const QString& content)
{
    return QStringLiteral("<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\""
                          " xmlns:lay=\"http://www.fixprotocol.org/FIXatdl-1-1/Layout\""
                          " xmlns:val=\"http://www.fixprotocol.org/FIXatdl-1-1/Validation\""
                          " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n")
        + content + QStringLiteral("\n</Strategies>\n");
}

QString strategy(const QString& content)
{
    return root(QStringLiteral("<Strategy name=\"S\">\n") + content + QStringLiteral("\n</Strategy>"));
}

/// Line 3 contains the parameters, line 5 the controls, line 7 what follows the layout.
QString parts(const QString& parameters, const QString& controls, const QString& more = {})
{
    return strategy(parameters + QStringLiteral("\n<lay:StrategyLayout><lay:StrategyPanel>\n") + controls
        + QStringLiteral("\n</lay:StrategyPanel></lay:StrategyLayout>\n") + more);
}

QString parameter(const QString& rest, const QString& children = {})
{
    return QStringLiteral("<Parameter name=\"P\" %1>%2</Parameter>").arg(rest, children);
}

QString control(const QString& rest, const QString& children = {})
{
    return QStringLiteral("<lay:Control ID=\"c\" parameterRef=\"P\" label=\"标签\" %1>%2</lay:Control>")
        .arg(rest, children);
}

QString type(const char* name)
{
    return QStringLiteral("xsi:type=\"%1\"").arg(QLatin1String(name));
}

Result<QList<StrategyDefinition>> readText(const QString& text)
{
    QBuffer buffer;
    buffer.setData(text.toUtf8());
    buffer.open(QIODevice::ReadOnly);
    return StrategyFile::read(buffer, FileName);
}

/// Why a file is refused: an error in one of its lines.
Status refused(int line, const Status& error)
{
    const Status inLine(Error::StrategyFileLine, { QString::number(line) }, error);
    return { Error::StrategyFileRefused, { FileName }, inLine };
}

Status unreadable(const QString& file, const Status& cause)
{
    return { Error::StrategyFileUnreadable, { file }, cause };
}

QString namedStrategy(const QString& name)
{
    return root(QStringLiteral("<Strategy name=\"%1\" uiRep=\"别名\" version=\"7\" providerID=\"X\"/>").arg(name));
}

const QString WholeStrategy = QStringLiteral(R"(
<Strategy name="Demo" uiRep="演示" version="3" providerID="ME" wireValue="d" fixMsgType="D">
  <Description> 两行
     说明 </Description>
  <!-- a comment is no content -->
  <Parameter name="Rate" xsi:type="Percentage_t" fixTag="7001" use="required" minValue="0.01" maxValue="0.5" precision="4"/>
  <Parameter name="Speed" xsi:type="Char_t"><EnumPair enumID="e_a" wireValue="A"/><EnumPair enumID="e_b" wireValue="B"/></Parameter>
  <Parameter name="Kind" xsi:type="Int_t" constValue="4"/>
  <Parameter name="From" xsi:type="LocalMktTime_t"/>
  <Parameter name="To" xsi:type="LocalMktTime_t"/>
  <lay:StrategyLayout>
    <lay:StrategyPanel orientation="VERTICAL" collapsible="false">
      <lay:StrategyPanel title="一">
        <lay:Control ID="c1" xsi:type="lay:SingleSpinner_t" parameterRef="Rate" label="比例" initValue="0.1" increment="0.01" tooltip="提示"/>
      </lay:StrategyPanel>
      <lay:StrategyPanel title="二">
        <lay:Control ID="c2" xsi:type="lay:DropDownList_t" parameterRef="Speed" label="速度（档）" initValue="e_b">
          <lay:ListItem enumID="e_b" uiRep="快"/><lay:ListItem enumID="e_a" uiRep="慢"/>
        </lay:Control>
        <lay:Control ID="c3" xsi:type="lay:Clock_t" parameterRef="From" label="起"/>
        <lay:Control ID="c4" xsi:type="lay:Clock_t" parameterRef="To" label="止"/>
      </lay:StrategyPanel>
    </lay:StrategyPanel>
  </lay:StrategyLayout>
  <val:StrategyEdit errorMessage="起须早于止！"><val:Edit field="From" operator="LT" field2="To"/></val:StrategyEdit>
</Strategy>)");

/// One type of parameter with a control: the row's name, both types and a default.
struct Pairing {
    const char* row;
    QString parameterType;
    QString controlType;
    QString value;
};

const QList<Pairing> Pairings{
    { "whole number", QStringLiteral("Int_t"), QStringLiteral("SingleSpinner_t"), QStringLiteral("5") },
    { "decimal", QStringLiteral("Float_t"), QStringLiteral("SingleSpinner_t"), QStringLiteral("0.5") },
    { "quantity in two steps", QStringLiteral("Qty_t"), QStringLiteral("DoubleSpinner_t"), QStringLiteral("500") },
    { "price as text", QStringLiteral("Price_t"), QStringLiteral("TextField_t"), QStringLiteral("10.01") },
    { "amount", QStringLiteral("Amt_t"), QStringLiteral("SingleSpinner_t"), QStringLiteral("1000.5") },
    { "percentage", QStringLiteral("Percentage_t"), QStringLiteral("SingleSpinner_t"), QStringLiteral("0.25") },
    { "yes or no", QStringLiteral("Boolean_t"), QStringLiteral("CheckBox_t"), QStringLiteral("true") },
    { "text", QStringLiteral("String_t"), QStringLiteral("TextField_t"), QStringLiteral("abc") },
    { "letter", QStringLiteral("Char_t"), QStringLiteral("TextField_t"), QStringLiteral("x") },
    { "time", QStringLiteral("LocalMktTime_t"), QStringLiteral("Clock_t"), QStringLiteral("09:30:00") },
    { "time as text", QStringLiteral("LocalMktTime_t"), QStringLiteral("TextField_t"), QStringLiteral("09:30:00") },
};

/// One file that is refused: the row's name, the file, the line and the error.
struct Refusal {
    const char* row;
    QString text;
    int line;
    Status error;
};

const QString Number = type("Int_t");
const QString Spinner = type("lay:SingleSpinner_t");
const QString List = type("lay:DropDownList_t");
const QString Pair = QStringLiteral("<EnumPair enumID=\"a\" wireValue=\"1\"/>");
const QString Other = QStringLiteral("<EnumPair enumID=\"b\" wireValue=\"2\"/>");
const QString Item = QStringLiteral("<lay:ListItem enumID=\"a\" uiRep=\"甲\"/>");
const QString Good = parameter(Number);
const QString Edit = QStringLiteral("<val:StrategyEdit errorMessage=\"m\">%1</val:StrategyEdit>");

const QList<Refusal> Refusals{
    { "an empty file", QString(), 1, Error::FileIncomplete },
    { "a cut file", QStringLiteral("<Strategies\n"), 2, Error::FileIncomplete },
    { "an element that is not closed", root(QStringLiteral("<Strategy name=\"S\">")), 3, Error::InvalidXml },
    { "an attribute given twice", root(QStringLiteral("<Strategy name=\"a\"\nname=\"b\"/>")), 3, Error::InvalidXml },
    { "an undeclared prefix", root(QStringLiteral("<no:Strategy/>")), 2, Error::InvalidXml },
    { "another root", QStringLiteral("<?xml version=\"1.0\"?>\n<Algos/>"), 2,
        { Error::WrongRoot, { QStringLiteral("Algos") } } },
    { "a root of another vocabulary", QStringLiteral("<Strategies xmlns=\"x\"/>"), 1,
        { Error::WrongRoot, { QStringLiteral("Strategies") } } },
    { "a document type", QStringLiteral("<!DOCTYPE Strategies SYSTEM \"x.dtd\">\n") + root({}), 1,
        Error::DtdNotAllowed },
    { "an undeclared entity", strategy(QStringLiteral("&more;")), 3, Error::InvalidXml },
    { "a processing instruction", root(QStringLiteral("<?run this?>")), 2,
        { Error::ProcessingInstruction, { QStringLiteral("run") } } },
    { "a processing instruction after the end", namedStrategy(QStringLiteral("A")) + QStringLiteral("<?run?>"), 4,
        { Error::ProcessingInstruction, { QStringLiteral("run") } } },
    { "no strategy", root({}), 3, Error::NoStrategy },
    { "loose text", strategy(QStringLiteral("abc")), 4, { Error::TextBetweenElements, { QStringLiteral("abc") } } },

    { "an unknown element", strategy(QStringLiteral("<Markets/>")), 3,
        { Error::UnsupportedElement, { QStringLiteral("Markets") } } },
    { "an element in the wrong place", root(QStringLiteral("<Parameter/>")), 2,
        { Error::UnsupportedElement, { QStringLiteral("Parameter") } } },
    { "a foreign element", strategy(QStringLiteral("<a xmlns=\"b\"/>")), 3, Error::NamespaceBelowRoot },
    { "an unknown attribute of a strategy", root(QStringLiteral("<Strategy name=\"S\"\n sentOrderLink=\"x\"/>")), 3,
        { Error::UnsupportedAttribute, { QStringLiteral("Strategy"), QStringLiteral("sentOrderLink") } } },
    { "a foreign attribute", strategy(QStringLiteral("<Parameter lay:name=\"P\"/>")), 3,
        { Error::UnsupportedAttribute, { QStringLiteral("Parameter"), QStringLiteral("lay:name") } } },
    { "another message type", root(QStringLiteral("<Strategy name=\"S\" fixMsgType=\"E\"/>")), 2,
        { Error::UnsupportedAttributeValue,
            { QStringLiteral("fixMsgType"), QStringLiteral("E"), QStringLiteral("D") } } },
    { "a root tag that is no tag",
        QStringLiteral(
            "<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\" strategyIdentifierTag=\"x\"/>"),
        1,
        { Error::AttributeNotInteger,
            { QStringLiteral("strategyIdentifierTag"), QStringLiteral("x"), QStringLiteral("1"),
                QStringLiteral("99999999") } } },
    { "a root flag that is no flag",
        QStringLiteral("<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\" tag957Support=\"1\"/>"), 1,
        { Error::AttributeNotBoolean, { QStringLiteral("tag957Support"), QStringLiteral("1") } } },
    { "a strategy without a name", root(QStringLiteral("<Strategy/>")), 2,
        { Error::MissingAttribute, { QStringLiteral("Strategy"), QStringLiteral("name") } } },
    { "a strategy name with a blank", root(QStringLiteral("<Strategy name=\"a b\"/>")), 2,
        { Error::AttributeNotIdentifier, { QStringLiteral("name"), QStringLiteral("a b") } } },
    { "a strategy twice", root(QStringLiteral("<Strategy name=\"S\"/>\n<Strategy name=\"S\"/>")), 3,
        { Error::DuplicateStrategy, { QStringLiteral("S") } } },
    { "an element in a description", strategy(QStringLiteral("<Description>a<b/></Description>")), 3,
        { Error::ElementInDescription, { QStringLiteral("b") } } },

    { "a parameter without a type", strategy(QStringLiteral("<Parameter name=\"P\"/>")), 3,
        { Error::MissingAttribute, { QStringLiteral("Parameter"), QStringLiteral("xsi:type") } } },
    { "an unknown parameter type", strategy(parameter(type("Tenor_t"))), 3,
        { Error::UnsupportedParameterType, { QStringLiteral("Tenor_t") } } },
    { "a type of another vocabulary", strategy(parameter(type("lay:Int_t"))), 3,
        { Error::TypeOfOtherNamespace,
            { QStringLiteral("lay:Int_t"), QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Core") } } },
    { "a time with a date", strategy(parameter(type("UTCTimestamp_t"))), 3, Error::TimeWithDate },
    { "an invalid use", strategy(parameter(Number + QStringLiteral(" use=\"maybe\""))), 3,
        { Error::InvalidUse, { QStringLiteral("maybe") } } },
    { "a tag of 0", strategy(parameter(Number + QStringLiteral(" fixTag=\"0\""))), 3,
        { Error::AttributeNotInteger,
            { QStringLiteral("fixTag"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("99999999") } } },
    { "decimals of a whole number", strategy(parameter(Number + QStringLiteral(" precision=\"2\""))), 3,
        { Error::AttributeOfOtherType, { QStringLiteral("Int_t"), QStringLiteral("precision") } } },
    { "a length of a number", strategy(parameter(Number + QStringLiteral(" maxLength=\"2\""))), 3,
        { Error::AttributeOfOtherType, { QStringLiteral("Int_t"), QStringLiteral("maxLength") } } },
    { "yes and no of a number", strategy(parameter(Number + QStringLiteral(" trueWireValue=\"1\""))), 3,
        { Error::AttributeOfOtherType, { QStringLiteral("Int_t"), QStringLiteral("trueWireValue") } } },
    { "yes equal to no", strategy(parameter(type("Boolean_t") + QStringLiteral(" trueWireValue=\"N\""))), 3,
        Error::EqualBooleanValues },
    { "a limit that is no number", parts(parameter(Number + QStringLiteral(" minValue=\"nan\"")), control(Spinner)), 3,
        { Error::InvalidParameterAttribute, { QStringLiteral("P"), QStringLiteral("minValue"), QStringLiteral("nan") },
            Error::ValueNotNumber } },
    { "a limit in scientific form",
        parts(parameter(type("Float_t") + QStringLiteral(" maxValue=\"1e3\"")), control(Spinner)), 3,
        { Error::InvalidParameterAttribute, { QStringLiteral("P"), QStringLiteral("maxValue"), QStringLiteral("1e3") },
            Error::ValueNotNumber } },
    { "limits the wrong way round",
        parts(parameter(Number + QStringLiteral(" minValue=\"2\" maxValue=\"1\"")), control(Spinner)), 3,
        { Error::LimitsReversed, { QStringLiteral("P") } } },
    { "limits of a text",
        parts(parameter(type("String_t") + QStringLiteral(" minValue=\"1\"")), control(type("lay:TextField_t"))), 3,
        { Error::LimitsOfOtherType, { QStringLiteral("P") } } },
    { "a constant out of range", strategy(parameter(Number + QStringLiteral(" maxValue=\"5\" constValue=\"6\""))), 3,
        { Error::InvalidParameterAttribute, { QStringLiteral("P"), QStringLiteral("constValue"), QStringLiteral("6") },
            { Error::ValueTooLarge, { QStringLiteral("5") } } } },
    { "a parameter twice",
        strategy(parameter(Number + QStringLiteral(" constValue=\"1\"")) + QLatin1Char('\n')
            + parameter(Number + QStringLiteral(" constValue=\"2\""))),
        4, { Error::DuplicateParameter, { QStringLiteral("P") } } },
    { "a value twice", parts(parameter(Number, Pair + Pair), control(List, Item)), 3,
        { Error::DuplicateEnumId, { QStringLiteral("P"), QStringLiteral("a") } } },
    { "a value of another type",
        parts(parameter(Number, QStringLiteral("<EnumPair enumID=\"a\" wireValue=\"x\"/>")), control(List, Item)), 3,
        { Error::InvalidParameterAttribute, { QStringLiteral("P"), QStringLiteral("wireValue"), QStringLiteral("x") },
            Error::ValueNotNumber } },
    { "values of yes or no", strategy(parameter(type("Boolean_t"), Pair)), 3, Error::BooleanWithEnumPairs },
    { "a value without an id", strategy(parameter(Number, QStringLiteral("<EnumPair wireValue=\"1\"/>"))), 3,
        { Error::MissingAttribute, { QStringLiteral("EnumPair"), QStringLiteral("enumID") } } },
    { "a parameter without a control", strategy(Good), 3, { Error::ParameterWithoutControl, { QStringLiteral("P") } } },

    { "a second layout", parts(Good, control(Spinner), QStringLiteral("<lay:StrategyLayout/>")), 7,
        { Error::SecondLayout, { QStringLiteral("S") } } },
    { "a layout without a panel", strategy(QStringLiteral("<lay:StrategyLayout/>")), 3, Error::NoPanel },
    { "two panels side by side at the top",
        strategy(QStringLiteral("<lay:StrategyLayout><lay:StrategyPanel/>\n<lay:StrategyPanel/></lay:StrategyLayout>")),
        4, Error::SecondPanel },
    { "a horizontal panel",
        strategy(
            QStringLiteral("<lay:StrategyLayout><lay:StrategyPanel orientation=\"HORIZONTAL\"/></lay:StrategyLayout>")),
        3,
        { Error::UnsupportedAttributeValue,
            { QStringLiteral("orientation"), QStringLiteral("HORIZONTAL"), QStringLiteral("VERTICAL") } } },
    { "controls beside panels", parts(Good, control(Spinner) + QStringLiteral("\n<lay:StrategyPanel/>")), 6,
        Error::ControlsBesidePanels },
    { "panels too deep",
        parts(Good,
            QStringLiteral("<lay:StrategyPanel>").repeated(8) + QStringLiteral("</lay:StrategyPanel>").repeated(8)),
        5, { Error::PanelsTooDeep, { QStringLiteral("8") } } },

    { "a control without a parameter", parts({}, control(Spinner)), 5,
        { Error::ControlWithoutParameter, { QStringLiteral("c"), QStringLiteral("P") } } },
    { "a control without a reference",
        parts(Good, QStringLiteral("<lay:Control ID=\"c\" label=\"l\" %1/>").arg(Spinner)), 5,
        { Error::MissingAttribute, { QStringLiteral("Control"), QStringLiteral("parameterRef") } } },
    { "a control of a constant", parts(parameter(Number + QStringLiteral(" constValue=\"1\"")), control(Spinner)), 5,
        { Error::ControlOfConstant, { QStringLiteral("c"), QStringLiteral("P") } } },
    { "a control id twice",
        parts(Good + QStringLiteral("<Parameter name=\"Q\" %1/>").arg(Number),
            control(Spinner)
                + QStringLiteral("\n<lay:Control ID=\"c\" parameterRef=\"Q\" label=\"l\" %1/>").arg(Spinner)),
        6, { Error::DuplicateControl, { QStringLiteral("c") } } },
    { "two controls of one parameter",
        parts(Good,
            control(Spinner)
                + QStringLiteral("\n<lay:Control ID=\"d\" parameterRef=\"P\" label=\"l\" %1/>").arg(Spinner)),
        6, { Error::SecondControl, { QStringLiteral("P") } } },
    { "an unknown control type", parts(Good, control(type("lay:Slider_t"))), 5,
        { Error::UnsupportedControlType, { QStringLiteral("Slider_t") } } },
    { "a check box for a number", parts(Good, control(type("lay:CheckBox_t"))), 5,
        { Error::ControlOfOtherType, { QStringLiteral("c"), QStringLiteral("P") } } },
    { "a spinner for a list", parts(parameter(Number, Pair), control(Spinner)), 5,
        { Error::ControlOfOtherType, { QStringLiteral("c"), QStringLiteral("P") } } },
    { "list entries that do not match", parts(parameter(Number, Pair + Other), control(List, Item)), 5,
        { Error::ListItemsDiffer, { QStringLiteral("c"), QStringLiteral("P") } } },
    { "a list entry twice", parts(parameter(Number, Pair), control(List, Item + Item)), 5,
        { Error::DuplicateListItem, { QStringLiteral("c"), QStringLiteral("a") } } },
    { "entries of a spinner", parts(Good, control(Spinner, Item)), 5,
        { Error::ListItemsOfOtherType, { QStringLiteral("c") } } },
    { "a default out of range",
        parts(parameter(Number + QStringLiteral(" minValue=\"1\" maxValue=\"5\"")),
            control(Spinner + QStringLiteral(" initValue=\"6\""))),
        5,
        { Error::InvalidDefault, { QStringLiteral("c"), QStringLiteral("6") },
            { Error::ValueOutOfRange, { QStringLiteral("1"), QStringLiteral("5") } } } },
    { "a default that is no entry",
        parts(parameter(Number, Pair), control(List + QStringLiteral(" initValue=\"z\""), Item)), 5,
        { Error::InvalidDefault, { QStringLiteral("c"), QStringLiteral("z") }, Error::ValueNotListed } },
    { "a default of a check box that is neither",
        parts(parameter(type("Boolean_t")), control(type("lay:CheckBox_t") + QStringLiteral(" initValue=\"Y\""))), 5,
        { Error::InvalidDefault, { QStringLiteral("c"), QStringLiteral("Y") }, Error::ValueNotListed } },
    { "an invalid default time",
        parts(parameter(type("LocalMktTime_t")),
            control(type("lay:Clock_t") + QStringLiteral(" initValue=\"24:00:00\""))),
        5, { Error::InvalidDefault, { QStringLiteral("c"), QStringLiteral("24:00:00") }, Error::ValueNotTime } },
    { "a step of 0", parts(Good, control(Spinner + QStringLiteral(" increment=\"0\""))), 5,
        { Error::InvalidStep, { QStringLiteral("c"), QStringLiteral("0") } } },
    { "a step of a text field", parts(Good, control(type("lay:TextField_t") + QStringLiteral(" increment=\"1\""))), 5,
        { Error::AttributeOfOtherType, { QStringLiteral("TextField_t"), QStringLiteral("increment") } } },
    { "a large step of a single spinner", parts(Good, control(Spinner + QStringLiteral(" outerIncrement=\"9\""))), 5,
        { Error::AttributeOfOtherType, { QStringLiteral("SingleSpinner_t"), QStringLiteral("outerIncrement") } } },
    { "a rule that switches a control", parts(Good, control(Spinner, QStringLiteral("<StateRule/>"))), 5,
        { Error::UnsupportedElement, { QStringLiteral("StateRule") } } },

    { "a rule without a comparison", parts(Good, control(Spinner), Edit.arg(QString())), 7,
        Error::RuleWithoutComparison },
    { "a rule of two comparisons",
        parts(Good, control(Spinner),
            Edit.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" value=\"1\"/>\n<val:Edit/>"))),
        8, Error::SecondComparison },
    { "a comparison that is unknown",
        parts(Good, control(Spinner), Edit.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"EX\"/>"))), 7,
        { Error::UnsupportedOperator, { QStringLiteral("EX") } } },
    { "a comparison with nothing",
        parts(Good, control(Spinner), Edit.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\"/>"))), 7,
        Error::ComparisonWithoutOperand },
    { "a comparison of nothing",
        parts(Good, control(Spinner), Edit.arg(QStringLiteral("<val:Edit field=\"Z\" operator=\"LT\" value=\"1\"/>"))),
        7, { Error::RuleWithoutParameter, { QStringLiteral("Z") } } },
    { "a comparison with an unknown parameter",
        parts(Good, control(Spinner), Edit.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" field2=\"Z\"/>"))),
        7, { Error::RuleWithoutParameter, { QStringLiteral("Z") } } },
    { "a comparison with a bad value",
        parts(Good, control(Spinner), Edit.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" value=\"x\"/>"))),
        7, { Error::InvalidRuleValue, { QStringLiteral("P"), QStringLiteral("x") }, Error::ValueNotNumber } },
    { "a comparison of a number with a time",
        parts(Good + QStringLiteral("<Parameter name=\"Q\" %1 constValue=\"09:30:00\"/>").arg(type("LocalMktTime_t")),
            control(Spinner), Edit.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" field2=\"Q\"/>"))),
        7, { Error::RuleOfOtherTypes, { QStringLiteral("P"), QStringLiteral("Q") } } },
};

/// One value of a parameter: the row's name, the parameter, the value and the result of the check.
struct ValueCheck {
    const char* row;
    QString attributes;
    QString value;
    Status status;
};

const QString Whole = type("Int_t") + QStringLiteral(" use=\"required\" minValue=\"1\" maxValue=\"5\"");
const QString Ratio = type("Percentage_t") + QStringLiteral(" minValue=\"0.01\" maxValue=\"0.5\" precision=\"4\"");
const QString Time = type("LocalMktTime_t") + QStringLiteral(" minValue=\"09:30:00\"");

const QList<ValueCheck> ValueChecks{
    { "the lower limit passes", Whole, QStringLiteral("1"), Status() },
    { "the upper limit passes", Whole, QStringLiteral("5"), Status() },
    { "below the lower limit fails", Whole, QStringLiteral("0"),
        { Error::ValueOutOfRange, { QStringLiteral("1"), QStringLiteral("5") } } },
    { "above the upper limit fails", Whole, QStringLiteral("6"),
        { Error::ValueOutOfRange, { QStringLiteral("1"), QStringLiteral("5") } } },
    { "nothing fails where needed", Whole, QString(), Error::ValueMissing },
    { "nothing passes where not needed", Ratio, QString(), Status() },
    { "a fraction of a whole number fails", Whole, QStringLiteral("1.5"), Error::ValueNotInteger },
    { "a whole number with zeros behind the point passes", Whole, QStringLiteral("2.0"), Status() },
    { "nan fails", Whole, QStringLiteral("nan"), Error::ValueNotNumber },
    { "infinity fails", Whole, QStringLiteral("inf"), Error::ValueNotNumber },
    { "an exponent fails", Whole, QStringLiteral("1e0"), Error::ValueNotNumber },
    { "a plus sign fails", Whole, QStringLiteral("+1"), Error::ValueNotNumber },
    { "full-width digits fail", Whole, QStringLiteral("１"), Error::ValueNotNumber },
    { "a line end behind a number fails", Whole, QStringLiteral("1\n"), Error::ValueNotNumber },
    { "sixteen digits fail", Whole, QStringLiteral("1000000000000000"), Error::ValueNotNumber },
    { "a percentage within its limits passes", Ratio, QStringLiteral("0.5"), Status() },
    { "a percentage just above fails", Ratio, QStringLiteral("0.5001"),
        { Error::ValueOutOfRange, { QStringLiteral("1"), QStringLiteral("50") } } },
    { "a percentage too fine fails", Ratio, QStringLiteral("0.12345"),
        { Error::ValueTooFine, { QStringLiteral("2") } } },
    { "the first moment passes", Time, QStringLiteral("09:30:00"), Status() },
    { "a second before fails", Time, QStringLiteral("09:29:59"),
        { Error::ValueTooSmall, { QStringLiteral("09:30:00") } } },
    { "a time in short form is invalid", Time, QStringLiteral("9:30"), Error::ValueNotTime },
    { "two letters are no letter", type("Char_t"), QStringLiteral("ab"), Error::ValueNotCharacter },
    { "a control character fails", type("String_t"), QStringLiteral("a\x01"), Error::ValueNotPrintable },
    { "a text too long fails", type("String_t") + QStringLiteral(" maxLength=\"3\""), QStringLiteral("abcd"),
        { Error::ValueTooLong, { QStringLiteral("3") } } },
    { "yes passes", type("Boolean_t"), QStringLiteral("Y"), Status() },
    { "another word for yes fails", type("Boolean_t"), QStringLiteral("true"), Error::ValueNotListed },
};

} // namespace

class StrategyFilesTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void aWholeStrategyIsRead()
    {
        const Result<QList<StrategyDefinition>> strategies = readText(root(WholeStrategy));
        QCOMPARE(strategies.status(), Status());
        QCOMPARE(strategies->size(), 1);
        const StrategyDefinition demo = strategies->constFirst();
        QCOMPARE(demo.name, QStringLiteral("Demo"));
        QCOMPARE(demo.alias, QStringLiteral("演示"));
        QCOMPARE(demo.version, QStringLiteral("3"));
        QCOMPARE(demo.provider, QStringLiteral("ME"));
        QCOMPARE(demo.wireValue, QStringLiteral("d"));
        QCOMPARE(demo.description, QStringLiteral("两行 说明"));
        QCOMPARE(demo.rules.size(), 1);
        QCOMPARE(demo.rules.at(0).message, QStringLiteral("起须早于止！"));
        QCOMPARE(demo.parameters.size(), 5);
        QCOMPARE(demo.parameter(QStringLiteral("Rate"))->fixTag, 7001);
        QCOMPARE(demo.parameter(QStringLiteral("Rate"))->precision, 4);
        QVERIFY(demo.parameter(QStringLiteral("Rate"))->required);
        QVERIFY(!demo.parameter(QStringLiteral("Speed"))->required);
        QCOMPARE(demo.parameter(QStringLiteral("Kind"))->constValue, QStringLiteral("4"));
        QCOMPARE(demo.controls.size(), 4);
        QCOMPARE(demo.controls.at(0).section, QStringLiteral("一"));
        QCOMPARE(demo.controls.at(0).tooltip, QStringLiteral("提示"));
        QCOMPARE(demo.controls.at(0).increment, QStringLiteral("0.01"));
        QCOMPARE(demo.controls.at(1).label, QStringLiteral("速度"));
        QCOMPARE(demo.controls.at(1).unit, QStringLiteral("档"));
        QCOMPARE(demo.controls.at(1).initialValue, QStringLiteral("B"));
    }

    void everySupportedTypeIsRead_data()
    {
        QTest::addColumn<QString>("parameterType");
        QTest::addColumn<QString>("controlType");
        QTest::addColumn<QString>("value");
        for (const Pairing& pairing : Pairings)
            QTest::newRow(pairing.row) << pairing.parameterType << pairing.controlType << pairing.value;
    }

    void everySupportedTypeIsRead()
    {
        QFETCH(QString, parameterType);
        QFETCH(QString, controlType);
        QFETCH(QString, value);
        const auto strategies = readText(parts(parameter(QStringLiteral("xsi:type=\"%1\"").arg(parameterType)),
            control(QStringLiteral("xsi:type=\"lay:%1\" initValue=\"%2\"").arg(controlType, value))));
        QCOMPARE(strategies.status(), Status());
        QCOMPARE(strategies->constFirst().controls.constFirst().initialValue,
            value == QStringLiteral("true") ? QStringLiteral("Y") : value);
    }

    void whatDoesNotFitIsRefusedWithItsLine_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<Status>("error");
        for (const Refusal& refusal : Refusals)
            QTest::newRow(refusal.row) << refusal.text << refusal.line << refusal.error;
    }

    void whatDoesNotFitIsRefusedWithItsLine()
    {
        QFETCH(QString, text);
        QFETCH(int, line);
        QFETCH(Status, error);
        QCOMPARE(readText(text).status(), refused(line, error));
    }

    void moreThanTheLimitsIsRefused()
    {
        QString many;
        for (int i = 0; i <= StrategyLimits::MaxCount; ++i)
            many += QStringLiteral("<Strategy name=\"S%1\"/>\n").arg(i);
        const Status tooMany(Error::TooManyStrategies, { QStringLiteral("100") });
        QCOMPARE(readText(root(many)).status(), refused(102, tooMany));

        const QString longText(StrategyLimits::MaxText + 1, QLatin1Char('x'));
        const Status attributeTooLong(Error::AttributeTooLong, { QStringLiteral("uiRep"), QStringLiteral("1000") });
        QCOMPARE(readText(root(QStringLiteral("<Strategy name=\"S\" uiRep=\"%1\"/>").arg(longText))).status(),
            refused(2, attributeTooLong));
        const Status descriptionTooLong(Error::DescriptionTooLong, { QStringLiteral("1000") });
        QCOMPARE(readText(strategy(QStringLiteral("<Description>%1</Description>").arg(longText))).status(),
            refused(3, descriptionTooLong));

        const auto withAttributes = [](int count) {
            QString attributes;
            for (int i = 0; i < count; ++i)
                attributes += QStringLiteral(" a%1='\"'").arg(i);
            return root(QStringLiteral("<!-- = --><Strategy%1/>").arg(attributes));
        };
        const Status unknown(Error::UnsupportedAttribute, { QStringLiteral("Strategy"), QStringLiteral("a0") });
        QCOMPARE(readText(withAttributes(50)).status(), refused(2, unknown));
        const Status tooManyAttributes(Error::TooManyAttributes, { QStringLiteral("50") });
        QCOMPARE(readText(withAttributes(51)).status(), refused(2, tooManyAttributes));

        const QString fits = namedStrategy(QStringLiteral("A"));
        const auto padded = [&](qint64 size) {
            return fits + QString(static_cast<int>(size - fits.toUtf8().size()), QLatin1Char(' '));
        };
        QCOMPARE(readText(padded(StrategyFile::MaxSize)).status(), Status());
        const Status tooLarge(Error::FileTooLarge, { QStringLiteral("1048576") });
        QCOMPARE(readText(padded(StrategyFile::MaxSize + 1)).status(), unreadable(FileName, tooLarge));
    }

    void otherEncodingsAreRefused()
    {
        const auto read = [](QByteArray bytes) {
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            return StrategyFile::read(buffer, FileName).status();
        };
        const QString text = namedStrategy(QStringLiteral("A"));
        const auto declared = [&](const char* encoding) {
            return "<?xml version=\"1.0\" encoding=\"" + QByteArray(encoding) + "\"?>" + text.toUtf8();
        };
        QCOMPARE(read(declared("utf-8")), Status());
        QCOMPARE(read(declared("GB18030")), refused(1, Error::NotUtf8));
        QCOMPARE(read(declared("ISO-2022-JP")), refused(1, Error::NotUtf8));
        const QString marked = QChar(QChar::ByteOrderMark) + text;
        const QByteArray wide(reinterpret_cast<const char*>(marked.utf16()), int(marked.size()) * 2);
        QCOMPARE(read(wide), Status(Error::StrategyFileRefused, { FileName }, Error::NotUtf8));
    }

    // All times within one run, with a wide margin: a quadratic step takes hundreds of times as long.
    void readingTakesTimeInProportionToTheSize()
    {
        const auto timeOf = [](const QString& text, bool isValid) {
            QElapsedTimer timer;
            timer.start();
            const Status status = readText(text).status();
            return isValid == static_cast<bool>(status) ? timer.nsecsElapsed() : -1;
        };
        const auto strategies = [](int count) {
            QString content;
            for (int i = 0; i < count; ++i) {
                content += QStringLiteral("<Strategy name=\"S%1\">\n").arg(i);
                for (int number = 0; number < StrategyLimits::MaxCount; ++number)
                    content +=
                        QStringLiteral("<Parameter name=\"P%1\" xsi:type=\"Int_t\" constValue=\"%1\"/>\n").arg(number);
                content += QStringLiteral("</Strategy>\n");
            }
            return root(content);
        };
        const qint64 quarter = timeOf(strategies(25), true);
        const qint64 whole = timeOf(strategies(100), true);
        QVERIFY(quarter > 0 && whole > 0);
        QVERIFY2(whole < 16 * quarter, qPrintable(QStringLiteral("%1, %2 ns").arg(quarter).arg(whole)));

        QString attributes;
        for (int i = 0; i < 80000; ++i)
            attributes += QStringLiteral(" a%1=\"\"").arg(i);
        const qint64 hostile = timeOf(root(QStringLiteral("<Strategy%1/>").arg(attributes)), false);
        QVERIFY2(hostile > 0 && hostile < 4 * whole, qPrintable(QStringLiteral("%1, %2 ns").arg(hostile).arg(whole)));
        QString namespaces;
        for (int i = 0; i < 50000; ++i)
            namespaces += QStringLiteral(" xmlns:n%1=\"u\"").arg(i);
        const qint64 names = timeOf(QStringLiteral("<Strategies%1/>").arg(namespaces), false);
        QVERIFY2(names > 0 && names < 4 * whole, qPrintable(QStringLiteral("%1, %2 ns").arg(names).arg(whole)));
    }

    void aFileThatCannotBeReadIsRefused()
    {
        const QTemporaryDir folder;
        const QString none = QStringLiteral("none.xml");
        QCOMPARE(StrategyFile::read(folder.filePath(none)).status(), unreadable(none, Error::NotAFile));
        QCOMPARE(StrategyFile::read(folder.path()).status().cause(), Status(Error::NotAFile));
    }

    void nestedEntitiesAreRefusedAtOnce()
    {
        QString entities = QStringLiteral("<!ENTITY e0 \"ha\">");
        for (int i = 1; i < 30; ++i)
            entities +=
                QStringLiteral("<!ENTITY e%1 \"%2\">").arg(i).arg(QStringLiteral("&e%1;").arg(i - 1).repeated(10));
        const QString text = QStringLiteral("<!DOCTYPE Strategies [%1]>\n<Strategies>&e29;</Strategies>").arg(entities);
        QCOMPARE(readText(text).status(), refused(1, Error::DtdNotAllowed));

        const QString external =
            QStringLiteral("<!DOCTYPE s [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>\n<Strategies>&x;</Strategies>");
        QCOMPARE(readText(external).status(), refused(1, Error::DtdNotAllowed));
    }

    void randomDamageIsRefusedOrRead()
    {
        QFile file(QStringLiteral(":/plandesk/strategies/POV.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray whole = file.readAll();
        quint32 seed = 20240506;
        const auto next = [&seed](int bound) {
            seed = seed * 1664525U + 1013904223U;
            return static_cast<int>((seed >> 8U) % static_cast<quint32>(bound));
        };
        int damaged = 0;
        for (int round = 0; round < 500; ++round) {
            QByteArray bytes = whole;
            for (int hit = next(4); hit >= 0; --hit)
                bytes[next(bytes.size())] = static_cast<char>(next(256));
            bytes.truncate(next(4) == 0 ? next(bytes.size()) : bytes.size());
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::ReadOnly);
            damaged += StrategyFile::read(buffer, FileName) ? 0 : 1;
        }
        QVERIFY(damaged > 100);
    }

    void valuesAreChecked_data()
    {
        QTest::addColumn<QString>("attributes");
        QTest::addColumn<QString>("value");
        QTest::addColumn<Status>("status");
        for (const ValueCheck& check : ValueChecks)
            QTest::newRow(check.row) << check.attributes << check.value << check.status;
    }

    void valuesAreChecked()
    {
        QFETCH(QString, attributes);
        QFETCH(QString, value);
        QFETCH(Status, status);
        const QString kind = attributes.contains(QStringLiteral("Boolean")) ? QStringLiteral("CheckBox_t")
                                                                            : QStringLiteral("TextField_t");
        const Result<QList<StrategyDefinition>> strategies =
            readText(parts(parameter(attributes), control(QStringLiteral("xsi:type=\"lay:%1\"").arg(kind))));
        QCOMPARE(strategies.status(), Status());
        QCOMPARE(ParameterValue::check(strategies->constFirst().parameters.constFirst(), value), status);
    }

    void percentagesAreShownTimesAHundred_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a fifth") << QStringLiteral("0.2") << QStringLiteral("20");
        QTest::newRow("a thousandth") << QStringLiteral("0.001") << QStringLiteral("0.1");
        QTest::newRow("nothing") << QStringLiteral("0") << QStringLiteral("0");
        QTest::newRow("one") << QStringLiteral("1") << QStringLiteral("100");
        QTest::newRow("less than nothing") << QStringLiteral("-0.015") << QStringLiteral("-1.5");
        QTest::newRow("three tenths, without the noise of binary fractions")
            << QStringLiteral("0.3") << QStringLiteral("30");
        QTest::newRow("no number stays as it is") << QStringLiteral("abc") << QStringLiteral("abc");
    }

    void percentagesAreShownTimesAHundred()
    {
        QFETCH(QString, stored);
        QFETCH(QString, shown);
        StrategyParameter percentage;
        percentage.type = ParameterType::Percentage;
        QCOMPARE(ParameterValue::shown(percentage, stored), shown);
        QCOMPARE(ParameterValue::entered(percentage, shown), stored);
    }

    void theBuiltInStrategiesAreAllThere()
    {
        const StrategyLibrary library;
        QCOMPARE(library.names(),
            QStringList({ QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("POV"),
                QStringLiteral("ICEBERG2"), QStringLiteral("SNIPER") }));
        QStringList aliases;
        for (const AesStrategy& known : library.strategies())
            aliases.append(known.alias);
        QCOMPARE(aliases,
            QStringList({ QStringLiteral("时间加权"), QStringLiteral("成交量加权"), QStringLiteral("比例跟量"),
                QStringLiteral("冰山"), QStringLiteral("狙击") }));
    }

    void everyBuiltInParameterHasALabelAndAGoodDefault()
    {
        const StrategyLibrary library;
        for (const QString& name : library.names()) {
            const StrategyDefinition known = library.strategy(name);
            QVERIFY(known.parameters.size() >= 5);
            for (const StrategyParameter& each : known.parameters) {
                const StrategyControl* const shown = known.controlOf(each.name);
                QVERIFY2(shown && !shown->label.isEmpty(), qPrintable(name + each.name));
                QCOMPARE(ParameterValue::check(each, shown->initialValue), Status());
            }
        }
    }

    void theServiceKnowsStrategiesByName()
    {
        const AesStrategy known = AlgoTradeLogicNew::GetInstance()->GetStrategy(QStringLiteral("ICEBERG2"));
        QCOMPARE(known.name, QStringLiteral("ICEBERG2"));
        QCOMPARE(known.alias, QStringLiteral("冰山"));
        QCOMPARE(known.provider, QStringLiteral("PLANDESK"));
        QCOMPARE(known.version, QStringLiteral("1"));
        for (const QString& name : { QString(), QStringLiteral("iceberg2"), QStringLiteral("NONE") }) {
            const AesStrategy unknown = AlgoTradeLogicNew::GetInstance()->GetStrategy(name);
            QVERIFY(unknown.name.isEmpty() && unknown.alias.isEmpty() && unknown.provider.isEmpty());
        }
    }

    void aQueryIsAnsweredFromAnotherThread()
    {
        qRegisterMetaType<AesStrategy>("AesStrategy");
        qRegisterMetaType<QList<AesStrategy>>("QList<AesStrategy>");
        AlgoTradeLogicNew* const service = AlgoTradeLogicNew::GetInstance();
        QCOMPARE(service->thread(), QThread::currentThread());
        QThread* emitter = nullptr;
        QObject receiver;
        QStringList answered;
        connect(
            service, &AlgoTradeLogicNew::sigQryAlgoStrategiesRsp, &receiver, [&](const QList<AesStrategy>& strategies) {
                QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
                for (const AesStrategy& each : strategies)
                    answered.append(each.name);
            });
        connect(
            service, &AlgoTradeLogicNew::sigQryAlgoStrategiesRsp, &receiver,
            [&] { emitter = QThread::currentThread(); }, Qt::DirectConnection);

        QFuture<void> query = StrategyQuery::start();
        query.waitForFinished();
        QVERIFY(emitter != nullptr);
        QVERIFY(emitter != QThread::currentThread());
        QCOMPARE(answered.size(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(answered, StrategyLibrary::instance().names());
    }
};

QTEST_GUILESS_MAIN(StrategyFilesTest)
#include "tst_strategy_files.moc"
