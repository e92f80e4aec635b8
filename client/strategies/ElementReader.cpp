#include "ElementReader.h"

#include "ErrorText.h"
#include "StrategyDefinition.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int ShownText = 64;

QString shown(const QString& text)
{
    return text.simplified().left(ShownText);
}

bool isPrintable(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar sign) { return sign.isPrint() || sign.isSurrogate(); });
}

} // namespace

ElementReader::ElementReader(const StrategyElement& element, StrategyRemarks& remarks)
    : m_element(element)
    , m_remarks(remarks)
{
    for (const StrategyElement::Attribute& attribute : element.attributes) {
        if (attribute.value.size() > StrategyLimits::MaxText)
            refuse({ Error::AttributeTooLong,
                { attribute.name.left(ShownText), QString::number(StrategyLimits::MaxText) } });
    }
}

const QString* ElementReader::find(const char* name) const
{
    for (const StrategyElement::Attribute& attribute : m_element.attributes) {
        if (attribute.name == QLatin1String(name))
            return &attribute.value;
    }
    return nullptr;
}

bool ElementReader::isKnown(const char* name) const
{
    return std::find(m_known.cbegin(), m_known.cend(), QLatin1String(name)) != m_known.cend();
}

bool ElementReader::has(const char* name) const
{
    return find(name) != nullptr;
}

/// An empty attribute is one that is absent.
bool ElementReader::hasValue(const char* name)
{
    if (!has(name))
        return false;
    const bool isEmpty = text(name).trimmed().isEmpty();
    if (isEmpty)
        warn({ Error::AttributeIgnored, { m_element.name, QLatin1String(name) } });
    return !isEmpty;
}

QString ElementReader::text(const char* name)
{
    m_known.append(QLatin1String(name));
    const QString* const value = find(name);
    return value ? *value : QString();
}

QString ElementReader::required(const char* name)
{
    const QString value = text(name);
    if (value.isEmpty())
        refuse({ Error::MissingAttribute, { m_element.name, QLatin1String(name) } });
    return value;
}

QString ElementReader::expected(const char* name)
{
    if (!has(name))
        warn({ Error::AttributeExpected, { m_element.name, QLatin1String(name) } });
    return text(name);
}

QString ElementReader::name(const char* name)
{
    return checkedName(name, required(name));
}

QString ElementReader::checkedName(const char* attribute, const QString& value)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z][A-Za-z0-9_]{0,255}")));
    const QString trimmed = value.trimmed();
    if (trimmed.isEmpty() || form.match(value).hasMatch())
        return trimmed;
    if (trimmed.size() > StrategyLimits::MaxName || !isPrintable(trimmed))
        refuse({ Error::AttributeNotName, { QLatin1String(attribute), shown(value) } });
    else
        warn({ Error::NameNotStandard, { QLatin1String(attribute), shown(value) } });
    return trimmed;
}

int ElementReader::number(const char* name, int lowest, int highest, int absent)
{
    if (!hasValue(name))
        return absent;
    const QString value = text(name);
    bool isNumber = false;
    const int result = value.trimmed().toInt(&isNumber);
    if (isNumber && result >= lowest && result <= highest)
        return result;
    refuse({ Error::AttributeNotInteger,
        { QLatin1String(name), shown(value), QString::number(lowest), QString::number(highest) } });
    return absent;
}

bool ElementReader::flag(const char* name, bool absent)
{
    return optionalFlag(name).value_or(absent);
}

std::optional<bool> ElementReader::optionalFlag(const char* name)
{
    if (!hasValue(name))
        return std::nullopt;
    const QString value = text(name);
    const QString word = value.trimmed();
    if (word == QLatin1String("true") || word == QLatin1String("1"))
        return true;
    if (word == QLatin1String("false") || word == QLatin1String("0"))
        return false;
    for (const bool meaning : { true, false }) {
        const QString usual = meaning ? QStringLiteral("true") : QStringLiteral("false");
        if (word.compare(usual, Qt::CaseInsensitive) != 0)
            continue;
        warn({ Error::ValueTakenAs, { QLatin1String(name), word, usual } });
        return meaning;
    }
    refuse({ Error::AttributeNotBoolean, { QLatin1String(name), shown(value) } });
    return std::nullopt;
}

int ElementReader::choice(const char* name, const QStringList& allowed, int absent)
{
    if (!hasValue(name))
        return absent;
    const QString value = text(name);
    const int exact = allowed.indexOf(value);
    if (exact >= 0)
        return exact;
    for (int i = 0; i < allowed.size(); ++i) {
        if (value.trimmed().compare(allowed.at(i), Qt::CaseInsensitive) != 0)
            continue;
        warn({ Error::ValueTakenAs, { QLatin1String(name), shown(value), allowed.at(i) } });
        return i;
    }
    refuse({ Error::UnsupportedAttributeValue, { QLatin1String(name), shown(value), listText(allowed) } });
    return absent;
}

void ElementReader::ignoreOfOtherType(const char* name)
{
    if (!isKnown(name) && has(name))
        warn({ Error::AttributeIgnored, { m_element.type, QLatin1String(name) } });
    m_known.append(QLatin1String(name));
}

void ElementReader::refuseOfOtherType(const char* name)
{
    if (!isKnown(name) && has(name))
        refuse({ Error::AttributeOfOtherType, { m_element.type, QLatin1String(name) } });
    m_known.append(QLatin1String(name));
}

void ElementReader::finish(StrategyRemarks& remarks) const
{
    for (const StrategyElement::Attribute& attribute : m_element.attributes) {
        if (std::find(m_known.cbegin(), m_known.cend(), attribute.name) != m_known.cend())
            continue;
        const QString name = attribute.name.startsWith(QLatin1String("?:")) ? attribute.name.mid(2) : attribute.name;
        remarks.refuse(line(), { Error::UnsupportedAttribute, { m_element.name, name.left(ShownText) } });
    }
}

void ElementContents::refuseChild(const StrategyElement& child, StrategyRemarks& remarks)
{
    remarks.refuse(child.line, { Error::UnsupportedElement, { child.name.left(ShownText) } });
}

void ElementContents::checkPlaces(const StrategyElement& parent, const QStringList& order, StrategyRemarks& remarks)
{
    int last = 0;
    QVector<int> late;
    for (const StrategyElement& child : parent.children) {
        const int place = order.indexOf(child.name);
        if (place < 0 || child.isForeign)
            continue;
        if (child.isInOddSpace)
            remarks.warn(child.line, { Error::SpaceNotStandard, { child.name } });
        // Once for all elements that one before them makes late.
        if (place < last && !late.contains(place)) {
            late.append(place);
            remarks.warn(child.line, { Error::OrderNotStandard, { child.name, order.at(last) } });
        }
        last = std::max(last, place);
    }
}

void ElementContents::refuseText(const StrategyElement& element, StrategyRemarks& remarks)
{
    if (!element.text.isEmpty())
        remarks.refuse(element.line, { Error::TextBetweenElements, { element.name, shown(element.text).left(20) } });
}

QString ElementContents::textOf(const StrategyElement& element, StrategyRemarks& remarks)
{
    ElementReader(element, remarks).finish();
    for (const StrategyElement& child : element.children)
        refuseChild(child, remarks);
    if (element.text.size() <= StrategyLimits::MaxText)
        return element.text.simplified();
    remarks.refuse(element.line, { Error::TextTooLong, { element.name, QString::number(StrategyLimits::MaxText) } });
    return {};
}
