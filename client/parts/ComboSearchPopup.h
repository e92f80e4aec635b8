#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QWidget>

/// The popup of a combo box with a search field above its items. Typing filters the items; Up, Down, Page Up and Page
/// Down move, Enter chooses, Escape closes.
class ComboSearchPopup : public QWidget {
    Q_OBJECT

public:
    explicit ComboSearchPopup(QComboBox* box);

    /// Shows all items with the current one marked and the search field empty.
    void open();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void narrow(const QString& text);
    void markFirst();
    void choose(const QModelIndex& index);
    bool handleKey(int key);
    void moveMark(int steps);
    void strengthenPlaceholder();
    QSize wantedSize() const;

    QComboBox* m_box;
    QLineEdit* m_search;
    QListView* m_list;
    QSortFilterProxyModel m_items;
};
