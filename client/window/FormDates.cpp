#include "FormDates.h"

#include "DateField.h"
#include "VorSearchBox.h"

#include <QVector>

#include <utility>

// The form's own order has them at the end.
void FormDates::tabThrough(const QWidget& form)
{
    auto* before = form.findChild<QWidget*>(QStringLiteral("combx_assignTo"));
    for (const char* const name : { "date_effectivePeriod_Multi", "date_effectivePeriod_Single" }) {
        auto* const dates = form.findChild<QWidget*>(QLatin1String(name));
        QWidget::setTabOrder(before, dates);
        before = dates;
    }
}

// With another security the editor sets the first dates that its exchange offers.
void FormDates::keepEntered(const QWidget& form)
{
    const auto* const box = form.findChild<VorSearchBox*>(QStringLiteral("le_symbol"));
    QObject::connect(box, &VorSearchBox::selectStockCodeChange, &form, [&form] {
        // A start may move the end, which then forgets what was entered.
        QVector<std::pair<DateField*, QString>> entered;
        const QList<DateField*> dates = form.findChildren<DateField*>();
        for (DateField* const date : dates) {
            if (const auto text = date->entered())
                entered.append({ date, *text });
        }
        for (const auto& [date, text] : qAsConst(entered))
            date->enter(text);
    });
}

void FormDates::forgetEntered(const QWidget& form)
{
    const QList<DateField*> dates = form.findChildren<DateField*>();
    for (DateField* const date : dates)
        date->forgetEntered();
}
