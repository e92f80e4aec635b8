#include "HostileTexts.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QTextDocument>

using namespace HostileTexts;

namespace {

void addItems(const QAbstractItemView& view, Finding& finding)
{
    const QAbstractItemModel* const model = view.model();
    for (int row = 0; model && row < qMin(model->rowCount(), 50); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            finding.add(view.objectName() + QStringLiteral(" item"), index.data().toString(), false);
            for (const int role : { Qt::ToolTipRole, Qt::WhatsThisRole })
                finding.add(view.objectName() + QStringLiteral(" item's tip"), index.data(role).toString());
        }
    }
}

} // namespace

QString HostileTexts::hostile(const QString& text)
{
    return Tag + QStringLiteral("\"/dev/stdin\">%1<br>").arg(text);
}

void Finding::add(const QString& place, const QString& text, bool isRich)
{
    QTextDocument shown;
    if (isRich)
        shown.setHtml(text);
    else
        shown.setPlainText(text);
    if (text.contains(Tag) || shown.toPlainText().contains(Tag))
        places << place;
    if (text.contains(Tag) && !shown.toPlainText().contains(Tag))
        rich << place;
}

void Finding::add(const QString& place, const QString& text)
{
    add(place, text, Qt::mightBeRichText(text));
}

Finding HostileTexts::lookAtWidgets()
{
    Finding finding;
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* const widget : widgets) {
        const QString name =
            QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
        finding.add(name + QStringLiteral(" tool tip"), widget->toolTip());
        finding.add(name + QStringLiteral(" What's This"), widget->whatsThis());
        if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
            const Qt::TextFormat format = label->textFormat();
            finding.add(name, label->text(),
                format == Qt::AutoText ? Qt::mightBeRichText(label->text()) : format != Qt::PlainText);
        }
        if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget))
            addItems(*view, finding);
    }
    return finding;
}
