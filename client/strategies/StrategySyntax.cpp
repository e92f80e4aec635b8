// Common to all elements of a strategy file: children, attributes, values and the first error.
#include "StrategyReader.h"

#include <QRegularExpression>

#include <algorithm>

using namespace StrategyVocabulary;

namespace {

const QString Instance = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");

} // namespace

QString StrategyReader::elementKey() const
{
    if (m_xml.namespaceUri() == Core)
        return m_xml.name().toString();
    if (m_xml.namespaceUri() == Layout)
        return QStringLiteral("lay:") + m_xml.name().toString();
    if (m_xml.namespaceUri() == Validation)
        return QStringLiteral("val:") + m_xml.name().toString();
    return {};
}

void StrategyReader::readChildren(const Children& children)
{
    while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::EndElement) {
        if (m_xml.isStartElement())
            readChild(children);
        else
            refuseOther();
    }
}

void StrategyReader::readChild(const Children& children)
{
    if (!m_xml.namespaceDeclarations().isEmpty())
        return fail(Error::NamespaceBelowRoot);
    const auto found = children.constFind(elementKey());
    if (found == children.cend())
        return fail({ Error::UnsupportedElement, { m_xml.qualifiedName().toString() } });
    (*found)();
}

void StrategyReader::refuseOther()
{
    if (m_xml.tokenType() == QXmlStreamReader::DTD)
        fail(Error::DtdNotAllowed);
    else if (m_xml.tokenType() == QXmlStreamReader::EntityReference)
        fail(Error::EntityNotAllowed);
    else if (m_xml.tokenType() == QXmlStreamReader::ProcessingInstruction)
        fail({ Error::ProcessingInstruction, { m_xml.processingInstructionTarget().toString() } });
    else if (m_xml.isCharacters() && !m_xml.isWhitespace())
        fail({ Error::TextBetweenElements, { m_xml.text().toString().simplified().left(20) } });
}

QXmlStreamAttributes StrategyReader::attributes(const QStringList& known, const QStringList& needed)
{
    QXmlStreamAttributes found = m_xml.attributes();
    for (const QXmlStreamAttribute& attribute : found) {
        if (!isKnown(attribute, known))
            fail({ Error::UnsupportedAttribute, { m_xml.name().toString(), attribute.qualifiedName().toString() } });
        else if (attribute.value().size() > StrategyLimits::MaxText)
            fail(
                { Error::AttributeTooLong, { attribute.name().toString(), QString::number(StrategyLimits::MaxText) } });
    }
    for (const QString& name : needed) {
        const QString value = name == QLatin1String("xsi:type")
            ? found.value(Instance, QStringLiteral("type")).toString()
            : found.value(name).toString();
        if (value.isEmpty())
            fail({ Error::MissingAttribute, { m_xml.name().toString(), name } });
    }
    return found;
}

void StrategyReader::refuseForeign(
    const QXmlStreamAttributes& attributes, const QString& type, bool allowed, const QStringList& names)
{
    for (const QString& name : names) {
        if (!allowed && attributes.hasAttribute(name))
            fail({ Error::AttributeOfOtherType, { type, name } });
    }
}

bool StrategyReader::isKnown(const QXmlStreamAttribute& attribute, const QStringList& known)
{
    if (attribute.namespaceUri().isEmpty())
        return known.contains(attribute.name().toString());
    return attribute.namespaceUri() == Instance && known.contains(QStringLiteral("xsi:") + attribute.name().toString());
}

QString StrategyReader::typeName(const QXmlStreamAttributes& attributes, const QString& vocabulary)
{
    const QString type = attributes.value(Instance, QStringLiteral("type")).toString();
    const int colon = type.indexOf(QLatin1Char(':'));
    const QString prefix = type.left(std::max(colon, 0));
    if (m_prefixes.value(prefix) != vocabulary)
        fail({ Error::TypeOfOtherNamespace, { type, vocabulary } });
    return type.mid(colon + 1);
}

int StrategyReader::number(
    const QXmlStreamAttributes& attributes, const QString& name, int lowest, int highest, int absent)
{
    if (!attributes.hasAttribute(name))
        return absent;
    bool good = false;
    const int value = attributes.value(name).toInt(&good);
    if (!good || value < lowest || value > highest)
        fail({ Error::AttributeNotInteger,
            { name, attributes.value(name).toString(), QString::number(lowest), QString::number(highest) } });
    return value;
}

bool StrategyReader::flag(const QXmlStreamAttributes& attributes, const QString& name, bool absent)
{
    if (!attributes.hasAttribute(name))
        return absent;
    const bool yes = attributes.value(name) == QLatin1String("true");
    if (!yes && attributes.value(name) != QLatin1String("false"))
        fail({ Error::AttributeNotBoolean, { name, attributes.value(name).toString() } });
    return yes;
}

QString StrategyReader::identifier(const QXmlStreamAttributes& attributes, const QString& name)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z][A-Za-z0-9_]{0,63}")));
    QString value = attributes.value(name).toString();
    if (!form.match(value).hasMatch())
        fail({ Error::AttributeNotIdentifier, { name, value } });
    return value;
}

void StrategyReader::requireValue(const QXmlStreamAttributes& attributes, const QString& name, const QString& only)
{
    if (attributes.hasAttribute(name) && attributes.value(name) != only)
        fail({ Error::UnsupportedAttributeValue, { name, attributes.value(name).toString(), only } });
}

void StrategyReader::stop(const Status& error)
{
    if (m_xml.hasError())
        return;
    m_status = error;
    m_xml.raiseError();
}

Error StrategyReader::parserError() const
{
    const bool isCut = m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    return isCut ? Error::FileIncomplete : Error::InvalidXml;
}
