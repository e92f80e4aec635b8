#include "FormView.h"

#include "EditorForm.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "OrloFormulaNormal.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QLabel>

namespace model {

namespace {

QList<QDate> datesOf(const QVariant& property)
{
    QList<QDate> dates;
    for (const QVariant& date : property.toList())
        dates.append(date.toDate());
    return dates;
}

DateState read(const OrloDateEdit& edit)
{
    DateState state;
    state.start = edit.GetStartDate();
    state.end = edit.GetEndDate();
    state.date = edit.GetDate();
    state.earliest = edit.property("minDate").toDate();
    state.latest = edit.property("maxDate").toDate();
    state.excluded = datesOf(edit.property("exceptDates"));
    const QVariant isFree = edit.property("startCalendarEnabled");
    state.startIsFree = !isFree.isValid() || isFree.toBool();
    return state;
}

BoxState read(const QComboBox& box)
{
    BoxState state;
    state.current = box.currentIndex();
    for (int i = 0; i < box.count(); ++i)
        state.items.append(Item{ box.itemText(i), box.itemData(i, Qt::UserRole).toString() });
    return state;
}

NumberState read(const OrloDecimalLineEdit& edit)
{
    NumberState state;
    state.value = edit.value();
    state.decimals = edit.decimals();
    state.text = edit.GetStrValue();
    return state;
}

} // namespace

FormView::FormView(const QWidget& form)
    : m_form(form)
{
    for (int i = 0; i < WidgetCount; ++i) {
        const QByteArray name = nameOf(static_cast<Widget>(i)).toLatin1();
        QWidget*& found = m_widgets.at(static_cast<std::size_t>(i));
        if (i < BoxCount)
            found = field<QComboBox>(form, name);
        else if (i < Range)
            found = field<OrloDecimalLineEdit>(form, name);
        else if (i < Symbol)
            found = field<OrloDateEdit>(form, name);
        else if (i < AlgoButton)
            found = field<QLineEdit>(form, name);
        else if (i < FundAccountLabel)
            found = field<QAbstractButton>(form, name);
        else if (i < SymbolPlace)
            found = field<QLabel>(form, name);
        else
            found = field<QWidget>(form, name);
    }
}

QString FormView::textOf(Widget widget) const
{
    if (widget < Symbol || widget >= SymbolPlace)
        return {};
    if (widget < AlgoButton)
        return at<QLineEdit>(widget)->text();
    return widget < FundAccountLabel ? at<QAbstractButton>(widget)->text() : at<QLabel>(widget)->text();
}

FormState FormView::state() const
{
    FormState state;
    for (int i = 0; i < WidgetCount; ++i) {
        const auto widget = static_cast<Widget>(i);
        const QWidget* const real = at<QWidget>(widget);
        state.widgets.at(static_cast<std::size_t>(i)) =
            WidgetState{ real->isVisibleTo(&m_form), real->isEnabled(), textOf(widget) };
    }
    for (int i = 0; i < BoxCount; ++i)
        state.boxes.at(static_cast<std::size_t>(i)) = read(*at<QComboBox>(static_cast<Widget>(i)));
    for (int i = 0; i < NumberCount; ++i)
        state.numbers.at(static_cast<std::size_t>(i)) =
            read(*at<OrloDecimalLineEdit>(static_cast<Widget>(TargetTotal + i)));
    state.range = read(*at<OrloDateEdit>(Range));
    state.single = read(*at<OrloDateEdit>(Single));
    const auto* const price1 = static_cast<OrloFormulaNormal*>(at<QLineEdit>(Price1));
    const auto* const price2 = static_cast<OrloFormulaNormal*>(at<QLineEdit>(Price2));
    state.functions1 = price1->FunctionItems();
    state.functions2 = price2->FunctionItems();
    state.names1 = price1->FormulaItems();
    state.names2 = price2->FormulaItems();
    state.symbol = static_cast<VorSearchBox*>(at<QLineEdit>(Symbol))->getSymbol();
    return state;
}

} // namespace model
