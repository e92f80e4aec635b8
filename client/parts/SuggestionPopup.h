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
    /// Most rows that a list may hold.
    static constexpr int mostRows = 50;

    explicit SuggestionPopup(QLineEdit* edit);

    /// Opens the list with at most `mostRows` rows, `marked` (-1 for none) being the marked one. No rows close it.
    void offer(const QStringList& rows, int marked);
    /// Does ahead what the first opening would otherwise need time for: the window, its style, the letters of its font.
    /// `letters` are further characters that rows may have, by their codes.
    void prepare(const QBitArray& letters);
    /// The marked row, -1 when none is or the list is closed.
    int markedRow() const;
    /// Whether the tabulator chooses the marked row instead of leaving the field.
    void setTabChooses(bool chooses);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// A row was chosen by key or mouse; the list is closed by then.
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
