#include "ParameterReader.h"

#include "ElementReader.h"
#include "MarketTime.h"
#include "ParameterTypes.h"
#include "ParameterValue.h"

namespace {

constexpr int MaxTag = 99999999;
constexpr int MaxPrecision = 10;

ParameterType readType(ElementReader& reader)
{
    const StrategyElement& element = reader.element();
    if (element.type.isEmpty())
        reader.refuse({ Error::MissingAttribute, { element.name, QStringLiteral("xsi:type") } });
    const ParameterTypeInfo* info = ParameterTypes::named(element.type);
    const ParameterTypeInfo* const completed = ParameterTypes::named(element.type + QStringLiteral("_t"));
    if (!info && !completed)
        reader.refuse({ Error::UnsupportedParameterType, { element.type.left(64) } });
    if (element.isTypeInOddSpace || (!info && completed))
        reader.warn({ Error::TypeNotStandard, { element.type.left(64) } });
    info = info ? info : completed;
    return info ? info->type : ParameterType::String;
}

/// A time in the time zone of the parameter; other texts as they are.
QString storedTime(const StrategyParameter& parameter, const QString& text)
{
    return MarketTime::converted(text, parameter.zone, parameter.zone).value_or(text);
}

/// Whether a time is written in another form than that of the standard.
bool isOddTime(const StrategyParameter& parameter, const QString& text)
{
    const std::optional<MarketTime::Written> written = MarketTime::read(text);
    return written && !written->isUsual && parameter.type != ParameterType::TzTimeOnly;
}

/// A number or a time as stored; other texts as they are.
QString storedForm(
    const StrategyParameter& parameter, ElementReader& reader, const char* attribute, const QString& text)
{
    if (text.isEmpty())
        return text;
    if (ParameterTypes::isNumber(parameter.type))
        return ParameterValue::isDecimal(text) ? text : ParameterValue::decimalOf(text).value_or(text);
    if (!ParameterTypes::isTime(parameter.type))
        return text;
    const QString time = storedTime(parameter, text);
    if (isOddTime(parameter, text))
        reader.warn({ Error::ValueTakenAs, { QLatin1String(attribute), text, time } });
    return time;
}

QString readValue(const StrategyParameter& parameter, ElementReader& reader, const char* attribute)
{
    return storedForm(parameter, reader, attribute, reader.text(attribute));
}

/// Times stay as they are written until their time zone is known, which may be that of a clock.
QString readLimit(const StrategyParameter& parameter, ElementReader& reader, const char* attribute)
{
    return ParameterTypes::isTime(parameter.type) ? reader.text(attribute) : readValue(parameter, reader, attribute);
}

void convertLimit(const StrategyParameter& parameter, QString& limit, const char* attribute, StrategyRemarks& remarks)
{
    const QString text = limit;
    limit = storedTime(parameter, text);
    if (isOddTime(parameter, text))
        remarks.warnTakenAs(parameter.line, attribute, text, limit);
}

void readZone(StrategyParameter& parameter, ElementReader& reader)
{
    if (!ParameterTypes::isTime(parameter.type))
        return reader.ignoreOfOtherType("localMktTz");
    parameter.zone = reader.text("localMktTz").toUtf8();
    if (!MarketTime::isZone(parameter.zone))
        reader.refuse({ Error::UnknownTimeZone, { QString::fromUtf8(parameter.zone).left(64) } });
}

void readLimits(StrategyParameter& parameter, ElementReader& reader)
{
    const ParameterTypeInfo& info = ParameterTypes::of(parameter.type);
    if (info.hasLimits || info.family == ParameterTypeInfo::Number) {
        parameter.minValue = readLimit(parameter, reader, "minValue");
        parameter.maxValue = readLimit(parameter, reader, "maxValue");
    }
    reader.refuseOfOtherType("minValue");
    reader.refuseOfOtherType("maxValue");
    parameter.isNonNegative = ParameterTypes::isNumber(parameter.type) && parameter.type != ParameterType::Int
        && parameter.type != ParameterType::Float && parameter.minValue.isEmpty();
    parameter.constValue = readValue(parameter, reader, "constValue");
    if (ParameterTypes::isDecimal(parameter.type))
        parameter.precision = reader.number("precision", 0, MaxPrecision, parameter.precision);
    reader.ignoreOfOtherType("precision");
    if (ParameterValue::isDecimal(parameter.constValue))
        parameter.constValue = ParameterValue::rounded(parameter.constValue, parameter.precision);
}

void readLengths(StrategyParameter& parameter, ElementReader& reader)
{
    const bool isText = parameter.type == ParameterType::String || parameter.type == ParameterType::Data
        || ParameterTypes::isList(parameter.type);
    if (isText) {
        parameter.minLength = reader.number("minLength", 0, StrategyLimits::MaxText, parameter.minLength);
        parameter.maxLength = reader.number("maxLength", 0, StrategyLimits::MaxText, parameter.maxLength);
    }
    reader.refuseOfOtherType("minLength");
    reader.refuseOfOtherType("maxLength");
}

/// A constant as it is sent: the standard writes it as Y or N, whatever is sent for them.
QString booleanConstant(const StrategyParameter& parameter, ElementReader& reader)
{
    const QString constant = parameter.constValue;
    if (constant == parameter.trueValue || constant == parameter.falseValue)
        return constant;
    if (constant == QLatin1String("Y") || constant == QLatin1String("N"))
        return constant == QLatin1String("Y") ? parameter.trueValue : parameter.falseValue;
    const bool isTrue = constant.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
    if (!isTrue && constant.compare(QLatin1String("false"), Qt::CaseInsensitive) != 0)
        return constant;
    const QString meant = isTrue ? parameter.trueValue : parameter.falseValue;
    reader.warn({ Error::ValueTakenAs, { QStringLiteral("constValue"), constant, meant } });
    return meant;
}

void readWire(StrategyParameter& parameter, ElementReader& reader)
{
    if (parameter.type == ParameterType::Boolean) {
        const QString yes = reader.text("trueWireValue");
        const QString no = reader.text("falseWireValue");
        parameter.trueValue = yes.isEmpty() ? parameter.trueValue : yes;
        parameter.falseValue = no.isEmpty() ? parameter.falseValue : no;
        if (parameter.trueValue == parameter.falseValue)
            reader.refuse(Error::EqualBooleanValues);
        parameter.constValue = booleanConstant(parameter, reader);
    }
    reader.refuseOfOtherType("trueWireValue");
    reader.refuseOfOtherType("falseWireValue");
    if (parameter.type == ParameterType::Percentage)
        parameter.multiplyBy100 = reader.flag("multiplyBy100", false);
    reader.refuseOfOtherType("multiplyBy100");
    if (ParameterTypes::isList(parameter.type))
        parameter.invertOnWire = reader.flag("invertOnWire", false);
    reader.refuseOfOtherType("invertOnWire");
}

void readEnumPair(StrategyParameter& parameter, const StrategyElement& element, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    EnumeratedValue value;
    value.id = reader.name("enumID");
    if (!reader.has("wireValue"))
        reader.refuse({ Error::MissingAttribute, { element.name, QStringLiteral("wireValue") } });
    value.text = readValue(parameter, reader, "wireValue");
    value.text = value.text == NullValue ? QString() : value.text;
    // An order of the values, which the standard ignores.
    reader.text("index");
    reader.finish();
    for (const StrategyElement& child : element.children) {
        if (child.name == QLatin1String("Description"))
            ElementContents::textOf(child, remarks);
        else
            ElementContents::refuseChild(child, remarks);
    }
    parameter.values.append(value);
}

/// FIX fields that the plan itself fills in.
bool isFieldOfPlan(int tag)
{
    static const QList<int> tags{ 1, 11, 38, 40, 44, 54, 55, 60 };
    return tags.contains(tag);
}

void hinder(const StrategyParameter& parameter, ElementReader& reader)
{
    if (ParameterTypes::hasDate(parameter.type))
        reader.hinder({ Error::ParameterWithDate, { parameter.name, reader.element().type } });
    if (parameter.type == ParameterType::Data)
        reader.hinder({ Error::ParameterOfData, { parameter.name } });
    if (isFieldOfPlan(parameter.fixTag))
        reader.hinder({ Error::ParameterOfPlan, { parameter.name, QString::number(parameter.fixTag) } });
    if (parameter.invertOnWire && parameter.values.isEmpty())
        reader.hinder({ Error::InvertedWithoutValues, { parameter.name } });
}

} // namespace

StrategyParameter ParameterReader::read(const StrategyElement& element, StrategyRemarks& remarks)
{
    ElementReader reader(element, remarks);
    StrategyParameter parameter;
    parameter.line = element.line;
    parameter.name = reader.name("name");
    parameter.type = readType(reader);
    parameter.fixTag = reader.number("fixTag", 1, MaxTag, 0);
    parameter.required = reader.choice("use", { QStringLiteral("optional"), QStringLiteral("required") }, 0) == 1;
    parameter.mutableOnReplace = reader.flag("mutableOnCxlRpl", true);
    parameter.revertOnReplace = reader.flag("revertOnCxlRpl", false);
    parameter.definedByFix = reader.flag("definedByFIX", false);
    readZone(parameter, reader);
    readLimits(parameter, reader);
    readLengths(parameter, reader);
    readWire(parameter, reader);
    reader.finish();

    ElementContents::refuseText(element, remarks);
    ElementContents::checkPlaces(element, { QStringLiteral("Description"), QStringLiteral("EnumPair") }, remarks);
    for (const StrategyElement& child : element.children) {
        if (child.name == QLatin1String("EnumPair"))
            readEnumPair(parameter, child, remarks);
        else if (child.name == QLatin1String("Description"))
            ElementContents::textOf(child, remarks);
        else
            ElementContents::refuseChild(child, remarks);
    }
    hinder(parameter, reader);
    return parameter;
}

void ParameterReader::convertLimits(StrategyParameter& parameter, StrategyRemarks& remarks)
{
    if (!ParameterTypes::isTime(parameter.type))
        return;
    convertLimit(parameter, parameter.minValue, "minValue", remarks);
    convertLimit(parameter, parameter.maxValue, "maxValue", remarks);
}
