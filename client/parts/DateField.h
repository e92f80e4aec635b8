#pragma once

#include "CalendarPopup.h"
#include "FieldHint.h"

#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QWidget>

#include <optional>

/// One date: a text field and the button of its calendar. A typed or picked date must be one that can be chosen. A
/// typed text that is no such date stays, marked, and counts as no date; the nearest date that can be chosen is
/// offered. A date set by `setDate` is always shown, and marked if it cannot be chosen.
class DateField : public QWidget {
    Q_OBJECT

public:
    /// `objectName` names the text field "le_…" and the button "btn_…Calendar".
    DateField(const QString& objectName, const QString& title, QWidget* parent);

    void setCheck(const DateCheck& check);
    /// Sets the date after which the days of a text like "+5" are counted; today by default. An invalid date is today.
    void setCountedFrom(const std::function<QDate()>& date);
    void setDate(const QDate& date);
    /// The shown date; invalid if the field is empty or its text is no date that can be chosen.
    QDate date() const;
    /// What the trader entered last, also if another date has been set since; absent if it was none.
    std::optional<QString> entered() const { return m_entered; }
    /// Enters a text, as the trader does.
    void enter(const QString& text);
    /// Forgets what the trader entered.
    void forgetEntered() { m_entered.reset(); }
    /// Updates the mark of the date after the rules have changed.
    void updateMark();
    /// Shows a notice at the field.
    void showHint(const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Emitted when the trader has chosen another date, or none.
    void dateChosen(const QDate& date);

private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);
    void readTyped();
    bool applyTyped();
    Result<QDate> typedDay() const;
    void showRefusal(FieldHint::Duration duration);
    void takeOffer();
    void selectUntouched();
    void take(const QDate& date);
    void openCalendar();
    void step(int days);

    QLineEdit* m_edit;
    QToolButton* m_button;
    QPointer<CalendarPopup> m_calendar;
    DateCheck m_check;
    std::function<QDate()> m_countedFrom;
    QDate m_date;
    QDate m_announced; ///< the date that others know
    std::optional<QString> m_entered;
    Status m_refusal;       ///< why the typed text is no date
    bool m_clicked = false; ///< the focus came by the mouse button that is still pressed
    QDate m_offer;          ///< the date offered instead; invalid if there is none
};
