#pragma once

#include "DateRules.h"

#include <QFrame>
#include <QLabel>
#include <QVector>

class QGridLayout;
class QToolButton;

/// One month of days to choose from. Days that cannot be chosen are disabled and skipped by the keyboard: arrows move
/// by day and week, Page Up and Page Down by month; Enter chooses, Escape closes.
class CalendarPopup : public QFrame {
    Q_OBJECT

public:
    /// Shows the month of `shown` and marks that day, or the nearest one that can be chosen.
    CalendarPopup(const DateCheck& check, const QDate& shown, QWidget* field);

Q_SIGNALS:
    void dateChosen(const QDate& date);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    void addHead(QGridLayout* grid);
    QToolButton* newMonthButton(const QString& objectName, const QString& sign, const QString& name, int months);
    void showMonth(const QDate& day);
    void showDay(QToolButton* button, const QDate& date);
    void mark(const QDate& date);
    void markMonth(int months);
    void choose(const QDate& date);

    DateCheck m_check;
    QLabel* m_title;
    QVector<QToolButton*> m_days;
    QDate m_month;
    QDate m_marked;
};
