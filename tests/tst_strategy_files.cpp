#include "AlgoTradeLogicNew.h"
#include "ControlValue.h"
#include "EditEvaluation.h"
#include "LoggedTest.h"
#include "ParameterValue.h"
#include "StrategyLibrary.h"
#include "StrategyQuery.h"
#include "StrategyReport.h"
#include "StrategyTexts.h"
#include "TestStatus.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace StrategyTexts;

namespace {

Status unreadable(const QString& file, const Status& cause)
{
    return { Error::StrategyFileUnreadable, { file }, cause };
}

Status refused(int line, const Status& error)
{
    return { Error::StrategyFileRefused, { FileName }, StrategyRemarks::inLine(line, error) };
}

/// A file of the fuzz target's corpus.
QByteArray bytesOf(const QString& name)
{
    QFile file(QStringLiteral(STRATEGY_FILES "/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
      <lay:StrategyPanel title="一" orientation="HORIZONTAL" border="Line">
        <lay:Control ID="c1" xsi:type="lay:SingleSpinner_t" parameterRef="Rate" label="比例" initValue="0.1" increment="0.01" tooltip="提示"/>
      </lay:StrategyPanel>
      <lay:StrategyPanel title="二" orientation="VERTICAL" collapsible="true" collapsed="true">
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

/// One type of parameter with a control: both types, a default, and the stored value that it gives.
struct Pairing {
    const char* parameterType;
    const char* controlType;
    const char* text;
    const char* stored;
};

constexpr Pairing Pairings[]{
    { "Int_t", "SingleSpinner_t", "+5", "5" },
    { "Length_t", "TextField_t", "5", "5" },
    { "NumInGroup_t", "TextField_t", "5", "5" },
    { "SeqNum_t", "SingleSpinner_t", "5", "5" },
    { "TagNum_t", "SingleSpinner_t", "5", "5" },
    { "Float_t", "SingleSpinner_t", "5e-1", "0.5" },
    { "Qty_t", "DoubleSpinner_t", "500.0", "500" },
    { "Price_t", "TextField_t", "10.01", "10.01" },
    { "PriceOffset_t", "SingleSpinner_t", ".5", "0.5" },
    { "Amt_t", "SingleSpinner_t", "1000.5", "1000.5" },
    { "Percentage_t", "SingleSpinner_t", "0.25", "0.25" },
    { "Percentage_t", "Slider_t", "0.25", "0.25" },
    { "Boolean_t", "CheckBox_t", "true", "Y" },
    { "Boolean_t", "CheckBox_t", "0", "N" },
    { "Boolean_t", "RadioButton_t", "1", "Y" },
    { "String_t", "TextField_t", "a b", "a b" },
    { "String_t", "HiddenField_t", "abc", "abc" },
    { "String_t", "EditableDropDownList_t", "abc", "abc" },
    { "Char_t", "TextField_t", "x", "x" },
    { "MultipleCharValue_t", "TextField_t", "A B", "A B" },
    { "MultipleStringValue_t", "TextField_t", "AA BB", "AA BB" },
    { "Currency_t", "TextField_t", "CNY", "CNY" },
    { "Exchange_t", "TextField_t", "XSHG", "XSHG" },
    { "Country_t", "TextField_t", "CN", "CN" },
    { "Language_t", "TextField_t", "zh-CN", "zh-CN" },
    { "Tenor_t", "TextField_t", "M3", "M3" },
    { "LocalMktTime_t", "Clock_t", "09:30:00", "09:30:00" },
    { "LocalMktTime_t", "TextField_t", "09:30:00", "09:30:00" },
    { "UTCTimeOnly_t", "Clock_t", "09:30:00", "09:30:00" },
    { "UTCTimeOnly_t", "Clock_t", "01:30:00Z", "09:30:00" },
    { "TZTimeOnly_t", "Clock_t", "10:30:00+09:00", "09:30:00" },
    { "UTCTimestamp_t", "Clock_t", "24:00:00", "00:00:00" },
    { "TZTimestamp_t", "Clock_t", "09:30:00.250", "09:30:00" },
    { "LocalMktDate_t", "Clock_t", "", "" },
    { "UTCDateOnly_t", "TextField_t", "20240506", "20240506" },
    { "MonthYear_t", "TextField_t", "202405w2", "202405w2" },
    { "Data_t", "TextField_t", "abc", "abc" },
};

/// One control with entries: its type, its default and the stored value that it gives.
constexpr Pairing Lists[]{
    { "Char_t", "DropDownList_t", "e_b", "B" },
    { "Int_t", "DropDownList_t", "", "" },
    { "String_t", "EditableDropDownList_t", "e_b", "B" },
    { "Char_t", "SingleSelectList_t", "e_a", "A" },
    { "MultipleCharValue_t", "MultiSelectList_t", "e_a e_b", "A B" },
    { "MultipleStringValue_t", "CheckBoxList_t", "e_b", "B" },
    { "String_t", "CheckBoxList_t", "e_b e_a", "B A" },
    { "Char_t", "RadioButtonList_t", "e_a", "A" },
    { "Boolean_t", "DropDownList_t", "e_a", "A" },
    { "Char_t", "Slider_t", "e_b", "B" },
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
        const StrategyFile file = read(root(WholeStrategy));
        QCOMPARE(file.failure, Status());
        QCOMPARE(file.warnings.size(), 0);
        QCOMPARE(file.strategies.size(), 1);
        QCOMPARE(file.strategies.constFirst().remarks.refusal, Status());
        QCOMPARE(file.strategies.constFirst().remarks.warnings.size(), 0);
        const StrategyDefinition demo = file.strategies.constFirst().definition;
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
        QCOMPARE(demo.controls.at(0).tooltip, QStringLiteral("提示"));
        QCOMPARE(demo.controls.at(0).increment, QStringLiteral("0.01"));
        QCOMPARE(demo.controls.at(1).label, QStringLiteral("速度"));
        QCOMPARE(demo.controls.at(1).unit, QStringLiteral("档"));
        QCOMPARE(demo.controls.at(1).initialValue, QStringLiteral("e_b"));
        QCOMPARE(demo.panels.size(), 4);
        QCOMPARE(demo.panels.at(2).title, QStringLiteral("一"));
        QVERIFY(demo.panels.at(2).direction == LayoutDirection::Horizontal && demo.panels.at(2).hasBorder);
        QVERIFY(demo.panels.at(3).isCollapsible && demo.panels.at(3).isCollapsed);
        QCOMPARE(demo.panels.at(3).items.size(), 3);
    }

    void everyTypeIsRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("stored");
        const auto addRow = [](const Pairing& pairing, const QString& pairs, const QString& items) {
            const QString range = QLatin1String(pairing.controlType) == QLatin1String("Slider_t") && items.isEmpty()
                ? QStringLiteral(" maxValue=\"1\"")
                : QString();
            const QString text = parts(parameter(type(pairing.parameterType) + range, pairs),
                control(QStringLiteral("xsi:type=\"lay:%1\" initValue=\"%2\" ")
                            .arg(QLatin1String(pairing.controlType), QLatin1String(pairing.text)),
                    items));
            QTest::addRow("%s in a %s: %s", pairing.parameterType, pairing.controlType, pairing.text)
                << text << QString::fromLatin1(pairing.stored);
        };
        for (const Pairing& pairing : Pairings)
            addRow(pairing, {}, {});
        const QString items =
            QStringLiteral("<lay:ListItem enumID=\"e_b\" uiRep=\"乙\"/><lay:ListItem enumID=\"e_a\" uiRep=\"甲\"/>");
        for (const Pairing& pairing : Lists) {
            const bool isNumber = QLatin1String(pairing.parameterType) == QLatin1String("Int_t");
            const QString pairs = QStringLiteral("<EnumPair enumID=\"e_a\" wireValue=\"%1\"/>"
                                                 "<EnumPair enumID=\"e_b\" wireValue=\"%2\" index=\"1\"/>")
                                      .arg(isNumber ? QStringLiteral("1") : QStringLiteral("A"),
                                          isNumber ? QStringLiteral("2") : QStringLiteral("B"));
            addRow(pairing, pairs, items);
        }
    }

    void everyTypeIsRead()
    {
        QFETCH(QString, text);
        QFETCH(QString, stored);
        const StrategyFile file = read(text);
        QCOMPARE(file.failure, Status());
        QCOMPARE(file.strategies.constFirst().remarks.refusal, Status());
        QCOMPARE(ControlValue::defaults(file.strategies.constFirst().definition).value(QStringLiteral("P")), stored);
    }

    void timeZonesAreKnown_data()
    {
        QTest::addColumn<bool>("isKnown");
        const auto rows = [](bool isKnown, std::initializer_list<const char*> zones) {
            for (const char* const zone : zones)
                QTest::newRow(zone) << isKnown;
        };
        rows(true,
            { "Asia/Shanghai", "America/New_York", "America/Argentina/San_Juan", "UTC", "Asia/Chongqing", "Asia/Harbin",
                "Asia/Kashgar", "America/Montreal", "America/Godthab", "Australia/Currie", "GMT", "US/Eastern",
                "Europe/Kiev", "EST5EDT", "Etc/GMT+8" });
        rows(false,
            { "Europe/Atlantis", "Asia", "Asia/", "asia/shanghai", "../Asia/Shanghai", "Asia/../UTC",
                "/usr/share/zoneinfo/UTC", "UTC+25:00", "\xE4\xB8\x8A\xE6\xB5\xB7" });
    }

    void timeZonesAreKnown()
    {
        QFETCH(bool, isKnown);
        const QString zone = QString::fromUtf8(QTest::currentDataTag());
        const StrategyFile file = read(
            StrategyTexts::strategy(parameter(type("UTCTimeOnly_t") + QStringLiteral(" localMktTz=\"%1\"").arg(zone))));
        QCOMPARE(file.strategies.value(0).remarks.refusal,
            isKnown ? Status() : StrategyRemarks::inLine(3, { Error::UnknownTimeZone, { zone } }));
    }

    void limitsOfTimesAreConvertedToTheZoneOfTheParameterOrItsClock_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("clock");
        QTest::addColumn<QStringList>("limits");
        const auto row = [](const char* name, const char* given, const char* clock, const char* low, const char* high) {
            QTest::newRow(name) << QString::fromLatin1(given) << QString::fromLatin1(clock)
                                << QStringList{ QString::fromLatin1(low), QString::fromLatin1(high) };
        };
        const char* const american = "xsi:type='TZTimeOnly_t' minValue='08:00:00-05:00' maxValue='16:00:00-05:00'";
        row("an American clock", american, "localMktTz='America/Bogota'", "08:00:00", "16:00:00");
        row("a Japanese clock", "xsi:type='TZTimeOnly_t' minValue='08:00:00+09:00'", "localMktTz='Asia/Tokyo'",
            "08:00:00", "");
        row("UTC and a Japanese clock", "xsi:type='UTCTimeOnly_t' minValue='00:30:00Z' maxValue='07:00:00Z'",
            "localMktTz='Asia/Tokyo'", "09:30:00", "16:00:00");
        row("the parameter's zone comes first",
            "xsi:type='UTCTimeOnly_t' localMktTz='Asia/Tokyo' minValue='00:30:00Z' maxValue='17:00:00'",
            "localMktTz='America/Bogota'", "09:30:00", "17:00:00");
        row("without zones", "xsi:type='UTCTimeOnly_t' minValue='01:30:00Z' maxValue='07:00:00Z'", "", "09:30:00",
            "15:00:00");
    }

    void limitsOfTimesAreConvertedToTheZoneOfTheParameterOrItsClock()
    {
        QFETCH(QString, given);
        QFETCH(QString, clock);
        QFETCH(QStringList, limits);
        const ReadStrategy strategy =
            read(parts(parameter(given), control(type("lay:Clock_t") + QLatin1Char(' ') + clock))).strategies.value(0);
        QCOMPARE(strategy.remarks.refusal, Status());
        const StrategyParameter& read = strategy.definition.parameters.constFirst();
        QCOMPARE(QStringList({ read.minValue, read.maxValue }), limits);
    }

    void whatTheSchemaAllowsIsRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("stored");
        const auto row = [](const char* name, const QString& given, const QString& shown, const char* stored) {
            QTest::newRow(name) << parts(given, shown) << QString::fromLatin1(stored);
        };
        const auto start = [](const char* kind, const char* value = "") {
            return control(type(kind) + QStringLiteral(" initValue=\"%1\"").arg(QLatin1String(value)));
        };
        const QString text = parameter(type("String_t"));
        const QString listed = parameter(type("Int_t"),
            QStringLiteral("<EnumPair enumID=\"one\" wireValue=\"1\"/><EnumPair enumID=\"none\" wireValue=\"{NULL}\"/>"
                           "<EnumPair enumID=\"1\" wireValue=\"10\"/>"));
        row("a label of a parameter", text, start("lay:Label_t", "x"), "x");
        row("a hidden id", listed, start("lay:HiddenField_t", "one"), "1");
        row("a hidden id that sends nothing", listed, start("lay:HiddenField_t", "none"), "");
        row("an id goes before a value", listed, start("lay:HiddenField_t", "1"), "10");
        row("a spinner over listed numbers", listed, start("lay:SingleSpinner_t", "one"), "1");
        row("a drop-down list without entries", text, start("lay:DropDownList_t"), "");
        row("a list without entries", text, start("lay:SingleSelectList_t"), "");
        row("radio buttons without entries", text, start("lay:RadioButtonList_t"), "");
        row("a slider of a text", text, start("lay:Slider_t", "1"), "1");
        row("limits finer than the precision",
            parameter(type("Float_t") + QStringLiteral(" precision=\"0\" minValue=\"-1.5\" maxValue=\"+1.5\"")),
            start("lay:SingleSpinner_t", "-.5"), "-1");
        const auto constant = [](const char* attributes) {
            return parameter(type("Boolean_t") + QString::fromLatin1(attributes));
        };
        row("a constant yes", constant(" constValue=\"Y\""), {}, "Y");
        row("a constant yes with another value", constant(" constValue=\"Y\" trueWireValue=\"1\""), {}, "1");
        row("a constant no with another value", constant(" constValue=\"N\" falseWireValue=\"0\""), {}, "0");
        row("a constant as it is sent", constant(" constValue=\"0\" falseWireValue=\"0\""), {}, "0");
        row("a constant of exchanged values", constant(" constValue=\"Y\" trueWireValue=\"N\" falseWireValue=\"Y\""),
            {}, "Y");
        row("a constant finer than the precision",
            parameter(type("Float_t") + QStringLiteral(" precision=\"1\" constValue=\"1.25\"")), {}, "1.3");
    }

    void whatTheSchemaAllowsIsRead()
    {
        QFETCH(QString, text);
        QFETCH(QString, stored);
        const ReadStrategy strategy = read(text).strategies.value(0);
        QCOMPARE(strategy.remarks.refusal, Status());
        QVERIFY(strategy.isUsable());
        QCOMPARE(ControlValue::defaults(strategy.definition).value(QStringLiteral("P")), stored);
    }

    /// Files as they are used: other prefixes, declarations inside, a byte order mark, schema locations.
    void theSameFileIsReadInOtherClothes()
    {
        const QByteArray dressed = bytesOf(QStringLiteral("prefixes.xml"));
        for (const QByteArray& bytes : { dressed, "\xEF\xBB\xBF" + dressed }) {
            const StrategyFile file = read(bytes);
            QCOMPARE(file.failure, Status());
            QCOMPARE(file.warnings.size(), 0);
            QCOMPARE(file.strategies.constFirst().remarks.refusal, Status());
            QCOMPARE(file.strategies.constFirst().remarks.warnings.size(), 0);
            const StrategyDefinition read = file.strategies.constFirst().definition;
            QCOMPARE(read.identifierTag, 5009);
            QCOMPARE(read.versionTag, 5010);
            QVERIFY(!read.parameters.constFirst().mutableOnReplace && read.parameters.constFirst().revertOnReplace);
            QCOMPARE(read.controls.constFirst().helpText, QStringLiteral("<b>help</b>"));
            QCOMPARE(read.controls.constFirst().stateRules.size(), 1);
        }
    }

    void everyFileOfTheFolderIsReadAsItShould_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("states");
        QTest::addColumn<int>("warnings");
        const QString offered = QStringLiteral("offered");
        const QString unused = QStringLiteral("not offered");
        QTest::newRow("every type and control") << QStringLiteral("controls.xml") << QStringList{ offered } << 0;
        QTest::newRow("every kind of rule") << QStringLiteral("rules.xml") << QStringList{ offered } << 0;
        QTest::newRow("harmless departures") << QStringLiteral("departures.xml") << QStringList{ offered } << 28;
        QTest::newRow("what a plan cannot use")
            << QStringLiteral("unusable.xml") << QStringList{ unused, unused, QStringLiteral("refused"), offered } << 5;
        QTest::newRow("no document") << QStringLiteral("refused.xml") << QStringList() << 0;
    }

    void everyFileOfTheFolderIsReadAsItShould()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, states);
        QFETCH(int, warnings);
        const StrategyFile read = StrategyTexts::read(bytesOf(file));
        QCOMPARE(static_cast<bool>(read.failure), !states.isEmpty());
        QStringList found;
        int warned = 0;
        for (const ReadStrategy& strategy : read.strategies) {
            found.append(StrategyReport::state(strategy));
            warned += strategy.remarks.warnings.size();
        }
        QCOMPARE(found, states);
        QCOMPARE(warned, warnings);
    }

    void moreThanTheLimitsIsRefused()
    {
        QString many;
        for (int i = 0; i <= StrategyLimits::MaxParts; ++i)
            many += QStringLiteral("<Strategy name=\"S%1\"/>\n").arg(i);
        const Status tooMany(Error::TooMany, { QStringLiteral("Strategy"), QStringLiteral("2000") });
        QCOMPARE(read(root(many)).failure, refused(2002, tooMany));

        const QString elements = QStringLiteral("<Description/>").repeated(StrategyLimits::MaxElements);
        QCOMPARE(
            read(strategy(elements)).failure, refused(3, { Error::TooManyElements, { QStringLiteral("100000") } }));

        const auto withAttributes = [](int count) {
            QString attributes;
            for (int i = 0; i < count; ++i)
                attributes += QStringLiteral(" a%1='\"'").arg(i);
            return root(QStringLiteral("<!-- = --><Strategy%1/>").arg(attributes));
        };
        QCOMPARE(read(withAttributes(50)).failure, Status());
        const Status tooManyAttributes(Error::TooManyAttributes, { QStringLiteral("50") });
        QCOMPARE(read(withAttributes(51)).failure, refused(2, tooManyAttributes));

        const QString fits = namedStrategy(QStringLiteral("A"));
        const auto padded = [&](qint64 size) {
            return fits + QString(static_cast<int>(size - fits.toUtf8().size()), QLatin1Char(' '));
        };
        QCOMPARE(read(padded(StrategyLimits::MaxSize)).failure, Status());
        const Status tooLarge(Error::FileTooLarge, { QStringLiteral("4194304") });
        QCOMPARE(read(padded(StrategyLimits::MaxSize + 1)).failure, unreadable(FileName, tooLarge));
    }

    void conditionsThatGrowByReferencesAreBounded()
    {
        // Each condition uses the one before twice: 2^60 comparisons, if they were counted one by one.
        QString edits = QStringLiteral("<val:Edit id=\"e0\" field=\"P\" operator=\"GT\" value=\"1\"/>");
        for (int i = 1; i < 60; ++i)
            edits += QStringLiteral("<val:Edit id=\"e%1\" logicOperator=\"XOR\"><val:EditRef id=\"e%2\"/><val:EditRef "
                                    "id=\"e%2\"/></val:Edit>")
                         .arg(i)
                         .arg(i - 1);
        const QString rule =
            QStringLiteral("<val:StrategyEdit errorMessage=\"m\"><val:EditRef id=\"e59\"/></val:StrategyEdit>");
        const StrategyFile file = read(parts(parameter(type("Int_t")) + edits, control(type("lay:TextField_t")), rule));
        QCOMPARE(file.strategies.constFirst().remarks.refusal, Status());
        const StrategyDefinition strategy = file.strategies.constFirst().definition;
        QCOMPARE(strategy.edits.size(), 60);
        QVERIFY(StrategyRules::firstBroken(strategy, { { QStringLiteral("P"), QStringLiteral("2") } }) != nullptr);

        QString many;
        for (int i = 0; i < 2100; ++i)
            many += QStringLiteral(
                "<val:StrategyEdit errorMessage=\"m\"><val:Edit field=\"P\" operator=\"EX\"/></val:StrategyEdit>");
        QCOMPARE(read(parts(parameter(type("Int_t")), control(type("lay:TextField_t")), many))
                     .strategies.constFirst()
                     .remarks.refusal,
            StrategyRemarks::inLine(2, Error::TooManyConditions));
    }

    void encodingsAreRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QString name = QStringLiteral("名");
        const QString text = root(QStringLiteral("<Strategy name=\"A\" uiRep=\"%1\"/>").arg(name));
        const auto declared = [](const char* encoding) {
            return "<?xml version=\"1.0\" encoding=\"" + QByteArray(encoding) + "\"?>";
        };
        QTest::newRow("none") << text.toUtf8();
        QTest::newRow("UTF-8") << declared("utf-8") + text.toUtf8();
        const QByteArray chinese("\xC3\xFB");
        QTest::newRow("GB18030") << declared("GB18030") + text.toUtf8().replace(name.toUtf8(), chinese);
        QTest::newRow("GBK in small letters") << declared("gbk") + text.toUtf8().replace(name.toUtf8(), chinese);
        const auto wide = [](const QString& from) {
            return QByteArray(reinterpret_cast<const char*>(from.utf16()), int(from.size()) * 2);
        };
        QTest::newRow("UTF-8 without its hyphen") << declared("UTF8") + text.toUtf8();
        QTest::newRow("UTF-16 declared in UTF-8") << declared("UTF-16") + text.toUtf8();
        QTest::newRow("a document type that declares nothing") << "<!DOCTYPE Strategies>\n" + text.toUtf8();
        QTest::newRow("UTF-16 with a byte order mark")
            << wide(QChar(QChar::ByteOrderMark) + QString::fromLatin1(declared("UTF-16")) + text);
        QTest::newRow("UTF-16 without a byte order mark") << wide(text);
    }

    void encodingsAreRead()
    {
        QFETCH(QByteArray, bytes);
        const StrategyFile file = read(bytes);
        QCOMPARE(file.failure, Status());
        QCOMPARE(file.strategies.constFirst().definition.alias, QStringLiteral("名"));
    }

    void bytesOfAnotherEncodingAreRefusedWithTheirLine()
    {
        const QByteArray text = root(QStringLiteral("<Strategy name=\"A\"\n uiRep=\"名\"/>")).toUtf8();
        const Status notUtf8(Error::InvalidEncoding, { QStringLiteral("UTF-8") });
        QCOMPARE(
            read(QByteArray(text).replace(QStringLiteral("名").toUtf8(), "\xC3\xFB")).failure, refused(3, notUtf8));
        QCOMPARE(
            read(QByteArray(text).replace(QStringLiteral("名").toUtf8(), "\xE5\x90")).failure, refused(3, notUtf8));
        QCOMPARE(read("<?xml version=\"1.0\" encoding=\"US-ASCII\"?>\n" + text).failure,
            refused(4, { Error::InvalidEncoding, { QStringLiteral("US-ASCII") } }));
        QCOMPARE(read("<?xml version=\"1.0\" encoding=\"UTF-7\"?>\n" + text).failure,
            refused(1, { Error::UnknownEncoding, { QStringLiteral("UTF-7") } }));
        QCOMPARE(read(QByteArray("\0\0\0", 3)).failure, refused(1, Error::FileIncomplete));
    }

    // All times within one run, with a wide margin: a quadratic step takes hundreds of times as long.
    void readingTakesTimeInProportionToTheSize()
    {
        const auto timeOf = [](const QString& text, bool isValid) {
            QElapsedTimer timer;
            timer.start();
            const StrategyFile file = read(text);
            return isValid == static_cast<bool>(file.failure) ? timer.nsecsElapsed() : -1;
        };
        const auto strategies = [](int count) {
            QString content;
            for (int i = 0; i < count; ++i) {
                content += QStringLiteral("<Strategy name=\"S%1\">\n").arg(i);
                for (int number = 0; number < 100; ++number)
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
        QCOMPARE(StrategyFile::read(folder.filePath(none)).failure, unreadable(none, Error::NotAFile));
        QCOMPARE(StrategyFile::read(folder.path()).failure.cause(), Status(Error::NotAFile));
    }

    void nestedEntitiesAreRefusedAtOnce()
    {
        QString entities = QStringLiteral("<!ENTITY e0 \"ha\">");
        for (int i = 1; i < 30; ++i)
            entities +=
                QStringLiteral("<!ENTITY e%1 \"%2\">").arg(i).arg(QStringLiteral("&e%1;").arg(i - 1).repeated(10));
        const QString text = QStringLiteral("<!DOCTYPE Strategies [%1]>\n<Strategies>&e29;</Strategies>").arg(entities);
        QCOMPARE(read(text).failure, refused(1, Error::DtdNotAllowed));

        const QString external =
            QStringLiteral("<!DOCTYPE s [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>\n<Strategies>&x;</Strategies>");
        QCOMPARE(read(external).failure, refused(1, Error::DtdNotAllowed));
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
            const StrategyFile read = StrategyTexts::read(bytes);
            const bool isWhole = read.failure && read.strategies.constFirst().isUsable();
            damaged += isWhole ? 0 : 1;
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
        const StrategyFile file =
            read(parts(parameter(attributes), control(QStringLiteral("xsi:type=\"lay:%1\"").arg(kind))));
        QCOMPARE(file.strategies.constFirst().remarks.refusal, Status());
        QCOMPARE(ParameterValue::check(file.strategies.constFirst().definition.parameters.constFirst(), value), status);
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
                QCOMPARE(ParameterValue::check(each, ControlValue::defaults(known).value(each.name)), Status());
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
