#include "PanelBox.h"

#include "PlainText.h"

#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int Inset = 6;

} // namespace

PanelBox::PanelBox(const StrategyPanel& panel, QWidget* parent)
    : QFrame(parent)
    , m_contents(new QWidget(this))
    , m_grid(new QGridLayout(m_contents))
{
    setObjectName(QStringLiteral("panelBox"));
    auto* const column = new QVBoxLayout(this);
    const int inset = panel.hasBorder ? Inset : 0;
    column->setContentsMargins(inset, inset, inset, inset);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setColumnStretch(1, 1);
    if (panel.hasBorder)
        setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Plain));
    addTitle(panel);
    column->addWidget(m_contents);
}

void PanelBox::addTitle(const StrategyPanel& panel)
{
    if (panel.isCollapsible) {
        m_button = new QToolButton(this);
        m_button->setObjectName(QStringLiteral("panelTitle"));
        m_button->setText(panel.title.isEmpty() ? PanelBox::tr("更多") : panel.title);
        m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        m_button->setCheckable(true);
        m_button->setAutoRaise(true);
        m_button->setFocusPolicy(Qt::StrongFocus);
        layout()->addWidget(m_button);
        connect(m_button, &QToolButton::toggled, this, &PanelBox::setExpanded);
        m_button->setChecked(!panel.isCollapsed);
        setExpanded(!panel.isCollapsed);
    } else if (!panel.title.isEmpty()) {
        QLabel* const title = PlainText::newLabel(panel.title, this);
        QFont font = title->font();
        font.setBold(true);
        title->setFont(font);
        layout()->addWidget(title);
    }
}

void PanelBox::setExpanded(bool isExpanded)
{
    m_button->setArrowType(isExpanded ? Qt::DownArrow : Qt::RightArrow);
    m_button->setAccessibleDescription(isExpanded ? PanelBox::tr("已展开") : PanelBox::tr("已折叠"));
    m_contents->setVisible(isExpanded);
}

void PanelBox::expand()
{
    if (m_button)
        m_button->setChecked(true);
}
