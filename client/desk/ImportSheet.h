#pragma once

#include "ImportRun.h"
#include "ImportSheetModel.h"
#include "LongWork.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTableView;

/// The window that imports files or what was copied from a spreadsheet. It shows what every row would do before
/// anything is stored. Plans can be made from a sheet of securities, with a present plan as template.
class ImportSheet : public QDialog {
    Q_OBJECT

public:
    explicit ImportSheet(QWidget* parent);

    /// Shows the window. `templatePlan`: the id of the plan that new plans are made from; empty for any import.
    void openFor(const QString& templatePlan);
    /// Cancels what is running before it closes.
    void reject() override;

private:
    /// A file, or text with a name.
    struct Source {
        QString file;
        std::optional<QByteArray> contents;
    };
    struct Results;

    void build();
    QLayout* newChoice();
    QLayout* newButtons();
    QPushButton* newButton(const char* name, const QString& text, void (ImportSheet::*act)());
    QString kind() const;
    QString templatePlan() const;
    void showKind();
    void chooseFiles();
    void paste();
    void setSources(const QVector<Source>& sources, const QString& names);
    void forgetPreview();
    void preview();
    void import();
    bool isConfirmed();
    std::vector<ImportTask> tasks(bool isTrial) const;
    void run(bool isTrial);
    void showResults(const Results& results, bool isTrial);
    Status take(const Results& results);
    void showButtons();

    ImportSheetModel* m_rows;
    QTableView* m_table;
    QComboBox* m_kind;
    QLabel* m_templateLabel;
    QLineEdit* m_template;
    QLabel* m_files;
    QLabel* m_columns;
    QCheckBox* m_replaces;
    QCheckBox* m_leavesOut;
    QLabel* m_text;
    QProgressBar* m_progress;
    QPushButton* m_preview = nullptr;
    QPushButton* m_import = nullptr;
    QPushButton* m_close = nullptr;
    QVector<Source> m_sources;
    QVector<ImportReport> m_reports; ///< of the preview that fits the settings; empty without one
    LongWork m_work;
};

/// The actions of a window that open its sheet for imports.
class ImportActions : public QObject {
    Q_OBJECT

public:
    /// `current`: the id of the current plan, empty without one.
    ImportActions(QWidget* window, const std::function<QString()>& current);

    QList<QAction*> actions() const { return m_actions; }

private:
    void add(const char* name, const QString& text, const std::function<QString()>& templatePlan);

    QWidget* const m_window;
    ImportSheet* m_sheet = nullptr; ///< null until it is opened
    QList<QAction*> m_actions;
};
