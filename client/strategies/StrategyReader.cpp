#include "StrategyReader.h"
#include "ParameterValue.h"

#include <optional>

using namespace StrategyVocabulary;

namespace {

constexpr int MAX_TAG = 99999999;
constexpr int MAX_PRECISION = 10;

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

StrategyFileContent StrategyReader::read()
{
    readRoot();
    while (!m_xml.atEnd()) {
        m_xml.readNext();
        refuseOther();
    }
    if (m_content.error.reason.isEmpty() && m_xml.hasError())
        m_content.error = parserError();
    if (!m_content.isValid())
        m_content.strategies.clear();
    return m_content;
}

void StrategyReader::readRoot()
{
    while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::StartElement)
        refuseOther();
    if (m_xml.hasError())
        return;
    if (elementKey() != QLatin1String("Strategies"))
        return fail(QStringLiteral("根元素应为FIXatdl 1.1的Strategies，而不是%1").arg(m_xml.qualifiedName()));
    readNamespaces();
    readStrategies();
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
    number(found, known.at(0), 1, MAX_TAG, 0);
    number(found, known.at(1), 1, MAX_TAG, 0);
    flag(found, known.at(2), false);

    QString description;
    readChildren({ { QStringLiteral("Description"), [&] { readDescription(description); } },
        { QStringLiteral("Strategy"), [this] { readStrategy(); } } });
    if (!m_xml.hasError() && m_content.strategies.isEmpty())
        fail(QStringLiteral("文件中没有策略"));
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
                 return fail(QStringLiteral("策略%1有多个StrategyLayout").arg(strategy.name));
             readLayout(strategy);
         } } });
    finishStrategy(strategy);
}

void StrategyReader::finishStrategy(StrategyDefinition& strategy)
{
    if (m_xml.hasError() || !hasRoom(m_content.strategies, QStringLiteral("策略")))
        return;
    if (m_strategyNames.contains(strategy.name))
        return fail(QStringLiteral("策略名“%1”重复").arg(strategy.name), strategy.line);
    // Controls may stand before their parameters, so their defaults are understood last.
    for (StrategyControl& control : strategy.controls) {
        const StrategyParameter* const parameter = strategy.parameter(control.parameter);
        const std::optional<QString> value = parameter ? defaultValue(control, *parameter) : QString();
        if (!value)
            return fail(
                QStringLiteral("控件%1的默认值“%2”不是可选的值").arg(control.id, control.initialValue), control.line);
        if (parameter)
            control.initialValue = *value;
    }
    const StrategyFlaw flaw = StrategyChecks::check(strategy);
    if (!flaw.reason.isEmpty())
        return fail(flaw.reason, flaw.line);
    m_strategyNames.insert(strategy.name);
    m_content.strategies.append(strategy);
}

void StrategyReader::readDescription(QString& description)
{
    attributes({});
    while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::EndElement) {
        if (m_xml.isStartElement())
            return fail(QStringLiteral("Description中不能有元素%1").arg(m_xml.qualifiedName()));
        if (m_xml.isCharacters())
            description += m_xml.text();
        else
            refuseOther();
        if (description.size() > StrategyLimits::MAX_TEXT)
            return fail(QStringLiteral("Description超过%1个字符").arg(StrategyLimits::MAX_TEXT));
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
    if (m_xml.hasError() || !hasRoom(strategy.parameters, QStringLiteral("参数")))
        return;

    StrategyParameter parameter;
    parameter.line = m_xml.lineNumber();
    parameter.name = identifier(found, QStringLiteral("name"));
    readParameterKind(parameter, found);
    parameter.fixTag = number(found, QStringLiteral("fixTag"), 1, MAX_TAG, 0);
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
    const QString type = typeName(attributes, CORE);
    if (type == QLatin1String("UTCTimestamp_t"))
        return fail(QStringLiteral("参数类型UTCTimestamp_t含有日期，计划跨多个交易日，请改用LocalMktTime_t"));
    if (!parameterTypes().contains(type))
        return fail(QStringLiteral("参数类型“%1”不支持").arg(type));
    parameter.type = parameterTypes().value(type);

    const QString use = attributes.value(QLatin1String("use")).toString();
    parameter.required = use == QLatin1String("required");
    if (!use.isEmpty() && !parameter.required && use != QLatin1String("optional"))
        return fail(QStringLiteral("属性use的值“%1”应为required或optional").arg(use));

    const bool decimal = ParameterValue::isNumber(parameter.type) && parameter.type != ParameterType::Int;
    const bool boolean = parameter.type == ParameterType::Boolean;
    refuseForeign(attributes, type, decimal, { QStringLiteral("precision") });
    refuseForeign(attributes, type, parameter.type == ParameterType::String, { QStringLiteral("maxLength") });
    refuseForeign(attributes, type, boolean, { QStringLiteral("trueWireValue"), QStringLiteral("falseWireValue") });
    readParameterText(parameter, attributes);
}

void StrategyReader::readParameterText(StrategyParameter& parameter, const QXmlStreamAttributes& attributes)
{
    parameter.precision = number(attributes, QStringLiteral("precision"), 0, MAX_PRECISION, parameter.precision);
    parameter.maxLength =
        number(attributes, QStringLiteral("maxLength"), 1, StrategyLimits::MAX_TEXT, parameter.maxLength);
    const QString yes = attributes.value(QLatin1String("trueWireValue")).toString();
    const QString no = attributes.value(QLatin1String("falseWireValue")).toString();
    parameter.trueValue = yes.isEmpty() ? parameter.trueValue : yes;
    parameter.falseValue = no.isEmpty() ? parameter.falseValue : no;
    if (parameter.trueValue == parameter.falseValue)
        fail(QStringLiteral("属性trueWireValue与falseWireValue相同"));
}

void StrategyReader::readEnumPair(StrategyParameter& parameter)
{
    const QStringList both{ QStringLiteral("enumID"), QStringLiteral("wireValue") };
    const QXmlStreamAttributes found = attributes(both, both);
    if (parameter.type == ParameterType::Boolean)
        return fail(QStringLiteral("Boolean_t参数不能有EnumPair"));
    if (m_xml.hasError() || !hasRoom(parameter.values, QStringLiteral("EnumPair")))
        return;
    parameter.values.append({ identifier(found, both.at(0)), found.value(both.at(1)).toString() });
    readChildren({});
}

void StrategyReader::readRule(StrategyDefinition& strategy)
{
    const QXmlStreamAttributes found =
        attributes({ QStringLiteral("errorMessage") }, { QStringLiteral("errorMessage") });
    if (m_xml.hasError() || !hasRoom(strategy.rules, QStringLiteral("StrategyEdit")))
        return;
    StrategyRule rule;
    rule.line = m_xml.lineNumber();
    rule.message = found.value(QLatin1String("errorMessage")).toString();
    int edits = 0;
    readChildren({ { QStringLiteral("val:Edit"), [&] { readEdit(rule, edits); } } });
    if (!m_xml.hasError() && edits == 0)
        fail(QStringLiteral("StrategyEdit中没有Edit"), rule.line);
    strategy.rules.append(rule);
}

void StrategyReader::readEdit(StrategyRule& rule, int& edits)
{
    if (++edits > 1)
        return fail(QStringLiteral("StrategyEdit中只支持一个Edit"));
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
        return fail(QStringLiteral("比较符“%1”不支持").arg(comparison));
    rule.comparison = ruleOperators().value(comparison);
    rule.field = attributes.value(QLatin1String("field")).toString();
    rule.otherField = attributes.value(QLatin1String("field2")).toString();
    rule.value = attributes.value(QLatin1String("value")).toString();
    if (rule.otherField.isEmpty() == rule.value.isEmpty())
        fail(QStringLiteral("Edit应有field2或value之一"));
}
