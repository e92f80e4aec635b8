#pragma once

#include "CalendarPopup.h"

#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QWidget>

/// One date: a text field and the button of its calendar. A typed or picked date must be one that can be chosen; a date
/// set by `setDate` is always shown, and marked if it cannot be chosen.
class DateField : public QWidget {
    Q_OBJECT

public:
    /// `objectName` names the text field "le_…" and the button "btn_…Calendar".
    DateField(const QString& objectName, const QString& title, QWidget* parent);

    void setCheck(const CalendarPopup::Check& check);
    void setDate(const QDate& date);
    QDate date() const;
    /// Updates the mark of the date after the rules have changed.
    void updateMark();
    /// Shows a notice at the field.
    void showHint(const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Emitted when the trader has chosen another date.
    void dateChosen(const QDate& date);

private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    bool applyTyped();
    void take(const QDate& date);
    void openCalendar();
    void step(int days);

    QLineEdit* m_edit;
    QToolButton* m_button;
    QPointer<CalendarPopup> m_calendar;
    CalendarPopup::Check m_check;
    QDate m_date;
};
