#pragma once

#include <QDate>
#include <QFrame>
#include <QList>

#include <memory>

/// A field for one date or a date range. Its calendar greys out dates that cannot be chosen.
class OrloDateEdit : public QFrame {
    Q_OBJECT

public:
    explicit OrloDateEdit(QWidget* parent = nullptr); ///< constructs a field for one date, without bounds
    ~OrloDateEdit() override;

    /// Sets the mode, 0 for one date or 1 for a range. `withTime` adds the time of day.
    void SetMode(int mode, bool withTime);
    /// Excludes days of the week (1 is Monday, 7 is Sunday); they cannot be chosen.
    void SetExceptDayOfWeek(const QList<int>& daysOfWeek);
    /// Excludes dates; they cannot be chosen. Replaces the previous list.
    void SetExceptDateList(const QList<QDate>& dates);
    /// Sets the first date that can be chosen. An invalid date removes the bound.
    void SetMinDate(const QDate& date);
    void SetMaxDate(const QDate& date); ///< sets the last date that can be chosen
    /// Shows a range. A date that cannot be chosen is shown and marked, but not changed; an invalid date leaves its
    /// field empty.
    void SetStartEndDate(const QDate& start, const QDate& end);
    /// Shows one date, in the same way.
    void SetDate(const QDate& date);
    /// Sets whether the start of a range can be changed.
    void SetStartCalendarEnabled(bool enabled);

    /// Returns the start of the range; invalid if the field is empty.
    QDate GetStartDate() const;
    QDate GetEndDate() const; ///< returns the end of the range; invalid if the field is empty
    /// Returns the date in the mode for one date; invalid if the field is empty.
    QDate GetDate() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
