#include "SuggestionPopup.h"

#include "EvenRowDelegate.h"
#include "PopupPlace.h"
#include <QKeyEvent>

namespace {

constexpr int rowsAtOnce = 10;

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

SuggestionPopup::SuggestionPopup(QLineEdit* edit)
    : QListView(edit)
    , m_edit(edit)
{
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    setObjectName(QStringLiteral("suggestions"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setItemDelegate(new EvenRowDelegate(this));
    setModel(&m_rows);
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index.row()); });
    edit->installEventFilter(this);
    edit->window()->installEventFilter(this);
    hide();
}

void SuggestionPopup::offer(const QStringList& rows, int marked)
{
    m_rows.setStringList(rows.mid(0, mostRows));
    if (rows.isEmpty()) {
        hide();
        return;
    }
    setCurrentIndex(m_rows.index(marked));
    ensurePolished();
    const int shown = qMin(m_rows.rowCount(), rowsAtOnce);
    const int bar = m_rows.rowCount() > rowsAtOnce ? 24 : 8;
    const int width = qMax(m_edit->width(), qMin(360, sizeHintForColumn(0) + bar + 2 * frameWidth()));
    resize(width, shown * sizeHintForRow(0) + 2 * frameWidth() + 4);
    move(popupPlace(m_edit, size()));
    show();
}

int SuggestionPopup::markedRow() const
{
    return isVisible() && currentIndex().isValid() ? currentIndex().row() : -1;
}

void SuggestionPopup::setTabChooses(bool chooses)
{
    m_tabChooses = chooses;
}

bool SuggestionPopup::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (watched != m_edit || !takesKey(*static_cast<QKeyEvent*>(event)))
            return false;
        event->accept();
        if (event->type() == QEvent::KeyPress)
            handleKey(*static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowDeactivate:
        // Events of the list itself come here too; a list that is being shown must not close itself.
        if (watched == m_edit || watched == m_edit->window())
            hide();
        return false;
    default:
        return QListView::eventFilter(watched, event);
    }
}

bool SuggestionPopup::takesKey(const QKeyEvent& key) const
{
    if (!isVisible() || (key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Tab:
        return m_tabChooses && markedRow() >= 0;
    default:
        return isEnter(key.key()) && markedRow() >= 0;
    }
}

void SuggestionPopup::handleKey(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Up:
        moveMark(-1);
        break;
    case Qt::Key_Down:
        moveMark(1);
        break;
    case Qt::Key_PageUp:
        moveMark(-rowsAtOnce);
        break;
    case Qt::Key_PageDown:
        moveMark(rowsAtOnce);
        break;
    case Qt::Key_Escape:
        hide();
        break;
    default:
        choose(markedRow());
    }
}

void SuggestionPopup::moveMark(int steps)
{
    const int last = m_rows.rowCount() - 1;
    const int from = markedRow();
    const int to = from < 0 ? (steps > 0 ? 0 : last) : qBound(0, from + steps, last);
    setCurrentIndex(m_rows.index(to));
    scrollTo(currentIndex());
}

void SuggestionPopup::choose(int row)
{
    hide();
    Q_EMIT rowChosen(row);
}
