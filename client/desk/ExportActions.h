#pragma once

#include "LongWork.h"
#include "TransferForm.h"

#include <QMenu>
#include <QPointer>
#include <QProgressDialog>

#include <memory>

/// The menu that writes what the user sees into files, one at a time beside the window.
class ExportActions : public QObject {
    Q_OBJECT

public:
    explicit ExportActions(QWidget* window);

    QMenu* menu() const { return m_menu; }

Q_SIGNALS:
    /// A file was written, or its export was cancelled.
    void finished(const QString& text);

private:
    void chooseFile(const TransferForm& form);
    void run(const TransferForm& form, const QString& file);
    void showProgress(const QString& text);
    void showResult(const QString& file, const Status& status);

    QWidget* const m_window;
    QMenu* m_menu;
    QPointer<QProgressDialog> m_progress; ///< null unless an export runs
    std::unique_ptr<LongWork> m_work;     ///< null until the first export
};
