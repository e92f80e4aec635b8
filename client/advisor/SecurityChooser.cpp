#include "SecurityChooser.h"

#include "ErrorText.h"
#include "PlainText.h"
#include "RowView.h"
#include "SearchableSecurities.h"
#include "SymbolIndexes.h"
#include "VorSearchBox.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

constexpr int MostRows = 50;
constexpr QSize UsualSize(420, 360);

QVector<QStringList> runsOf(const VorSearchBox& box)
{
    const auto* const list = box.findChild<const SearchableSecurities*>();
    return list ? list->runs : QVector<QStringList>();
}

bool movesInRows(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

SecurityChooser::SecurityChooser(VorSearchBox* box, const Market& market, QWidget* parent)
    : QDialog(parent)
    , m_box(box)
    , m_market(market)
    , m_finder(runsOf(*box), market)
    , m_text(new QLineEdit(this))
    , m_rows(new RowView(QStringLiteral("chooserRows"),
          { { tr("代码"), 30 }, { tr("名称"), 42 }, { tr("持仓"), 28, true } }, RowView::ShowsHeadings, this))
    , m_note(PlainText::newLabel(QString(), this))
{
    setObjectName(QStringLiteral("securityChooser"));
    setWindowTitle(tr("选择证券"));
    setWindowModality(Qt::WindowModal);
    resize(UsualSize);
    m_text->setObjectName(QStringLiteral("chooserText"));
    m_text->setPlaceholderText(tr("代码、名称或拼音首字母"));
    m_text->setAccessibleName(tr("代码、名称或拼音首字母"));
    m_rows->setAccessibleName(tr("匹配的证券"));
    m_note->setObjectName(QStringLiteral("chooserNote"));
    m_note->setWordWrap(true);
    auto* const room = new QVBoxLayout(this);
    room->addWidget(m_text);
    room->addWidget(m_rows, 1);
    room->addWidget(m_note);
    m_text->installEventFilter(this);
    connect(m_text, &QLineEdit::textChanged, this, &SecurityChooser::offer);
    connect(m_rows, &RowView::rowChosen, this, [this](const AdvisorRow& row) { choose(row.key); });
    for (const SymbolIndexes* const indexes : { &SymbolIndexes::instance(), &SymbolIndexes::ofInitials() })
        connect(indexes, &SymbolIndexes::advanced, this, &SecurityChooser::offer);
    m_text->setText(box->getSymbol().isEmpty() ? box->text() : QString());
    offer();
    m_text->setFocus();
}

void SecurityChooser::setHeld(const Result<QHash<QString, qint64>>& held)
{
    m_finder.setHeld(held.valueOr({}));
    m_failure = held ? QString() : tr("持仓读取失败：%1").arg(errorText(held.status()));
    offer();
}

void SecurityChooser::offer()
{
    AdvisorRows rows;
    const QStringList found = m_finder.find(m_text->text(), MostRows);
    for (const QString& symbol : found) {
        const Security* const security = m_market.find(symbol);
        const double held = security->displayed(m_finder.heldOf(symbol));
        const QString quantity = held > 0 ? Advisor::number(held) : QString();
        rows << AdvisorRow{ { symbol, security->name, quantity }, AdvisorRow::Mark::Plain, symbol };
    }
    m_rows->setRows(rows);
    if (!rows.isEmpty())
        m_rows->setCurrentIndex(m_rows->model()->index(0, 0));
    QString note = m_failure;
    if (m_finder.isEmpty())
        note = tr("请先选择账户和指令类型");
    else if (!m_finder.isReady())
        note = tr("证券列表正在准备，请稍候");
    else if (rows.isEmpty() && !m_text->text().trimmed().isEmpty())
        note = tr("没有匹配的证券");
    m_note->setText(note);
}

void SecurityChooser::choose(const QString& symbol)
{
    if (symbol.isEmpty())
        return;
    accept();
    m_box->setFocus(Qt::OtherFocusReason);
    m_box->setSymbol(symbol);
}

// The text keeps the focus; Enter chooses the marked row, and the keys that move do so in the rows.
bool SecurityChooser::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        const QModelIndex current = m_rows->currentIndex();
        if (current.isValid())
            choose(m_rows->rows().at(current.row()).key);
        return true;
    }
    if (movesInRows(key)) {
        QCoreApplication::sendEvent(m_rows, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
