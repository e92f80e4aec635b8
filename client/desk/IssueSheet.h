#pragma once

#include "DayIssue.h"
#include "LongWork.h"

#include <QDialog>

class IssueSheetModel;
class IssueSheetRows;
class IssueOutcomes;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

/// The sheet on which a trader decides what goes out today: every plan of the day with its price, quantity and amount,
/// or why nothing goes out. What was chosen is issued after one confirmation, and the result is shown in each row.
class IssueSheet : public QDialog {
    Q_OBJECT

public:
    explicit IssueSheet(QWidget* parent);

    /// Reads the plans of today and shows them.
    void openToday();
    /// Whether plans are being read or issued.
    bool isWorking() const { return m_work.isRunning(); }
    /// Stops what is running before it is closed.
    void reject() override;

Q_SIGNALS:
    /// Plans were issued, or tried.
    void issued();

private:
    void build();
    void readPlans();
    void showPlans(const Status& read, IssueSheetRows& rows);
    void confirm();
    void issue(const QStringList& plans);
    void showResult(IssueResult& result, const IssueOutcomes& outcomes);
    void showSums();
    void showWork(const QString& text, int steps);
    void endWork();

    IssueSheetModel* m_rows;
    QTableView* m_table;
    QLabel* m_sums;
    QLabel* m_text;
    QProgressBar* m_progress;
    QPushButton* m_issue;
    QPushButton* m_close;
    LongWork m_work;
    QDate m_day;
};
