#include "PlanTableModel.h"

#include "ClientSession.h"
#include "PlainText.h"
#include "PlanFormatter.h"
#include "ReadReport.h"

#include <chrono>

namespace {

constexpr int PageSize = 50;
constexpr int KeptPages = 8;
constexpr int FirstRows = 200;
// Counting more takes longer than reading a page.
constexpr int CountedAtOnce = 1000;
// The first page is painted before all plans are counted.
constexpr std::chrono::milliseconds UntilPainted(200);

} // namespace

PlanTableModel::PlanTableModel(QObject* parent)
    : QAbstractTableModel(parent)
    , m_pages(KeptPages)
{
    m_untilPainted.setSingleShot(true);
    m_untilPainted.setInterval(UntilPainted);
    connect(&m_untilPainted, &QTimer::timeout, this, &PlanTableModel::countAll);
}

Status PlanTableModel::refresh()
{
    ClientSession& session = ClientSession::instance();
    if (Status status = session.database().checkFile(); !status)
        return status;
    const int most = qMax(CountedAtOnce, m_rows + 1);
    const Result<int> count = session.isOpen() ? session.plans().count(most) : Result<int>(0);
    if (!count)
        return count.status();
    m_isCounting = *count >= most;
    beginResetModel();
    m_pages.clear();
    // No plan is ever deleted.
    m_count = m_isCounting ? qMax(*count, m_count) : *count;
    m_rows = qMin(m_count, qMax(m_rows, FirstRows));
    endResetModel();
    if (m_isCounting && !m_untilPainted.isActive())
        m_untilPainted.start();
    return {};
}

void PlanTableModel::countAll()
{
    if (!m_counter) {
        m_counter = std::make_unique<PlanCounter>();
        connect(m_counter.get(), &PlanCounter::counted, this, [this](int plans) {
            m_count = qMax(plans, m_rows);
            m_isCounting = false;
            Q_EMIT counted();
        });
    }
    m_counter->count();
}

StoredPlan PlanTableModel::plan(int row) const
{
    if (row < 0 || row >= m_count)
        return StoredPlan();
    return page(row / PageSize).value(row % PageSize).plan;
}

int PlanTableModel::reveal(const QString& planId, int likelyRow)
{
    int row = likelyRow;
    if (plan(row).id != planId)
        row = rowOf(planId);
    // Another client may have stored plans since the table was filled.
    if (plan(row).id != planId) {
        reportFailure(refresh());
        row = rowOf(planId);
    }
    growTo(row + 1);
    return row;
}

bool PlanTableModel::canFetchMore(const QModelIndex& parent) const
{
    return !parent.isValid() && m_rows < m_count;
}

// Twice as many each time, so that a few steps reach the end.
void PlanTableModel::fetchMore(const QModelIndex& parent)
{
    if (canFetchMore(parent))
        growTo(2 * m_rows);
}

void PlanTableModel::growTo(int rows)
{
    const int wanted = qMin(rows, m_count);
    if (wanted <= m_rows)
        return;
    beginInsertRows(QModelIndex(), m_rows, wanted - 1);
    m_rows = wanted;
    endInsertRows();
}

// Rows are in the order of plan numbers, the newest first.
int PlanTableModel::rowOf(const QString& planId) const
{
    ClientSession& session = ClientSession::instance();
    const int row = session.isOpen() ? valueOrReport(session.plans().newerThan(planId), -1) : -1;
    return row < m_count ? row : -1;
}

int PlanTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int PlanTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PlanTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_count || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return QVariant();
    const QString text = page(index.row() / PageSize).value(index.row() % PageSize).texts.value(index.column());
    return role == Qt::ToolTipRole ? PlainText::toolTip(text) : text;
}

QVariant PlanTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles{ QStringLiteral("计划编号"), QStringLiteral("计划类型"), QStringLiteral("指令类型"),
        QStringLiteral("证券"), QStringLiteral("方向"), QStringLiteral("目标"), QStringLiteral("价格模式"),
        QStringLiteral("生效时段"), QStringLiteral("创建人/时间") };
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    return titles.value(section);
}

PlanTableModel::Row PlanTableModel::makeRow(const StoredPlan& plan)
{
    const PlanFormatter words(plan);
    return { plan,
        { plan.id, words.planType(), words.instructionType(), words.security(), words.side(), words.target(),
            words.priceMode(), words.period(), words.creation() } };
}

const PlanTableModel::Page& PlanTableModel::page(int number) const
{
    if (const Page* known = m_pages.object(number))
        return *known;
    auto* const rows = new Page;
    ClientSession& session = ClientSession::instance();
    if (session.isOpen()) {
        const QVector<StoredPlan> plans = valueOrReport(session.plans().page(number * PageSize, PageSize), {});
        for (const StoredPlan& plan : plans)
            rows->append(makeRow(plan));
    }
    m_pages.insert(number, rows);
    return *m_pages.object(number);
}
