#pragma once

#include "AlertStore.h"
#include "LongWork.h"

#include <QDialog>

class QLabel;
class QPushButton;
class TextTable;

/// The alerts of the user as a list that is worked off: each leads to its plan and is marked as done.
class Alerts : public QDialog {
    Q_OBJECT

public:
    /// Most alerts of each kind that are listed.
    static constexpr int MostOfKind = 500;

    explicit Alerts(QWidget* parent = nullptr);

    void open() override;
    /// Reads the alerts again, beside the window.
    void refresh();
    /// "3", or "500+" if there may be more; empty if there are none.
    QString countText() const;

Q_SIGNALS:
    void countChanged();
    /// The user wants to see a plan.
    void planWanted(const QString& planId);

private:
    void build();
    void show(const Result<QVector<Alert>>& alerts);
    void setDone();
    QVector<Alert> selected() const;

    TextTable* m_table;
    QLabel* m_text;
    QPushButton* m_go;
    QPushButton* m_done;
    QVector<Alert> m_alerts;
    bool m_hasMore = false;
    bool m_isOutdated = false; ///< asked for again while they were being read
    LongWork m_work;
};
