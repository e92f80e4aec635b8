// What every element of a strategy file has: children, attributes, values, and a first fault.
#include "StrategyReader.h"

#include <QRegularExpression>
#include <algorithm>

using namespace StrategyVocabulary;

namespace {

const QString INSTANCE = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");

} // namespace

QString StrategyReader::elementKey() const
{
    if (m_xml.namespaceUri() == CORE)
        return m_xml.name().toString();
    if (m_xml.namespaceUri() == LAYOUT)
        return QStringLiteral("lay:") + m_xml.name();
    if (m_xml.namespaceUri() == VALIDATION)
        return QStringLiteral("val:") + m_xml.name();
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
        return fail(QStringLiteral("命名空间只能在根元素上声明"));
    const auto found = children.constFind(elementKey());
    if (found == children.cend())
        return fail(QStringLiteral("元素%1不支持或不能出现在这里").arg(m_xml.qualifiedName()));
    (*found)();
}

void StrategyReader::refuseOther()
{
    if (m_xml.tokenType() == QXmlStreamReader::DTD)
        fail(QStringLiteral("不允许DTD和实体声明"));
    else if (m_xml.tokenType() == QXmlStreamReader::EntityReference)
        fail(QStringLiteral("不允许实体引用"));
    else if (m_xml.tokenType() == QXmlStreamReader::ProcessingInstruction)
        fail(QStringLiteral("不支持处理指令%1").arg(m_xml.processingInstructionTarget()));
    else if (m_xml.isCharacters() && !m_xml.isWhitespace())
        fail(QStringLiteral("元素之间有文字“%1”").arg(m_xml.text().toString().simplified().left(20)));
}

QXmlStreamAttributes StrategyReader::attributes(const QStringList& known, const QStringList& needed)
{
    QXmlStreamAttributes found = m_xml.attributes();
    for (const QXmlStreamAttribute& attribute : found) {
        if (!isKnown(attribute, known))
            fail(QStringLiteral("元素%1的属性%2不支持").arg(m_xml.name(), attribute.qualifiedName()));
        else if (attribute.value().size() > StrategyLimits::MAX_TEXT)
            fail(QStringLiteral("属性%1超过%2个字符").arg(attribute.name()).arg(StrategyLimits::MAX_TEXT));
    }
    for (const QString& name : needed) {
        const QString value = name == QLatin1String("xsi:type")
            ? found.value(INSTANCE, QStringLiteral("type")).toString()
            : found.value(name).toString();
        if (value.isEmpty())
            fail(QStringLiteral("元素%1缺少属性%2").arg(m_xml.name(), name));
    }
    return found;
}

void StrategyReader::refuseForeign(
    const QXmlStreamAttributes& attributes, const QString& type, bool allowed, const QStringList& names)
{
    for (const QString& name : names) {
        if (!allowed && attributes.hasAttribute(name))
            fail(QStringLiteral("类型%1不能有属性%2").arg(type, name));
    }
}

bool StrategyReader::isKnown(const QXmlStreamAttribute& attribute, const QStringList& known)
{
    if (attribute.namespaceUri().isEmpty())
        return known.contains(attribute.name().toString());
    return attribute.namespaceUri() == INSTANCE && known.contains(QStringLiteral("xsi:") + attribute.name());
}

QString StrategyReader::typeName(const QXmlStreamAttributes& attributes, const QString& vocabulary)
{
    const QString type = attributes.value(INSTANCE, QStringLiteral("type")).toString();
    const int colon = type.indexOf(QLatin1Char(':'));
    const QString prefix = type.left(std::max(colon, 0));
    if (m_prefixes.value(prefix) != vocabulary)
        fail(QStringLiteral("类型“%1”不属于%2").arg(type, vocabulary));
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
        fail(QStringLiteral("属性%1的值“%2”应为%3至%4的整数")
                 .arg(name, attributes.value(name).toString(), QString::number(lowest), QString::number(highest)));
    return value;
}

bool StrategyReader::flag(const QXmlStreamAttributes& attributes, const QString& name, bool absent)
{
    if (!attributes.hasAttribute(name))
        return absent;
    const bool yes = attributes.value(name) == QLatin1String("true");
    if (!yes && attributes.value(name) != QLatin1String("false"))
        fail(QStringLiteral("属性%1的值“%2”应为true或false").arg(name, attributes.value(name).toString()));
    return yes;
}

QString StrategyReader::identifier(const QXmlStreamAttributes& attributes, const QString& name)
{
    static const QRegularExpression form(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z][A-Za-z0-9_]{0,63}")));
    QString value = attributes.value(name).toString();
    if (!form.match(value).hasMatch())
        fail(QStringLiteral("属性%1的值“%2”应以字母开头，只含字母、数字和下划线，最多64个字符").arg(name, value));
    return value;
}

void StrategyReader::requireValue(const QXmlStreamAttributes& attributes, const QString& name, const QString& only)
{
    if (attributes.hasAttribute(name) && attributes.value(name) != only)
        fail(QStringLiteral("属性%1的值“%2”不支持，只支持%3").arg(name, attributes.value(name).toString(), only));
}

void StrategyReader::fail(const QString& reason, qint64 line)
{
    if (m_xml.hasError())
        return;
    m_content.error = { m_name, line, reason };
    m_xml.raiseError(reason);
}

StrategyFileError StrategyReader::parserError() const
{
    const bool cut = m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
    return { m_name, m_xml.lineNumber(), cut ? QStringLiteral("文件不完整") : QStringLiteral("XML格式不正确") };
}
