#include "VorSearchBox.h"

#include "FieldHint.h"
#include "OrloBusinessDataInterface.h"
#include "SearchableSecurities.h"
#include "SuggestionPopup.h"
#include "SymbolSearch.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <optional>

namespace {

constexpr int ByCodeAndName = 1;

bool isEnter(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool leavesWindow(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

QString shownRow(const QString& symbol)
{
    return symbol + QStringLiteral("  ") + OrloBusinessDataInterface::GetSecurityChineseName(symbol);
}

QString preparing()
{
    return VorSearchBox::tr("证券列表正在准备，请稍候");
}

} // namespace

class VorSearchBox::Private : public QObject {
public:
    explicit Private(VorSearchBox* box);

    void setRuns(const QVector<QStringList>& list);
    void choose(const QString& symbol);
    void unchoose();
    void offer();
    bool eventFilter(QObject* watched, QEvent* event) override;

    QString symbol;
    int mode = ByCodeAndName;
    int minLength = 1;

private:
    /// What to do once the list can be searched, for the text that was in the box.
    enum class Later { Nothing, Offer, Settle };

    QString typed() const { return searchForm(q->text().trimmed()); }
    bool isLongEnough(const QString& text) const { return text.size() >= qMax(1, minLength); }
    void prepareIndexes();
    SymbolSearch newSearch();
    bool isWhole(const SymbolSearch& search) const;
    QStringList matches(const SymbolSearch& search, const QString& text, int limit) const;
    bool isPending() const;
    void present(const SymbolSearch& search, const QString& text);
    void settle();
    void announce();

    void listen();
    void wait(Later what, const SymbolSearch& search);
    void stopWaiting();
    void resume();

    VorSearchBox* q;
    SuggestionPopup* m_popup;
    SearchableSecurities* m_list; ///< the same runs, for the client
    QVector<QStringList> m_runs;
    QStringList m_offered;
    bool m_writing = false;
    Later m_later = Later::Nothing;
    QString m_awaitedText;
    std::optional<SymbolSearch::Stage> m_presented;
    QMetaObject::Connection m_listening;
};

VorSearchBox::Private::Private(VorSearchBox* box)
    : q(box)
    , m_popup(new SuggestionPopup(box))
    , m_list(new SearchableSecurities(box))
{
    q->installEventFilter(this);
    connect(q, &QLineEdit::textChanged, this, &Private::unchoose);
    connect(q, &QLineEdit::textEdited, this, &Private::offer);
    connect(m_popup, &SuggestionPopup::rowChosen, this, [this](int row) { choose(m_offered.at(row)); });
}

void VorSearchBox::Private::setRuns(const QVector<QStringList>& list)
{
    m_runs = list;
    m_list->runs = list;
    prepareIndexes();
    m_offered.clear();
    m_popup->hide();
    if (m_later == Later::Nothing)
        return;
    // The awaited index may already be ready for the new list; no signal would follow.
    m_presented.reset();
    QMetaObject::invokeMethod(this, &Private::resume, Qt::QueuedConnection);
}

void VorSearchBox::Private::prepareIndexes()
{
    SymbolIndexes::instance().prepare(m_runs, OrloBusinessDataInterface::GetSecurityChineseName);
}

// The indexes may have been deleted since the list was set.
SymbolSearch VorSearchBox::Private::newSearch()
{
    prepareIndexes();
    return SymbolSearch(m_runs);
}

bool VorSearchBox::Private::isWhole(const SymbolSearch& search) const
{
    return search.stage() >= (mode == ByCodeAndName ? SymbolSearch::CodesAndNames : SymbolSearch::Codes);
}

QStringList VorSearchBox::Private::matches(const SymbolSearch& search, const QString& text, int limit) const
{
    if (!isLongEnough(text))
        return {};
    QStringList found = search.exact(text);
    search.appendByCode(text, limit, found);
    if (mode == ByCodeAndName)
        search.appendByName(text, limit, found);
    return found;
}

bool VorSearchBox::Private::isPending() const
{
    return symbol.isEmpty() && q->isEnabled() && !q->isReadOnly() && !q->text().trimmed().isEmpty();
}

void VorSearchBox::Private::offer()
{
    FieldHint::hideAt(q);
    listen();
    const SymbolSearch search = newSearch();
    const QString text = typed();
    present(search, text);
    if (isWhole(search) || !isLongEnough(text))
        stopWaiting();
    else
        wait(Later::Offer, search);
    if (m_offered.isEmpty() && isLongEnough(text))
        FieldHint::showAt(q, isWhole(search) ? VorSearchBox::tr("没有匹配的证券") : preparing());
}

/// Opens the list with the results of the search. A row that the trader has marked stays marked.
void VorSearchBox::Private::present(const SymbolSearch& search, const QString& text)
{
    const bool resumed = m_later != Later::Nothing && q->text() == m_awaitedText;
    const QString kept = resumed ? m_offered.value(m_popup->markedRow()) : QString();
    m_offered = matches(search, text, SuggestionPopup::MostRows).mid(0, SuggestionPopup::MostRows);
    QStringList rows;
    for (const QString& match : qAsConst(m_offered))
        rows.append(shownRow(match));
    const bool sure =
        (m_offered.size() == 1 && isWhole(search)) || (!m_offered.isEmpty() && search.exact(text).size() == 1);
    m_popup->offer(rows, kept.isEmpty() ? (sure ? 0 : -1) : m_offered.indexOf(kept));
}

/// On Enter or when the field is left, chooses the security that is typed if it is unambiguous.
void VorSearchBox::Private::settle()
{
    listen();
    const SymbolSearch search = newSearch();
    const QString text = typed();
    const QStringList exact = isLongEnough(text) ? search.exact(text) : QStringList();
    const QStringList found = exact.size() == 1 ? exact : matches(search, text, 2);
    if (isLongEnough(text) && exact.size() != 1 && !isWhole(search)) {
        wait(Later::Settle, search);
        FieldHint::showAt(q, preparing());
        return;
    }
    stopWaiting();
    if (found.size() == 1)
        choose(found.first());
    else if (!found.isEmpty())
        FieldHint::showAt(q, VorSearchBox::tr("有多只证券匹配，请从列表中选择"));
    else if (text.size() < minLength)
        FieldHint::showAt(q, VorSearchBox::tr("请至少输入%1个字符").arg(minLength));
    else
        FieldHint::showAt(q, VorSearchBox::tr("没有匹配的证券"));
}

/// Must be called before checking what is ready, so that no signal is missed.
void VorSearchBox::Private::listen()
{
    if (!m_listening)
        m_listening = connect(&SymbolIndexes::instance(), &SymbolIndexes::advanced, this, &Private::resume);
}

void VorSearchBox::Private::wait(Later what, const SymbolSearch& search)
{
    m_later = what;
    m_awaitedText = q->text();
    m_presented = search.stage();
}

void VorSearchBox::Private::stopWaiting()
{
    m_later = Later::Nothing;
    disconnect(m_listening);
    m_listening = QMetaObject::Connection();
}

/// Called when more of the list can be searched. A list that the trader has closed in the meantime stays closed.
void VorSearchBox::Private::resume()
{
    if (m_later == Later::Nothing)
        return;
    if (!isPending() || q->text() != m_awaitedText) {
        stopWaiting();
        return;
    }
    const SymbolSearch search = newSearch();
    if (search.stage() == m_presented)
        return;
    const bool settles = m_later == Later::Settle;
    const bool closed = !m_offered.isEmpty() && !m_popup->isVisible();
    if (q->hasFocus() && !closed)
        offer();
    else
        wait(m_later, search);
    if (settles)
        settle();
    else if (isWhole(search))
        stopWaiting();
}

void VorSearchBox::Private::choose(const QString& chosen)
{
    stopWaiting();
    m_popup->hide();
    FieldHint::hideAt(q);
    const bool changed = symbol != chosen;
    symbol = chosen;
    m_writing = true;
    q->setText(chosen);
    m_writing = false;
    if (changed)
        announce();
}

void VorSearchBox::Private::unchoose()
{
    if (m_writing || symbol.isEmpty())
        return;
    symbol.clear();
    announce();
}

void VorSearchBox::Private::announce()
{
    if (q->signalsBlocked())
        return;
    const QPointer<VorSearchBox> box(q);
    const QString announced = symbol;
    Q_EMIT q->selectStockCodeChange(announced);
    // A receiver may have chosen another security, whose signals have been emitted by then, or deleted the box.
    if (!box || symbol != announced)
        return;
    const QString name = announced.isEmpty() ? QString() : OrloBusinessDataInterface::GetSecurityChineseName(announced);
    Q_EMIT q->selectStockNameChange(name);
}

bool VorSearchBox::Private::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (isEnter(key) && isPending() && m_popup->markedRow() < 0) {
            settle();
            return true;
        }
        if (key.key() == Qt::Key_Down && isPending() && !m_popup->isVisible()) {
            offer();
            return true;
        }
    }
    // After the events of the focus change, and before the first key.
    if (event->type() == QEvent::FocusIn)
        QTimer::singleShot(0, this, [this] { m_popup->prepare(SymbolSearch(m_runs).letters()); });
    if (event->type() == QEvent::FocusOut && isPending() && !leavesWindow(static_cast<QFocusEvent*>(event)->reason()))
        settle();
    return QObject::eventFilter(watched, event);
}

VorSearchBox::VorSearchBox(QWidget* parent)
    : QLineEdit(parent)
    , d(std::make_unique<Private>(this))
{
    setToolTip(tr("输入证券代码或名称查找"));
}

VorSearchBox::~VorSearchBox() = default;

void VorSearchBox::setSecurityList(const SymbolList& symbols)
{
    d->setRuns(symbols.runs());
}

void VorSearchBox::setSearchMode(int mode)
{
    d->mode = mode;
}

void VorSearchBox::setMinMatchLength(int length)
{
    d->minLength = length;
}

void VorSearchBox::setSymbol(const QString& symbol)
{
    d->choose(symbol);
}

QString VorSearchBox::getSymbol() const
{
    return d->symbol;
}
