#include "ComboSearchPopup.h"

#include "Popups.h"

#include <QKeyEvent>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr int RowsAtOnce = 10;
constexpr qreal PlaceholderStrength = 0.75;

} // namespace

ComboSearchPopup::ComboSearchPopup(QComboBox* box)
    : QWidget(box, Qt::Popup)
    , m_box(box)
    , m_search(new QLineEdit(this))
    , m_list(new QListView(this))
{
    setObjectName(QStringLiteral("comboSearchPopup"));
    // Style sheets do not apply to a frame that is a child of a combo box.
    setAttribute(Qt::WA_StyledBackground);
    m_search->setObjectName(QStringLiteral("comboSearch"));
    m_search->setPlaceholderText(tr("输入文字筛选"));
    m_search->setAccessibleName(tr("输入文字筛选"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_list->setObjectName(QStringLiteral("comboItems"));
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_items.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setItemDelegate(new EvenRowDelegate(m_list));
    m_list->setModel(&m_items);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->setSpacing(4);
    rows->addWidget(m_search);
    rows->addWidget(m_list);
    setFocusProxy(m_search);

    connect(m_search, &QLineEdit::textChanged, this, &ComboSearchPopup::narrow);
    connect(m_list, &QListView::clicked, this, &ComboSearchPopup::choose);
}

void ComboSearchPopup::open()
{
    if (m_items.sourceModel() != m_box->model())
        m_items.setSourceModel(m_box->model());
    m_items.setFilterKeyColumn(m_box->modelColumn());
    m_search->clear();
    narrow(QString());
    const QModelIndex current = m_box->model()->index(m_box->currentIndex(), m_box->modelColumn());
    m_list->setCurrentIndex(m_items.mapFromSource(current));
    ensurePolished();
    strengthenPlaceholder();
    resize(wantedSize());
    move(popupPlace(m_box, size()));
    show();
    m_search->setFocus(Qt::PopupFocusReason);
    m_list->scrollTo(m_list->currentIndex());
}

/// Qt and skins draw placeholders at half opacity, which is too faint.
void ComboSearchPopup::strengthenPlaceholder()
{
    m_search->ensurePolished();
    QPalette colours = m_search->palette();
    QColor ink = colours.color(QPalette::Text);
    ink.setAlphaF(PlaceholderStrength);
    colours.setColor(QPalette::PlaceholderText, ink);
    m_search->setPalette(colours);
}

QSize ComboSearchPopup::wantedSize() const
{
    const int shown = qBound(1, m_items.rowCount(), RowsAtOnce);
    const int frame = 2 * m_list->frameWidth() + 10;
    const int width = qMax(m_box->width(), qMin(420, m_list->sizeHintForColumn(0) + 32 + frame));
    const int row = qMax(m_list->sizeHintForRow(0), fontMetrics().height());
    return { width, m_search->sizeHint().height() + 12 + shown * row + frame + 4 };
}

void ComboSearchPopup::narrow(const QString& text)
{
    m_items.setFilterFixedString(text.trimmed());
    if (!m_list->currentIndex().isValid())
        markFirst();
}

void ComboSearchPopup::markFirst()
{
    m_list->setCurrentIndex(m_items.index(0, m_box->modelColumn()));
}

void ComboSearchPopup::choose(const QModelIndex& index)
{
    if (!index.isValid() || !(index.flags() & Qt::ItemIsEnabled))
        return;
    const int row = m_items.mapToSource(index).row();
    const QString text = m_box->itemText(row);
    hide();
    // The order of QComboBox: first the change of the current item, then the activation.
    const QPointer<QComboBox> box(m_box);
    box->setCurrentIndex(row);
    if (box)
        Q_EMIT box->activated(row);
    if (box)
        Q_EMIT box->textActivated(text);
}

bool ComboSearchPopup::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress)
        return handleKey(static_cast<QKeyEvent*>(event)->key());
    return QWidget::eventFilter(watched, event);
}

bool ComboSearchPopup::handleKey(int key)
{
    switch (key) {
    case Qt::Key_Up:
        moveMark(-1);
        return true;
    case Qt::Key_Down:
        moveMark(1);
        return true;
    case Qt::Key_PageUp:
        moveMark(-RowsAtOnce);
        return true;
    case Qt::Key_PageDown:
        moveMark(RowsAtOnce);
        return true;
    case Qt::Key_Escape:
    case Qt::Key_F4:
        hide();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        choose(m_list->currentIndex());
        return true;
    default:
        return false;
    }
}

void ComboSearchPopup::moveMark(int steps)
{
    const int last = m_items.rowCount() - 1;
    if (last < 0)
        return;
    const int row = qBound(0, m_list->currentIndex().row() + steps, last);
    m_list->setCurrentIndex(m_items.index(row, m_box->modelColumn()));
    m_list->scrollTo(m_list->currentIndex());
}
