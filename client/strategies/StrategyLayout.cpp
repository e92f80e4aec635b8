// The layout of a strategy: panels within panels, and the controls in them.
#include "StrategyReader.h"

#include <QRegularExpression>

using namespace StrategyVocabulary;

namespace {

const QMap<QString, ControlType>& controlTypes()
{
    static const QMap<QString, ControlType> types{
        { QStringLiteral("TextField_t"), ControlType::TextField },
        { QStringLiteral("SingleSpinner_t"), ControlType::SingleSpinner },
        { QStringLiteral("DoubleSpinner_t"), ControlType::DoubleSpinner },
        { QStringLiteral("DropDownList_t"), ControlType::DropDownList },
        { QStringLiteral("CheckBox_t"), ControlType::CheckBox },
        { QStringLiteral("Clock_t"), ControlType::Clock },
        { QStringLiteral("RadioButtonList_t"), ControlType::RadioButtonList },
    };
    return types;
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

} // namespace

void StrategyReader::readLayout(StrategyDefinition& strategy)
{
    attributes({});
    int panels = 0;
    readChildren({ { QStringLiteral("lay:StrategyPanel"), [&] {
                        if (++panels > 1)
                            return fail(Error::SecondPanel);
                        readPanel(strategy, {}, 1);
                    } } });
    if (!m_xml.hasError() && panels == 0)
        fail(Error::NoPanel);
}

void StrategyReader::readPanel(StrategyDefinition& strategy, const QString& section, int depth)
{
    if (depth > StrategyLimits::MaxPanelDepth)
        return fail({ Error::PanelsTooDeep, { QString::number(StrategyLimits::MaxPanelDepth) } });
    const QXmlStreamAttributes found =
        attributes({ QStringLiteral("title"), QStringLiteral("orientation"), QStringLiteral("collapsible") });
    requireValue(found, QStringLiteral("orientation"), QStringLiteral("VERTICAL"));
    requireValue(found, QStringLiteral("collapsible"), QStringLiteral("false"));
    const QString own = found.value(QLatin1String("title")).toString();
    const QString title = own.isEmpty() ? section : own;

    int controls = 0;
    int panels = 0;
    const auto either = [&](int& count, const std::function<void()>& readIt) {
        ++count;
        if (controls > 0 && panels > 0)
            return fail(Error::ControlsBesidePanels);
        readIt();
    };
    readChildren({ { QStringLiteral("lay:Control"), [&] { either(controls, [&] { readControl(strategy, title); }); } },
        { QStringLiteral("lay:StrategyPanel"),
            [&] { either(panels, [&] { readPanel(strategy, title, depth + 1); }); } } });
}

void StrategyReader::readControl(StrategyDefinition& strategy, const QString& section)
{
    const QXmlStreamAttributes found = attributes(
        { QStringLiteral("ID"), QStringLiteral("xsi:type"), QStringLiteral("label"), QStringLiteral("parameterRef"),
            QStringLiteral("initValue"), QStringLiteral("tooltip"), QStringLiteral("increment"),
            QStringLiteral("innerIncrement"), QStringLiteral("outerIncrement") },
        { QStringLiteral("ID"), QStringLiteral("xsi:type"), QStringLiteral("label"), QStringLiteral("parameterRef") });
    if (m_xml.hasError() || !hasRoom(strategy.controls, Error::TooManyControls))
        return;

    StrategyControl control;
    control.line = m_xml.lineNumber();
    control.id = identifier(found, QStringLiteral("ID"));
    control.parameter = found.value(QLatin1String("parameterRef")).toString();
    control.label = found.value(QLatin1String("label")).toString();
    control.tooltip = found.value(QLatin1String("tooltip")).toString();
    control.initialValue = found.value(QLatin1String("initValue")).toString();
    control.section = section;
    splitUnit(control);
    readControlKind(control, found);
    readChildren({ { QStringLiteral("lay:ListItem"), [&] { readListItem(control); } } });
    strategy.controls.append(control);
}

void StrategyReader::readControlKind(StrategyControl& control, const QXmlStreamAttributes& attributes)
{
    const QString type = typeName(attributes, Layout);
    if (!controlTypes().contains(type))
        return fail({ Error::UnsupportedControlType, { type } });
    control.type = controlTypes().value(type);

    const bool one = control.type == ControlType::SingleSpinner;
    const bool two = control.type == ControlType::DoubleSpinner;
    refuseForeign(attributes, type, one, { QStringLiteral("increment") });
    refuseForeign(attributes, type, two, { QStringLiteral("innerIncrement"), QStringLiteral("outerIncrement") });
    control.increment = attributes.value(two ? QLatin1String("innerIncrement") : QLatin1String("increment")).toString();
    control.outerIncrement = attributes.value(QLatin1String("outerIncrement")).toString();
}

void StrategyReader::readListItem(StrategyControl& control)
{
    const QStringList both{ QStringLiteral("enumID"), QStringLiteral("uiRep") };
    const QXmlStreamAttributes found = attributes(both, both);
    if (m_xml.hasError() || !hasRoom(control.items, Error::TooManyListItems))
        return;
    control.items.append({ identifier(found, both.at(0)), found.value(both.at(1)).toString() });
    readChildren({});
}
