#include "AdvisorSide.h"

#include "AdvisorPanel.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QSettings>
#include <QShortcut>
#include <QToolButton>

namespace {

const QString IsShown = QStringLiteral("advisor/isShown");

/// The user's settings of the program.
QSettings settings()
{
    return QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
}

} // namespace

AdvisorSide::AdvisorSide(QWidget* form)
    : QWidget(form)
    , m_toggle(new QToolButton(this))
    , m_area(new QScrollArea(this))
    , m_panel(new AdvisorPanel(m_area))
{
    m_toggle->setObjectName(QStringLiteral("advisorToggle"));
    m_toggle->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    m_toggle->setFixedWidth(ToggleWidth);
    m_toggle->setAutoRaise(true);
    m_toggle->setFocusPolicy(Qt::NoFocus);
    connect(new QShortcut(QKeySequence(Qt::Key_F7), form), &QShortcut::activated, m_toggle, &QToolButton::click);
    m_area->setWidget(m_panel);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setMinimumWidth(m_panel->minimumSizeHint().width());
    auto* const halves = new QHBoxLayout(this);
    halves->setContentsMargins(QMargins());
    halves->setSpacing(0);
    halves->addWidget(m_toggle);
    halves->addWidget(m_area);
    setShown(settings().value(IsShown, true).toBool());
    connect(m_toggle, &QToolButton::clicked, this, [this] {
        const int before = wantedWidth();
        setShown(m_area->isHidden());
        settings().setValue(IsShown, !m_area->isHidden());
        Q_EMIT shown(wantedWidth() - before);
    });
}

int AdvisorSide::wantedWidth() const
{
    return ToggleWidth + (m_area->isHidden() ? 0 : m_panel->sizeHint().width());
}

// On a narrow screen there is no room for both.
void AdvisorSide::fitInto(int width)
{
    if (width < ToggleWidth + m_area->minimumWidth())
        m_area->hide();
}

bool AdvisorSide::focusNext()
{
    return !m_area->isHidden() && m_panel->focusNext();
}

void AdvisorSide::setShown(bool shows)
{
    m_area->setVisible(shows);
    m_toggle->setArrowType(shows ? Qt::RightArrow : Qt::LeftArrow);
    const QString action = shows ? tr("隐藏顾问") : tr("显示顾问");
    m_toggle->setAccessibleName(action);
    m_toggle->setToolTip(tr("%1（F7）").arg(action));
}
