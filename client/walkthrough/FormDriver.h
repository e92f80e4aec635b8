#pragma once

#include "PlanForm.h"

#include <QStringList>
#include <QWidget>

#include <functional>

class QComboBox;
class QLineEdit;

/// Gives a window the keyboard focus; returns false on failure.
bool takeKeyboard(QWidget* window);

/// Fills in the plan editor by mouse and key events on its widgets, like a trader, and reads back what it shows. Finds
/// widgets by their object names.
class FormDriver {
public:
    /// `form` is the editor; it must be visible and outlive the driver.
    explicit FormDriver(QWidget* form);

    /// Called with the window of the algorithm parameters before it is confirmed.
    void setOnPanel(const std::function<void(QWidget*)>& onPanel) { m_onPanel = onPanel; }

    /// Fills in all given values from top to bottom.
    void fill(const PlanForm& plan);
    /// Presses OK; returns when the resulting boxes have been answered.
    void confirm();
    void cancel();

    /// The following functions fill in one field.
    void choose(const char* box, const QString& code);
    void chooseText(const char* box, const QString& text);
    void type(const char* field, const QString& text);
    void enterSymbol(const QString& symbol);
    void setAlgorithm(const QString& strategy, const QMap<QString, QString>& parameters);
    /// Moves a date by trading days that the form allows; negative steps go back.
    void stepDate(const char* field, const char* line, int days);

    /// The dates that the form shows.
    ShownDates dates() const;
    /// What failed since the last call, one sentence each.
    QStringList takeProblems();

    /// The widget of a name within the form; null, with a problem reported, if there is none.
    template <class Widget> Widget* find(const char* name)
    {
        auto* const found = m_form->findChild<Widget*>(QLatin1String(name));
        if (!found)
            m_problems << QStringLiteral("表单中没有控件%1").arg(QLatin1String(name));
        return found;
    }

private:
    void takeForm();
    void chooseRow(QComboBox* box, int row);
    void chooseBySearch(QComboBox* box, const QString& text);
    void typeInto(QWidget* field, const QString& text);
    void typeCharacters(QWidget* field, const QString& text);
    void fillPrices(const PlanForm& plan);
    void fillTargets(const PlanForm& plan);
    void fillDates(const PlanForm& plan);

    QWidget* m_form;
    std::function<void(QWidget*)> m_onPanel;
    QStringList m_problems;
};
