#include "SubmissionFacts.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "Kelvo_Fields.h"
#include "PlanFacts.h"

namespace BaseField = AutoPlanField::BaseField;

namespace {

using Record = PlanStore::Record;

constexpr int MostKept = 100;

const Security* securityOf(const ClientSession& session, const Record& record)
{
    return session.market().find(record.value(Kelvo_Fields::Security::symbol).toString());
}

/// What the facts depend on, without what they are read from.
QStringList keyOf(ClientSession& session, const Record& record)
{
    QStringList key{ session.database().process(), session.user().id, QString::number(clientToday().toJulianDay()) };
    for (const QString& field :
        { Kelvo_Fields::UserAccount::tradingAccount, Kelvo_Fields::UserAccount::securityExchange,
            Kelvo_Fields::UserAccount::securityAccount, Kelvo_Fields::Security::symbol, Orlo_Fields::AutoPlan::subType,
            BaseField::executeUser, BaseField::expectedUser })
        key << record.value(field).toString();
    return key;
}

} // namespace

Result<SubmissionFacts> SubmissionFacts::read(
    ClientSession& session, const Record& record, const QString& request, const QString& planId)
{
    SubmissionFacts facts;
    ValueReader reader(session.database());
    HistoryStore::addTo(reader, request, facts.planOfRequest);
    PlanRightsReader::addTo(reader, session.user().id, record, clientToday(), facts.rights);
    if (const Security* security = securityOf(session, record)) {
        SecurityStore::addTo(reader, security->symbol, facts.closes);
        PlanFacts::addTo(reader, record, *security, clientToday(), facts.tradeableQuantity);
    }
    if (!planId.isEmpty())
        InstructionStore::addTo(reader, planId, facts.use);
    reader.addFactsVersion(facts.version);
    const Status status = reader.read();
    return status ? Result<SubmissionFacts>(facts) : status;
}

PlanCheck::Known SubmissionFacts::known(ClientSession& session, const Record& record) const
{
    const QDate today = clientToday();
    PlanCheck::Known known{ session.market(), session.calendar(), today, session.user().id, rights, {}, 0 };
    if (const Security* security = securityOf(session, record)) {
        known.closes = PlanFacts::closesBefore(closes, session.calendar(), *security, today);
        // What a reduction without a total has used is part of its target.
        known.sellable = security->displayed(tradeableQuantity) + use.quantity;
    }
    return known;
}

// The version on a server does not change with positions, which limit a reduction.
const SubmissionFacts* KeptFacts::find(ClientSession& session, const Record& record) const
{
    const bool isReduction = record.value(Orlo_Fields::AutoPlan::templateCode) == PlanCodes::PlanType::ReduceHoldings;
    if (isReduction && !session.database().role().isEmpty())
        return nullptr;
    const auto found = m_facts.constFind(keyOf(session, record));
    return found == m_facts.cend() ? nullptr : &*found;
}

void KeptFacts::keep(ClientSession& session, const Record& record, const SubmissionFacts& facts)
{
    if (facts.version != m_version || m_facts.size() >= MostKept)
        m_facts.clear();
    m_facts.insert(keyOf(session, record), facts);
    m_version = facts.version;
    noteStored(session);
}

// In a file, every commit makes another version.
void KeptFacts::noteStored(ClientSession& session)
{
    const QString present = session.database().contentVersion();
    if (!present.isEmpty())
        m_version = present;
}
