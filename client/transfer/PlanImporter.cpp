#include "PlanImporter.h"

#include "HistoryStore.h"
#include "Kelvo_Fields.h"
#include "PlanCodes.h"
#include "StoredTime.h"

using namespace PlanCodes;
using namespace TransferForms;

namespace {

QString symbolIn(const PlanStore::Record& record)
{
    return record.value(Kelvo_Fields::Security::symbol).toString();
}

} // namespace

PlanImporter::PlanImporter(
    Database& database, const IssueScene& scene, const QString& templatePlan, bool isTrial, ImportReport& report)
    : m_database(database)
    , m_user(scene.user)
    , m_templatePlan(templatePlan)
    , m_isTrial(isTrial)
    , m_intake(database, scene)
    , m_sheet(database, scene.market, scene.user)
    , m_report(report)
{
}

const TransferForm& PlanImporter::form() const
{
    return m_templatePlan.isEmpty() ? TransferForms::plans() : TransferForms::planSheet();
}

Status PlanImporter::begin()
{
    if (m_templatePlan.isEmpty())
        return {};
    const Result<StoredPlan> plan = m_intake.plans().plan(m_templatePlan);
    if (!plan || plan->id.isEmpty())
        return plan ? Status(Error::UnknownPlan, { m_templatePlan }) : plan.status();
    m_template = m_sheet.texts(*plan);
    for (int column = PlanColumn::Plan; column <= PlanColumn::State; ++column)
        m_template[column].clear();
    return {};
}

// A cell replaces what it contradicts in the template.
void PlanImporter::applyTemplate(ImportRow& row) const
{
    QStringList defaults = m_template;
    const auto replace = [&](int column, const QVector<int>& others) {
        for (const int other : others) {
            if (!row.cell(column).isEmpty())
                defaults[other].clear();
        }
    };
    replace(PlanColumn::Quantity, { PlanColumn::Amount, PlanColumn::DailyAmount });
    replace(PlanColumn::Amount, { PlanColumn::Quantity, PlanColumn::DailyQuantity });
    replace(PlanColumn::Price1, { PlanColumn::PriceMode, PlanColumn::Price2 });
    row.setDefaults(defaults);
}

QString PlanImporter::referenceOf(ImportRow& row)
{
    const bool isNamed = !row.text(PlanColumn::Plan).isEmpty();
    QString reference = PlanSheet::reference(row);
    // The template may have changed since the sheet was sent the first time.
    if (!m_templatePlan.isEmpty())
        reference = m_templatePlan + QLatin1Char('\x1D') + reference;
    // Equal rows without a reference are as many plans.
    if (const int before = m_references[reference]++; before > 0) {
        if (isNamed)
            row.refuse(PlanColumn::Plan,
                { Error::DuplicateLine, { row.text(PlanColumn::Plan), QString::number(m_lines.value(reference)) } });
        else
            reference += QLatin1Char('#') + QString::number(before);
    } else {
        m_lines.insert(reference, row.line());
    }
    return reference;
}

Status PlanImporter::take(ImportRow& row)
{
    if (!m_templatePlan.isEmpty())
        applyTemplate(row);
    const QString request = PlanSheet::requestOf(m_user, referenceOf(row));
    const Result<StoredPlan> exported = exportedPlan(row);
    if (!exported)
        return exported.status();
    const bool isExported = !exported->id.isEmpty();
    const Result<StoredPlan> plan = isExported ? exported : importedPlan(request);
    if (!plan)
        return plan.status();
    if (plan->id.isEmpty())
        return create(row, request);
    return change(row, *plan, isExported);
}

Result<StoredPlan> PlanImporter::exportedPlan(const ImportRow& row)
{
    const Result<StoredPlan> plan = m_intake.plans().lockedPlan(row.text(PlanColumn::Plan));
    const bool isSame =
        plan && !plan->id.isEmpty() && StoredTime::toText(plan->created) == row.text(PlanColumn::Created);
    return isSame || !plan ? plan : StoredPlan();
}

Result<StoredPlan> PlanImporter::importedPlan(const QString& request)
{
    const Result<qint64> number = HistoryStore(m_database).planOfRequest(request);
    if (!number || *number == 0)
        return number ? Result<StoredPlan>(StoredPlan()) : number.status();
    return m_intake.plans().lockedPlan(PlanId::fromNumber(*number));
}

Status PlanImporter::create(ImportRow& row, const QString& request)
{
    const QString state = row.text(PlanColumn::State);
    if (!state.isEmpty() && CodeWords::planStates().code(state) != StateName::Active)
        row.refuse(PlanColumn::State, { Error::StateNotImported, { state } });
    const Result<PlanStore::Record> record = m_sheet.record(row, {});
    if (!record || row.isRefused())
        return record.status();
    Status refused;
    if (Status status = m_intake.checkNew(*record, refused); !status)
        return status;
    if (!refused) {
        row.refuse(refused);
        return {};
    }
    const Result<QString> id = m_intake.create(*record, request);
    if (id)
        m_report.count(true,
            { m_isTrial ? ImportTexts::tr("新增计划：%1").arg(symbolIn(*record))
                        : ImportTexts::tr("新增计划%1：%2").arg(*id, symbolIn(*record)) });
    return id.status();
}

Status PlanImporter::change(ImportRow& row, const StoredPlan& plan, bool isExported)
{
    const Result<PlanStore::Record> record = m_sheet.record(row, plan.record);
    if (!record || row.isRefused())
        return record.status();
    if (PlanSheet::isEqual(*record, plan.record)) {
        m_report.count(false, {});
        return {};
    }
    if (isExported) {
        checkVersion(row, plan);
        if (row.isRefused())
            return {};
    } else {
        const Result<int> applied = wasApplied(plan, *record);
        if (!applied || *applied != 0) {
            if (applied)
                m_report.keep(ImportTexts::tr("计划%1在导入后已另行修改").arg(plan.id));
            return applied.status();
        }
    }
    Status refused;
    if (Status status = m_intake.checkChange(plan, *record, refused); !status)
        return status;
    if (!refused) {
        row.refuse(refused);
        return {};
    }
    m_report.count(false, { ImportTexts::tr("修改计划%1：%2").arg(plan.id, symbolIn(*record)) });
    return m_intake.change(plan, *record, {});
}

void PlanImporter::checkVersion(ImportRow& row, const StoredPlan& plan)
{
    const QString version = row.text(PlanColumn::Version);
    if (version != QString::number(plan.version))
        row.refuse(
            PlanColumn::Version, { Error::PlanOfOtherVersion, { plan.id, version, QString::number(plan.version) } });
}

// A trader may have changed the plan after the file was imported.
Result<int> PlanImporter::wasApplied(const StoredPlan& plan, const PlanStore::Record& record)
{
    const auto entries = HistoryStore(m_database).ofPlan(PlanId::toNumber(plan.id).value_or(0));
    if (!entries)
        return entries.status();
    for (const HistoryEntry& entry : *entries) {
        if (!entry.after.isEmpty() && PlanSheet::isEqual(entry.after, record))
            return 1;
    }
    return 0;
}
