#include "LoggedTest.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QSet>
#include <QtTest>

using namespace StrategyTexts;

namespace {

/// One file of which something is to be said: the row's name, the file, the line and what is said.
struct Remark {
    const char* row;
    QString text;
    int line;
    Status said;
};

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

Status said(Error error, std::initializer_list<const char*> details = {}, const Status& cause = {})
{
    QStringList texts;
    for (const char* const detail : details)
        texts.append(words(detail));
    return cause ? Status(error, texts) : Status(error, texts, cause);
}

QString xml(const char* text)
{
    return words(text).replace(QLatin1Char('\''), QLatin1Char('"'));
}

const QString Number = type("Int_t");
const QString Spinner = type("lay:SingleSpinner_t");
const QString TextField = type("lay:TextField_t");
const QString List = type("lay:DropDownList_t");
const QString Check = type("lay:CheckBox_t");
const QString Pair = xml("<EnumPair enumID='a' wireValue='1'/>");
const QString Other = xml("<EnumPair enumID='b' wireValue='2'/>");
const QString Item = xml("<lay:ListItem enumID='a' uiRep='甲'/>");
const QString OtherItem = xml("<lay:ListItem enumID='b' uiRep='乙'/>");
const QString Good = parameter(Number);

/// A relation on line 7.
QString edit(const char* inner)
{
    return parts(
        Good, control(Spinner), xml("<val:StrategyEdit errorMessage='m'>%1</val:StrategyEdit>").arg(xml(inner)));
}

/// A state rule on line 5.
QString stateRule(const char* attributes, const char* inner)
{
    return parts(
        Good, control(Spinner, xml("<flow:StateRule %1>%2</flow:StateRule>").arg(xml(attributes), xml(inner))));
}

const QString Cut = QStringLiteral("<Strategies\n");

/// What refuses the whole file.
const QList<Remark> Failures{
    { "an empty file", QString(), 1, Error::FileIncomplete },
    { "a cut file", Cut, 2, Error::FileIncomplete },
    { "an element that is not closed", root(xml("<Strategy name='S'>")), 3, Error::InvalidXml },
    { "an attribute given twice", root(xml("<Strategy name='a'\nname='b'/>")), 3, Error::InvalidXml },
    { "an undeclared prefix", root(xml("<no:Strategy/>")), 2, Error::InvalidXml },
    { "an undeclared entity", strategy(xml("&more;")), 3, Error::InvalidXml },
    { "another root", xml("<?xml version='1.0'?>\n<Algos/>"), 2, said(Error::WrongRoot, { "Algos" }) },
    { "a root of another namespace", xml("<Strategies xmlns='x'/>"), 1, said(Error::WrongRoot, { "Strategies" }) },
    { "another version of the format", xml("<Strategies xmlns='http://www.fixprotocol.org/FIXatdl-1-2/Core'/>"), 1,
        said(Error::WrongRoot, { "Strategies" }) },
    { "a document type", xml("<!DOCTYPE Strategies SYSTEM 'x.dtd'>\n") + root({}), 1, Error::DtdNotAllowed },
    { "no strategy", root({}), 1, Error::NoStrategy },
    { "an element in the wrong place", root(xml("<Parameter/>")), 1, Error::NoStrategy },
    { "a tag that is no number", root(xml("<Strategy name='S'/>"), xml("strategyIdentifierTag='x'")), 1,
        said(Error::AttributeNotInteger, { "strategyIdentifierTag", "x", "1", "99999999" }) },
    { "a flag that is no flag", root(xml("<Strategy name='S'/>"), xml("tag957Support='maybe'")), 1,
        said(Error::AttributeNotBoolean, { "tag957Support", "maybe" }) },
    { "panels too deep",
        parts(Good,
            xml("<lay:StrategyPanel>").repeated(StrategyLimits::MaxDepth)
                + xml("</lay:StrategyPanel>").repeated(StrategyLimits::MaxDepth)),
        5, said(Error::ElementsTooDeep, { "64" }) },
    { "an encoding that is not known", xml("<?xml version='1.0' encoding='EBCDIC'?>\n") + root({}), 1,
        said(Error::UnknownEncoding, { "EBCDIC" }) },
};

/// What refuses one strategy.
const QList<Remark> Refusals{
    { "loose text", strategy(QStringLiteral("abc")), 2, said(Error::TextBetweenElements, { "Strategy", "abc" }) },
    { "an unknown element", strategy(xml("<Banana/>")), 3, said(Error::UnsupportedElement, { "Banana" }) },
    { "an element of another kind", strategy(xml("<EnumPair/>")), 3, said(Error::UnsupportedElement, { "EnumPair" }) },
    { "a foreign element", strategy(xml("<x:a xmlns:x='b'/>")), 3, said(Error::UnsupportedElement, { "x:a" }) },
    { "an unknown attribute", root(xml("<Strategy name='S'\n colour='x'/>")), 3,
        said(Error::UnsupportedAttribute, { "Strategy", "colour" }) },
    { "a foreign attribute", strategy(xml("<Parameter name='P' xsi:type='Int_t' lay:name='P'/>")), 3,
        said(Error::UnsupportedAttribute, { "Parameter", "lay:name" }) },
    { "a strategy without a name", root(xml("<Strategy/>")), 2, said(Error::MissingAttribute, { "Strategy", "name" }) },
    { "a name with a line end", root(xml("<Strategy name='a&#10;b'/>")), 2,
        said(Error::AttributeNotName, { "name", "a b" }) },
    { "an element in a description", strategy(xml("<Description>a<b/></Description>")), 3,
        said(Error::UnsupportedElement, { "b" }) },
    { "a description too long",
        strategy(xml("<Description>%1</Description>").arg(QString(StrategyLimits::MaxText + 1, QLatin1Char('x')))), 3,
        said(Error::TextTooLong, { "Description", "10000" }) },
    { "an attribute too long",
        strategy({}, xml("uiRep='%1'").arg(QString(StrategyLimits::MaxText + 1, QLatin1Char('x')))), 2,
        said(Error::AttributeTooLong, { "uiRep", "10000" }) },
    { "too many parameters", strategy(Good.repeated(StrategyLimits::MaxParts + 1)), 2,
        said(Error::TooMany, { "Parameter", "2000" }) },

    { "a parameter without a type", strategy(xml("<Parameter name='P'/>")), 3,
        said(Error::MissingAttribute, { "Parameter", "xsi:type" }) },
    { "an unknown parameter type", strategy(parameter(type("Bogus_t"))), 3,
        said(Error::UnsupportedParameterType, { "Bogus_t" }) },
    { "an invalid use", strategy(parameter(Number + xml(" use='maybe'"))), 3,
        said(Error::UnsupportedAttributeValue, { "use", "maybe", "optional、required" }) },
    { "a tag of 0", strategy(parameter(Number + xml(" fixTag='0'"))), 3,
        said(Error::AttributeNotInteger, { "fixTag", "0", "1", "99999999" }) },
    { "a flag that is neither", strategy(parameter(Number + xml(" mutableOnCxlRpl='Y'"))), 3,
        said(Error::AttributeNotBoolean, { "mutableOnCxlRpl", "Y" }) },
    { "a length of a number", strategy(parameter(Number + xml(" maxLength='2'"))), 3,
        said(Error::AttributeOfOtherType, { "Int_t", "maxLength" }) },
    { "yes and no of a number", strategy(parameter(Number + xml(" trueWireValue='1'"))), 3,
        said(Error::AttributeOfOtherType, { "Int_t", "trueWireValue" }) },
    { "limits of a text", strategy(parameter(type("String_t") + xml(" minValue='1'"))), 3,
        said(Error::AttributeOfOtherType, { "String_t", "minValue" }) },
    { "a hundredfold number", strategy(parameter(Number + xml(" multiplyBy100='true'"))), 3,
        said(Error::AttributeOfOtherType, { "Int_t", "multiplyBy100" }) },
    { "yes equal to no", strategy(parameter(type("Boolean_t") + xml(" trueWireValue='N'"))), 3,
        Error::EqualBooleanValues },
    { "an unknown time zone", strategy(parameter(type("UTCTimeOnly_t") + xml(" localMktTz='Europe/Atlantis'"))), 3,
        said(Error::UnknownTimeZone, { "Europe/Atlantis" }) },
    { "a limit that is no number", strategy(parameter(Number + xml(" minValue='nan'"))), 3,
        said(Error::InvalidParameterAttribute, { "P", "minValue", "nan" }, Error::ValueNotNumber) },
    { "a limit that is no time", strategy(parameter(type("UTCTimeOnly_t") + xml(" minValue='25:00:00'"))), 3,
        said(Error::InvalidParameterAttribute, { "P", "minValue", "25:00:00" }, Error::ValueNotTime) },
    { "limits the wrong way round", strategy(parameter(Number + xml(" minValue='2' maxValue='1'"))), 3,
        said(Error::LimitsReversed, { "P" }) },
    { "a constant out of range", strategy(parameter(Number + xml(" maxValue='5' constValue='6'"))), 3,
        said(Error::InvalidParameterAttribute, { "P", "constValue", "6" }, said(Error::ValueTooLarge, { "5" })) },
    { "a constant of another form", strategy(parameter(type("Country_t") + xml(" constValue='CHN'"))), 3,
        said(Error::InvalidParameterAttribute, { "P", "constValue", "CHN" }, Error::ValueMalformed) },
    { "a parameter twice", strategy(Good + QLatin1Char('\n') + Good), 4, said(Error::DuplicateParameter, { "P" }) },
    { "a value twice", strategy(parameter(Number, Pair + Pair)), 3, said(Error::DuplicateEnumId, { "P", "a" }) },
    { "a value of another type", strategy(parameter(Number, xml("<EnumPair enumID='a' wireValue='x'/>"))), 3,
        said(Error::InvalidParameterAttribute, { "P", "wireValue", "x" }, Error::ValueNotNumber) },
    { "a value without an id", strategy(parameter(Number, xml("<EnumPair wireValue='1'/>"))), 3,
        said(Error::MissingAttribute, { "EnumPair", "enumID" }) },
    { "a value without a wire value", strategy(parameter(Number, xml("<EnumPair enumID='a'/>"))), 3,
        said(Error::MissingAttribute, { "EnumPair", "wireValue" }) },

    { "a second layout", parts(Good, control(Spinner), xml("<lay:StrategyLayout/>")), 7,
        said(Error::SecondLayout, { "S" }) },
    { "a layout without a panel", strategy(xml("<lay:StrategyLayout/>")), 3, Error::NoPanel },
    { "a slanting panel",
        strategy(xml("<lay:StrategyLayout><lay:StrategyPanel orientation='DIAGONAL'/></lay:StrategyLayout>")), 3,
        said(Error::UnsupportedAttributeValue, { "orientation", "DIAGONAL", "VERTICAL、HORIZONTAL" }) },
    { "a control without a type", parts(Good, control({})), 5,
        said(Error::MissingAttribute, { "Control", "xsi:type" }) },
    { "an unknown control type", parts(Good, control(type("lay:Lever_t"))), 5,
        said(Error::UnsupportedControlType, { "Lever_t" }) },
    { "a control without a parameter", parts({}, control(Spinner)), 5,
        said(Error::ControlWithoutParameter, { "c", "P" }) },
    { "a control of a constant", parts(parameter(Number + xml(" constValue='1'")), control(Spinner)), 5,
        said(Error::ControlOfConstant, { "c", "P" }) },
    { "a control id twice", parts(Good, control(Spinner) + xml("\n<lay:Control ID='c' xsi:type='lay:CheckBox_t'/>")), 6,
        said(Error::DuplicateControl, { "c" }) },
    { "two controls of one parameter",
        parts(Good, control(Spinner) + xml("\n<lay:Control ID='d' parameterRef='P' xsi:type='lay:TextField_t'/>")), 6,
        said(Error::SecondControl, { "P" }) },
    { "a check box for a number", parts(Good, control(Check)), 5, said(Error::ControlOfOtherType, { "c", "P" }) },
    { "a check box with an unknown id", parts(parameter(Number, Pair), control(Check + xml(" checkedEnumRef='z'"))), 5,
        said(Error::UnknownEnumId, { "c", "z", "P" }) },
    { "a checked id of a spinner", parts(Good, control(Spinner + xml(" checkedEnumRef='z'"))), 5,
        said(Error::AttributeOfOtherType, { "SingleSpinner_t", "checkedEnumRef" }) },
    { "a spinner for listed letters", parts(parameter(type("Char_t"), Pair), control(Spinner)), 5,
        said(Error::ControlOfOtherType, { "c", "P" }) },
    { "several values for a number", parts(parameter(Number, Pair), control(type("lay:CheckBoxList_t"), Item)), 5,
        said(Error::ControlOfOtherType, { "c", "P" }) },
    { "an entry that is no value", parts(parameter(Number, Pair), control(List, Item + OtherItem)), 5,
        said(Error::UnknownEnumId, { "c", "b", "P" }) },
    { "an entry twice", parts(parameter(Number, Pair), control(List, Item + Item)), 5,
        said(Error::DuplicateListItem, { "c", "a" }) },
    { "entries of a spinner", parts(Good, control(Spinner, Item)), 5, said(Error::ListItemsOfOtherType, { "c" }) },
    { "a default out of range",
        parts(parameter(Number + xml(" minValue='1' maxValue='5'")), control(Spinner + xml(" initValue='6'"))), 5,
        said(Error::InvalidDefault, { "c", "6" }, said(Error::ValueOutOfRange, { "1", "5" })) },
    { "a negative default of a quantity", parts(parameter(type("Qty_t")), control(Spinner + xml(" initValue='-1'"))), 5,
        said(Error::InvalidDefault, { "c", "-1" }, said(Error::ValueTooSmall, { "0" })) },
    { "an infinite default", parts(Good, control(Spinner + xml(" initValue='INF'"))), 5,
        said(Error::InvalidDefault, { "c", "INF" }, Error::ValueNotNumber) },
    { "a default that is no entry", parts(parameter(Number, Pair), control(List + xml(" initValue='z'"), Item)), 5,
        said(Error::InvalidDefault, { "c", "z" }, Error::ValueNotListed) },
    { "a default of a check box that is neither",
        parts(parameter(type("Boolean_t")), control(Check + xml(" initValue='yes'"))), 5,
        said(Error::InvalidDefault, { "c", "yes" }, Error::ValueNotListed) },
    { "a default of a list without entries", parts(Good, control(List + xml(" initValue='1'"))), 5,
        said(Error::InvalidDefault, { "c", "1" }, Error::ValueNotListed) },
    { "an invalid default time",
        parts(parameter(type("LocalMktTime_t")), control(type("lay:Clock_t") + xml(" initValue='25:00:00'"))), 5,
        said(Error::InvalidDefault, { "c", "25:00:00" }, Error::ValueNotTime) },
    { "a step of 0", parts(Good, control(Spinner + xml(" increment='0'"))), 5, said(Error::InvalidStep, { "c", "0" }) },

    { "a rule without a condition", edit(""), 7, said(Error::RuleWithoutComparison, { "StrategyEdit" }) },
    { "a rule of two conditions", edit("<val:Edit field='P' operator='EX'/>\n<val:Edit field='P' operator='EX'/>"), 8,
        said(Error::SecondComparison, { "StrategyEdit" }) },
    { "a rule without a message", parts(Good, control(Spinner), xml("<val:StrategyEdit/>")), 7,
        said(Error::MissingAttribute, { "StrategyEdit", "errorMessage" }) },
    { "an unknown operator", edit("<val:Edit field='P' operator='XX'/>"), 7,
        said(Error::UnsupportedAttributeValue, { "operator", "XX", "LT、LE、GT、GE、EQ、NE、EX、NX" }) },
    { "two operators", edit("<val:Edit field='P' operator='EX' logicOperator='AND'/>"), 7,
        Error::EditWithTwoOperators },
    { "no operator", edit("<val:Edit field='P'/>"), 7, Error::EditWithoutOperator },
    { "a combination of nothing", edit("<val:Edit logicOperator='AND'/>"), 7, Error::EditWithoutOperands },
    { "a field of a combination",
        edit("<val:Edit logicOperator='OR' field='P'><val:Edit field='P' operator='EX'/></val:Edit>"), 7,
        said(Error::EditFieldOfCombination, { "field" }) },
    { "a comparison with nothing", edit("<val:Edit field='P' operator='LT'/>"), 7, Error::ComparisonWithoutOperand },
    { "a comparison with two sides", edit("<val:Edit field='P' operator='LT' field2='P' value='1'/>"), 7,
        Error::ComparisonWithTwoOperands },
    { "smaller than nothing", edit("<val:Edit field='P' operator='LT' value=''/>"), 7,
        Error::ComparisonWithoutOperand },
    { "a comparison of an unknown parameter", edit("<val:Edit field='Z' operator='LT' value='1'/>"), 7,
        said(Error::RuleWithoutParameter, { "Z" }) },
    { "a comparison with an unknown parameter", edit("<val:Edit field='P' operator='LT' field2='c'/>"), 7,
        said(Error::RuleWithoutParameter, { "c" }) },
    { "a comparison with a bad value", edit("<val:Edit field='P' operator='LT' value='x'/>"), 7,
        said(Error::InvalidRuleValue, { "P", "x" }, Error::ValueNotNumber) },
    { "a comparison of a number with a time",
        parts(Good + xml("<Parameter name='Q' xsi:type='LocalMktTime_t' constValue='09:30:00'/>"), control(Spinner),
            xml("<val:StrategyEdit errorMessage='m'><val:Edit field='P' operator='LT' "
                "field2='Q'/></val:StrategyEdit>")),
        7, said(Error::RuleOfOtherTypes, { "P", "Q" }) },
    { "a reference to nothing", edit("<val:EditRef id='e'/>"), 7, said(Error::UnknownEdit, { "e" }) },
    { "a reference to two conditions of the file",
        root(xml("<val:Edit id='e' field='P' operator='EX'/><val:Edit id='e'/>\n<Strategy name='S'><val:StrategyEdit "
                 "errorMessage='m'><val:EditRef id='e'/></val:StrategyEdit></Strategy>")),
        3, said(Error::DuplicateEdit, { "e" }) },
    { "a reference without an id", edit("<val:EditRef/>"), 7, said(Error::MissingAttribute, { "EditRef", "id" }) },
    { "a named condition twice",
        strategy(xml("<val:Edit id='e' field='P' operator='EX'/>\n<val:Edit id='e' field='P' operator='EX'/>")), 4,
        said(Error::DuplicateEdit, { "e" }) },
    { "a condition that contains itself",
        parts(Good + xml("<val:Edit id='e' logicOperator='NOT'><val:EditRef id='e'/></val:Edit>"), control(Spinner),
            xml("<val:StrategyEdit errorMessage='m'><val:EditRef id='e'/></val:StrategyEdit>")),
        3, said(Error::EditCycle, { "e" }) },

    { "a state rule without a condition", stateRule("enabled='true'", ""), 5,
        said(Error::RuleWithoutComparison, { "StateRule" }) },
    { "a state rule on a parameter", stateRule("enabled='true'", "<val:Edit field='P' operator='EX'/>"), 5,
        said(Error::RuleWithoutControl, { "P" }) },
    { "a state rule on a field of the order", stateRule("enabled='true'", "<val:Edit field='FIX_Side' operator='EX'/>"),
        5, said(Error::RuleWithoutControl, { "FIX_Side" }) },
    { "a state rule with a bad value", stateRule("value='x'", "<val:Edit field='c' operator='EX'/>"), 5,
        said(Error::InvalidStateValue, { "c", "x" }, Error::ValueNotNumber) },
    { "a state rule that compares with a bad value",
        stateRule("enabled='true'", "<val:Edit field='c' operator='EQ' value='x'/>"), 5,
        said(Error::InvalidRuleValue, { "c", "x" }, Error::ValueNotNumber) },
    { "a state rule on itself", stateRule("value='1'", "<val:Edit field='c' operator='EX'/>"), 5,
        said(Error::StateRuleCycle, { "c" }) },
    { "state rules in a circle",
        parts({},
            xml("<lay:Control ID='a' xsi:type='lay:TextField_t'><flow:StateRule value='{NULL}'>"
                "<val:Edit field='b' operator='EX'/></flow:StateRule></lay:Control>\n"
                "<lay:Control ID='b' xsi:type='lay:TextField_t'><flow:StateRule value='1'>"
                "<val:Edit field='a' operator='EX'/></flow:StateRule></lay:Control>")),
        5, said(Error::StateRuleCycle, { "a" }) },
    { "an unknown region", strategy(xml("<Regions><Region name='Mars' inclusion='Include'/></Regions>")), 3,
        said(Error::UnsupportedAttributeValue,
            { "name", "Mars", "TheAmericas、EuropeMiddleEastAfrica、AsiaPacificJapan" }) },
};

/// Why a strategy is not offered.
const QList<Remark> Obstacles{
    { "a time with a date", strategy(parameter(type("UTCTimestamp_t"))), 3,
        said(Error::ParameterWithDate, { "P", "UTCTimestamp_t" }) },
    { "a date", strategy(parameter(type("LocalMktDate_t"))), 3,
        said(Error::ParameterWithDate, { "P", "LocalMktDate_t" }) },
    { "a month", strategy(parameter(type("MonthYear_t"))), 3, said(Error::ParameterWithDate, { "P", "MonthYear_t" }) },
    { "data", strategy(parameter(type("Data_t"))), 3, said(Error::ParameterOfData, { "P" }) },
    { "a field of the plan", strategy(parameter(type("Qty_t") + xml(" fixTag='38' definedByFIX='true'"))), 3,
        said(Error::ParameterOfPlan, { "P", "38" }) },
    { "an order type", strategy(parameter(type("Char_t") + xml(" fixTag='40'"), Pair)), 3,
        said(Error::ParameterOfPlan, { "P", "40" }) },
    { "a needed parameter without a control", strategy(parameter(Number + xml(" use='required'"))), 3,
        said(Error::ParameterWithoutControl, { "P" }) },
    { "a needed parameter with an empty list", parts(parameter(Number + xml(" use='required'")), control(List)), 5,
        said(Error::ListWithoutEntries, { "P" }) },
    { "the opposite of an open list", strategy(parameter(type("MultipleStringValue_t") + xml(" invertOnWire='true'"))),
        3, said(Error::InvertedWithoutValues, { "P" }) },
    { "a list of orders", strategy({}, xml("fixMsgType='E'")), 2, said(Error::OtherMessage, { "E" }) },
    { "several legs", strategy({}, xml("totalLegs='2'")), 2, said(Error::SeveralOrders, { "totalLegs" }) },
    { "a repeating group",
        strategy(xml("<RepeatingGroup minSize='1'><Parameter name='P' xsi:type='Int_t'/></RepeatingGroup>")), 3,
        Error::RepeatingGroup },
    { "the opposite of two conditions",
        edit("<val:Edit logicOperator='NOT'><val:Edit field='P' operator='EX'/><val:Edit field='P' "
             "operator='NX'/></val:Edit>"),
        7, Error::NotOfSeveral },
};

/// What is read with a warning.
const QList<Remark> Warnings{
    { "no version", root(xml("<Strategy name='S' wireValue='s'/>")), 2,
        said(Error::AttributeExpected, { "Strategy", "version" }) },
    { "a name with a blank", root(xml("<Strategy name='a b' version='1' wireValue='s'/>")), 2,
        said(Error::NameNotStandard, { "name", "a b" }) },
    { "a name with other signs", root(xml("<Strategy name='算法-1/2' version='1' wireValue='s'/>")), 2,
        said(Error::NameNotStandard, { "name", "算法-1/2" }) },
    { "no orientation",
        strategy(xml("<lay:StrategyLayout><lay:StrategyPanel><lay:Control ID='l' xsi:type='lay:Label_t'/>"
                     "</lay:StrategyPanel></lay:StrategyLayout>")),
        3, said(Error::AttributeExpected, { "StrategyPanel", "orientation" }) },
    { "no market in the markets", strategy(xml("<Markets/>")), 3,
        said(Error::ElementExpected, { "Markets", "Market" }) },
    { "a market code in small letters",
        strategy(xml("<Markets><Market MICCode='xshg' inclusion='Include'/></Markets>")), 3,
        said(Error::NameNotStandard, { "MICCode", "xshg" }) },
    { "a region without a side", strategy(xml("<Regions><Region name='TheAmericas'/></Regions>")), 3,
        said(Error::AttributeExpected, { "Region", "inclusion" }) },
    { "a condition without a name", strategy(xml("<val:Edit field='P' operator='EX'/>")), 3,
        said(Error::AttributeExpected, { "Edit", "id" }) },
    { "an empty number", strategy(parameter(Number + xml(" fixTag=''"))), 3,
        said(Error::AttributeIgnored, { "Parameter", "fixTag" }) },
    { "an empty flag", strategy(parameter(Number + xml(" definedByFIX=' '"))), 3,
        said(Error::AttributeIgnored, { "Parameter", "definedByFIX" }) },
    { "an empty word", strategy(parameter(Number + xml(" use=''"))), 3,
        said(Error::AttributeIgnored, { "Parameter", "use" }) },
    { "decimals of a whole number", strategy(parameter(Number + xml(" precision='2'"))), 3,
        said(Error::AttributeIgnored, { "Int_t", "precision" }) },
    { "a step of a text field", parts(Good, control(TextField + xml(" increment='1'"))), 5,
        said(Error::AttributeIgnored, { "TextField_t", "increment" }) },
    { "a policy that the schema lacks", parts(Good, control(Spinner + xml(" incrementPolicy='Static'"))), 5,
        said(Error::NameNotStandard, { "incrementPolicy", "Static" }) },
    { "another way to write a flag", strategy(parameter(Number + xml(" definedByFIX='True'"))), 3,
        said(Error::ValueTakenAs, { "definedByFIX", "True", "true" }) },
    { "another way to write a word", strategy(parameter(Number + xml(" use='Required' constValue='1'"))), 3,
        said(Error::ValueTakenAs, { "use", "Required", "required" }) },
    { "a word for yes", strategy(parameter(type("Boolean_t") + xml(" constValue='True' trueWireValue='1'"))), 3,
        said(Error::ValueTakenAs, { "constValue", "True", "1" }) },
    { "a word for no", strategy(parameter(type("Boolean_t") + xml(" constValue='false'"))), 3,
        said(Error::ValueTakenAs, { "constValue", "false", "N" }) },
    { "a short time", strategy(parameter(type("UTCTimeOnly_t") + xml(" minValue='9:30'"))), 3,
        said(Error::ValueTakenAs, { "minValue", "9:30", "09:30:00" }) },
    { "a type of another namespace", strategy(parameter(type("lay:Int_t"))), 3,
        said(Error::TypeNotStandard, { "Int_t" }) },
    { "a type without its ending", parts(Good, control(type("lay:SingleSpinner"))), 5,
        said(Error::TypeNotStandard, { "SingleSpinner" }) },
    { "an element of another namespace",
        parts(Good, xml("<Control ID='c' parameterRef='P' xsi:type='lay:TextField_t'/>")), 5,
        said(Error::SpaceNotStandard, { "Control" }) },
    { "elements in another order", strategy(Good + xml("\n<Description>d</Description>")), 4,
        said(Error::OrderNotStandard, { "Description", "Parameter" }) },
    { "controls beside panels", parts(Good, control(Spinner) + xml("<lay:StrategyPanel orientation='VERTICAL'/>")), 4,
        Error::ControlsBesidePanels },
    { "two panels at the top",
        strategy(xml("<lay:StrategyLayout><lay:StrategyPanel orientation='VERTICAL'/>\n"
                     "<lay:StrategyPanel orientation='VERTICAL'/></lay:StrategyLayout>")),
        4, Error::SecondPanel },
    { "two values for one", strategy(parameter(Number, Pair + xml("<EnumPair enumID='b' wireValue='1'/>"))), 3,
        said(Error::DuplicateWireValue, { "P", "1" }) },
    { "a parameter without a control", strategy(Good), 3, said(Error::ParameterNeverSent, { "P" }) },
    { "a list without entries", parts(parameter(Number, Pair), control(List)), 5,
        said(Error::ElementExpected, { "Control", "ListItem" }) },
    { "a list without entries and values", parts(Good, control(List)), 5,
        said(Error::ElementExpected, { "Control", "ListItem" }) },
    { "a wire value as default", parts(parameter(Number, Pair), control(List + xml(" initValue='1'"), Item)), 5,
        said(Error::ValueTakenAs, { "initValue", "1", "a" }) },
    { "a shown text as default", parts(parameter(Number, Pair), control(List + xml(" initValue='甲'"), Item)), 5,
        said(Error::ValueTakenAs, { "initValue", "甲", "a" }) },
    { "commas between defaults",
        parts(parameter(type("MultipleStringValue_t"), Pair + Other),
            control(type("lay:CheckBoxList_t") + xml(" initValue='a, 乙'"), Item + OtherItem)),
        5, said(Error::ValueTakenAs, { "initValue", "a, 乙", "a b" }) },
    { "a wire value as default of a check box",
        parts(parameter(type("Boolean_t") + xml(" falseWireValue='no'")), control(Check + xml(" initValue='no'"))), 5,
        said(Error::ValueTakenAs, { "initValue", "no", "false" }) },
    { "a wire value in a state rule",
        parts(parameter(Number, Pair + Other),
            control(List, Item + OtherItem)
                + xml("<lay:Control ID='d' xsi:type='lay:CheckBox_t'><flow:StateRule value='true'>"
                      "<val:Edit field='c' operator='EQ' value='2'/></flow:StateRule></lay:Control>")),
        5, said(Error::ValueTakenAs, { "value", "2", "b" }) },
    { "a wire value that a state rule sets",
        parts(parameter(Number, Pair + Other),
            control(List,
                xml("<flow:StateRule value='2'><val:Edit field='d' operator='EX'/></flow:StateRule>") + Item
                    + OtherItem)
                + xml("<lay:Control ID='d' xsi:type='lay:CheckBox_t'/>")),
        5, said(Error::ValueTakenAs, { "value", "2", "b" }) },
    { "a clock without a time zone",
        parts(parameter(type("UTCTimeOnly_t")), control(type("lay:Clock_t") + xml(" initValue='09:30:00'"))), 5,
        said(Error::AttributeExpected, { "Control", "localMktTz" }) },
    { "a policy without a value", parts(Good, control(Spinner + xml(" initPolicy='UseFixField'"))), 5,
        said(Error::AttributeExpected, { "Control", "initFixField" }) },
    { "a rule on a field of the order", edit("<val:Edit field='FIX_TimeInForce' operator='NE' value='3'/>"), 7,
        said(Error::RuleSkipped, { "FIX_TimeInForce" }) },
    { "a rule on an id in place of a value",
        parts(parameter(Number, Pair), control(List, Item),
            xml("<val:StrategyEdit errorMessage='m'><val:Edit field='P' operator='EQ' value='a'/></val:StrategyEdit>")),
        7, said(Error::ValueTakenAs, { "value", "a", "1" }) },
    { "a rule on several ids in place of values",
        parts(parameter(type("MultipleStringValue_t"), Pair + Other),
            control(type("lay:CheckBoxList_t"), Item + OtherItem),
            xml("<val:StrategyEdit errorMessage='m'><val:Edit field='P' operator='EQ' value='b "
                "a'/></val:StrategyEdit>")),
        7, said(Error::ValueTakenAs, { "value", "b a", "2 1" }) },
    { "a message under its other name",
        parts(Good, control(Spinner),
            xml("<val:StrategyEdit errorMsg='m'><val:Edit field='P' operator='EX'/></val:StrategyEdit>")),
        7, said(Error::ValueTakenAs, { "errorMsg", "m", "errorMessage" }) },
    { "a state rule under another name", stateRule("enable='true'", "<val:Edit field='c' operator='EX'/>"), 5,
        said(Error::ValueTakenAs, { "enable", "true", "enabled" }) },
    { "a state rule without an effect", stateRule("", "<val:Edit field='c' operator='EX'/>"), 5,
        Error::StateRuleWithoutEffect },
};

/// What is said about the file without refusing it.
const QList<Remark> FileWarnings{
    { "a processing instruction", xml("<?xml-stylesheet href='a.css'?>\n") + strategy({}), 1,
        said(Error::ProcessingInstruction, { "xml-stylesheet" }) },
    { "no tag for the strategy", root(xml("<Strategy name='S'/>"), {}), 1,
        said(Error::AttributeExpected, { "Strategies", "strategyIdentifierTag" }) },
    { "two conditions of the file with one name",
        root(xml("<val:Edit id='e' field='P' operator='EX'/>\n<val:Edit id='e'/><Strategy name='S'/>")), 3,
        said(Error::DuplicateEdit, { "e" }) },
    { "a tag without effect that is no number", root(xml("<Strategy name='S'/>"), xml("draftFlagIdentifierTag='x'")), 1,
        said(Error::AttributeNotInteger, { "draftFlagIdentifierTag", "x", "1", "99999999" }) },
    { "a later version of XML", xml("<?xml version='1.1' encoding='UTF-8'?>\n") + root(xml("<Strategy name='S'/>")), 1,
        said(Error::ValueTakenAs, { "version", "1.1", "1.0" }) },
    { "UTF-16 in single bytes", xml("<?xml version='1.0' encoding='utf-16'?>\n") + root(xml("<Strategy name='S'/>")), 1,
        said(Error::ValueTakenAs, { "encoding", "UTF-16", "UTF-8" }) },
    { "an unknown attribute of the root",
        root(xml("<Strategy name='S'/>"), xml("strategyIdentifierTag='1' colour='x'")), 1,
        said(Error::UnsupportedAttribute, { "Strategies", "colour" }) },
    { "an unknown element of the root", root(xml("<Banana/><Strategy name='S'/>")), 2,
        said(Error::UnsupportedElement, { "Banana" }) },
};

Status inLine(int line, const Status& status)
{
    return StrategyRemarks::inLine(line, status);
}

void addRows(const QList<Remark>& remarks)
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Status>("expected");
    for (const Remark& remark : remarks)
        QTest::newRow(remark.row) << remark.text << inLine(remark.line, remark.said);
}

} // namespace

class StrategyRemarksTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void aFileIsRefusedWithItsLine_data() { addRows(Failures); }
    void aFileIsRefusedWithItsLine()
    {
        QFETCH(QString, text);
        QFETCH(Status, expected);
        const StrategyFile file = read(text);
        QCOMPARE(file.failure, Status(Error::StrategyFileRefused, { FileName }, expected));
        QCOMPARE(file.strategies.size(), 0);
    }

    void aStrategyIsRefusedWithItsLine_data() { addRows(Refusals); }
    void aStrategyIsRefusedWithItsLine()
    {
        QFETCH(QString, text);
        QFETCH(Status, expected);
        const StrategyFile file = read(text);
        QCOMPARE(file.failure, Status());
        QCOMPARE(file.strategies.size(), 1);
        QCOMPARE(file.strategies.constFirst().remarks.refusal, expected);
        QVERIFY(!file.strategies.constFirst().isUsable());
    }

    void theOtherStrategiesOfTheFileAreRead()
    {
        const StrategyFile file = read(root(xml("<Strategy name='A' version='1' wireValue='a'/>\n"
                                                "<Strategy name='B' version='1' wireValue='b'><Banana/></Strategy>\n"
                                                "<Strategy name='A' version='1' wireValue='a'/>\n"
                                                "<Strategy name='A' version='1' wireValue='a' providerID='other'/>")));
        QCOMPARE(file.failure, Status());
        QCOMPARE(file.strategies.size(), 4);
        QVERIFY(file.strategies.at(0).isUsable());
        QCOMPARE(file.strategies.at(1).remarks.refusal, inLine(3, said(Error::UnsupportedElement, { "Banana" })));
        QCOMPARE(file.strategies.at(2).remarks.refusal, inLine(4, said(Error::DuplicateStrategy, { "A" })));
        QVERIFY(file.strategies.at(3).isUsable());
    }

    void aStrategyThatAPlanCannotUseIsReadButNotOffered_data() { addRows(Obstacles); }
    void aStrategyThatAPlanCannotUseIsReadButNotOffered()
    {
        QFETCH(QString, text);
        QFETCH(Status, expected);
        const StrategyFile file = read(text);
        QCOMPARE(file.failure, Status());
        const StrategyRemarks remarks = file.strategies.constFirst().remarks;
        QCOMPARE(remarks.refusal, Status());
        QVERIFY2(remarks.obstacles.contains(expected),
            remarks.obstacles.isEmpty() ? "none" : qPrintable(errorText(remarks.obstacles.constFirst())));
        QVERIFY(!file.strategies.constFirst().isUsable());
    }

    void aHarmlessDepartureIsReadWithAWarning_data() { addRows(Warnings); }
    void aHarmlessDepartureIsReadWithAWarning()
    {
        QFETCH(QString, text);
        QFETCH(Status, expected);
        const StrategyFile file = read(text);
        QCOMPARE(file.failure, Status());
        const StrategyRemarks remarks = file.strategies.constFirst().remarks;
        QCOMPARE(remarks.refusal, Status());
        QVERIFY2(remarks.warnings.contains(expected),
            remarks.warnings.isEmpty() ? "none" : qPrintable(errorText(remarks.warnings.constFirst())));
        QVERIFY(file.strategies.constFirst().isUsable());
    }

    void whatConcernsNoStrategyIsSaidOfTheFile_data() { addRows(FileWarnings); }
    void whatConcernsNoStrategyIsSaidOfTheFile()
    {
        QFETCH(QString, text);
        QFETCH(Status, expected);
        const StrategyFile file = read(text);
        QCOMPARE(file.failure, Status());
        QVERIFY(file.warnings.contains(expected));
        QVERIFY(file.strategies.constFirst().isUsable());
    }

    void oneElementOutOfPlaceIsOneWarning()
    {
        const QString late = xml("<Parameter name='%1' xsi:type='Int_t' constValue='1'/>\n");
        const StrategyFile file = read(strategy(xml("<val:Edit id='e' field='A' operator='EX'/>\n")
            + late.arg(QLatin1Char('A')) + late.arg(QLatin1Char('B'))));
        QCOMPARE(file.strategies.value(0).remarks.warnings,
            QVector<Status>{ inLine(4, said(Error::OrderNotStandard, { "Parameter", "Edit" })) });
    }

    void everySentenceAboutStrategiesIsTested()
    {
        QSet<int> seen;
        for (const QList<Remark>& remarks : { Failures, Refusals, Obstacles, Warnings, FileWarnings }) {
            for (const Remark& remark : remarks)
                seen.insert(static_cast<int>(remark.said.error()));
        }
        // Tested where they arise: with files of their size, bytes or names.
        for (const Error other :
            { Error::DuplicateStrategy, Error::StrategyNameTaken, Error::TooManyElements, Error::TooManyAttributes,
                Error::TooManyConditions, Error::InvalidEncoding, Error::ParameterWithoutTag })
            seen.insert(static_cast<int>(other));
        for (int code = static_cast<int>(Error::FileIncomplete);
             code <= static_cast<int>(Error::StateRuleWithoutEffect); ++code)
            QVERIFY2(seen.contains(code), qPrintable(errorText(Status(static_cast<Error>(code)))));
    }
};

QTEST_GUILESS_MAIN(StrategyRemarksTest)
#include "tst_strategy_remarks.moc"
