#include "PlanDetails.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "HistoryTexts.h"
#include "JournalTexts.h"
#include "MissedDays.h"
#include "OrloHintLabel.h"
#include "PlainText.h"
#include "PlanCodes.h"
#include "PlanFormatter.h"
#include "PlanLife.h"

#include <QFormLayout>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

using namespace PlanCodes;

namespace {

// More would take seconds to lay out; `plandesk history` prints everything.
constexpr int LongestText = 2000;
constexpr int MostEntries = 100;

QString shortened(const QString& text)
{
    if (text.size() <= LongestText)
        return text;
    return PlanDetails::tr("%1……（共%2字）").arg(text.left(LongestText), QString::number(text.size()));
}

QDate dayOf(const InstructionStore::Fields& instruction)
{
    return QDate::fromString(instruction.value(FieldId::TradeDate).toString(), Qt::ISODate);
}

bool lastDayFailed(const PlanDays& days)
{
    const auto isBefore = [&days](const InstructionStore::Fields& fields) {
        return dayOf(fields) < days.refusals.lastKey();
    };
    return !days.refusals.isEmpty() && std::all_of(days.instructions.cbegin(), days.instructions.cend(), isBefore);
}

QLabel* newCaption(const QString& text)
{
    auto* const label = new OrloHintLabel;
    label->setText(text);
    return label;
}

QLabel* newHeading(const QString& text)
{
    auto* const heading = new QLabel(text);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    return heading;
}

QLabel* newValue(const QString& text)
{
    QLabel* const label = PlainText::newLabel(shortened(text), nullptr);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

PlanDetails::PlanDetails(QWidget* parent)
    : QScrollArea(parent)
{
    setObjectName(QStringLiteral("planDetails"));
    setAccessibleName(tr("计划内容"));
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    showPlan(StoredPlan());
}

bool PlanDetails::Row::operator==(const Row& other) const
{
    return kind == other.kind && caption == other.caption && text == other.text;
}

// Equal rows keep their widgets, and with them a selected text.
void PlanDetails::showPlan(const StoredPlan& plan)
{
    const Rows rows = rowsOf(plan);
    if (widget() && rows == m_rows)
        return;
    const int scrolled = plan.id == m_planId ? verticalScrollBar()->value() : 0;
    m_planId = plan.id;
    m_rows = rows;
    show(rows);
    verticalScrollBar()->setValue(scrolled);
}

PlanDetails::Rows PlanDetails::rowsOf(const StoredPlan& plan)
{
    if (plan.id.isEmpty())
        return { { Kind::Text, QString(), tr("选择一个计划，查看全部内容。") } };
    Rows rows;
    const Result<PlanDays> days = ClientSession::instance().instructions().daysOf(plan.id);
    const PlanStage stage = PlanLife::stage(plan, days && lastDayFailed(*days), clientToday());
    const auto fields = PlanFormatter(plan).fields(PlanLife::word(stage));
    for (const auto& field : fields)
        rows << Row{ Kind::Field, field.first, field.second };
    return rows + dayRows(plan, days) + historyRows(plan.id);
}

// Every day of which something is known: with an instruction, refused, or missed.
PlanDetails::Rows PlanDetails::dayRows(const StoredPlan& plan, const Result<PlanDays>& stored)
{
    Rows rows{ { Kind::Heading, QString(), tr("已下达指令") } };
    if (!stored)
        return rows << Row{ Kind::Field, QString(), errorText(stored.status()) };
    QMap<QDate, QStringList> days;
    const PlanFormatter formatter(plan);
    for (const InstructionStore::Fields& fields : stored->instructions)
        days[dayOf(fields)] << JournalTexts::instruction(formatter, fields);
    for (auto refusal = stored->refusals.cbegin(); refusal != stored->refusals.cend(); ++refusal)
        days[refusal.key()] << tr("未下达：%1").arg(refusal.value());
    const QVector<QDate> missed =
        MissedDays::of(plan, stored->handled(), ClientSession::instance().calendar(), clientToday());
    for (const QDate& day : missed)
        days[day] << tr("漏下达");
    if (days.isEmpty())
        return {};
    if (days.size() > MostEntries)
        rows << Row{ Kind::Text, QString(), tr("最近的%1天").arg(MostEntries) };
    const QList<QDate> shown = days.keys().mid(qMax(0, static_cast<int>(days.size()) - MostEntries));
    for (const QDate& day : shown) {
        const QStringList texts = days.value(day);
        for (const QString& text : texts)
            rows << Row{ Kind::Field, day.toString(Qt::ISODate), text };
    }
    return rows;
}

PlanDetails::Rows PlanDetails::historyRows(const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return {};
    // One more, to know whether there are more.
    const auto entries = HistoryStore(ClientSession::instance().database()).ofPlan(*number, MostEntries + 1);
    Rows rows{ { Kind::Heading, QString(), tr("历史") } };
    if (!entries)
        return rows << Row{ Kind::Text, QString(), errorText(entries.status()) };
    const int hidden = qMax(0, static_cast<int>(entries->size()) - MostEntries);
    if (hidden > 0)
        rows << Row{ Kind::Text, QString(), tr("最近的%1条，全部历史见命令plandesk history").arg(MostEntries) };
    const QVector<HistoryEntry> shown = entries->mid(hidden);
    for (const HistoryEntry& entry : shown)
        rows << Row{ Kind::Entry, HistoryTexts::timeText(entry.time),
            QStringLiteral("%1 %2").arg(entry.user, HistoryTexts::event(entry)) };
    return rows;
}

void PlanDetails::show(const Rows& rows)
{
    auto* const room = new QWidget;
    auto* const layout = new QFormLayout(room);
    layout->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const Row& row : rows)
        add(row, layout);
    setWidget(room);
    // The skin paints the window; the scroll area's own background would cover it.
    room->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void PlanDetails::add(const Row& row, QFormLayout* rows)
{
    if (row.kind == Kind::Heading) {
        rows->addRow(newHeading(row.text));
        return;
    }
    QLabel* const value = newValue(row.text);
    if (row.kind == Kind::Text) {
        rows->addRow(value);
        return;
    }
    QLabel* const caption = newCaption(row.caption);
    caption->setBuddy(value);
    if (row.kind == Kind::Field) {
        caption->setAlignment(Qt::AlignRight | Qt::AlignTop);
        rows->addRow(caption, value);
        return;
    }
    // One below the other: a time beside it would take half of the width.
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addWidget(caption);
    lines->addWidget(value);
    rows->addRow(lines);
}
