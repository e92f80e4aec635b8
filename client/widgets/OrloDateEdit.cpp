#include "OrloDateEdit.h"

#include "DateField.h"
#include "DateRules.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr int RangeMode = 1;

} // namespace

class OrloDateEdit::Private {
public:
    explicit Private(OrloDateEdit* q);

    void setMode(int mode);
    void updateMarks();
    Status checkEnd(const QDate& date) const;
    void startChosen(const QDate& date);

    DateRules rules;
    DateField* start;
    QLabel* to;
    DateField* end;
    DateField* single;
};

OrloDateEdit::Private::Private(OrloDateEdit* q)
    : start(new DateField(QStringLiteral("start"), tr("开始日期"), q))
    , to(new QLabel(tr("至"), q))
    , end(new DateField(QStringLiteral("end"), tr("结束日期"), q))
    , single(new DateField(QStringLiteral("date"), tr("日期"), q))
{
    auto* row = new QHBoxLayout(q);
    row->setContentsMargins(2, 0, 2, 0);
    row->setSpacing(4);
    row->addWidget(start, 1);
    row->addWidget(to);
    row->addWidget(end, 1);
    row->addWidget(single, 1);
    const auto check = [this](const QDate& date) { return rules.check(date); };
    start->setCheck(check);
    single->setCheck(check);
    end->setCheck([this](const QDate& date) { return checkEnd(date); });
    end->setCountedFrom([this] { return start->date(); });
    connect(start, &DateField::dateChosen, q, [this](const QDate& date) { startChosen(date); });
}

void OrloDateEdit::Private::setMode(int mode)
{
    const bool range = mode == RangeMode;
    start->setVisible(range);
    to->setVisible(range);
    end->setVisible(range);
    single->setVisible(!range);
}

void OrloDateEdit::Private::updateMarks()
{
    for (DateField* field : { start, end, single })
        field->updateMark();
}

Status OrloDateEdit::Private::checkEnd(const QDate& date) const
{
    if (start->date().isValid() && date.isValid() && date < start->date())
        return { Error::LastBeforeFirst, { dateText(start->date()) } };
    return rules.check(date);
}

/// A range cannot end before it begins: a later start moves the end, with a hint.
void OrloDateEdit::Private::startChosen(const QDate& date)
{
    if (end->date().isValid() && end->date() < date) {
        end->setDate(date);
        end->forgetEntered();
        end->showHint(tr("结束日期已随开始日期改为%1").arg(dateText(date)));
    }
    updateMarks();
}

OrloDateEdit::OrloDateEdit(QWidget* parent)
    : QFrame(parent)
    , d(std::make_unique<Private>(this))
{
    // A field without a focus policy could not get a place in the tab order.
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(d->single);
    d->setMode(0);
}

OrloDateEdit::~OrloDateEdit() = default;

void OrloDateEdit::SetMode(int mode, bool withTime)
{
    Q_UNUSED(withTime); // plans have no time of day
    d->setMode(mode);
    setFocusProxy(mode == RangeMode ? d->start : d->single);
}

void OrloDateEdit::SetExceptDayOfWeek(const QList<int>& daysOfWeek)
{
    d->rules.exceptDaysOfWeek = daysOfWeek;
    d->updateMarks();
}

void OrloDateEdit::SetExceptDateList(const QList<QDate>& dates)
{
    d->rules.exceptDates = QSet<QDate>(dates.cbegin(), dates.cend());
    d->updateMarks();
}

void OrloDateEdit::SetMinDate(const QDate& date)
{
    d->rules.minimum = date;
    d->updateMarks();
}

void OrloDateEdit::SetMaxDate(const QDate& date)
{
    d->rules.maximum = date;
    d->updateMarks();
}

void OrloDateEdit::SetStartEndDate(const QDate& start, const QDate& end)
{
    d->start->setDate(start);
    d->end->setDate(end);
}

void OrloDateEdit::SetDate(const QDate& date)
{
    d->single->setDate(date);
}

void OrloDateEdit::SetStartCalendarEnabled(bool enabled)
{
    d->start->setEnabled(enabled);
}

QDate OrloDateEdit::GetStartDate() const
{
    return d->start->date();
}

QDate OrloDateEdit::GetEndDate() const
{
    return d->end->date();
}

QDate OrloDateEdit::GetDate() const
{
    return d->single->date();
}
