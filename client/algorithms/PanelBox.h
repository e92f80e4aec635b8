#pragma once

#include "StrategyDefinition.h"

#include <QFrame>

class QGridLayout;
class QToolButton;

/// A panel with a border or one that can be collapsed. Its title is a button then.
class PanelBox : public QFrame {
    Q_OBJECT

public:
    PanelBox(const StrategyPanel& panel, QWidget* parent);

    /// Where the contents go.
    QGridLayout* grid() const { return m_grid; }
    QWidget* contents() const { return m_contents; }
    /// Shows the contents.
    void expand();

private:
    void addTitle(const StrategyPanel& panel);
    void setExpanded(bool isExpanded);

    QToolButton* m_button = nullptr;
    QWidget* m_contents = nullptr;
    QGridLayout* m_grid = nullptr;
};
