#pragma once

#include "SecurityFinder.h"
#include "Status.h"

#include <QDialog>

#include <memory>

class QLabel;
class QLineEdit;
class RowView;
class VorSearchBox;

/// The window over a search box in which a trader finds a security from the first character on. It offers the
/// securities of the box, and fills the chosen one in.
class SecurityChooser : public QDialog {
    Q_OBJECT

public:
    /// `box` must outlive the window.
    SecurityChooser(VorSearchBox* box, const Market& market, QWidget* parent);

    /// What the form's account holds, or why that is not known. Until then nothing is held.
    void setHeld(const Result<QHash<QString, qint64>>& held);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void offer();
    void choose(const QString& symbol);

    VorSearchBox* m_box;
    const Market m_market; ///< the session's may be replaced meanwhile
    SecurityFinder m_finder;
    QLineEdit* m_text;
    RowView* m_rows;
    QLabel* m_note;
    QString m_failure;
};
