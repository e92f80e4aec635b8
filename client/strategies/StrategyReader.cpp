#include "StrategyReader.h"

#include "ParameterValue.h"

#include <optional>

using namespace StrategyVocabulary;

namespace {

constexpr int MaxTag = 99999999;
constexpr int MaxPrecision = 10;

const QMap<QString, ParameterType>& parameterTypes()
{
    static const QMap<QString, ParameterType> types{
        { QStringLiteral("Int_t"), ParameterType::Int },
        { QStringLiteral("Float_t"), ParameterType::Float },
        { QStringLiteral("Qty_t"), ParameterType::Qty },
        { QStringLiteral("Price_t"), ParameterType::Price },
        { QStringLiteral("Amt_t"), ParameterType::Amount },
        { QStringLiteral("Percentage_t"), ParameterType::Percentage },
        { QStringLiteral("Boolean_t"), ParameterType::Boolean },
        { QStringLiteral("String_t"), ParameterType::String },
        { QStringLiteral("Char_t"), ParameterType::Char },
        { QStringLiteral("LocalMktTime_t"), ParameterType::LocalTime },
    };
    return types;
}

const QMap<QString, RuleOperator>& ruleOperators()
{
    static const QMap<QString, RuleOperator> operators{
        { QStringLiteral("LT"), RuleOperator::Less },
        { QStringLiteral("LE"), RuleOperator::LessOrEqual },
        { QStringLiteral("GT"), RuleOperator::Greater },
        { QStringLiteral("GE"), RuleOperator::GreaterOrEqual },
        { QStringLiteral("EQ"), RuleOperator::Equal },
        { QStringLiteral("NE"), RuleOperator::NotEqual },
    };
    return operators;
}

/// A default is written in the control's terms: an enumID, "true" or "false", otherwise the value.
std::optional<QString> defaultValue(const StrategyControl& control, const StrategyParameter& parameter)
{
    if (control.initialValue.isEmpty())
        return QString();
    if (control.type == ControlType::CheckBox) {
        if (control.initialValue == QLatin1String("true"))
            return parameter.trueValue;
        return control.initialValue == QLatin1String("false") ? std::optional(parameter.falseValue) : std::nullopt;
    }
    if (control.type != ControlType::DropDownList && control.type != ControlType::RadioButtonList)
        return control.initialValue;
    for (const EnumeratedValue& value : parameter.values) {
        if (value.id == control.initialValue)
            return value.text;
    }
    return std::nullopt;
}

} // namespace

StrategyReader::StrategyReader(const QByteArray& bytes, const QString& name)
    : m_xml(bytes)
    , m_name(name)
{
}

Result<QList<StrategyDefinition>> StrategyReader::read()
{
    readRoot();
    while (!m_xml.atEnd()) {
        m_xml.readNext();
        refuseOther();
    }
    if (m_status && m_xml.hasError())
        m_status = StrategyChecks::errorAt(m_xml.lineNumber(), parserError());
    if (!m_status)
        return Status(Error::StrategyFileRefused, { m_name }, m_status);
    return m_strategies;
}

void StrategyReader::readRoot()
{
    while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::StartElement) {
        if (m_xml.isStartDocument())
            checkEncoding();
        refuseOther();
    }
    if (m_xml.hasError())
        return;
    if (elementKey() != QLatin1String("Strategies"))
        return fail({ Error::WrongRoot, { m_xml.qualifiedName().toString() } });
    readNamespaces();
    readStrategies();
}

void StrategyReader::checkEncoding()
{
    const auto encoding = m_xml.documentEncoding();
    if (!encoding.isEmpty() && encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) != 0)
        fail(Error::NotUtf8);
}

void StrategyReader::readNamespaces()
{
    const QXmlStreamNamespaceDeclarations declarations = m_xml.namespaceDeclarations();
    for (const QXmlStreamNamespaceDeclaration& declaration : declarations)
        m_prefixes.insert(declaration.prefix().toString(), declaration.namespaceUri().toString());
}

void StrategyReader::readStrategies()
{
    static const QStringList known{ QStringLiteral("strategyIdentifierTag"), QStringLiteral("versionIdentifierTag"),
        QStringLiteral("tag957Support"), QStringLiteral("xsi:schemaLocation") };
    const QXmlStreamAttributes found = attributes(known);
    number(found, known.at(0), 1, MaxTag, 0);
    number(found, known.at(1), 1, MaxTag, 0);
    flag(found, known.at(2), false);

    QString description;
    readChildren({ { QStringLiteral("Description"), [&] { readDescription(description); } },
        { QStringLiteral("Strategy"), [this] { readStrategy(); } } });
    if (!m_xml.hasError() && m_strategies.isEmpty())
        fail(Error::NoStrategy);
}

void StrategyReader::readStrategy()
{
    const QXmlStreamAttributes found =
        attributes({ QStringLiteral("name"), QStringLiteral("uiRep"), QStringLiteral("version"),
                       QStringLiteral("providerID"), QStringLiteral("wireValue"), QStringLiteral("fixMsgType") },
            { QStringLiteral("name") });
    StrategyDefinition strategy;
    strategy.line = m_xml.lineNumber();
    strategy.name = identifier(found, QStringLiteral("name"));
    strategy.alias = found.value(QLatin1String("uiRep")).toString();
    strategy.version = found.value(QLatin1String("version")).toString();
    strategy.provider = found.value(QLatin1String("providerID")).toString();
    strategy.wireValue = found.value(QLatin1String("wireValue")).toString();
    requireValue(found, QStringLiteral("fixMsgType"), QStringLiteral("D"));
    if (strategy.alias.isEmpty())
        strategy.alias = strategy.name;
    if (strategy.wireValue.isEmpty())
        strategy.wireValue = strategy.name;

    int layouts = 0;
    readChildren({ { QStringLiteral("Description"), [&] { readDescription(strategy.description); } },
        { QStringLiteral("Parameter"), [&] { readParameter(strategy); } },
        { QStringLiteral("val:StrategyEdit"), [&] { readRule(strategy); } },
        { QStringLiteral("lay:StrategyLayout"), [&] {
             if (++layouts > 1)
                 return fail({ Error::SecondLayout, { strategy.name } });
             readLayout(strategy);
         } } });
    finishStrategy(strategy);
}

void StrategyReader::finishStrategy(StrategyDefinition& strategy)
{
    if (m_xml.hasError() || !hasRoom(m_strategies, Error::TooManyStrategies))
        return;
    if (m_strategyNames.contains(strategy.name))
        return fail({ Error::DuplicateStrategy, { strategy.name } }, strategy.line);
    // Controls may precede their parameters, so their defaults are converted last.
    for (StrategyControl& control : strategy.controls) {
        const StrategyParameter* const parameter = strategy.parameter(control.parameter);
        const std::optional<QString> value = parameter ? defaultValue(control, *parameter) : QString();
        if (!value)
            return fail(
                { Error::InvalidDefault, { control.id, control.initialValue }, Error::ValueNotListed }, control.line);
        if (parameter)
            control.initialValue = *value;
    }
    if (Status status = StrategyChecks::check(strategy); !status)
        return stop(status);
    m_strategyNames.insert(strategy.name);
    m_strategies.append(strategy);
}

void StrategyReader::readDescription(QString& description)
{
    attributes({});
    while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::EndElement) {
        if (m_xml.isStartElement())
            return fail({ Error::ElementInDescription, { m_xml.qualifiedName().toString() } });
        if (m_xml.isCharacters())
            description += m_xml.text();
        else
            refuseOther();
        if (description.size() > StrategyLimits::MaxText)
            return fail({ Error::DescriptionTooLong, { QString::number(StrategyLimits::MaxText) } });
    }
    description = description.simplified();
}

void StrategyReader::readParameter(StrategyDefinition& strategy)
{
    const QXmlStreamAttributes found =
        attributes({ QStringLiteral("name"), QStringLiteral("xsi:type"), QStringLiteral("fixTag"),
                       QStringLiteral("use"), QStringLiteral("minValue"), QStringLiteral("maxValue"),
                       QStringLiteral("constValue"), QStringLiteral("precision"), QStringLiteral("maxLength"),
                       QStringLiteral("trueWireValue"), QStringLiteral("falseWireValue") },
            { QStringLiteral("name"), QStringLiteral("xsi:type") });
    if (m_xml.hasError() || !hasRoom(strategy.parameters, Error::TooManyParameters))
        return;

    StrategyParameter parameter;
    parameter.line = m_xml.lineNumber();
    parameter.name = identifier(found, QStringLiteral("name"));
    readParameterKind(parameter, found);
    parameter.fixTag = number(found, QStringLiteral("fixTag"), 1, MaxTag, 0);
    parameter.minValue = found.value(QLatin1String("minValue")).toString();
    parameter.maxValue = found.value(QLatin1String("maxValue")).toString();
    parameter.constValue = found.value(QLatin1String("constValue")).toString();

    QString description;
    readChildren({ { QStringLiteral("Description"), [&] { readDescription(description); } },
        { QStringLiteral("EnumPair"), [&] { readEnumPair(parameter); } } });
    strategy.parameters.append(parameter);
}

void StrategyReader::readParameterKind(StrategyParameter& parameter, const QXmlStreamAttributes& attributes)
{
    const QString type = typeName(attributes, Core);
    if (type == QLatin1String("UTCTimestamp_t"))
        return fail(Error::TimeWithDate);
    if (!parameterTypes().contains(type))
        return fail({ Error::UnsupportedParameterType, { type } });
    parameter.type = parameterTypes().value(type);

    const QString use = attributes.value(QLatin1String("use")).toString();
    parameter.required = use == QLatin1String("required");
    if (!use.isEmpty() && !parameter.required && use != QLatin1String("optional"))
        return fail({ Error::InvalidUse, { use } });

    const bool decimal = ParameterValue::isNumber(parameter.type) && parameter.type != ParameterType::Int;
    const bool boolean = parameter.type == ParameterType::Boolean;
    refuseForeign(attributes, type, decimal, { QStringLiteral("precision") });
    refuseForeign(attributes, type, parameter.type == ParameterType::String, { QStringLiteral("maxLength") });
    refuseForeign(attributes, type, boolean, { QStringLiteral("trueWireValue"), QStringLiteral("falseWireValue") });
    readParameterText(parameter, attributes);
}

void StrategyReader::readParameterText(StrategyParameter& parameter, const QXmlStreamAttributes& attributes)
{
    parameter.precision = number(attributes, QStringLiteral("precision"), 0, MaxPrecision, parameter.precision);
    parameter.maxLength =
        number(attributes, QStringLiteral("maxLength"), 1, StrategyLimits::MaxText, parameter.maxLength);
    const QString yes = attributes.value(QLatin1String("trueWireValue")).toString();
    const QString no = attributes.value(QLatin1String("falseWireValue")).toString();
    parameter.trueValue = yes.isEmpty() ? parameter.trueValue : yes;
    parameter.falseValue = no.isEmpty() ? parameter.falseValue : no;
    if (parameter.trueValue == parameter.falseValue)
        fail(Error::EqualBooleanValues);
}

void StrategyReader::readEnumPair(StrategyParameter& parameter)
{
    const QStringList both{ QStringLiteral("enumID"), QStringLiteral("wireValue") };
    const QXmlStreamAttributes found = attributes(both, both);
    if (parameter.type == ParameterType::Boolean)
        return fail(Error::BooleanWithEnumPairs);
    if (m_xml.hasError() || !hasRoom(parameter.values, Error::TooManyEnumPairs))
        return;
    parameter.values.append({ identifier(found, both.at(0)), found.value(both.at(1)).toString() });
    readChildren({});
}

void StrategyReader::readRule(StrategyDefinition& strategy)
{
    const QXmlStreamAttributes found =
        attributes({ QStringLiteral("errorMessage") }, { QStringLiteral("errorMessage") });
    if (m_xml.hasError() || !hasRoom(strategy.rules, Error::TooManyRules))
        return;
    StrategyRule rule;
    rule.line = m_xml.lineNumber();
    rule.message = found.value(QLatin1String("errorMessage")).toString();
    int edits = 0;
    readChildren({ { QStringLiteral("val:Edit"), [&] { readEdit(rule, edits); } } });
    if (!m_xml.hasError() && edits == 0)
        fail(Error::RuleWithoutComparison, rule.line);
    strategy.rules.append(rule);
}

void StrategyReader::readEdit(StrategyRule& rule, int& edits)
{
    if (++edits > 1)
        return fail(Error::SecondComparison);
    const QXmlStreamAttributes found = attributes(
        { QStringLiteral("field"), QStringLiteral("operator"), QStringLiteral("field2"), QStringLiteral("value") },
        { QStringLiteral("field"), QStringLiteral("operator") });
    if (m_xml.hasError())
        return;
    readComparison(rule, found);
    readChildren({});
}

void StrategyReader::readComparison(StrategyRule& rule, const QXmlStreamAttributes& attributes)
{
    const QString comparison = attributes.value(QLatin1String("operator")).toString();
    if (!ruleOperators().contains(comparison))
        return fail({ Error::UnsupportedOperator, { comparison } });
    rule.comparison = ruleOperators().value(comparison);
    rule.field = attributes.value(QLatin1String("field")).toString();
    rule.otherField = attributes.value(QLatin1String("field2")).toString();
    rule.value = attributes.value(QLatin1String("value")).toString();
    if (rule.otherField.isEmpty() == rule.value.isEmpty())
        fail(Error::ComparisonWithoutOperand);
}
