#include "StrategyReader.h"

#include "ElementReader.h"
#include "PanelReader.h"
#include "ParameterReader.h"
#include "ScopeReader.h"
#include "StateRuleReader.h"
#include "StrategyChecks.h"

#include <QSet>

namespace {

constexpr int MaxTag = 99999999;
const QString SingleOrder = QStringLiteral("D");
/// The children of a strategy in the order of the standard.
const QStringList Order{ QStringLiteral("Description"), QStringLiteral("Regions"), QStringLiteral("Markets"),
    QStringLiteral("SecurityTypes"), QStringLiteral("Parameter"), QStringLiteral("Edit"),
    QStringLiteral("StrategyLayout"), QStringLiteral("RepeatingGroup"), QStringLiteral("StrategyEdit") };

class Reader {
public:
    Reader(const StrategyElement& element, const SharedParts& shared)
        : m_element(element)
        , m_edits(shared.edits)
    {
        m_strategy.identifierTag = shared.identifierTag;
        m_strategy.versionTag = shared.versionTag;
        m_strategy.sendsParameterGroup = shared.sendsParameterGroup;
    }

    ReadStrategy read()
    {
        readAttributes();
        ElementContents::refuseText(m_element, m_remarks);
        ElementContents::checkPlaces(m_element, Order, m_remarks);
        for (const StrategyElement& child : m_element.children)
            readDeclaration(child);
        checkNumbers();
        // Conditions refer to parameters and controls that may come later.
        if (m_remarks.refusal)
            StrategyChecks::prepare(m_strategy, m_remarks);
        if (m_remarks.refusal)
            readRules();
        if (m_remarks.refusal)
            StrategyChecks::check(m_strategy, m_remarks);
        return { m_strategy, m_remarks };
    }

private:
    void readAttributes()
    {
        ElementReader reader(m_element, m_remarks);
        m_strategy.line = m_element.line;
        m_strategy.name = reader.name("name");
        const QString alias = reader.text("uiRep").simplified();
        m_strategy.alias = alias.isEmpty() ? m_strategy.name : alias;
        m_strategy.version = reader.expected("version");
        const QString wireValue = reader.expected("wireValue");
        m_strategy.wireValue = wireValue.isEmpty() ? m_strategy.name : wireValue;
        m_strategy.provider = reader.text("providerID").simplified();
        reader.text("providerSubID");
        // Links are not fetched.
        for (const char* const link : { "imageLocation", "disclosureDoc", "sentOrderLink" })
            reader.text(link);
        for (const char* const tag : { "commonIDTag", "orderSequenceTag", "totalOrdersTag" })
            reader.number(tag, 0, MaxTag, 0);
        const QString message = reader.text("fixMsgType");
        if (!message.isEmpty() && message != SingleOrder)
            reader.hinder({ Error::OtherMessage, { message.left(64) } });
        for (const char* const count : { "totalLegs", "totalOrders" }) {
            if (reader.number(count, 0, MaxTag, 1) > 1)
                reader.hinder({ Error::SeveralOrders, { QLatin1String(count) } });
        }
        reader.finish();
    }

    void readDeclaration(const StrategyElement& child)
    {
        if (child.name == QLatin1String("Description"))
            m_strategy.description = ElementContents::textOf(child, m_remarks);
        else if (child.name == QLatin1String("Parameter"))
            m_strategy.parameters.append(ParameterReader::read(child, m_remarks));
        else if (child.name == QLatin1String("StrategyLayout"))
            readLayout(child);
        else if (child.name == QLatin1String("Edit"))
            readNamedEdit(child);
        else if (child.name == QLatin1String("RepeatingGroup"))
            readGroup(child);
        else if (child.name != QLatin1String("StrategyEdit") && !ScopeReader::read(child, m_strategy.scope, m_remarks))
            ElementContents::refuseChild(child, m_remarks);
    }

    void readLayout(const StrategyElement& layout)
    {
        if (!m_strategy.panels.isEmpty())
            return m_remarks.refuse(layout.line, { Error::SecondLayout, { m_strategy.name } });
        PanelReader::read(layout, m_strategy, m_remarks);
    }

    void readNamedEdit(const StrategyElement& edit)
    {
        ElementReader reader(edit, m_remarks);
        const QString id = reader.expected("id");
        if (id.isEmpty())
            return;
        if (m_ownEdits.contains(id))
            reader.refuse({ Error::DuplicateEdit, { id.left(64) } });
        m_ownEdits.insert(id);
        m_edits.insert(id, &edit);
    }

    // A plan has one security, so it has no legs to fill in.
    void readGroup(const StrategyElement& group)
    {
        ElementReader reader(group, m_remarks);
        reader.text("name");
        reader.number("fixTag", 1, MaxTag, 0);
        reader.expected("minSize");
        reader.number("minSize", 0, MaxTag, 0);
        reader.number("maxSize", 0, MaxTag, 0);
        reader.finish();
        reader.hinder(Error::RepeatingGroup);
        for (const StrategyElement& child : group.children) {
            if (child.name == QLatin1String("Parameter"))
                m_strategy.parameters.append(ParameterReader::read(child, m_remarks));
            else if (child.name == QLatin1String("Description"))
                ElementContents::textOf(child, m_remarks);
            else
                ElementContents::refuseChild(child, m_remarks);
        }
    }

    void checkNumbers()
    {
        const auto check = [this](int count, const char* name) {
            if (count > StrategyLimits::MaxParts)
                m_remarks.refuse(m_element.line,
                    { Error::TooMany, { QLatin1String(name), QString::number(StrategyLimits::MaxParts) } });
        };
        check(m_strategy.parameters.size(), "Parameter");
        check(m_strategy.controls.size(), "Control");
    }

    void readRules()
    {
        EditReader edits(m_edits, m_strategy, m_remarks);
        for (const StrategyElement& child : m_element.children) {
            if (child.name == QLatin1String("StrategyEdit"))
                readRule(child, edits);
            else if (child.name == QLatin1String("StrategyLayout"))
                readStateRules(child, edits);
            else if (child.name == QLatin1String("Edit"))
                ElementContents::refuseText(child, m_remarks);
        }
        int rules = m_strategy.rules.size();
        for (const StrategyControl& control : qAsConst(m_strategy.controls))
            rules += control.stateRules.size();
        if (qint64(rules) * m_strategy.edits.size() > StrategyLimits::MaxConditions)
            m_remarks.refuse(m_element.line, Error::TooManyConditions);
        if (m_remarks.refusal)
            StateRuleReader::order(m_strategy, m_remarks);
    }

    void readRule(const StrategyElement& element, EditReader& edits)
    {
        ElementReader reader(element, m_remarks);
        StrategyRule rule;
        rule.line = element.line;
        // The text of the standard has another name for it than its schema.
        if (reader.has("errorMsg") && !reader.has("errorMessage")) {
            rule.message = reader.required("errorMsg");
            reader.warn({ Error::ValueTakenAs,
                { QStringLiteral("errorMsg"), rule.message.left(64), QStringLiteral("errorMessage") } });
        } else {
            rule.message = reader.required("errorMessage");
        }
        reader.finish();
        rule.edit = edits.readRule(element, EditReader::Parameters);
        if (rule.edit >= 0)
            m_strategy.rules.append(rule);
    }

    /// Controls are met in the order in which they were read.
    void readStateRules(const StrategyElement& element, EditReader& edits)
    {
        for (const StrategyElement& child : element.children) {
            if (child.name == QLatin1String("Control"))
                StateRuleReader::read(child, m_control++, edits, m_strategy, m_remarks);
            else if (child.name == QLatin1String("StrategyPanel"))
                readStateRules(child, edits);
        }
    }

    const StrategyElement& m_element;
    QHash<QString, const StrategyElement*> m_edits;
    QSet<QString> m_ownEdits;
    StrategyDefinition m_strategy;
    StrategyRemarks m_remarks;
    int m_control = 0;
};

} // namespace

ReadStrategy StrategyReader::read(const StrategyElement& element, const SharedParts& shared)
{
    return Reader(element, shared).read();
}
