#include "DateField.h"

#include "DateRules.h"
#include "ErrorText.h"
#include "FieldHint.h"
#include "PlainText.h"
#include "Popups.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStyle>

namespace {

constexpr auto RefusedProperty = "refused";
constexpr auto WidestText = "0000-00-00 ";

} // namespace

DateField::DateField(const QString& objectName, const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_edit(new QLineEdit(this))
    , m_button(new QToolButton(this))
    , m_check([](const QDate& date) { return DateRules().check(date); })
{
    m_edit->setObjectName(QStringLiteral("le_") + objectName);
    m_edit->setAccessibleName(title);
    m_edit->setMaxLength(10);
    m_edit->setFrame(false);
    m_edit->installEventFilter(this);
    m_button->setObjectName(QStringLiteral("btn_") + objectName + QStringLiteral("Calendar"));
    m_button->setArrowType(Qt::DownArrow);
    m_button->setAutoRaise(true);
    m_button->setToolTip(tr("打开日历"));
    m_button->setAccessibleName(title + tr("日历"));
    m_button->setFocusPolicy(Qt::StrongFocus);
    m_button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_edit, 1);
    row->addWidget(m_button);
    setFocusProxy(m_edit);
    connect(m_button, &QToolButton::clicked, this, &DateField::openCalendar);
    connect(m_edit, &QLineEdit::textEdited, this, [this] { FieldHint::hideAt(this); });
}

void DateField::setCheck(const CalendarPopup::Check& check)
{
    m_check = check;
}

void DateField::setDate(const QDate& date)
{
    m_date = date;
    m_edit->setText(dateText(date));
    updateMark();
}

QDate DateField::date() const
{
    return m_date;
}

void DateField::updateMark()
{
    m_edit->ensurePolished();
    m_edit->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1String(WidestText)) + 4);
    const Status status = m_date.isValid() ? m_check(m_date) : Status();
    m_edit->setToolTip(PlainText::toolTip(errorText(status)));
    if (m_edit->property(RefusedProperty).toBool() == !status)
        return;
    m_edit->setProperty(RefusedProperty, !status);
    // Without a skin, the colour is the mark; a skin has its own.
    QPalette colours = palette();
    if (!status)
        colours.setColor(QPalette::Text, Qt::darkRed);
    m_edit->setPalette(colours);
    m_edit->style()->unpolish(m_edit);
    m_edit->style()->polish(m_edit);
}

void DateField::showHint(const QString& text)
{
    FieldHint::showAt(this, text);
}

void DateField::openCalendar()
{
    if (!m_edit->isEnabled() || m_calendar)
        return;
    m_calendar = new CalendarPopup(m_check, m_date, this);
    connect(m_calendar, &CalendarPopup::dateChosen, this, &DateField::take);
    m_calendar->move(popupPlace(this, m_calendar->size()));
    m_calendar->show();
    m_calendar->setFocus(Qt::PopupFocusReason);
}

void DateField::take(const QDate& date)
{
    FieldHint::hideAt(this);
    const bool changed = date != m_date;
    setDate(date);
    if (changed)
        Q_EMIT dateChosen(date);
}

/// Sets the typed date if it is valid; otherwise shows a hint and the previous date.
bool DateField::applyTyped()
{
    if (m_edit->text() == dateText(m_date))
        return true;
    const QDate typed = dateFromText(m_edit->text().trimmed());
    const Status status = m_check(typed);
    if (status) {
        take(typed);
        return true;
    }
    setDate(m_date);
    showHint(errorText(status));
    return false;
}

void DateField::step(int days)
{
    if (!m_date.isValid() || !applyTyped())
        return;
    constexpr int Farthest = 60;
    QDate date = m_date;
    for (int i = 0; i < Farthest; ++i) {
        date = date.addDays(days);
        if (m_check(date)) {
            take(date);
            return;
        }
    }
    showHint(errorText(m_check(m_date.addDays(days))));
}

bool DateField::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_edit && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        return handleKey(key->key(), key->modifiers());
    }
    if (watched == m_edit && event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        applyTyped();
    return QWidget::eventFilter(watched, event);
}

bool DateField::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_edit->text() == dateText(m_date))
            return false;
        applyTyped();
        return true;
    case Qt::Key_Up:
        step(1);
        return true;
    case Qt::Key_Down:
        if (modifiers & Qt::AltModifier)
            openCalendar();
        else
            step(-1);
        return true;
    case Qt::Key_F4:
        openCalendar();
        return true;
    default:
        return false;
    }
}
