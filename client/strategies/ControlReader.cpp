#include "ControlReader.h"

#include "ElementReader.h"
#include "MarketTime.h"

#include <QMap>
#include <QRegularExpression>

namespace {

const QMap<QString, ControlType>& controlTypes()
{
    static const QMap<QString, ControlType> types{
        { QStringLiteral("TextField_t"), ControlType::TextField },
        { QStringLiteral("SingleSpinner_t"), ControlType::SingleSpinner },
        { QStringLiteral("DoubleSpinner_t"), ControlType::DoubleSpinner },
        { QStringLiteral("Slider_t"), ControlType::Slider },
        { QStringLiteral("DropDownList_t"), ControlType::DropDownList },
        { QStringLiteral("EditableDropDownList_t"), ControlType::EditableDropDownList },
        { QStringLiteral("SingleSelectList_t"), ControlType::SingleSelectList },
        { QStringLiteral("MultiSelectList_t"), ControlType::MultiSelectList },
        { QStringLiteral("CheckBox_t"), ControlType::CheckBox },
        { QStringLiteral("CheckBoxList_t"), ControlType::CheckBoxList },
        { QStringLiteral("RadioButton_t"), ControlType::RadioButton },
        { QStringLiteral("RadioButtonList_t"), ControlType::RadioButtonList },
        { QStringLiteral("Clock_t"), ControlType::Clock },
        { QStringLiteral("Label_t"), ControlType::Label },
        { QStringLiteral("HiddenField_t"), ControlType::HiddenField },
    };
    return types;
}

ControlType readType(ElementReader& reader)
{
    const StrategyElement& element = reader.element();
    if (element.type.isEmpty()) {
        reader.refuse({ Error::MissingAttribute, { element.name, QStringLiteral("xsi:type") } });
        return ControlType::TextField;
    }
    const QString completed = element.type + QStringLiteral("_t");
    const bool isExact = controlTypes().contains(element.type);
    if (!isExact && !controlTypes().contains(completed))
        reader.refuse({ Error::UnsupportedControlType, { element.type.left(64) } });
    else if (!isExact || element.isTypeInOddSpace)
        reader.warn({ Error::TypeNotStandard, { element.type.left(64) } });
    return controlTypes().value(isExact ? element.type : completed);
}

/// "显示数量（股）" is the label "显示数量" with the unit "股".
void splitUnit(StrategyControl& control)
{
    static const QRegularExpression form(QStringLiteral("^(.+)（([^（）]+)）$"));
    const QRegularExpressionMatch match = form.match(control.label);
    if (!match.hasMatch())
        return;
    control.label = match.captured(1);
    control.unit = match.captured(2);
}

void readInitialValue(StrategyControl& control, ElementReader& reader)
{
    control.initialValue = reader.text("initValue");
    const bool usesField =
        reader.choice("initPolicy", { QStringLiteral("UseValue"), QStringLiteral("UseFixField") }, 0) == 1;
    if (reader.has("initPolicy"))
        reader.expected(usesField ? "initFixField" : "initValue");
    const QString field = reader.text("initFixField");
    control.initFixField = usesField ? field : QString();
    if (control.type != ControlType::Clock) {
        reader.ignoreOfOtherType("initValueMode");
        return reader.ignoreOfOtherType("localMktTz");
    }
    control.isNowIfPassed = reader.number("initValueMode", 0, 1, 0) == 1;
    control.zone = reader.text("localMktTz").toUtf8();
    if (!MarketTime::isZone(control.zone))
        reader.refuse({ Error::UnknownTimeZone, { QString::fromUtf8(control.zone).left(64) } });
}

StepPolicy readPolicy(ElementReader& reader, const char* name)
{
    // The text of the standard also has Static, its schema has not.
    const QStringList policies{ QStringLiteral("Static"), QStringLiteral("LotSize"), QStringLiteral("Tick") };
    if (reader.has(name) && reader.text(name) == policies.constFirst())
        reader.warn({ Error::NameNotStandard, { QLatin1String(name), policies.constFirst() } });
    return static_cast<StepPolicy>(reader.choice(name, policies, 0));
}

void readSteps(StrategyControl& control, ElementReader& reader)
{
    if (control.type == ControlType::SingleSpinner || control.type == ControlType::Slider) {
        control.increment = reader.text("increment");
        control.stepPolicy = readPolicy(reader, "incrementPolicy");
    } else if (control.type == ControlType::DoubleSpinner) {
        control.increment = reader.text("innerIncrement");
        control.outerIncrement = reader.text("outerIncrement");
        control.stepPolicy = readPolicy(reader, "innerIncrementPolicy");
        control.outerStepPolicy = readPolicy(reader, "outerIncrementPolicy");
    }
    for (const char* const name : { "increment", "incrementPolicy", "innerIncrement", "innerIncrementPolicy",
             "outerIncrement", "outerIncrementPolicy" })
        reader.ignoreOfOtherType(name);
}

void readButton(StrategyControl& control, ElementReader& reader)
{
    if (control.isButton()) {
        control.checkedId = reader.checkedName("checkedEnumRef", reader.text("checkedEnumRef"));
        control.uncheckedId = reader.checkedName("uncheckedEnumRef", reader.text("uncheckedEnumRef"));
    }
    if (control.type == ControlType::RadioButton)
        control.radioGroup = reader.text("radioGroup");
    reader.refuseOfOtherType("checkedEnumRef");
    reader.refuseOfOtherType("uncheckedEnumRef");
    reader.ignoreOfOtherType("radioGroup");
}

void readDirection(StrategyControl& control, ElementReader& reader)
{
    if (control.type == ControlType::CheckBoxList || control.type == ControlType::RadioButtonList) {
        const QStringList directions{ QStringLiteral("VERTICAL"), QStringLiteral("HORIZONTAL") };
        control.direction = static_cast<LayoutDirection>(reader.choice("orientation", directions, 1));
    }
    reader.ignoreOfOtherType("orientation");
}

EnumeratedValue readListItem(const StrategyElement& element, bool isMultiple, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    EnumeratedValue item;
    item.id = reader.checkedName("enumID", reader.text("enumID"));
    item.text = reader.expected("uiRep").simplified();
    // A list without a parameter needs no ids. Several ids are separated by spaces.
    if (item.id.isEmpty())
        item.id = isMultiple ? QString(item.text).replace(QLatin1Char(' '), QChar::Nbsp) : item.text;
    if (item.text.isEmpty())
        item.text = item.id;
    reader.finish();
    for (const StrategyElement& child : element.children)
        ElementContents::refuseChild(child, remarks);
    return item;
}

void readChild(StrategyControl& control, const StrategyElement& child, StrategyRemarks& remarks)
{
    if (child.name == QLatin1String("ListItem"))
        control.items.append(readListItem(child, control.isMultiple(), remarks));
    else if (child.name == QLatin1String("HelpText"))
        control.helpText = ElementContents::textOf(child, remarks);
    else if (child.name != QLatin1String("StateRule"))
        ElementContents::refuseChild(child, remarks);
}

} // namespace

StrategyControl ControlReader::read(const StrategyElement& element, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    StrategyControl control;
    control.line = element.line;
    control.id = reader.name("ID");
    control.type = readType(reader);
    control.parameter = reader.checkedName("parameterRef", reader.text("parameterRef"));
    control.label = reader.text("label").simplified();
    control.tooltip = reader.text("tooltip").simplified();
    // Templates are plans, which are complete.
    reader.flag("disableForTemplate", false);
    splitUnit(control);
    readInitialValue(control, reader);
    readSteps(control, reader);
    readButton(control, reader);
    readDirection(control, reader);
    reader.finish();

    ElementContents::refuseText(element, remarks);
    ElementContents::checkPlaces(
        element, { QStringLiteral("StateRule"), QStringLiteral("HelpText"), QStringLiteral("ListItem") }, remarks);
    for (const StrategyElement& child : element.children)
        readChild(control, child, remarks);
    return control;
}
