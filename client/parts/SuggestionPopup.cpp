#include "SuggestionPopup.h"

#include "Popups.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int RowsAtOnce = 10;
constexpr int Widest = 360;
/// Width besides a row's text, with and without a scroll bar.
constexpr int BarWidth = 24;
constexpr int SideWidth = 8;
constexpr int EdgeHeight = 4;

/// Estimated width of a text in halves of a Chinese character; measuring it would need a layout.
int roughWidth(const QString& text)
{
    constexpr ushort FirstWide = 0x1100;
    const auto wide = std::count_if(text.cbegin(), text.cend(), [](QChar c) { return c.unicode() >= FirstWide; });
    return text.size() + static_cast<int>(wide);
}

int widestOf(const QStringList& rows)
{
    const auto isNarrower = [](const QString& a, const QString& b) { return roughWidth(a) < roughWidth(b); };
    return static_cast<int>(std::max_element(rows.cbegin(), rows.cend(), isNarrower) - rows.cbegin());
}

/// Draws rows that are only a text, laid out once; the default delegate does it three times.
class TextRowDelegate : public EvenRowDelegate {
public:
    using EvenRowDelegate::EvenRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem row(option);
        initStyleOption(&row, index);
        const QString text = std::exchange(row.text, QString());
        const QStyle* style = row.widget->style();
        style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, row.widget) + 1;
        const QRect place = row.rect.adjusted(margin, 0, -margin, 0);
        if (!drawText(painter, row, text, place, place.width()))
            drawText(painter, row, row.fontMetrics.elidedText(text, row.textElideMode, place.width()), place, AnyWidth);
    }

private:
    static constexpr int AnyWidth = QWIDGETSIZE_MAX;

    /// Draws nothing and returns false if the text is wider than `mostWidth`.
    static bool drawText(
        QPainter* painter, const QStyleOptionViewItem& row, const QString& text, const QRect& place, int mostWidth)
    {
        QTextLayout layout(text, row.font);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        if (line.naturalTextWidth() > mostWidth)
            return false;
        const bool selected = row.state & QStyle::State_Selected;
        painter->setPen(row.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        layout.draw(painter, { qreal(place.left()), place.top() + (place.height() - line.height()) / 2 });
        return true;
    }
};

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

SuggestionPopup::SuggestionPopup(QLineEdit* edit)
    : QListView(edit)
    , m_edit(edit)
    , m_letters(new GlyphPrewarmer(this))
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
    setItemDelegate(new TextRowDelegate(this));
    setModel(&m_rows);
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index.row()); });
    edit->installEventFilter(this);
    edit->window()->installEventFilter(this);
    hide();
}

void SuggestionPopup::offer(const QStringList& rows, int marked)
{
    if (rows.isEmpty()) {
        hide();
        return;
    }
    m_rows.setStringList(rows.mid(0, MostRows));
    setCurrentIndex(m_rows.index(marked));
    ensurePolished();
    resize(sizeFor(m_rows.stringList()));
    move(popupPlace(m_edit, size()));
    show();
}

// Lays out only the row that is probably the widest, not all fifty at every keystroke.
QSize SuggestionPopup::sizeFor(const QStringList& rows) const
{
    const QSize row = sizeHintForIndex(m_rows.index(widestOf(rows)));
    const int bar = rows.size() > RowsAtOnce ? BarWidth : SideWidth;
    const int width = qMax(m_edit->width(), qMin(Widest, row.width() + bar + 2 * frameWidth()));
    const int shown = qMin(int(rows.size()), RowsAtOnce);
    return { width, shown * row.height() + 2 * frameWidth() + EdgeHeight };
}

void SuggestionPopup::prepare(const QBitArray& letters)
{
    m_letters->draw(letters);
    if (testAttribute(Qt::WA_WState_Created))
        return;
    const QString codeLetters = QStringLiteral("0123456789.ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const QStringList samples = QVector<QString>(RowsAtOnce + 1, codeLetters).toList();
    m_rows.setStringList(samples);
    ensurePolished();
    resize(sizeFor(samples));
    create();
    grab();
    m_rows.setStringList({});
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
        // Events of the list itself arrive here, too; a list that is being shown must not close itself.
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
        moveMark(-RowsAtOnce);
        break;
    case Qt::Key_PageDown:
        moveMark(RowsAtOnce);
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
