#include "DateField.h"

#include "ClientClock.h"
#include "DateRules.h"
#include "ErrorText.h"
#include "FieldHint.h"
#include "FieldMark.h"
#include "PlainText.h"
#include "Popups.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStyle>

namespace {

constexpr auto WidestText = "0000-00-00 ";

QString inWords(const QDate& date)
{
    const QStringList days{ DateField::tr("周一"), DateField::tr("周二"), DateField::tr("周三"), DateField::tr("周四"),
        DateField::tr("周五"), DateField::tr("周六"), DateField::tr("周日") };
    return dateText(date) + QLatin1Char(' ') + days.at(date.dayOfWeek() - 1);
}

/// Whether a text names a day that cannot be chosen. Other texts may be unfinished.
bool isAboutADay(const Status& status)
{
    return !status && status.error() != Error::DateMalformed && status.error() != Error::NoSuchDate;
}

} // namespace

DateField::DateField(const QString& objectName, const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_edit(new QLineEdit(this))
    , m_button(new QToolButton(this))
    , m_check([](const QDate& date) { return DateRules().check(date); })
{
    m_edit->setObjectName(QStringLiteral("le_") + objectName);
    m_edit->setAccessibleName(title);
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
    connect(m_edit, &QLineEdit::textEdited, this, &DateField::readTyped);
}

void DateField::setCheck(const DateCheck& check)
{
    m_check = check;
}

void DateField::setCountedFrom(const std::function<QDate()>& date)
{
    m_countedFrom = date;
}

void DateField::setDate(const QDate& date)
{
    FieldHint::hideAt(this);
    m_date = date;
    m_announced = date;
    m_refusal = Status();
    m_edit->setText(dateText(date));
    updateMark();
}

void DateField::enter(const QString& text)
{
    m_entered = text;
    if (text == m_edit->text())
        return;
    m_edit->setText(text);
    applyTyped();
}

QDate DateField::date() const
{
    return m_date;
}

void DateField::updateMark()
{
    m_edit->ensurePolished();
    m_edit->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1String(WidestText)) + 4);
    if (!m_refusal)
        return;
    FieldMark::refuseInput(m_edit, QString());
    const Status status = m_date.isValid() ? m_check(m_date) : Status();
    m_edit->setToolTip(PlainText::toolTip(errorText(status)));
    FieldMark::set(m_edit, FieldMark::Refused, !status);
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
    const bool changed = date != m_announced;
    m_entered = dateText(date);
    setDate(date);
    if (changed)
        Q_EMIT dateChosen(date);
}

/// The date that the text means, if it can be chosen; an invalid one for an empty text.
Result<QDate> DateField::typedDay() const
{
    if (m_edit->text().trimmed().isEmpty())
        return QDate();
    const QDate counted = m_countedFrom ? m_countedFrom() : QDate();
    const QDate today = clientToday();
    const Result<QDate> typed = typedDate(m_edit->text(), { today, counted.isValid() ? counted : today }, m_check);
    if (!typed)
        return typed;
    const Status status = m_check(*typed);
    return status ? typed : status;
}

/// The date follows every key, so that no earlier one is taken for what is typed.
void DateField::readTyped()
{
    FieldHint::hideAt(this);
    m_entered = m_edit->text();
    const Result<QDate> day = typedDay();
    m_date = day.valueOr(QDate());
    m_refusal = Status();
    updateMark();
    FieldMark::refuseInput(m_edit, errorText(day.status()));
    if (isAboutADay(day.status()))
        FieldHint::showAt(this, errorText(day.status()), FieldHint::UntilHidden);
    if (m_date.isValid() && m_edit->text() != dateText(m_date))
        FieldHint::showAt(this, QStringLiteral("= ") + inWords(m_date), FieldHint::UntilHidden);
}

/// Takes the typed date if it can be chosen; otherwise the text stays, and there is no date.
bool DateField::applyTyped()
{
    if (m_refusal && m_announced == m_date && m_edit->text() == dateText(m_date))
        return true;
    const Result<QDate> day = typedDay();
    if (day) {
        take(*day);
        return true;
    }
    const QDate meant = typedDate(m_edit->text(), { clientToday(), clientToday() }, m_check).valueOr(QDate());
    m_offer = meant.isValid() ? nearestChoosable(meant, m_check) : QDate();
    m_refusal = day.status();
    m_date = QDate();
    showRefusal(m_edit->hasFocus() ? FieldHint::UntilHidden : FieldHint::ForSeconds);
    if (m_announced.isValid()) {
        m_announced = QDate();
        Q_EMIT dateChosen(QDate());
    }
    return false;
}

void DateField::showRefusal(FieldHint::Duration duration)
{
    const QString reason = errorText(m_refusal);
    FieldMark::refuseInput(m_edit, reason);
    FieldMark::set(m_edit, FieldMark::Refused, true);
    const QString offer = m_offer.isValid() ? tr("，按↑键或点击此处改为%1").arg(inWords(m_offer)) : QString();
    FieldHint::showAt(this, reason + offer, duration);
    if (m_offer.isValid())
        FieldHint::setClick(this, [this] { takeOffer(); });
}

void DateField::takeOffer()
{
    if (!m_refusal && m_offer.isValid())
        take(m_offer);
}

void DateField::step(int days)
{
    if (!applyTyped() || !m_date.isValid())
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
    if (watched != m_edit)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        return handleKey(key->key(), key->modifiers());
    }
    case QEvent::FocusIn:
        m_clicked = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
        if (!m_refusal)
            showRefusal(FieldHint::UntilHidden);
        break;
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason)
            applyTyped();
        // Another window may be over the field.
        if (reason == Qt::ActiveWindowFocusReason)
            FieldHint::hideAt(this);
        break;
    }
    case QEvent::MouseButtonRelease:
        selectUntouched();
        break;
    default:
        break;
    }
    return false;
}

/// The click that gives an unchanged field the focus selects its date, so that the next key replaces it.
void DateField::selectUntouched()
{
    if (m_clicked && m_edit->text() == dateText(m_announced) && !m_edit->hasSelectedText())
        m_edit->selectAll();
    m_clicked = false;
}

bool DateField::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_edit->text() == dateText(m_announced))
            return false;
        applyTyped();
        return true;
    case Qt::Key_Up:
        if (m_refusal)
            step(1);
        else
            takeOffer();
        return true;
    case Qt::Key_Down:
        if (modifiers & Qt::AltModifier)
            openCalendar();
        else
            step(-1);
        return true;
    default:
        return false;
    }
}
