#pragma once

#include "DayIssue.h"
#include "LongWork.h"

#include <QColor>
#include <QDialog>

#include <memory>

class IssueSheetModel;
class IssueSheetRows;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

/// The sheet on which a trader decides what goes out today: every plan of the day with its price, quantity and amount,
/// or why nothing goes out. What was chosen is issued after one confirmation, and the result is shown in each row.
class IssueSheet : public QDialog {
    Q_OBJECT
    // Set by the skins.
    Q_PROPERTY(QColor buyColor MEMBER m_buyColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor sellColor MEMBER m_sellColor NOTIFY colorsChanged)

public:
    explicit IssueSheet(QWidget* parent);

    /// Reads the plans of today and shows them.
    void openToday();
    /// Whether plans are being read or issued.
    bool isWorking() const { return m_isBusy; }
    /// Stops what is running before it is closed.
    void reject() override;

Q_SIGNALS:
    /// Plans were issued, or tried.
    void issued();
    void colorsChanged();

private:
    void build();
    void readPlans();
    void showPlans(const Status& read, IssueSheetRows& rows);
    void retire(IssueSheetRows rows);
    void computeAgain();
    void showComputed(const Status& read, IssueSheetRows& rows);
    bool isOfToday();
    void confirm();
    void issue(const QVector<ConfirmedOrder>& orders);
    void showResult(IssueResult& result, IssueSheetRows& rows);
    void showSums();
    void showWork(const QString& text, int steps);
    void endWork();

    QColor m_buyColor;
    QColor m_sellColor;
    IssueSheetModel* m_rows;
    QTableView* m_table;
    QLabel* m_sums;
    QLabel* m_text;
    QProgressBar* m_progress;
    QCheckBox* m_all;
    QPushButton* m_issue;
    QPushButton* m_close;
    QDate m_day;
    bool m_isBusy = false;                    ///< reading or issuing, not only computing again
    bool m_mustRead = false;                  ///< opened again while another work ran
    bool m_isOutdated = false;                ///< chosen otherwise while what goes out was computed again
    std::shared_ptr<IssueSheetRows> m_former; ///< see `retire`
    LongWork m_work;
};
