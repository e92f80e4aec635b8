#include "AdvisorFacts.h"

#include "AgreementStore.h"
#include "AutoPlanField.h"
#include "CashStore.h"
#include "Kelvo_Fields.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PositionStore.h"

#include <algorithm>
#include <tuple>

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;

namespace {

auto values(const FactsQuestion& question)
{
    return std::tie(question.user.id, question.today, question.planId, question.account, question.securityAccount,
        question.exchange, question.symbol, question.instructionType, question.assignee, question.executor,
        question.isReduction);
}

/// The fields of a record that rights depend on.
PlanStore::Record parties(const FactsQuestion& question)
{
    return {
        { UserAccount::tradingAccount, question.account },
        { UserAccount::securityExchange, question.exchange },
        { Orlo_Fields::AutoPlan::subType, question.instructionType },
        { BaseField::executeUser, question.executor },
        { BaseField::expectedUser, question.assignee },
    };
}

Status readValues(Database& database, const FactsQuestion& question, AdvisorFacts& facts)
{
    ValueReader reader(database);
    SecurityStore::addTo(reader, question.symbol, facts.closes);
    const auto addSellable = [&](const QDate& day, qint64& quantity) {
        PositionStore::addTo(reader, question.account, question.securityAccount, question.symbol, day, quantity);
    };
    const QDate next = facts.isIssuedToday ? question.today.addDays(1) : question.today;
    addSellable(question.today, facts.tradeableQuantity);
    addSellable(next, facts.tradeableNext);
    CashStore::addTo(reader, question.account, next, facts.cash);
    PlanRightsReader::addTo(reader, question.user.id, parties(question), question.today, facts.rights);
    if (!question.planId.isEmpty())
        InstructionStore::addTo(reader, question.planId, facts.used);
    return reader.read();
}

Status readSignatures(Database& database, const FactsQuestion& question, AdvisorFacts& facts)
{
    if (!question.isReduction)
        return {};
    const auto open =
        AgreementStore(database).unsignedClientNumbers(Orlo_Values::ProtocolId::AutoPlanReduceAgree, question.user.id);
    facts.unsignedClients = open.valueOr({});
    return open.status();
}

// Open instructions of earlier days give back what was not filled.
Status readEdited(Database& database, const FactsQuestion& question, AdvisorFacts& facts)
{
    if (question.planId.isEmpty())
        return {};
    const Result<StoredPlan> plan = PlanStore(database, question.user).plan(question.planId);
    if (!plan)
        return plan.status();
    facts.edited = *plan;
    const auto instructions = InstructionStore(database).ofPlan(question.planId);
    if (!instructions)
        return instructions.status();
    const QString today = question.today.toString(Qt::ISODate);
    for (const InstructionStore::Fields& fields : *instructions) {
        facts.filled.quantity += fields.value(FieldId::FilledQty).toDouble();
        facts.filled.yuan += fields.value(Orlo_Fields::Security::cumAmount).toDouble();
        facts.isIssuedToday = facts.isIssuedToday || fields.value(FieldId::TradeDate).toString() == today;
    }
    return {};
}

Status readPlans(Database& database, const FactsQuestion& question, AdvisorFacts& facts)
{
    PlanStore plans(database, question.user);
    const auto open = plans.unended(question.account, question.symbol, question.today, FactsReader::MostPlans);
    if (!open)
        return open.status();
    const auto recent = plans.newestOf(question.account, FactsReader::MostPlans);
    if (!recent)
        return recent.status();
    const auto others = [&question](QVector<StoredPlan> all) {
        const auto isEdited = [&question](const StoredPlan& plan) { return plan.id == question.planId; };
        all.erase(std::remove_if(all.begin(), all.end(), isEdited), all.end());
        return all;
    };
    facts.openPlans = others(*open);
    facts.recentPlans = others(*recent);
    QStringList ids;
    for (const StoredPlan& plan : qAsConst(facts.openPlans))
        ids << plan.id;
    const auto used = InstructionStore(database).used(ids, question.today);
    facts.usedByOpen = used.valueOr({});
    return used.status();
}

Result<AdvisorFacts> factsOf(Database& database, const FactsQuestion& question)
{
    AdvisorFacts facts;
    for (const auto read : { readEdited, readValues, readSignatures, readPlans }) {
        if (Status status = read(database, question, facts); !status)
            return status;
    }
    return facts;
}

} // namespace

bool FactsQuestion::hasSameSubject(const FactsQuestion& other) const
{
    return account == other.account && symbol == other.symbol && planId == other.planId;
}

bool FactsQuestion::operator==(const FactsQuestion& other) const
{
    return values(*this) == values(other);
}

FactsReader::FactsReader(const Database& session)
    : m_thread(QStringLiteral("advisor"), session)
{
}

void FactsReader::ask(const FactsQuestion& question)
{
    const int number = ++m_asked;
    m_thread.run([this, question, number](Database& database, const Status& opened) {
        if (number != m_asked)
            return;
        const Result<AdvisorFacts> facts = opened ? factsOf(database, question) : Result<AdvisorFacts>(opened);
        const auto answer = [this, question, facts] { Q_EMIT answered(question, facts); };
        if (!m_thread.isStopping())
            QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    });
}

void FactsReader::askHoldings(const QString& account)
{
    m_thread.run([this, account](Database& database, const Status& opened) {
        using Held = Result<QHash<QString, qint64>>;
        const Held held = opened ? PositionStore(database).held(account) : Held(opened);
        const auto answer = [this, account, held] { Q_EMIT holdingsAnswered(account, held); };
        if (!m_thread.isStopping())
            QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
    });
}
