#pragma once

#include <QDate>
#include <QFrame>
#include <QList>
#include <memory>

/// A date field, either one date or a range, with a calendar in which what cannot be chosen is greyed out.
class OrloDateEdit : public QFrame {
    Q_OBJECT

public:
    explicit OrloDateEdit(QWidget* parent = nullptr); ///< one date, without bounds
    ~OrloDateEdit() override;

    /// 0: one date; 1: a range of two dates. `withTime` adds the time of day.
    void SetMode(int mode, bool withTime);
    /// Days of the week (1 Monday to 7 Sunday) that cannot be chosen.
    void SetExceptDayOfWeek(const QList<int>& daysOfWeek);
    /// Dates that cannot be chosen; replaces the earlier list.
    void SetExceptDateList(const QList<QDate>& dates);
    /// Bounds; both count as choosable. An invalid date is no bound.
    void SetMinDate(const QDate& date);
    void SetMaxDate(const QDate& date); ///< the last date that can be chosen
    /// Shows a range. A date that cannot be chosen is shown and marked as such, never moved; an invalid one leaves its
    /// field empty.
    void SetStartEndDate(const QDate& start, const QDate& end);
    /// Shows one date; the same holds.
    void SetDate(const QDate& date);
    /// Whether the start of a range can be changed.
    void SetStartCalendarEnabled(bool enabled);

    /// Start and end of the range; invalid when not given.
    QDate GetStartDate() const;
    QDate GetEndDate() const; ///< the end; see above
    /// The date of a single date field; invalid when not given.
    QDate GetDate() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
