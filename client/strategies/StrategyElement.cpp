#include "StrategyElement.h"

#include "StrategyDefinition.h"
#include "StrategyRemarks.h"

#include <QMap>
#include <QRegularExpression>
#include <QXmlStreamReader>

namespace {

const QString Instance = QStringLiteral("http://www.w3.org/2001/XMLSchema-instance");
const QString Xml = QStringLiteral("http://www.w3.org/XML/1998/namespace");
const QString Core = QStringLiteral("Core");
const QString Layout = QStringLiteral("Layout");
const QString Validation = QStringLiteral("Validation");
const QString Flow = QStringLiteral("Flow");

/// The last part of a namespace of FIXatdl 1.1; empty for other namespaces.
QString vocabularyOf(const QString& space)
{
    static const QRegularExpression form(QRegularExpression::anchoredPattern(QStringLiteral(
                                             "http://www\\.fixprotocol\\.org/(?:FIX)?atdl-1-1/([A-Za-z]+)")),
        QRegularExpression::CaseInsensitiveOption);
    const QString usual = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/");
    if (space.startsWith(usual))
        return space.mid(usual.size());
    return form.match(space).captured(1);
}

/// Where the standard declares an element.
QString vocabularyOfElement(const QString& name)
{
    static const QMap<QString, QString> others{
        { QStringLiteral("StrategyLayout"), Layout },
        { QStringLiteral("StrategyPanel"), Layout },
        { QStringLiteral("Control"), Layout },
        { QStringLiteral("ListItem"), Layout },
        { QStringLiteral("HelpText"), Layout },
        { QStringLiteral("StrategyEdit"), Validation },
        { QStringLiteral("Edit"), Validation },
        { QStringLiteral("EditRef"), Validation },
        { QStringLiteral("StateRule"), Flow },
    };
    return others.value(name, Core);
}

class DocumentParser {
public:
    DocumentParser(const QString& text, const QVector<Status>& warnings)
        : m_xml(text)
    {
        m_document.warnings = warnings;
    }

    Result<StrategyDocument> parse()
    {
        while (!m_xml.atEnd() && m_status) {
            m_xml.readNext();
            takeToken();
        }
        if (m_status && m_xml.hasError()) {
            const bool isCut = m_xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
            fail(isCut ? Error::FileIncomplete : Error::InvalidXml);
        }
        if (!m_status)
            return m_status;
        return m_document;
    }

private:
    void takeToken()
    {
        switch (m_xml.tokenType()) {
        case QXmlStreamReader::StartElement:
            return open();
        case QXmlStreamReader::EndElement:
            return close();
        case QXmlStreamReader::Characters:
            if (!m_xml.isWhitespace() && !m_open.empty())
                m_open.back()->text += m_xml.text();
            return;
        case QXmlStreamReader::DTD:
            // A name alone declares nothing.
            if (m_xml.text().contains(QLatin1Char('[')) || !m_xml.dtdSystemId().isEmpty())
                fail(Error::DtdNotAllowed);
            return;
        case QXmlStreamReader::ProcessingInstruction:
            m_document.warnings.append(StrategyRemarks::inLine(m_xml.lineNumber(),
                { Error::ProcessingInstruction, { m_xml.processingInstructionTarget().toString().left(64) } }));
            return;
        default:
            return;
        }
    }

    void open()
    {
        if (m_open.size() >= StrategyLimits::MaxDepth)
            return fail({ Error::ElementsTooDeep, { QString::number(StrategyLimits::MaxDepth) } });
        if (++m_count > StrategyLimits::MaxElements)
            return fail({ Error::TooManyElements, { QString::number(StrategyLimits::MaxElements) } });
        declareNamespaces();
        StrategyElement element = startTag();
        if (m_open.empty()) {
            m_document.root = std::move(element);
            m_open.push_back(&m_document.root);
            return checkRoot();
        }
        // Only the innermost open element gets children, so the addresses of the open elements stay valid.
        m_open.back()->children.push_back(std::move(element));
        m_open.push_back(&m_open.back()->children.back());
    }

    void checkRoot()
    {
        const StrategyElement& root = m_document.root;
        if (root.isForeign || root.name != QLatin1String("Strategies"))
            fail({ Error::WrongRoot, { m_xml.qualifiedName().toString().left(64) } });
    }

    void close()
    {
        m_open.pop_back();
        m_spaces.resize(m_spacesOfOpen.takeLast());
    }

    void declareNamespaces()
    {
        m_spacesOfOpen.append(m_spaces.size());
        const QXmlStreamNamespaceDeclarations declarations = m_xml.namespaceDeclarations();
        for (const QXmlStreamNamespaceDeclaration& declaration : declarations)
            m_spaces.append({ declaration.prefix().toString(), declaration.namespaceUri().toString() });
    }

    QString spaceOf(const QString& prefix) const
    {
        for (auto it = m_spaces.crbegin(); it != m_spaces.crend(); ++it) {
            if (it->first == prefix)
                return it->second;
        }
        return {};
    }

    StrategyElement startTag()
    {
        StrategyElement element;
        element.line = m_xml.lineNumber();
        element.name = m_xml.name().toString();
        const QString vocabulary = vocabularyOf(m_xml.namespaceUri().toString());
        element.isForeign = vocabulary.isEmpty();
        element.isInOddSpace = vocabulary != vocabularyOfElement(element.name);
        if (element.isForeign)
            element.name = m_xml.qualifiedName().toString();
        const QXmlStreamAttributes attributes = m_xml.attributes();
        for (const QXmlStreamAttribute& attribute : attributes)
            takeAttribute(element, attribute);
        return element;
    }

    void takeAttribute(StrategyElement& element, const QXmlStreamAttribute& attribute)
    {
        const QString name = attribute.name().toString();
        const auto space = attribute.namespaceUri();
        if (space == Instance && name == QLatin1String("type"))
            return takeType(element, attribute.value().toString());
        // Where schemas are, and the base and language of texts, change nothing.
        const bool isLocation = space == Instance && name.endsWith(QLatin1String("chemaLocation"));
        if (isLocation || space == Xml)
            return;
        const QString shown = space.isEmpty() ? name : attribute.qualifiedName().toString();
        element.attributes.append(
            { space.isEmpty() ? name : QStringLiteral("?:") + shown, attribute.value().toString() });
    }

    void takeType(StrategyElement& element, const QString& type) const
    {
        const int colon = type.indexOf(QLatin1Char(':'));
        element.type = type.mid(colon + 1).trimmed();
        const QString space = spaceOf(type.left(qMax(colon, 0)).trimmed());
        element.isTypeInOddSpace = vocabularyOf(space) != vocabularyOfElement(element.name);
    }

    void fail(const Status& error) { m_status = StrategyRemarks::inLine(m_xml.lineNumber(), error); }

    QXmlStreamReader m_xml;
    StrategyDocument m_document;
    std::vector<StrategyElement*> m_open;
    QVector<QPair<QString, QString>> m_spaces; ///< prefix and namespace, those of the innermost element last
    QVector<int> m_spacesOfOpen;               ///< number of namespaces before each open element
    int m_count = 0;
    Status m_status;
};

} // namespace

Result<StrategyDocument> StrategyDocument::parse(const QString& text, const QVector<Status>& warnings)
{
    return DocumentParser(text, warnings).parse();
}
