#include "EditReader.h"

#include "ControlValue.h"
#include "ElementReader.h"
#include "MarketTime.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"

#include <QRegularExpression>

namespace {

constexpr int Absent = -1;
constexpr int Nothing = -1;
/// Longest chain of references.
constexpr int MaxReferences = 64;

const QStringList Comparisons{ QStringLiteral("LT"), QStringLiteral("LE"), QStringLiteral("GT"), QStringLiteral("GE"),
    QStringLiteral("EQ"), QStringLiteral("NE"), QStringLiteral("EX"), QStringLiteral("NX") };
const QStringList Combinations{ QStringLiteral("AND"), QStringLiteral("OR"), QStringLiteral("XOR"),
    QStringLiteral("NOT") };

bool isEdit(const StrategyElement& element)
{
    return element.name == QLatin1String("Edit") || element.name == QLatin1String("EditRef");
}

ParameterTypeInfo::Family familyOf(const StrategyParameter& parameter)
{
    const ParameterTypeInfo::Family family = ParameterTypes::of(parameter.type).family;
    return family == ParameterTypeInfo::List ? ParameterTypeInfo::Text : family;
}

/// Texts may contain a value of every type.
bool areComparable(const StrategyParameter& left, const StrategyParameter& right)
{
    const ParameterTypeInfo::Family one = familyOf(left);
    const ParameterTypeInfo::Family other = familyOf(right);
    return one == other || one == ParameterTypeInfo::Text || other == ParameterTypeInfo::Text;
}

bool isUtc(ParameterType type)
{
    return type == ParameterType::UtcTimeOnly || type == ParameterType::UtcTimestamp;
}

/// The time zone of a parameter that is compared with a time. A text has the time as in the message.
QByteArray zoneBeside(const StrategyParameter& parameter, const StrategyParameter& other)
{
    if (ParameterTypes::isTime(parameter.type))
        return MarketTime::withoutMarket(parameter.zone);
    return isUtc(other.type) ? QByteArrayLiteral("UTC") : MarketTime::withoutMarket(other.zone);
}

/// How two sides are compared that are usually compared in their own ways.
ComparedAs comparedAs(ComparedAs left, ComparedAs right)
{
    if (left == right)
        return left;
    if (left == ComparedAs::Time || right == ComparedAs::Time)
        return ComparedAs::Time;
    return left == ComparedAs::Set || right == ComparedAs::Set ? ComparedAs::Set : ComparedAs::NumberOrText;
}

ComparedAs comparedAs(const StrategyParameter& parameter)
{
    if (ParameterTypes::isNumber(parameter.type))
        return ComparedAs::Number;
    if (ParameterTypes::isTime(parameter.type))
        return ComparedAs::Time;
    return ParameterTypes::isList(parameter.type) ? ComparedAs::Set : ComparedAs::Text;
}

ComparedAs comparedAs(const StrategyDefinition& strategy, const StrategyControl& control)
{
    const StrategyParameter* const parameter = ControlValue::parameterOf(strategy, control);
    if (ControlValue::isNumber(control, parameter))
        return ComparedAs::Number;
    if (control.isMultiple())
        return ComparedAs::Set;
    if (control.choosesItems() || control.isButton())
        return ComparedAs::Text;
    if (control.type == ControlType::Clock || (parameter && ParameterTypes::isTime(parameter->type)))
        return ComparedAs::Time;
    // A text without a type may be a number.
    return parameter ? ComparedAs::Text : ComparedAs::NumberOrText;
}

/// The values of one or several ids.
std::optional<QString> valuesOfIds(const StrategyParameter& parameter, const QString& text)
{
    const bool isList = ParameterTypes::isList(parameter.type) || parameter.holdsSeveral;
    const QStringList ids = isList ? text.simplified().split(QLatin1Char(' ')) : QStringList{ text };
    QStringList values;
    for (const QString& id : ids) {
        const EnumeratedValue* const value = parameter.valueOf(id);
        if (!value)
            return std::nullopt;
        values.append(value->text);
    }
    return values.join(QLatin1Char(' '));
}

} // namespace

EditReader::EditReader(
    const QHash<QString, const StrategyElement*>& named, StrategyDefinition& strategy, StrategyRemarks& remarks)
    : m_named(named)
    , m_strategy(strategy)
    , m_remarks(remarks)
{
}

int EditReader::readRule(const StrategyElement& rule, Fields fields)
{
    int condition = Nothing;
    bool isFirst = true;
    ElementContents::refuseText(rule, m_remarks);
    ElementContents::checkPlaces(rule, { QStringLiteral("Description"), QStringLiteral("Edit") }, m_remarks);
    for (const StrategyElement& child : rule.children) {
        if (child.name == QLatin1String("Description")) {
            ElementContents::textOf(child, m_remarks);
        } else if (!isEdit(child)) {
            ElementContents::refuseChild(child, m_remarks);
        } else if (!isFirst) {
            m_remarks.refuse(child.line, { Error::SecondComparison, { rule.name } });
        } else {
            isFirst = false;
            condition = readAny(child, fields);
        }
    }
    if (isFirst)
        m_remarks.refuse(rule.line, { Error::RuleWithoutComparison, { rule.name } });
    return condition;
}

int EditReader::readAny(const StrategyElement& element, Fields fields)
{
    return element.name == QLatin1String("Edit") ? readEdit(element, fields) : readReference(element, fields);
}

int EditReader::readReference(const StrategyElement& element, Fields fields)
{
    ElementReader reader(element, m_remarks);
    const QString id = reader.required("id");
    reader.finish();
    for (const StrategyElement& child : element.children)
        ElementContents::refuseChild(child, m_remarks);
    if (const auto known = m_known[fields].constFind(id); known != m_known[fields].constEnd())
        return known->edit < 0 ? leaveOut(element, known->field) : known->edit;
    const StrategyElement* const target = m_named.value(id);
    if (!target)
        reader.refuse({ m_named.contains(id) ? Error::DuplicateEdit : Error::UnknownEdit, { id.left(64) } });
    else if (m_open.contains(id))
        reader.refuse({ Error::EditCycle, { id.left(64) } });
    else if (m_open.size() >= MaxReferences)
        reader.refuse({ Error::ElementsTooDeep, { QString::number(MaxReferences) } });
    if (!m_remarks.refusal)
        return Nothing;
    m_open.append(id);
    const int index = readEdit(*target, fields);
    m_open.removeLast();
    m_known[fields].insert(id, { index, m_unknownField });
    return index;
}

int EditReader::readEdit(const StrategyElement& element, Fields fields)
{
    ElementReader reader(element, m_remarks);
    reader.text("id");
    reader.text("field");
    reader.text("field2");
    reader.text("value");
    const int comparison = reader.choice("operator", Comparisons, Absent);
    const int combination = reader.choice("logicOperator", Combinations, Absent);
    reader.finish();
    ElementContents::refuseText(element, m_remarks);
    if (!m_remarks.refusal)
        return Nothing;
    if (comparison != Absent && combination != Absent)
        reader.refuse(Error::EditWithTwoOperators);
    else if (combination != Absent)
        return readCombination(
            element, static_cast<EditOperator>(static_cast<int>(EditOperator::And) + combination), fields);
    else if (comparison != Absent)
        return readComparison(element, static_cast<EditOperator>(comparison), fields);
    else
        reader.refuse(Error::EditWithoutOperator);
    return Nothing;
}

int EditReader::readCombination(const StrategyElement& element, EditOperator combination, Fields fields)
{
    StrategyEdit edit;
    edit.comparison = combination;
    for (const char* const name : { "field", "field2", "value" }) {
        if (ElementReader(element, m_remarks).has(name))
            m_remarks.refuse(element.line, { Error::EditFieldOfCombination, { QLatin1String(name) } });
    }
    for (const StrategyElement& child : element.children) {
        if (isEdit(child))
            edit.operands.append(readAny(child, fields));
        else if (child.name == QLatin1String("Description"))
            ElementContents::textOf(child, m_remarks);
        else
            ElementContents::refuseChild(child, m_remarks);
    }
    if (edit.operands.isEmpty())
        m_remarks.refuse(element.line, Error::EditWithoutOperands);
    // The standard does not say what the opposite of several conditions is.
    if (combination == EditOperator::Not && edit.operands.size() > 1)
        m_remarks.hinder(element.line, Error::NotOfSeveral);
    return edit.operands.contains(Nothing) ? Nothing : append(edit);
}

int EditReader::readComparison(const StrategyElement& element, EditOperator comparison, Fields fields)
{
    ElementReader reader(element, m_remarks);
    for (const StrategyElement& child : element.children) {
        if (child.name == QLatin1String("Description"))
            ElementContents::textOf(child, m_remarks);
        else
            ElementContents::refuseChild(child, m_remarks);
    }
    StrategyEdit edit;
    edit.comparison = comparison;
    edit.field = fieldIndex(element, reader.required("field"), fields);
    const QString otherField = reader.text("field2");
    if (edit.field < 0)
        return Nothing;
    if (edit.comparison == EditOperator::Exists || edit.comparison == EditOperator::Missing)
        return append(edit);
    if (otherField.isEmpty() == !reader.has("value"))
        reader.refuse(otherField.isEmpty() ? Error::ComparisonWithoutOperand : Error::ComparisonWithTwoOperands);
    else if (otherField.isEmpty())
        takeOperand(edit, element, reader.text("value"), fields);
    else if (!takeOtherField(edit, element, otherField, fields))
        return Nothing;
    return m_remarks.refusal ? append(edit) : Nothing;
}

int EditReader::fieldIndex(const StrategyElement& element, const QString& name, Fields fields)
{
    if (name.isEmpty())
        return Nothing;
    const int index = fields == Parameters ? m_strategy.parameterIndex(name) : m_strategy.controlIndex(name);
    if (index >= 0)
        return index;
    if (fields == Parameters && name.startsWith(QLatin1String("FIX_")))
        return leaveOut(element, name);
    m_remarks.refuse(element.line,
        { fields == Parameters ? Error::RuleWithoutParameter : Error::RuleWithoutControl, { name.left(64) } });
    return Nothing;
}

/// The standard wants a rule to be left out if the client does not know a field of it.
int EditReader::leaveOut(const StrategyElement& element, const QString& field)
{
    m_unknownField = field;
    m_remarks.warn(element.line, { Error::RuleSkipped, { field.left(64) } });
    return Nothing;
}

void EditReader::takeOperand(StrategyEdit& edit, const StrategyElement& element, const QString& text, Fields fields)
{
    if (text.isEmpty() || text == NullValue) {
        if (edit.comparison == EditOperator::Equal)
            edit.comparison = EditOperator::Missing;
        else if (edit.comparison == EditOperator::NotEqual)
            edit.comparison = EditOperator::Exists;
        else
            m_remarks.refuse(element.line, Error::ComparisonWithoutOperand);
        return;
    }
    edit.as = fields == Parameters ? comparedAs(m_strategy.parameters.at(edit.field))
                                   : comparedAs(m_strategy, m_strategy.controls.at(edit.field));
    // The value is read in the form and the time zone of the field.
    edit.as = edit.as == ComparedAs::Time ? ComparedAs::Text : edit.as;
    const Result<QString> value = readValue(element, edit, text, fields);
    if (value) {
        edit.value = *value;
        return;
    }
    const QString name =
        fields == Parameters ? m_strategy.parameters.at(edit.field).name : m_strategy.controls.at(edit.field).id;
    m_remarks.refuse(element.line, { Error::InvalidRuleValue, { name, text.left(64) }, value.status() });
}

bool EditReader::takeOtherField(StrategyEdit& edit, const StrategyElement& element, const QString& name, Fields fields)
{
    edit.otherField = fieldIndex(element, name, fields);
    if (edit.otherField < 0)
        return false;
    if (fields == Controls)
        compareControls(edit);
    else
        compareParameters(edit, element);
    return true;
}

void EditReader::compareControls(StrategyEdit& edit) const
{
    const StrategyControl& left = m_strategy.controls.at(edit.field);
    const StrategyControl& right = m_strategy.controls.at(edit.otherField);
    const ComparedAs one = comparedAs(m_strategy, left);
    const ComparedAs other = comparedAs(m_strategy, right);
    const auto zoneOf = [this](const StrategyControl& control) {
        return MarketTime::withoutMarket(ControlValue::zoneOf(control, ControlValue::parameterOf(m_strategy, control)));
    };
    edit.as = comparedAs(one, other);
    edit.zone = zoneOf(one == ComparedAs::Time ? left : right);
    edit.otherZone = zoneOf(other == ComparedAs::Time ? right : left);
}

void EditReader::compareParameters(StrategyEdit& edit, const StrategyElement& element)
{
    const StrategyParameter& left = m_strategy.parameters.at(edit.field);
    const StrategyParameter& right = m_strategy.parameters.at(edit.otherField);
    edit.as = comparedAs(comparedAs(left), comparedAs(right));
    edit.zone = zoneBeside(left, right);
    edit.otherZone = zoneBeside(right, left);
    if (!areComparable(left, right))
        m_remarks.refuse(element.line, { Error::RuleOfOtherTypes, { left.name, right.name } });
}

Result<QString> EditReader::readValue(
    const StrategyElement& element, const StrategyEdit& edit, const QString& text, Fields fields)
{
    if (fields == Parameters)
        return parameterValue(element, m_strategy.parameters.at(edit.field), text);
    const StrategyControl& control = m_strategy.controls.at(edit.field);
    const StrategyParameter* const parameter = ControlValue::parameterOf(m_strategy, control);
    const QString meant = ControlValue::meantBy(control, parameter, text);
    m_remarks.warnTakenAs(element.line, "value", text, meant);
    return ControlValue::read(control, parameter, meant);
}

// Values are those of the message; the stored form of percentages and of times in UTC is another.
Result<QString> EditReader::parameterValue(
    const StrategyElement& element, const StrategyParameter& parameter, const QString& text)
{
    const auto taken = [&](const QString& value) {
        m_remarks.warnTakenAs(element.line, "value", text, value);
        return value;
    };
    if (const Status status = ParameterValue::check(parameter, text); !status && !parameter.values.isEmpty()) {
        if (const std::optional<QString> value = valuesOfIds(parameter, text))
            return taken(*value);
        if (!ParameterTypes::isNumber(parameter.type))
            return status;
    }
    if (parameter.type == ParameterType::Boolean && parameter.values.isEmpty()) {
        const QString word = text.toLower();
        if (word == QLatin1String("true") || word == QLatin1String("false"))
            return taken(word == QLatin1String("true") ? parameter.trueValue : parameter.falseValue);
        return text == parameter.trueValue || text == parameter.falseValue ? Result<QString>(text)
                                                                           : Error::ValueNotListed;
    }
    if (ParameterTypes::isNumber(parameter.type)) {
        const std::optional<QString> number = ParameterValue::decimalOf(text);
        if (!number)
            return Error::ValueNotNumber;
        return parameter.multiplyBy100 ? ParameterValue::shiftPoint(*number, -2) : *number;
    }
    if (!ParameterTypes::isTime(parameter.type))
        return text;
    static const QRegularExpression date(QStringLiteral("^[0-9]{8}-"));
    const std::optional<MarketTime::Written> written = MarketTime::read(QString(text).remove(date));
    if (!written)
        return Error::ValueNotTime;
    if (parameter.type == ParameterType::UtcTimeOnly || parameter.type == ParameterType::UtcTimestamp)
        return MarketTime::toText(
            MarketTime::convertOffset(written->time, written->offset.value_or(0), parameter.zone));
    return MarketTime::toText(
        written->offset ? MarketTime::convertOffset(written->time, *written->offset, parameter.zone) : written->time);
}

int EditReader::append(const StrategyEdit& edit)
{
    if (!m_remarks.refusal)
        return Nothing;
    m_strategy.edits.append(edit);
    return m_strategy.edits.size() - 1;
}
