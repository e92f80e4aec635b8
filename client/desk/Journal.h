#pragma once

#include "JournalStore.h"
#include "LongWork.h"

#include <QDialog>

class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class TextTable;

/// The journal of a day: every instruction, refusal and change of a state, read from the database in pages.
class Journal : public QDialog {
    Q_OBJECT

public:
    explicit Journal(QWidget* parent = nullptr);

    /// Shows the journal of a day.
    void open(const QDate& day);

Q_SIGNALS:
    /// The user wants to see a plan.
    void planWanted(const QString& planId);

private:
    void build();
    QLayout* newChoice();
    void fillAccounts();
    QLayout* newPages();
    void choose(int firstRow);
    void read();
    void show(const Result<QVector<JournalEntry>>& entries, const Result<int>& count);
    void showPages();

    QDateEdit* m_day;
    QComboBox* m_account;
    TextTable* m_table;
    QLabel* m_text;
    QPushButton* m_previous;
    QPushButton* m_next;
    JournalPage m_page;
    JournalPage m_shown; ///< the page of the rows
    int m_count = 0;
    QVector<JournalEntry> m_entries;
    bool m_isOutdated = false; ///< another page was asked for while one was being read
    LongWork m_work;
};
