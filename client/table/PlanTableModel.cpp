#include "PlanTableModel.h"

#include "AutoPlanField.h"
#include "ClientClock.h"
#include "ClientSession.h"
#include "PlainText.h"
#include "ReadReport.h"

#include <QHash>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr int MostRows = 500;
// The first page is painted before all plans are counted. Later, a count that is a little old does less harm than one
// after each change.
constexpr std::chrono::milliseconds UntilPainted(200);
constexpr std::chrono::seconds BetweenCounts(5);

PlanStore plans()
{
    return ClientSession::instance().plans();
}

bool isOpen()
{
    return ClientSession::instance().isOpen();
}

} // namespace

PlanTableModel::PlanTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{
    m_list.filter = PlanFilter::Current;
    m_untilPainted.setSingleShot(true);
    connect(&m_untilPainted, &QTimer::timeout, this, &PlanTableModel::startCounting);
}

Status PlanTableModel::show(const PlanList& list)
{
    const Result<PlanLook> look = PlanReading::look(list, {});
    if (!look)
        return look.status();
    m_list = look->list;
    m_landmarks.clear();
    m_count = 0;
    replace(look->plans, 0, false, look->hasMore);
    note(*look);
    return {};
}

Status PlanTableModel::refresh()
{
    if (Status status = ClientSession::instance().database().checkFile(); !status)
        return status;
    PlanSlice slice;
    slice.limit = m_rows.size();
    if (m_hasAbove) {
        slice.from = placeOf(0);
        slice.isFromIncluded = true;
    }
    noteDay();
    const Result<PlanLook> look = PlanReading::look(m_list, slice);
    if (!look)
        return look.status();
    // The plans of all rows, up to the last one, have left the list.
    if (m_hasAbove && look->plans.isEmpty())
        return show(m_list);
    m_list = look->list;
    m_hasBelow = look->hasMore;
    merge(look->plans);
    note(*look);
    if (m_hasAbove)
        m_first = positionOf(placeOf(0));
    return {};
}

/// On another day, plans have other states and the filter has others.
void PlanTableModel::noteDay()
{
    const QDate today = clientToday();
    if (std::exchange(m_list.today, today) == today || m_rows.isEmpty())
        return;
    for (Row& row : m_rows)
        row.texts.clear();
    Q_EMIT dataChanged(index(0, 0), index(m_rows.size() - 1, PlanColumns::Count - 1));
}

/// Reads a slice of the list. A failure is reported, and leaves `hasMore` unchanged.
Result<PlanTableModel::Plans> PlanTableModel::read(const PlanSlice& slice, bool& hasMore) const
{
    Plans found;
    bool hasOthers = false;
    const Status status = isOpen() ? PlanReading::slice(m_list, slice, found, hasOthers) : Status();
    reportFailure(status);
    if (!status)
        return status;
    hasMore = hasOthers;
    return found;
}

// The last count is kept until there is another one.
void PlanTableModel::note(const PlanLook& look)
{
    if (look.isCounted) {
        m_landmarks.clear();
        m_untilPainted.stop();
    }
    m_isCounting = !look.isCounted && m_landmarks.isEmpty();
    m_count = look.isCounted ? look.count : qMax(m_count, look.count);
    if (!look.isCounted && !m_untilPainted.isActive())
        m_untilPainted.start(m_isCounting ? UntilPainted : BetweenCounts);
}

void PlanTableModel::startCounting()
{
    if (!m_counter) {
        m_counter = std::make_unique<PlanCounter>();
        connect(m_counter.get(), &PlanCounter::counted, this, &PlanTableModel::take);
    }
    m_counter->count(m_list);
}

void PlanTableModel::take(int plans, const QVector<PlanLandmark>& landmarks)
{
    m_isCounting = false;
    m_landmarks = landmarks;
    m_count = qMax(plans, m_rows.size());
    if (!m_hasBelow)
        m_first = m_count - m_rows.size();
    else if (m_hasAbove)
        m_first = positionOf(placeOf(0));
    Q_EMIT counted();
}

int PlanTableModel::extendDown()
{
    if (!m_hasBelow)
        return 0;
    PlanSlice slice;
    slice.limit = PlanReading::PageSize;
    slice.from = placeOf(m_rows.size() - 1);
    const Result<Plans> added = read(slice, m_hasBelow);
    if (!added)
        return 0;
    insert(m_rows.size(), *added);
    const int surplus = m_rows.size() - MostRows;
    if (surplus <= 0)
        return 0;
    remove(0, surplus);
    m_first += surplus;
    m_hasAbove = true;
    return -surplus;
}

int PlanTableModel::extendUp()
{
    if (!m_hasAbove)
        return 0;
    PlanSlice slice;
    slice.limit = PlanReading::PageSize;
    slice.from = placeOf(0);
    slice.isBackward = true;
    const Result<Plans> added = read(slice, m_hasAbove);
    if (!added)
        return 0;
    insert(0, *added);
    m_first = m_hasAbove ? qMax(1, m_first - added->size()) : 0;
    if (m_rows.size() > MostRows) {
        remove(MostRows, m_rows.size() - MostRows);
        m_hasBelow = true;
    }
    return added->size();
}

void PlanTableModel::goTo(int position)
{
    const int first = qMax(0, position - PlanReading::PageSize);
    PlanSlice slice;
    slice.limit = 2 * PlanReading::PageSize;
    slice.offset = first;
    const auto after = std::upper_bound(m_landmarks.cbegin(), m_landmarks.cend(), first,
        [](int wanted, const PlanLandmark& landmark) { return wanted < landmark.position; });
    if (after != m_landmarks.cbegin()) {
        const PlanLandmark& landmark = *std::prev(after);
        slice.from = landmark.place;
        slice.isFromIncluded = true;
        slice.offset = first - landmark.position;
    }
    bool hasBelow = false;
    const Result<Plans> found = read(slice, hasBelow);
    if (hasBelow)
        replace(*found, first, first > 0, hasBelow);
    else if (found)
        goToEnd();
}

void PlanTableModel::goToEnd()
{
    PlanSlice slice;
    slice.limit = 2 * PlanReading::PageSize;
    slice.isBackward = true;
    bool hasAbove = false;
    const Result<Plans> found = read(slice, hasAbove);
    if (found)
        replace(*found, hasAbove ? qMax(1, m_count - found->size()) : 0, hasAbove, false);
}

QStringList PlanTableModel::ids() const
{
    QStringList ids;
    for (const Row& row : m_rows)
        ids << row.listed.plan.id;
    return ids;
}

Result<StoredPlan> PlanTableModel::listed(const QString& planId) const
{
    const Result<StoredPlan> plan = isOpen() ? plans().plan(planId) : StoredPlan();
    reportFailure(plan.status());
    if (!plan || plan->id.isEmpty())
        return plan;
    if (m_list.isWhole())
        return plan->state == PlanState::Archived ? StoredPlan() : plan;
    PlanSlice slice;
    slice.limit = 1;
    slice.from = m_list.placeOf(*plan);
    slice.isFromIncluded = true;
    bool hasMore = false;
    const Result<Plans> found = read(slice, hasMore);
    if (!found)
        return found.status();
    const StoredPlan first = found->value(0).plan;
    return first.id == planId ? first : StoredPlan();
}

QVector<ListedPlan> PlanTableModel::listed(const QStringList& planIds) const
{
    Plans found;
    if (isOpen())
        reportFailure(PlanReading::addProgress(plans().plans(planIds), found));
    std::sort(found.begin(), found.end(), [this](const ListedPlan& one, const ListedPlan& other) {
        return m_list.precedes(m_list.placeOf(one.plan), m_list.placeOf(other.plan));
    });
    return found;
}

QStringList PlanTableModel::idsOf(const PlanSlice& slice) const
{
    return isOpen() ? valueOrReport(plans().ids(m_list, slice), QStringList()) : QStringList();
}

int PlanTableModel::rowOf(const QString& planId) const
{
    const auto row = std::find_if(
        m_rows.cbegin(), m_rows.cend(), [&planId](const Row& each) { return each.listed.plan.id == planId; });
    return row == m_rows.cend() ? -1 : static_cast<int>(std::distance(m_rows.cbegin(), row));
}

Result<int> PlanTableModel::reveal(const QString& planId)
{
    const int row = rowOf(planId);
    const Result<StoredPlan> plan = row < 0 ? listed(planId) : StoredPlan();
    if (!plan)
        return plan.status();
    if (plan->id.isEmpty())
        return row;
    PlanSlice slice;
    slice.limit = PlanReading::PageSize;
    slice.from = m_list.placeOf(*plan);
    slice.isFromIncluded = true;
    bool hasBelow = false;
    const Result<Plans> below = read(slice, hasBelow);
    slice.isFromIncluded = false;
    slice.isBackward = true;
    bool hasAbove = false;
    const Result<Plans> above = below ? read(slice, hasAbove) : below;
    if (!above)
        return above.status();
    replace(*above + *below, hasAbove ? positionOf(m_list.placeOf(above->constFirst().plan)) : 0, hasAbove, hasBelow);
    return above->size();
}

/// How many plans precede a place, counted from the landmark before it.
int PlanTableModel::positionOf(const PlanPlace& place) const
{
    PlanSlice slice;
    slice.limit = m_list.isSmall ? PlanList::Small : PlanReading::CountedAtOnce;
    slice.until = place;
    const auto after = std::upper_bound(
        m_landmarks.cbegin(), m_landmarks.cend(), place, [this](const PlanPlace& wanted, const PlanLandmark& landmark) {
            return m_list.precedes(wanted, landmark.place);
        });
    int position = 0;
    if (after != m_landmarks.cbegin()) {
        slice.from = std::prev(after)->place;
        slice.isFromIncluded = true;
        position = std::prev(after)->position;
    }
    return position + valueOrReport(plans().countOf(m_list, slice), 0);
}

PlanPlace PlanTableModel::placeOf(int row) const
{
    return m_list.placeOf(m_rows.at(row).listed.plan);
}

void PlanTableModel::replace(const Plans& plans, int first, bool hasAbove, bool hasBelow)
{
    beginResetModel();
    m_rows.clear();
    for (const ListedPlan& listed : plans)
        m_rows << Row{ listed, {} };
    m_first = first;
    m_hasAbove = hasAbove;
    m_hasBelow = hasBelow;
    m_count = qMax(m_count, first + plans.size());
    endResetModel();
}

// Both are in the order of the list.
void PlanTableModel::merge(const Plans& plans)
{
    removeOthers(plans);
    for (int row = 0; row < plans.size(); ++row) {
        if (row < m_rows.size() && plan(row).id == plans.at(row).plan.id) {
            if (!(m_rows.at(row).listed == plans.at(row))) {
                m_rows[row] = { plans.at(row), {} };
                // Views would paint all rows again for a range of cells.
                for (int column = 0; column < PlanColumns::Count; ++column)
                    Q_EMIT dataChanged(index(row, column), index(row, column));
            }
            continue;
        }
        int end = row + 1;
        while (end < plans.size() && (row >= m_rows.size() || plans.at(end).plan.id != plan(row).id))
            ++end;
        insert(row, plans.mid(row, end - row));
        row = end - 1;
    }
}

/// Removes the rows of plans that are not in the list, or at another place of it.
void PlanTableModel::removeOthers(const Plans& plans)
{
    QHash<QString, QString> values;
    for (const ListedPlan& listed : plans)
        values.insert(listed.plan.id, m_list.placeOf(listed.plan).value);
    for (int row = m_rows.size() - 1; row >= 0; --row) {
        const auto value = values.constFind(plan(row).id);
        if (value == values.cend() || *value != placeOf(row).value)
            remove(row, 1);
    }
}

void PlanTableModel::remove(int first, int count)
{
    beginRemoveRows(QModelIndex(), first, first + count - 1);
    m_rows.remove(first, count);
    endRemoveRows();
}

void PlanTableModel::insert(int row, const Plans& plans)
{
    if (plans.isEmpty())
        return;
    beginInsertRows(QModelIndex(), row, row + plans.size() - 1);
    m_rows.insert(row, plans.size(), Row());
    for (int i = 0; i < plans.size(); ++i)
        m_rows[row + i].listed = plans.at(i);
    endInsertRows();
}

int PlanTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int PlanTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : PlanColumns::Count;
}

QStringList PlanTableModel::texts(int row) const
{
    const Row& shown = m_rows.at(row);
    if (shown.texts.isEmpty())
        shown.texts = PlanColumns::texts(shown.listed, clientToday());
    return shown.texts;
}

QVariant PlanTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return texts(index.row()).at(index.column());
    case Qt::ToolTipRole:
        return PlainText::toolTip(texts(index.row()).at(index.column()));
    case Qt::TextAlignmentRole:
        return PlanColumns::isNumber(index.column()) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case SideRole:
        return index.column() == PlanColumns::Side ? plan(index.row()).record.value(AutoPlanField::BaseField::orderSide)
                                                   : QVariant();
    case ProgressRole:
        return index.column() == PlanColumns::Progress ? PlanColumns::shares(m_rows.at(index.row()).listed)
                                                       : QVariant();
    default:
        return QVariant();
    }
}

QVariant PlanTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= PlanColumns::Count)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return PlanColumns::title(section);
    case Qt::TextAlignmentRole:
        return PlanColumns::isNumber(section) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ToolTipRole:
        return PlanColumns::order(section) ? tr("单击排序") : QString();
    default:
        return QVariant();
    }
}
