#pragma once

#include "FormState.h"

class QWidget;

namespace model {

/// Reads a form. Finds every widget once, by name and class.
class FormView {
public:
    /// Aborts the test program if a widget is missing or of another class, because the test cannot continue.
    explicit FormView(const QWidget& form);

    template <class Class> Class* at(Widget widget) const
    {
        return static_cast<Class*>(m_widgets.at(static_cast<std::size_t>(widget)));
    }
    FormState state() const;

private:
    QString textOf(Widget widget) const;

    const QWidget& m_form;
    std::array<QWidget*, WidgetCount> m_widgets{};
};

} // namespace model
