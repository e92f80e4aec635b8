#pragma once

#include "GlyphPrewarmer.h"

#include <QLineEdit>
#include <QListView>
#include <QStringListModel>

class QKeyEvent;

/// The list of suggestions of a line edit. The line edit keeps the focus; while the list is open, Up, Down, Page Up and
/// Page Down move in it, Enter chooses the marked row, Escape closes it.
class SuggestionPopup : public QListView {
    Q_OBJECT

public:
    /// Maximum number of rows.
    static constexpr int MostRows = 50;

    explicit SuggestionPopup(QLineEdit* edit);

    /// Opens the list with at most `MostRows` rows and marks the row `marked` (-1 for none). An empty list closes it.
    void offer(const QStringList& rows, int marked);
    /// Prepares what would slow down the first opening: the window, its style, the glyphs of its font. `letters` are
    /// further characters of rows, by their codes.
    void prepare(const QBitArray& letters);
    /// The marked row; -1 if there is none or the list is closed.
    int markedRow() const;
    /// Whether Tab chooses the marked row instead of leaving the field.
    void setTabChooses(bool chooses);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Emitted when a row was chosen by key or mouse, after the list was closed.
    void rowChosen(int row);

private:
    QSize sizeFor(const QStringList& rows) const;
    bool takesKey(const QKeyEvent& key) const;
    void handleKey(const QKeyEvent& key);
    void moveMark(int steps);
    void choose(int row);

    QLineEdit* m_edit;
    GlyphPrewarmer* m_letters;
    QStringListModel m_rows;
    bool m_tabChooses = false;
};
