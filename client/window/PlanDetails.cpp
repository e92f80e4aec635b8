#include "PlanDetails.h"

#include "ClientSession.h"
#include "ErrorText.h"
#include "HistoryTexts.h"
#include "InstructionTargetType.h"
#include "OrloHintLabel.h"
#include "Orlo_Fields.h"
#include "PlainText.h"
#include "PlanCodes.h"
#include "PlanFormatter.h"

#include <QFormLayout>
#include <QVBoxLayout>

using namespace PlanCodes;

namespace {

// More would take seconds to lay out; `plandesk history` prints everything.
constexpr int LongestText = 2000;
constexpr int MostEntries = 100;

QString shortened(const QString& text)
{
    if (text.size() <= LongestText)
        return text;
    return QStringLiteral("%1……（共%2字）").arg(text.left(LongestText), QString::number(text.size()));
}

using Fields = InstructionStore::Fields;

QString instructionText(const Fields& fields)
{
    const auto field = [&fields](const QString& key) { return fields.value(key).toString(); };
    const bool byAmount = field(FieldId::TargetType) == InstructionTargetType::AmountOrder;
    const QString issued = byAmount ? field(FieldId::IssuedAmount) : field(FieldId::IssuedQty);
    const QString filled = byAmount ? field(Orlo_Fields::Security::cumAmount) : field(FieldId::FilledQty);
    const QString state =
        field(FieldId::EndState) == EndState::Ended ? QStringLiteral("已结束") : QStringLiteral("进行中");
    return QStringLiteral("下达 %1，成交 %2，%3").arg(issued, filled, state);
}

QLabel* newCaption(const QString& text)
{
    auto* const label = new OrloHintLabel;
    label->setText(text);
    return label;
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

void PlanDetails::showPlan(const StoredPlan& plan)
{
    auto* const room = new QWidget;
    auto* const rows = new QFormLayout(room);
    rows->setLabelAlignment(Qt::AlignRight | Qt::AlignTop);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    if (plan.id.isEmpty())
        rows->addRow(new QLabel(tr("选择一个计划，查看全部内容。")));
    const auto fields = PlanFormatter(plan).fields();
    for (const auto& field : fields)
        addRow(rows, field.first, field.second);
    addInstructions(rows, plan.id);
    addHistory(rows, plan.id);
    setWidget(room);
    // The skin paints the window; the scroll area's own background would cover it.
    room->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void PlanDetails::addHeading(QFormLayout* rows, const QString& text)
{
    auto* const heading = new QLabel(text);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    rows->addRow(heading);
}

void PlanDetails::addRow(QFormLayout* rows, const QString& caption, const QString& text)
{
    QLabel* const label = newCaption(caption);
    QLabel* const value = newValue(text);
    label->setAlignment(Qt::AlignRight | Qt::AlignTop);
    label->setBuddy(value);
    rows->addRow(label, value);
}

void PlanDetails::addInstructions(QFormLayout* rows, const QString& planId)
{
    const auto instructions = ClientSession::instance().instructions().ofPlan(planId);
    if (instructions && instructions->isEmpty())
        return;
    addHeading(rows, tr("已下达指令"));
    if (!instructions)
        addRow(rows, QString(), errorText(instructions.status()));
    const auto all = instructions.valueOr({});
    for (const Fields& fields : all)
        addRow(rows, fields.value(FieldId::TradeDate).toString(), instructionText(fields));
}

void PlanDetails::addHistory(QFormLayout* rows, const QString& planId)
{
    const auto number = PlanId::toNumber(planId);
    if (!number)
        return;
    // One more, to know whether there are more.
    const auto entries = HistoryStore(ClientSession::instance().database()).ofPlan(*number, MostEntries + 1);
    addHeading(rows, tr("历史"));
    if (!entries) {
        rows->addRow(newValue(errorText(entries.status())));
        return;
    }
    const int hidden = qMax(0, static_cast<int>(entries->size()) - MostEntries);
    if (hidden > 0)
        rows->addRow(newValue(tr("最近的%1条，全部历史见命令plandesk history").arg(MostEntries)));
    const QVector<HistoryEntry> shown = entries->mid(hidden);
    for (const HistoryEntry& entry : shown) {
        QLabel* const time = newCaption(HistoryTexts::timeText(entry.time));
        QLabel* const event = newValue(QStringLiteral("%1 %2").arg(entry.user, HistoryTexts::event(entry)));
        time->setBuddy(event);
        // One below the other: a time beside it would take half of the width.
        auto* const lines = new QVBoxLayout;
        lines->setSpacing(0);
        lines->addWidget(time);
        lines->addWidget(event);
        rows->addRow(lines);
    }
}
