#include "PlanHeader.h"

#include "PlanColumns.h"

#include <QAction>
#include <QMenu>
#include <QSettings>

namespace {

constexpr int CellMargin = 14;

const QString StoredColumns = QStringLiteral("planTable/columns");

QSettings settings()
{
    return QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
}

} // namespace

PlanHeader::PlanHeader(QWidget* table)
    : QHeaderView(Qt::Horizontal, table)
{
    setStretchLastSection(true);
    setHighlightSections(false);
    setSectionsClickable(true);
    setSectionsMovable(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void PlanHeader::setUp()
{
    // Measuring the rows would read them all.
    const QFontMetrics metrics = parentWidget()->fontMetrics();
    for (int column = 0; column < PlanColumns::Count; ++column)
        resizeSection(column, metrics.horizontalAdvance(PlanColumns::sample(column)) + CellMargin);
    restore();
    connect(this, &QHeaderView::customContextMenuRequested, this, &PlanHeader::showMenu);
    connect(this, &QHeaderView::sectionMoved, this, &PlanHeader::save);
    connect(this, &QHeaderView::sectionResized, this, [this](int column) {
        // The last one takes what the others leave.
        if (column != lastColumn())
            save();
    });
}

int PlanHeader::lastColumn() const
{
    int place = PlanColumns::Count - 1;
    while (isSectionHidden(logicalIndex(place)))
        --place;
    return logicalIndex(place);
}

// The names of the shown columns from left to right, each with its width.
void PlanHeader::restore()
{
    const QStringList stored = settings().value(StoredColumns).toStringList();
    if (stored.isEmpty())
        return;
    for (int column = 0; column < PlanColumns::Count; ++column)
        setSectionHidden(column, stored.filter(PlanColumns::name(column) + QLatin1Char(' ')).isEmpty());
    int place = 0;
    for (const QString& text : stored) {
        for (int column = 0; column < PlanColumns::Count; ++column) {
            if (text.section(QLatin1Char(' '), 0, 0) != PlanColumns::name(column))
                continue;
            moveSection(visualIndex(column), place++);
            resizeSection(column, qMax(minimumSectionSize(), text.section(QLatin1Char(' '), 1).toInt()));
        }
    }
}

void PlanHeader::save() const
{
    QStringList stored;
    for (int place = 0; place < PlanColumns::Count; ++place) {
        const int column = logicalIndex(place);
        if (!isSectionHidden(column))
            stored << QStringLiteral("%1 %2").arg(PlanColumns::name(column), QString::number(sectionSize(column)));
    }
    settings().setValue(StoredColumns, stored);
}

// One column is always shown, so that the header can be reached.
void PlanHeader::showMenu(const QPoint& place)
{
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("columnMenu"));
    const bool isLast = hiddenSectionCount() == PlanColumns::Count - 1;
    for (int column = 0; column < PlanColumns::Count; ++column) {
        QAction* const action = menu.addAction(PlanColumns::title(column));
        action->setCheckable(true);
        action->setChecked(!isSectionHidden(column));
        action->setEnabled(!isLast || isSectionHidden(column));
        connect(action, &QAction::toggled, this, [this, column](bool shows) {
            setSectionHidden(column, !shows);
            save();
        });
    }
    menu.exec(viewport()->mapToGlobal(place));
}
