#pragma once

#include <QDateEdit>
#include <QHBoxLayout>

/// Two date edits beside each other, or one.
class OrloDateEdit : public QFrame {
public:
    explicit OrloDateEdit(QWidget* parent)
        : QFrame(parent)
    {
        auto* const row = new QHBoxLayout(this);
        row->addWidget(m_start);
        row->addWidget(m_end);
    }
    void SetMode(int mode, bool) { m_end->setVisible(mode == 1); }
    void SetExceptDayOfWeek(const QList<int>&) { }
    void SetExceptDateList(const QList<QDate>&) { }
    void SetMinDate(const QDate& date)
    {
        m_start->setMinimumDate(date);
        m_end->setMinimumDate(date);
    }
    void SetMaxDate(const QDate& date)
    {
        m_start->setMaximumDate(date);
        m_end->setMaximumDate(date);
    }
    void SetStartEndDate(const QDate& start, const QDate& end)
    {
        m_start->setDate(start);
        m_end->setDate(end);
    }
    void SetDate(const QDate& date) { m_start->setDate(date); }
    void SetStartCalendarEnabled(bool enabled) { m_start->setEnabled(enabled); }
    QDate GetStartDate() const { return m_start->date(); }
    QDate GetEndDate() const { return m_end->date(); }
    QDate GetDate() const { return m_start->date(); }

private:
    QDateEdit* m_start = new QDateEdit;
    QDateEdit* m_end = new QDateEdit;
};
