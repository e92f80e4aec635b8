#include "PlanLedger.h"

#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "Database.h"
#include "ErrorText.h"
#include "PlanCodes.h"
#include "PlanStore.h"
#include "SampleSession.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cstdio>

namespace BaseField = AutoPlanField::BaseField;

namespace {

// A number between 1,000 and 9,999 that follows from the mark alone, on every machine.
int numberOf(const QString& mark)
{
    unsigned sum = 7;
    for (const QChar c : mark)
        sum = (sum * 31 + c.unicode()) % 9000;
    return static_cast<int>(sum) + 1000;
}

/// The entries that changed the record of the plan.
QVector<HistoryEntry> records(QVector<HistoryEntry> entries)
{
    const auto isOther = [](const HistoryEntry& entry) {
        return entry.event != HistoryEvent::Created && entry.event != HistoryEvent::Changed;
    };
    entries.erase(std::remove_if(entries.begin(), entries.end(), isOther), entries.end());
    return entries;
}

} // namespace

PlanLedger::Record PlanLedger::recordOf(const Record& base, const QString& mark)
{
    Record record = base;
    const QString number = QString::number(numberOf(mark));
    record.insert(BaseField::remark, mark);
    record.insert(BaseField::totalQty, number + QStringLiteral("00"));
    record.insert(BaseField::priceModel, PlanCodes::PriceModel::CompareMax);
    record.insert(BaseField::priceFormula1, QStringLiteral("昨收价*1.") + number);
    record.insert(BaseField::priceFormula2, QStringLiteral("涨停价-0.") + number);
    return SampleSession::withOther(record, { { AutoPlanField::Progress::CurrentQty, number } });
}

void PlanLedger::attempt(const QString& mark)
{
    ++m_attempts;
    m_created.insert(mark);
}

void PlanLedger::attemptChange(const QString& planId, int version, const QString& mark)
{
    ++m_attempts;
    m_changes[{ planId, version }].insert(mark);
}

void PlanLedger::acknowledge(const QString& planId, int version, const QString& mark)
{
    ++m_acknowledgements;
    m_marks.insert(mark);
    if (version == 0)
        ++m_shared[planId];
    else
        m_plans.insert(planId, { version, mark });
}

void PlanLedger::read(const QByteArray& output)
{
    const int end = output.lastIndexOf('\n');
    const QStringList lines = QString::fromUtf8(output.left(qMax(end, 0))).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.isEmpty())
            readLine(line.split(QLatin1Char(' ')), line);
    }
}

void PlanLedger::readLine(const QStringList& words, const QString& line)
{
    const QString& kind = words.constFirst();
    if (kind == QLatin1String("ready") || kind == QLatin1String("done"))
        return;
    if (kind == QLatin1String("refused")) {
        m_refusals << line.mid(kind.size() + 1);
    } else if (kind == QLatin1String("create") && words.size() == 2) {
        attempt(words.at(1));
    } else if (kind == QLatin1String("modify") && words.size() >= 4) {
        attemptChange(words.at(1), words.at(2).toInt(), words.at(3));
        if (words.size() == 5)
            m_madeFrom.insert(words.at(3), words.at(4));
    } else if (kind == QLatin1String("stored") && words.size() == 4) {
        acknowledge(words.at(1), words.at(2).toInt(), words.at(3));
    } else {
        m_problems << line;
    }
}

QStringList PlanLedger::differences(const QString& file) const
{
    Database database;
    if (const Status status = database.open(file); !status)
        return { errorText(status) };
    PlanStore store(database);
    const QVector<StoredPlan> plans = *store.page(0, *store.count() + 1);
    QStringList found;
    QSet<QString> seen;
    for (const StoredPlan& plan : plans) {
        seen.insert(plan.id);
        const QString sentence = difference(plan.id, plan.version, plan.record);
        if (!sentence.isEmpty())
            found << sentence;
    }
    for (auto plan = m_plans.cbegin(); plan != m_plans.cend(); ++plan) {
        if (!seen.contains(plan.key()))
            found << QStringLiteral("%1 was acknowledged and is lost").arg(plan.key());
    }
    return found;
}

QStringList PlanLedger::historyDifferences(const QString& file) const
{
    Database database;
    if (const Status status = database.open(file); !status)
        return { errorText(status) };
    PlanStore store(database);
    HistoryStore history(database);
    QStringList found;
    QMap<QString, int> stored;
    const QVector<StoredPlan> plans = *store.page(0, *store.count() + 1);
    for (const StoredPlan& plan : plans) {
        const auto entries = history.ofPlan(PlanId::toNumber(plan.id).value_or(0));
        const QString sentence =
            entries ? historyDifference(plan, records(*entries)) : plan.id + errorText(entries.status());
        if (!sentence.isEmpty())
            found << sentence;
        for (const HistoryEntry& entry : records(entries.valueOr({})))
            ++stored[entry.after.value(BaseField::remark).toString()];
    }
    for (const QString& mark : m_marks) {
        if (!stored.contains(mark))
            found << QStringLiteral("“%1” was acknowledged and is lost").arg(mark);
    }
    for (auto mark = stored.cbegin(); mark != stored.cend(); ++mark) {
        if (*mark > 1)
            found << QStringLiteral("“%1” is stored %2 times").arg(mark.key()).arg(*mark);
    }
    return found;
}

QString PlanLedger::historyDifference(const StoredPlan& plan, const QVector<HistoryEntry>& entries) const
{
    Record last;
    int version = 0;
    for (const HistoryEntry& entry : entries) {
        const QString mark = entry.after.value(BaseField::remark).toString();
        if (entry.version != ++version || entry.before != last || !wasSent(plan.id, version, mark)
            || entry.after != recordOf(m_base, mark))
            return QStringLiteral("%1 has a wrong version %2 in its history").arg(plan.id).arg(version);
        const QString before = last.value(BaseField::remark).toString();
        if (m_madeFrom.value(mark, before) != before)
            return QStringLiteral("%1: “%2” has overwritten “%3”").arg(plan.id, mark, before);
        last = entry.after;
    }
    if (version == plan.version && last == plan.record)
        return QString();
    return QStringLiteral("%1 has version %2, its history ends at %3").arg(plan.id).arg(plan.version).arg(version);
}

void PlanLedger::report(const QString& what, const QString& file) const
{
    Database database;
    int stored = 0;
    if (database.open(file)) {
        PlanStore store(database);
        const QVector<StoredPlan> plans = *store.page(0, *store.count());
        for (const StoredPlan& plan : plans)
            stored += plan.version;
    }
    reportFaults(
        what, m_attempts, m_acknowledgements, stored, differences(file).size() + historyDifferences(file).size());
}

bool PlanLedger::wasSent(const QString& planId, int version, const QString& mark) const
{
    if (version == 1)
        return m_created.contains(mark);
    return m_changes.value({ planId, version }).contains(mark) || m_changes.value({ planId, 0 }).contains(mark);
}

QString PlanLedger::difference(const QString& planId, int version, const Record& record) const
{
    const QString mark = record.value(BaseField::remark).toString();
    const auto known = m_plans.constFind(planId);
    if (known != m_plans.cend() && version < known->version)
        return QStringLiteral("%1 was acknowledged at version %2 and is stored at %3")
            .arg(planId)
            .arg(known->version)
            .arg(version);
    if (!wasSent(planId, version, mark))
        return QStringLiteral("%1 holds “%2” at version %3, which nobody sent").arg(planId, mark).arg(version);
    if (known != m_plans.cend() && version == known->version && mark != known->mark)
        return QStringLiteral("%1 holds “%2” where “%3” was acknowledged").arg(planId, mark, known->mark);
    if (record != recordOf(m_base, mark))
        return QStringLiteral("%1 holds a record that is not that of “%2”").arg(planId, mark);
    return QString();
}

void reportFaults(const QString& what, int tried, int acknowledged, int stored, int lost)
{
    std::printf(
        "%s: tried %d, acknowledged %d, stored %d, lost %d\n", qPrintable(what), tried, acknowledged, stored, lost);
    std::fflush(stdout);
}

int setting(const char* variable, int usual)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(variable, &given);
    return given ? value : usual;
}

quint32 chosenSeed()
{
    const int given = setting("FAULTS_SEED", 0);
    return given != 0 ? static_cast<quint32>(given) : QRandomGenerator::global()->generate() / 2 + 1;
}
