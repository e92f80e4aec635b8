#include "CalendarPopup.h"

#include "ClientClock.h"
#include "DateRules.h"
#include "ErrorText.h"
#include "PlainText.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace {

constexpr int DaysInWeek = 7;
constexpr int WeeksShown = 6;

QDate firstOfMonth(const QDate& date)
{
    return { date.year(), date.month(), 1 };
}

} // namespace

CalendarPopup::CalendarPopup(const DateCheck& check, const QDate& shown, QWidget* field)
    : QFrame(field, Qt::Popup)
    , m_check(check)
    , m_title(new QLabel(this))
{
    setObjectName(QStringLiteral("calendarPopup"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    setAttribute(Qt::WA_StyledBackground);
    setFocusPolicy(Qt::StrongFocus);
    build();
    const QDate around = shown.isValid() ? shown : clientToday();
    m_marked = nearestChoosable(around, m_check);
    showMonth(m_marked.isValid() ? m_marked : around);
    // `adjustSize()` is limited to two thirds of the screen and would cut off days at a large zoom.
    ensurePolished();
    resize(sizeHint());
}

void CalendarPopup::build()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->setSpacing(1);
    addHead(grid);
    const int side = fontMetrics().horizontalAdvance(QStringLiteral("000")) + 10;
    for (int i = 0; i < DaysInWeek * WeeksShown; ++i) {
        auto* day = new QToolButton(this);
        day->setFocusPolicy(Qt::NoFocus);
        day->setCheckable(true);
        day->setAutoRaise(true);
        day->setMinimumSize(side, fontMetrics().height() + 6);
        day->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(day, &QToolButton::clicked, this, [this, day] { choose(dateFromText(day->accessibleName())); });
        grid->addWidget(day, 2 + i / DaysInWeek, i % DaysInWeek);
        m_days.append(day);
    }
}

void CalendarPopup::addHead(QGridLayout* grid)
{
    m_title->setObjectName(QStringLiteral("calendarMonth"));
    m_title->setAlignment(Qt::AlignCenter);
    grid->addWidget(newMonthButton(QStringLiteral("btnPreviousMonth"), QStringLiteral("‹"), tr("上个月"), -1), 0, 0);
    grid->addWidget(m_title, 0, 1, 1, DaysInWeek - 2);
    const QString next = QStringLiteral("btnNextMonth");
    grid->addWidget(newMonthButton(next, QStringLiteral("›"), tr("下个月"), 1), 0, DaysInWeek - 1);
    const QString names = tr("一二三四五六日");
    for (int column = 0; column < DaysInWeek; ++column) {
        auto* name = new QLabel(names.mid(column, 1), this);
        name->setAlignment(Qt::AlignCenter);
        grid->addWidget(name, 1, column);
    }
}

QToolButton* CalendarPopup::newMonthButton(
    const QString& objectName, const QString& sign, const QString& name, int months)
{
    auto* button = new QToolButton(this);
    button->setObjectName(objectName);
    button->setText(sign);
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoRaise(true);
    connect(button, &QToolButton::clicked, this, [this, months] { showMonth(m_month.addMonths(months)); });
    return button;
}

void CalendarPopup::showMonth(const QDate& day)
{
    setAccessibleName(m_marked.isValid() ? tr("日历，%1").arg(dateText(m_marked)) : tr("日历"));
    m_month = firstOfMonth(day);
    m_title->setText(tr("%1年%2月").arg(m_month.year()).arg(m_month.month()));
    QDate date = m_month.addDays(1 - m_month.dayOfWeek());
    for (QToolButton* button : qAsConst(m_days)) {
        showDay(button, date);
        date = date.addDays(1);
    }
}

void CalendarPopup::showDay(QToolButton* button, const QDate& date)
{
    const Status status = m_check(date);
    button->setObjectName(QStringLiteral("day_") + dateText(date));
    button->setAccessibleName(dateText(date));
    button->setText(QString::number(date.day()));
    button->setEnabled(static_cast<bool>(status));
    button->setToolTip(PlainText::toolTip(errorText(status)));
    button->setChecked(date == m_marked);
    button->setVisible(date.month() == m_month.month());
}

void CalendarPopup::mark(const QDate& date)
{
    if (!date.isValid())
        return;
    m_marked = date;
    showMonth(date);
}

/// Marks the same day of another month, or the nearest one in that direction.
void CalendarPopup::markMonth(int months)
{
    const QDate base = (m_marked.isValid() ? m_marked : m_month).addMonths(months);
    if (m_check(base)) {
        mark(base);
        return;
    }
    const QDate ahead = nextChoosable(base, months, m_check);
    mark(ahead.isValid() ? ahead : nextChoosable(base, -months, m_check));
}

void CalendarPopup::choose(const QDate& date)
{
    if (!date.isValid() || !m_check(date))
        return;
    Q_EMIT dateChosen(date);
    close();
}

void CalendarPopup::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        mark(nextChoosable(m_marked, -1, m_check));
        break;
    case Qt::Key_Right:
        mark(nextChoosable(m_marked, 1, m_check));
        break;
    case Qt::Key_Up:
        mark(nextChoosable(m_marked, -DaysInWeek, m_check));
        break;
    case Qt::Key_Down:
        mark(nextChoosable(m_marked, DaysInWeek, m_check));
        break;
    case Qt::Key_PageUp:
        markMonth(-1);
        break;
    case Qt::Key_PageDown:
        markMonth(1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(m_marked);
        break;
    case Qt::Key_Escape:
        close();
        break;
    default:
        QFrame::keyPressEvent(event);
    }
}
