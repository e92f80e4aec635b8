#pragma once

#include <QDialog>

class QLabel;
class QTreeWidget;

/// The strategy files of the user's folder: what was read of them, what is not offered and what is refused, with lines
/// and reasons. Another folder can be chosen.
class StrategySheet : public QDialog {
    Q_OBJECT

public:
    explicit StrategySheet(QWidget* parent);

    /// Shows the files as they were read last, and again whenever they change.
    void open() override;

    /// The folder that was chosen last; empty if there is none.
    static QString rememberedFolder();

private:
    void build();
    void showFiles();
    void chooseFolder();
    void useFolder(const QString& path);

    QLabel* m_folder;
    QTreeWidget* m_files;
};
