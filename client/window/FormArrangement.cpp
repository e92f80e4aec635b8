#include "FormArrangement.h"

#include "Appearance.h"
#include "PlainText.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>

namespace {

QLabel* captionOf(const QGridLayout& section, int row)
{
    QLayoutItem* const item = section.itemAtPosition(row, 0);
    return item ? qobject_cast<QLabel*>(item->widget()) : nullptr;
}

int captionWidth(const QGridLayout& section)
{
    int widest = 0;
    for (int row = 0; row < section.rowCount(); ++row) {
        if (captionOf(section, row))
            widest = qMax(widest, section.itemAtPosition(row, 0)->sizeHint().width());
    }
    return widest;
}

void widenCaptions(QGridLayout* section, int width)
{
    if (section->columnMinimumWidth(0) == width)
        return;
    section->setColumnMinimumWidth(0, width);
    for (int row = 0; row < section->rowCount(); ++row) {
        QLabel* const caption = captionOf(*section, row);
        if (caption && caption->maximumWidth() < QWIDGETSIZE_MAX)
            section->setAlignment(caption, Qt::AlignRight);
    }
}

/// The grids of the form itself; the panel of the algorithm is a window of its own.
QList<QGridLayout*> sectionsOf(const QWidget& form)
{
    QList<QGridLayout*> sections;
    const QList<QGridLayout*> grids = form.findChildren<QGridLayout*>();
    for (QGridLayout* const grid : grids) {
        if (grid->parentWidget()->window() == form.window())
            sections << grid;
    }
    return sections;
}

} // namespace

void FormArrangement::lineUpCaptions(const QWidget& form)
{
    const QList<QGridLayout*> sections = sectionsOf(form);
    int widest = 0;
    for (const QGridLayout* const section : sections)
        widest = qMax(widest, captionWidth(*section));
    for (QGridLayout* const section : sections)
        widenCaptions(section, widest);
}

void FormArrangement::fitNarrowLabels(const QWidget& form)
{
    const QList<QLabel*> labels = form.findChildren<QLabel*>();
    for (QLabel* const label : labels) {
        if (label->maximumWidth() == QWIDGETSIZE_MAX)
            continue;
        const QFont fitted = fittedFont(label->parentWidget()->font(), label->text(), label->maximumWidth());
        if (fitted != label->font())
            label->setFont(fitted);
    }
}

void FormArrangement::explainSteps(const QWidget& form)
{
    for (const char* const name : { "label_targetQtyStep", "label_maxEntrustQtyStep" }) {
        auto* const label = form.findChild<QLabel*>(QLatin1String(name));
        const QString step = label->text();
        const QString rule = QCoreApplication::translate("EditorDialog", "应为%1的整数倍").arg(step);
        label->setToolTip(step.isEmpty() ? QString() : PlainText::toolTip(rule));
    }
}
