#pragma once

#include <QWidget>

class AdvisorPanel;
class QScrollArea;
class QToolButton;

/// The advisor beside a form, and the bar that hides and shows it, also on F7. The client remembers which.
class AdvisorSide : public QWidget {
    Q_OBJECT

public:
    /// Of the bar.
    static constexpr int ToggleWidth = 16;

    explicit AdvisorSide(QWidget* form);

    AdvisorPanel* panel() const { return m_panel; }
    int wantedWidth() const;
    /// Hides the advisor if it does not fit into a width.
    void fitInto(int width);
    /// Gives the focus to the advisor's next table; returns false after the last one.
    bool focusNext();

Q_SIGNALS:
    /// The trader has shown or hidden the advisor, which changes the wanted width.
    void shown(int more);

private:
    void setShown(bool shows);

    QToolButton* m_toggle;
    QScrollArea* m_area;
    AdvisorPanel* m_panel;
};
