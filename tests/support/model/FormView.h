#pragma once

#include "FormState.h"

class QWidget;

namespace model {

/// Reads a form: every widget is found once, by its name and of its class.
class FormView {
public:
    /// Aborts the test program when a widget is missing or of another class: a form without it proves nothing.
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
