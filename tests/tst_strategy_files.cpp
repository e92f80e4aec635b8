#include "AlgoTradeLogicNew.h"
#include "LogCatcher.h"
#include "ParameterValue.h"
#include "StrategyFile.h"
#include "StrategyLibrary.h"
#include "StrategyQuery.h"
#include <QBuffer>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString FILE_NAME = QStringLiteral("test.xml");

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

/// Line 3 holds the parameters, line 5 the controls, line 7 what follows the layout.
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

StrategyFileContent readText(const QString& text)
{
    QBuffer buffer;
    buffer.setData(text.toUtf8());
    buffer.open(QIODevice::ReadOnly);
    return StrategyFile::read(buffer, FILE_NAME);
}

QString namedStrategy(const QString& name)
{
    return root(QStringLiteral("<Strategy name=\"%1\" uiRep=\"别名\" version=\"7\" providerID=\"X\"/>").arg(name));
}

const QString WHOLE_STRATEGY = QStringLiteral(R"(
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

const QList<Pairing> PAIRINGS{
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

/// One file that is refused: the row's name, the file, the line and the reason.
struct Refusal {
    const char* row;
    QString text;
    int line;
    const char* reason;
};

const QString NUMBER = type("Int_t");
const QString SPINNER = type("lay:SingleSpinner_t");
const QString LIST = type("lay:DropDownList_t");
const QString PAIR = QStringLiteral("<EnumPair enumID=\"a\" wireValue=\"1\"/>");
const QString OTHER = QStringLiteral("<EnumPair enumID=\"b\" wireValue=\"2\"/>");
const QString ITEM = QStringLiteral("<lay:ListItem enumID=\"a\" uiRep=\"甲\"/>");
const QString GOOD = parameter(NUMBER);
const QString EDIT = QStringLiteral("<val:StrategyEdit errorMessage=\"m\">%1</val:StrategyEdit>");

const QList<Refusal> REFUSALS{
    { "an empty file", QString(), 1, "文件不完整" },
    { "a cut file", QStringLiteral("<Strategies\n"), 2, "文件不完整" },
    { "an element that is not closed", root(QStringLiteral("<Strategy name=\"S\">")), 3, "XML格式不正确" },
    { "an attribute given twice", root(QStringLiteral("<Strategy name=\"a\"\nname=\"b\"/>")), 3, "XML格式不正确" },
    { "an undeclared prefix", root(QStringLiteral("<no:Strategy/>")), 2, "XML格式不正确" },
    { "another root", QStringLiteral("<?xml version=\"1.0\"?>\n<Algos/>"), 2,
        "根元素应为FIXatdl 1.1的Strategies，而不是Algos" },
    { "a root of another vocabulary", QStringLiteral("<Strategies xmlns=\"x\"/>"), 1,
        "根元素应为FIXatdl 1.1的Strategies，而不是Strategies" },
    { "a document type", QStringLiteral("<!DOCTYPE Strategies SYSTEM \"x.dtd\">\n") + root({}), 1,
        "不允许DTD和实体声明" },
    { "an undeclared entity", strategy(QStringLiteral("&more;")), 3, "XML格式不正确" },
    { "a processing instruction", root(QStringLiteral("<?run this?>")), 2, "不支持处理指令run" },
    { "a processing instruction after the end", namedStrategy(QStringLiteral("A")) + QStringLiteral("<?run?>"), 4,
        "不支持处理指令run" },
    { "no strategy", root({}), 3, "文件中没有策略" },
    { "loose text", strategy(QStringLiteral("abc")), 4, "元素之间有文字“abc”" },

    { "an unknown element", strategy(QStringLiteral("<Markets/>")), 3, "元素Markets不支持或不能出现在这里" },
    { "an element in the wrong place", root(QStringLiteral("<Parameter/>")), 2, "元素Parameter不支持或不能出现在这里" },
    { "a foreign element", strategy(QStringLiteral("<a xmlns=\"b\"/>")), 3, "命名空间只能在根元素上声明" },
    { "an unknown attribute of a strategy", root(QStringLiteral("<Strategy name=\"S\"\n sentOrderLink=\"x\"/>")), 3,
        "元素Strategy的属性sentOrderLink不支持" },
    { "a foreign attribute", strategy(QStringLiteral("<Parameter lay:name=\"P\"/>")), 3,
        "元素Parameter的属性lay:name不支持" },
    { "another message type", root(QStringLiteral("<Strategy name=\"S\" fixMsgType=\"E\"/>")), 2,
        "属性fixMsgType的值“E”不支持，只支持D" },
    { "a root tag that is no tag",
        QStringLiteral(
            "<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\" strategyIdentifierTag=\"x\"/>"),
        1, "属性strategyIdentifierTag的值“x”应为1至99999999的整数" },
    { "a root flag that is no flag",
        QStringLiteral("<Strategies xmlns=\"http://www.fixprotocol.org/FIXatdl-1-1/Core\" tag957Support=\"1\"/>"), 1,
        "属性tag957Support的值“1”应为true或false" },
    { "a strategy without a name", root(QStringLiteral("<Strategy/>")), 2, "元素Strategy缺少属性name" },
    { "a strategy name with a blank", root(QStringLiteral("<Strategy name=\"a b\"/>")), 2,
        "属性name的值“a b”应以字母开头，只含字母、数字和下划线，最多64个字符" },
    { "a strategy twice", root(QStringLiteral("<Strategy name=\"S\"/>\n<Strategy name=\"S\"/>")), 3, "策略名“S”重复" },
    { "an element in a description", strategy(QStringLiteral("<Description>a<b/></Description>")), 3,
        "Description中不能有元素b" },

    { "a parameter without a type", strategy(QStringLiteral("<Parameter name=\"P\"/>")), 3,
        "元素Parameter缺少属性xsi:type" },
    { "an unknown parameter type", strategy(parameter(type("Tenor_t"))), 3, "参数类型“Tenor_t”不支持" },
    { "a type of another vocabulary", strategy(parameter(type("lay:Int_t"))), 3,
        "类型“lay:Int_t”不属于http://www.fixprotocol.org/FIXatdl-1-1/Core" },
    { "a time with a date", strategy(parameter(type("UTCTimestamp_t"))), 3,
        "参数类型UTCTimestamp_t含有日期，计划跨多个交易日，请改用LocalMktTime_t" },
    { "a use that is none", strategy(parameter(NUMBER + QStringLiteral(" use=\"maybe\""))), 3,
        "属性use的值“maybe”应为required或optional" },
    { "a tag of 0", strategy(parameter(NUMBER + QStringLiteral(" fixTag=\"0\""))), 3,
        "属性fixTag的值“0”应为1至99999999的整数" },
    { "decimals of a whole number", strategy(parameter(NUMBER + QStringLiteral(" precision=\"2\""))), 3,
        "类型Int_t不能有属性precision" },
    { "a length of a number", strategy(parameter(NUMBER + QStringLiteral(" maxLength=\"2\""))), 3,
        "类型Int_t不能有属性maxLength" },
    { "yes and no of a number", strategy(parameter(NUMBER + QStringLiteral(" trueWireValue=\"1\""))), 3,
        "类型Int_t不能有属性trueWireValue" },
    { "yes equal to no", strategy(parameter(type("Boolean_t") + QStringLiteral(" trueWireValue=\"N\""))), 3,
        "属性trueWireValue与falseWireValue相同" },
    { "a limit that is no number", parts(parameter(NUMBER + QStringLiteral(" minValue=\"nan\"")), control(SPINNER)), 3,
        "参数P的minValue“nan”应为数字" },
    { "a limit in scientific form",
        parts(parameter(type("Float_t") + QStringLiteral(" maxValue=\"1e3\"")), control(SPINNER)), 3,
        "参数P的maxValue“1e3”应为数字" },
    { "limits the wrong way round",
        parts(parameter(NUMBER + QStringLiteral(" minValue=\"2\" maxValue=\"1\"")), control(SPINNER)), 3,
        "参数P的minValue大于maxValue" },
    { "limits of a text",
        parts(parameter(type("String_t") + QStringLiteral(" minValue=\"1\"")), control(type("lay:TextField_t"))), 3,
        "参数P的类型不能有minValue或maxValue" },
    { "a constant out of range", strategy(parameter(NUMBER + QStringLiteral(" maxValue=\"5\" constValue=\"6\""))), 3,
        "参数P的constValue“6”应不大于5" },
    { "a parameter twice",
        strategy(parameter(NUMBER + QStringLiteral(" constValue=\"1\"")) + QLatin1Char('\n')
            + parameter(NUMBER + QStringLiteral(" constValue=\"2\""))),
        4, "参数名“P”重复" },
    { "a value twice", parts(parameter(NUMBER, PAIR + PAIR), control(LIST, ITEM)), 3, "参数P的enumID“a”重复" },
    { "a value that is none of its type",
        parts(parameter(NUMBER, QStringLiteral("<EnumPair enumID=\"a\" wireValue=\"x\"/>")), control(LIST, ITEM)), 3,
        "参数P的wireValue“x”应为数字" },
    { "values of yes or no", strategy(parameter(type("Boolean_t"), PAIR)), 3, "Boolean_t参数不能有EnumPair" },
    { "a value without an id", strategy(parameter(NUMBER, QStringLiteral("<EnumPair wireValue=\"1\"/>"))), 3,
        "元素EnumPair缺少属性enumID" },
    { "a parameter without a control", strategy(GOOD), 3, "参数P既没有控件也没有constValue" },

    { "a second layout", parts(GOOD, control(SPINNER), QStringLiteral("<lay:StrategyLayout/>")), 7,
        "策略S有多个StrategyLayout" },
    { "a layout without a panel", strategy(QStringLiteral("<lay:StrategyLayout/>")), 3,
        "StrategyLayout中没有StrategyPanel" },
    { "two panels side by side at the top",
        strategy(QStringLiteral("<lay:StrategyLayout><lay:StrategyPanel/>\n<lay:StrategyPanel/></lay:StrategyLayout>")),
        4, "StrategyLayout中只能有一个StrategyPanel" },
    { "a horizontal panel",
        strategy(
            QStringLiteral("<lay:StrategyLayout><lay:StrategyPanel orientation=\"HORIZONTAL\"/></lay:StrategyLayout>")),
        3, "属性orientation的值“HORIZONTAL”不支持，只支持VERTICAL" },
    { "controls beside panels", parts(GOOD, control(SPINNER) + QStringLiteral("\n<lay:StrategyPanel/>")), 6,
        "StrategyPanel中不能同时有Control和StrategyPanel" },
    { "panels too deep",
        parts(GOOD,
            QStringLiteral("<lay:StrategyPanel>").repeated(8) + QStringLiteral("</lay:StrategyPanel>").repeated(8)),
        5, "StrategyPanel嵌套超过8层" },

    { "a control without a parameter", parts({}, control(SPINNER)), 5, "控件c的参数“P”不存在" },
    { "a control without a reference",
        parts(GOOD, QStringLiteral("<lay:Control ID=\"c\" label=\"l\" %1/>").arg(SPINNER)), 5,
        "元素Control缺少属性parameterRef" },
    { "a control of a constant", parts(parameter(NUMBER + QStringLiteral(" constValue=\"1\"")), control(SPINNER)), 5,
        "控件c的参数P是常量，不能有控件" },
    { "a control id twice",
        parts(GOOD + QStringLiteral("<Parameter name=\"Q\" %1/>").arg(NUMBER),
            control(SPINNER)
                + QStringLiteral("\n<lay:Control ID=\"c\" parameterRef=\"Q\" label=\"l\" %1/>").arg(SPINNER)),
        6, "控件ID“c”重复" },
    { "two controls of one parameter",
        parts(GOOD,
            control(SPINNER)
                + QStringLiteral("\n<lay:Control ID=\"d\" parameterRef=\"P\" label=\"l\" %1/>").arg(SPINNER)),
        6, "参数“P”有多个控件" },
    { "an unknown control type", parts(GOOD, control(type("lay:Slider_t"))), 5, "控件类型“Slider_t”不支持" },
    { "a check box for a number", parts(GOOD, control(type("lay:CheckBox_t"))), 5, "控件c的类型与参数P的类型不符" },
    { "a spinner for a list", parts(parameter(NUMBER, PAIR), control(SPINNER)), 5, "控件c的类型与参数P的类型不符" },
    { "list entries that do not match", parts(parameter(NUMBER, PAIR + OTHER), control(LIST, ITEM)), 5,
        "控件c的ListItem与参数P的EnumPair不一致" },
    { "a list entry twice", parts(parameter(NUMBER, PAIR), control(LIST, ITEM + ITEM)), 5, "控件c的ListItem“a”重复" },
    { "entries of a spinner", parts(GOOD, control(SPINNER, ITEM)), 5, "控件c的类型不能有ListItem" },
    { "a default out of range",
        parts(parameter(NUMBER + QStringLiteral(" minValue=\"1\" maxValue=\"5\"")),
            control(SPINNER + QStringLiteral(" initValue=\"6\""))),
        5, "控件c的默认值“6”应在1至5之间" },
    { "a default that is no entry",
        parts(parameter(NUMBER, PAIR), control(LIST + QStringLiteral(" initValue=\"z\""), ITEM)), 5,
        "控件c的默认值“z”不是可选的值" },
    { "a default of a check box that is neither",
        parts(parameter(type("Boolean_t")), control(type("lay:CheckBox_t") + QStringLiteral(" initValue=\"Y\""))), 5,
        "控件c的默认值“Y”不是可选的值" },
    { "a default time that is none",
        parts(parameter(type("LocalMktTime_t")),
            control(type("lay:Clock_t") + QStringLiteral(" initValue=\"24:00:00\""))),
        5, "控件c的默认值“24:00:00”应为时间，如09:30:00" },
    { "a step of 0", parts(GOOD, control(SPINNER + QStringLiteral(" increment=\"0\""))), 5,
        "控件c的步长“0”应为大于零且符合参数类型的数字" },
    { "a step of a text field", parts(GOOD, control(type("lay:TextField_t") + QStringLiteral(" increment=\"1\""))), 5,
        "类型TextField_t不能有属性increment" },
    { "a large step of a single spinner", parts(GOOD, control(SPINNER + QStringLiteral(" outerIncrement=\"9\""))), 5,
        "类型SingleSpinner_t不能有属性outerIncrement" },
    { "a rule that switches a control", parts(GOOD, control(SPINNER, QStringLiteral("<StateRule/>"))), 5,
        "元素StateRule不支持或不能出现在这里" },

    { "a rule without a comparison", parts(GOOD, control(SPINNER), EDIT.arg(QString())), 7, "StrategyEdit中没有Edit" },
    { "a rule of two comparisons",
        parts(GOOD, control(SPINNER),
            EDIT.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" value=\"1\"/>\n<val:Edit/>"))),
        8, "StrategyEdit中只支持一个Edit" },
    { "a comparison that is unknown",
        parts(GOOD, control(SPINNER), EDIT.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"EX\"/>"))), 7,
        "比较符“EX”不支持" },
    { "a comparison with nothing",
        parts(GOOD, control(SPINNER), EDIT.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\"/>"))), 7,
        "Edit应有field2或value之一" },
    { "a comparison of nothing",
        parts(GOOD, control(SPINNER), EDIT.arg(QStringLiteral("<val:Edit field=\"Z\" operator=\"LT\" value=\"1\"/>"))),
        7, "校验规则的参数“Z”不存在" },
    { "a comparison with an unknown parameter",
        parts(GOOD, control(SPINNER), EDIT.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" field2=\"Z\"/>"))),
        7, "校验规则的参数“Z”不存在" },
    { "a comparison with a bad value",
        parts(GOOD, control(SPINNER), EDIT.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" value=\"x\"/>"))),
        7, "参数P的校验值“x”应为数字" },
    { "a comparison of a number with a time",
        parts(GOOD + QStringLiteral("<Parameter name=\"Q\" %1 constValue=\"09:30:00\"/>").arg(type("LocalMktTime_t")),
            control(SPINNER), EDIT.arg(QStringLiteral("<val:Edit field=\"P\" operator=\"LT\" field2=\"Q\"/>"))),
        7, "校验规则的参数P与Q类型不同，不能比较" },
};

/// One value of a parameter: the row's name, the parameter, the value and what is wrong with it.
struct ValueCheck {
    const char* row;
    QString attributes;
    QString value;
    QString problem;
};

const QString WHOLE = type("Int_t") + QStringLiteral(" use=\"required\" minValue=\"1\" maxValue=\"5\"");
const QString RATIO = type("Percentage_t") + QStringLiteral(" minValue=\"0.01\" maxValue=\"0.5\" precision=\"4\"");
const QString TIME = type("LocalMktTime_t") + QStringLiteral(" minValue=\"09:30:00\"");

const QList<ValueCheck> VALUE_CHECKS{
    { "the lower limit passes", WHOLE, QStringLiteral("1"), QString() },
    { "the upper limit passes", WHOLE, QStringLiteral("5"), QString() },
    { "below the lower limit fails", WHOLE, QStringLiteral("0"), QStringLiteral("应在1至5之间") },
    { "above the upper limit fails", WHOLE, QStringLiteral("6"), QStringLiteral("应在1至5之间") },
    { "nothing fails where needed", WHOLE, QString(), QStringLiteral("必填") },
    { "nothing passes where not needed", RATIO, QString(), QString() },
    { "a fraction of a whole number fails", WHOLE, QStringLiteral("1.5"), QStringLiteral("应为整数") },
    { "a whole number with zeros behind the point passes", WHOLE, QStringLiteral("2.0"), QString() },
    { "nan fails", WHOLE, QStringLiteral("nan"), QStringLiteral("应为数字") },
    { "infinity fails", WHOLE, QStringLiteral("inf"), QStringLiteral("应为数字") },
    { "an exponent fails", WHOLE, QStringLiteral("1e0"), QStringLiteral("应为数字") },
    { "a plus sign fails", WHOLE, QStringLiteral("+1"), QStringLiteral("应为数字") },
    { "full-width digits fail", WHOLE, QStringLiteral("１"), QStringLiteral("应为数字") },
    { "a line end behind a number fails", WHOLE, QStringLiteral("1\n"), QStringLiteral("应为数字") },
    { "sixteen digits fail", WHOLE, QStringLiteral("1000000000000000"), QStringLiteral("应为数字") },
    { "a percentage within its limits passes", RATIO, QStringLiteral("0.5"), QString() },
    { "a percentage just above fails", RATIO, QStringLiteral("0.5001"), QStringLiteral("应在1至50之间") },
    { "a percentage too fine fails", RATIO, QStringLiteral("0.12345"), QStringLiteral("最多2位小数") },
    { "the first moment passes", TIME, QStringLiteral("09:30:00"), QString() },
    { "a second before fails", TIME, QStringLiteral("09:29:59"), QStringLiteral("应不小于09:30:00") },
    { "a time in short form is none", TIME, QStringLiteral("9:30"), QStringLiteral("应为时间，如09:30:00") },
    { "two letters are no letter", type("Char_t"), QStringLiteral("ab"), QStringLiteral("应为一个字符") },
    { "a control character fails", type("String_t"), QStringLiteral("a\x01"), QStringLiteral("含有不可见字符") },
    { "a text too long fails", type("String_t") + QStringLiteral(" maxLength=\"3\""), QStringLiteral("abcd"),
        QStringLiteral("最多3个字符") },
    { "yes passes", type("Boolean_t"), QStringLiteral("Y"), QString() },
    { "another word for yes fails", type("Boolean_t"), QStringLiteral("true"), QStringLiteral("不是可选的值") },
};

} // namespace

class StrategyFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aWholeStrategyIsRead();
    void theParametersOfAStrategyAreRead();
    void theControlsOfAStrategyAreRead();
    void everySupportedTypeIsRead_data();
    void everySupportedTypeIsRead();
    void whatDoesNotFitIsRefusedWithItsLine_data();
    void whatDoesNotFitIsRefusedWithItsLine();
    void moreThanTheLimitsIsRefused();
    void aFileThatCannotBeReadIsRefused();
    void nestedEntitiesAreRefusedAtOnce();
    void randomDamageNeverDoesHarm();
    void valuesAreChecked_data();
    void valuesAreChecked();
    void percentagesAreShownTimesAHundred_data();
    void percentagesAreShownTimesAHundred();

    void theBuiltInStrategiesAreAllThere();
    void everyBuiltInParameterHasALabelAndAGoodDefault();
    void theServiceKnowsStrategiesByName();
    void aQueryIsAnsweredFromAnotherThread();

private:
    std::unique_ptr<LogCatcher> m_log;
};

void StrategyFilesTest::init()
{
    m_log = std::make_unique<LogCatcher>();
}

void StrategyFilesTest::cleanup()
{
    const QStringList trouble = m_log->trouble();
    m_log.reset();
    QCOMPARE(trouble, QStringList());
}

void StrategyFilesTest::aWholeStrategyIsRead()
{
    const StrategyFileContent content = readText(root(WHOLE_STRATEGY));
    QCOMPARE(content.error.text(), QStringLiteral("："));
    QCOMPARE(content.strategies.size(), 1);
    const StrategyDefinition demo = content.strategies.constFirst();
    QCOMPARE(demo.name, QStringLiteral("Demo"));
    QCOMPARE(demo.alias, QStringLiteral("演示"));
    QCOMPARE(demo.version, QStringLiteral("3"));
    QCOMPARE(demo.provider, QStringLiteral("ME"));
    QCOMPARE(demo.wireValue, QStringLiteral("d"));
    QCOMPARE(demo.description, QStringLiteral("两行 说明"));
    QCOMPARE(demo.rules.size(), 1);
    QCOMPARE(demo.rules.at(0).message, QStringLiteral("起须早于止！"));
}

void StrategyFilesTest::theParametersOfAStrategyAreRead()
{
    const StrategyFileContent content = readText(root(WHOLE_STRATEGY));
    QVERIFY(content.isValid());
    const StrategyDefinition demo = content.strategies.constFirst();
    QCOMPARE(demo.parameters.size(), 5);
    QCOMPARE(demo.parameter(QStringLiteral("Rate"))->fixTag, 7001);
    QCOMPARE(demo.parameter(QStringLiteral("Rate"))->precision, 4);
    QVERIFY(demo.parameter(QStringLiteral("Rate"))->required);
    QVERIFY(!demo.parameter(QStringLiteral("Speed"))->required);
    QCOMPARE(demo.parameter(QStringLiteral("Kind"))->constValue, QStringLiteral("4"));
}

void StrategyFilesTest::theControlsOfAStrategyAreRead()
{
    const StrategyFileContent content = readText(root(WHOLE_STRATEGY));
    QVERIFY(content.isValid());
    const StrategyDefinition demo = content.strategies.constFirst();
    QCOMPARE(demo.controls.size(), 4);
    QCOMPARE(demo.controls.at(0).section, QStringLiteral("一"));
    QCOMPARE(demo.controls.at(0).tooltip, QStringLiteral("提示"));
    QCOMPARE(demo.controls.at(0).increment, QStringLiteral("0.01"));
    QCOMPARE(demo.controls.at(1).label, QStringLiteral("速度"));
    QCOMPARE(demo.controls.at(1).unit, QStringLiteral("档"));
    QCOMPARE(demo.controls.at(1).initialValue, QStringLiteral("B"));
}

void StrategyFilesTest::everySupportedTypeIsRead_data()
{
    QTest::addColumn<QString>("parameterType");
    QTest::addColumn<QString>("controlType");
    QTest::addColumn<QString>("value");
    for (const Pairing& pairing : PAIRINGS)
        QTest::newRow(pairing.row) << pairing.parameterType << pairing.controlType << pairing.value;
}

void StrategyFilesTest::everySupportedTypeIsRead()
{
    QFETCH(QString, parameterType);
    QFETCH(QString, controlType);
    QFETCH(QString, value);
    const StrategyFileContent content = readText(parts(parameter(QStringLiteral("xsi:type=\"%1\"").arg(parameterType)),
        control(QStringLiteral("xsi:type=\"lay:%1\" initValue=\"%2\"").arg(controlType, value))));
    QVERIFY2(content.isValid(), qPrintable(content.error.text()));
    QCOMPARE(content.strategies.constFirst().controls.constFirst().initialValue,
        value == QStringLiteral("true") ? QStringLiteral("Y") : value);
}

void StrategyFilesTest::whatDoesNotFitIsRefusedWithItsLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("reason");
    for (const Refusal& refusal : REFUSALS)
        QTest::newRow(refusal.row) << refusal.text << refusal.line << QString::fromUtf8(refusal.reason);
}

void StrategyFilesTest::whatDoesNotFitIsRefusedWithItsLine()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    QFETCH(QString, reason);
    const StrategyFileContent content = readText(text);
    QVERIFY(!content.isValid());
    QCOMPARE(content.error.text(), QStringLiteral("test.xml 第%1行：%2").arg(line).arg(reason));
    QCOMPARE(content.strategies.size(), 0);
}

void StrategyFilesTest::moreThanTheLimitsIsRefused()
{
    QString many;
    for (int i = 0; i <= StrategyLimits::MAX_COUNT; ++i)
        many += QStringLiteral("<Strategy name=\"S%1\"/>\n").arg(i);
    QCOMPARE(readText(root(many)).error.text(), QStringLiteral("test.xml 第102行：策略超过100个"));

    const QString longText(StrategyLimits::MAX_TEXT + 1, QLatin1Char('x'));
    QCOMPARE(readText(root(QStringLiteral("<Strategy name=\"S\" uiRep=\"%1\"/>").arg(longText))).error.text(),
        QStringLiteral("test.xml 第2行：属性uiRep超过1000个字符"));
    QCOMPARE(readText(strategy(QStringLiteral("<Description>%1</Description>").arg(longText))).error.reason,
        QStringLiteral("Description超过1000个字符"));

    const QString fits = namedStrategy(QStringLiteral("A"));
    const auto padded = [&](qint64 size) {
        return fits + QString(static_cast<int>(size - fits.toUtf8().size()), QLatin1Char(' '));
    };
    QVERIFY(readText(padded(StrategyFile::MAX_SIZE)).isValid());
    QCOMPARE(
        readText(padded(StrategyFile::MAX_SIZE + 1)).error.text(), QStringLiteral("test.xml：文件超过1048576字节"));
}

void StrategyFilesTest::aFileThatCannotBeReadIsRefused()
{
    const QTemporaryDir folder;
    QCOMPARE(StrategyFile::read(folder.filePath(QStringLiteral("none.xml"))).error.text(),
        QStringLiteral("none.xml：文件不存在或不是普通文件"));
    QVERIFY(!StrategyFile::read(folder.path()).isValid());
}

void StrategyFilesTest::nestedEntitiesAreRefusedAtOnce()
{
    QString entities = QStringLiteral("<!ENTITY e0 \"ha\">");
    for (int i = 1; i < 30; ++i)
        entities += QStringLiteral("<!ENTITY e%1 \"%2\">").arg(i).arg(QStringLiteral("&e%1;").arg(i - 1).repeated(10));
    const QString text = QStringLiteral("<!DOCTYPE Strategies [%1]>\n<Strategies>&e29;</Strategies>").arg(entities);
    QCOMPARE(readText(text).error.text(), QStringLiteral("test.xml 第1行：不允许DTD和实体声明"));

    const QString external =
        QStringLiteral("<!DOCTYPE s [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>\n<Strategies>&x;</Strategies>");
    QCOMPARE(readText(external).error.text(), QStringLiteral("test.xml 第1行：不允许DTD和实体声明"));
}

void StrategyFilesTest::randomDamageNeverDoesHarm()
{
    QFile file(QStringLiteral(":/plandesk/strategies/POV.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    quint32 seed = 20240506;
    const auto next = [&seed](int bound) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<int>((seed >> 8U) % static_cast<quint32>(bound));
    };
    int refused = 0;
    for (int round = 0; round < 500; ++round) {
        QByteArray bytes = whole;
        for (int hit = next(4); hit >= 0; --hit)
            bytes[next(bytes.size())] = static_cast<char>(next(256));
        bytes.truncate(next(4) == 0 ? next(bytes.size()) : bytes.size());
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        const StrategyFileContent content = StrategyFile::read(buffer, FILE_NAME);
        refused += content.isValid() ? 0 : 1;
        QVERIFY(content.isValid() || content.strategies.isEmpty());
    }
    QVERIFY(refused > 100);
}

void StrategyFilesTest::valuesAreChecked_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("problem");
    for (const ValueCheck& check : VALUE_CHECKS)
        QTest::newRow(check.row) << check.attributes << check.value << check.problem;
}

void StrategyFilesTest::valuesAreChecked()
{
    QFETCH(QString, attributes);
    QFETCH(QString, value);
    QFETCH(QString, problem);
    const QString kind =
        attributes.contains(QStringLiteral("Boolean")) ? QStringLiteral("CheckBox_t") : QStringLiteral("TextField_t");
    const StrategyFileContent content =
        readText(parts(parameter(attributes), control(QStringLiteral("xsi:type=\"lay:%1\"").arg(kind))));
    QVERIFY2(content.isValid(), qPrintable(content.error.text()));
    QCOMPARE(ParameterValue::problem(content.strategies.constFirst().parameters.constFirst(), value), problem);
}

void StrategyFilesTest::percentagesAreShownTimesAHundred_data()
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

void StrategyFilesTest::percentagesAreShownTimesAHundred()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    StrategyParameter percentage;
    percentage.type = ParameterType::Percentage;
    QCOMPARE(ParameterValue::shown(percentage, stored), shown);
    QCOMPARE(ParameterValue::entered(percentage, shown), stored);
}

void StrategyFilesTest::theBuiltInStrategiesAreAllThere()
{
    const StrategyLibrary library;
    QCOMPARE(library.names(),
        QStringList({ QStringLiteral("TWAP"), QStringLiteral("VWAP"), QStringLiteral("POV"), QStringLiteral("ICEBERG2"),
            QStringLiteral("SNIPER") }));
    QStringList aliases;
    for (const AesStrategy& known : library.strategies())
        aliases.append(known.alias);
    QCOMPARE(aliases,
        QStringList({ QStringLiteral("时间加权"), QStringLiteral("成交量加权"), QStringLiteral("比例跟量"),
            QStringLiteral("冰山"), QStringLiteral("狙击") }));
}

void StrategyFilesTest::everyBuiltInParameterHasALabelAndAGoodDefault()
{
    const StrategyLibrary library;
    for (const QString& name : library.names()) {
        const StrategyDefinition known = library.strategy(name);
        QVERIFY(known.parameters.size() >= 5);
        for (const StrategyParameter& each : known.parameters) {
            const StrategyControl* const shown = known.controlOf(each.name);
            QVERIFY2(shown && !shown->label.isEmpty(), qPrintable(name + each.name));
            QCOMPARE(ParameterValue::problem(each, shown->initialValue), QString());
        }
    }
}

void StrategyFilesTest::theServiceKnowsStrategiesByName()
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

void StrategyFilesTest::aQueryIsAnsweredFromAnotherThread()
{
    qRegisterMetaType<AesStrategy>("AesStrategy");
    qRegisterMetaType<QList<AesStrategy>>("QList<AesStrategy>");
    AlgoTradeLogicNew* const service = AlgoTradeLogicNew::GetInstance();
    QCOMPARE(service->thread(), QThread::currentThread());
    QThread* emitter = nullptr;
    QObject receiver;
    QStringList answered;
    connect(service, &AlgoTradeLogicNew::sigQryAlgoStrategiesRsp, &receiver, [&](const QList<AesStrategy>& strategies) {
        QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
        for (const AesStrategy& each : strategies)
            answered.append(each.name);
    });
    connect(
        service, &AlgoTradeLogicNew::sigQryAlgoStrategiesRsp, &receiver, [&] { emitter = QThread::currentThread(); },
        Qt::DirectConnection);

    QFuture<void> query = StrategyQuery::start();
    query.waitForFinished();
    QVERIFY(emitter != nullptr);
    QVERIFY(emitter != QThread::currentThread());
    QCOMPARE(answered.size(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(answered, StrategyLibrary::instance().names());
}

QTEST_GUILESS_MAIN(StrategyFilesTest)
#include "tst_strategy_files.moc"
