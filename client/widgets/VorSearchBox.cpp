#include "VorSearchBox.h"

#include "FieldHint.h"
#include "OrloBusinessDataInterface.h"
#include "SuggestionPopup.h"
#include "SymbolIndex.h"
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>

namespace {

constexpr int byCodeAndName = 1;

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

} // namespace

class VorSearchBox::Private : public QObject {
public:
    explicit Private(VorSearchBox* box);

    void choose(const QString& symbol);
    void unchoose();
    void offer();
    bool eventFilter(QObject* watched, QEvent* event) override;

    QVector<QStringList> runs;
    QString symbol;
    int mode = byCodeAndName;
    int minLength = 1;

private:
    QStringList exactMatches(const QString& text) const;
    QStringList matches(const QString& text, int limit) const;
    bool isPending() const;
    void settle();
    void announce();

    VorSearchBox* q;
    SuggestionPopup* popup;
    QStringList offered;
    bool writing = false;
};

VorSearchBox::Private::Private(VorSearchBox* box)
    : q(box)
    , popup(new SuggestionPopup(box))
{
    q->installEventFilter(this);
    connect(q, &QLineEdit::textChanged, this, &Private::unchoose);
    connect(q, &QLineEdit::textEdited, this, &Private::offer);
    connect(popup, &SuggestionPopup::rowChosen, this, [this](int row) { choose(offered.at(row)); });
}

QStringList VorSearchBox::Private::exactMatches(const QString& text) const
{
    QStringList found;
    for (const QStringList& run : runs)
        SymbolIndex::of(run)->appendExact(text, found);
    return found;
}

QStringList VorSearchBox::Private::matches(const QString& text, int limit) const
{
    if (text.size() < qMax(1, minLength))
        return {};
    QStringList found = exactMatches(text);
    for (const QStringList& run : runs)
        SymbolIndex::of(run)->appendByCode(text, limit, found);
    if (mode != byCodeAndName)
        return found;
    for (const QStringList& run : runs)
        SymbolIndex::of(run)->appendByName(text, minLength, limit, found);
    return found;
}

bool VorSearchBox::Private::isPending() const
{
    return symbol.isEmpty() && q->isEnabled() && !q->isReadOnly() && !q->text().trimmed().isEmpty();
}

void VorSearchBox::Private::offer()
{
    FieldHint::hideAt(q);
    const QString text = searchForm(q->text().trimmed());
    offered = matches(text, SuggestionPopup::mostRows);
    QStringList rows;
    const QStringList shown = offered.mid(0, SuggestionPopup::mostRows);
    for (const QString& match : shown)
        rows.append(shownRow(match));
    const bool sure = offered.size() == 1 || (!offered.isEmpty() && exactMatches(text).size() == 1);
    popup->offer(rows, sure ? 0 : -1);
    if (rows.isEmpty() && text.size() >= qMax(1, minLength))
        FieldHint::showAt(q, VorSearchBox::tr("没有匹配的证券"));
}

/// Enter or leaving the field: what is typed becomes a choice if it can mean one security only.
void VorSearchBox::Private::settle()
{
    const QString text = searchForm(q->text().trimmed());
    const QStringList exact = matches(text, 1).isEmpty() ? QStringList() : exactMatches(text);
    const QStringList found = exact.size() == 1 ? exact : matches(text, 2);
    if (found.size() == 1) {
        choose(found.first());
        return;
    }
    if (!found.isEmpty())
        FieldHint::showAt(q, VorSearchBox::tr("有多只证券匹配，请从列表中选择"));
    else if (text.size() < minLength)
        FieldHint::showAt(q, VorSearchBox::tr("请至少输入%1个字符").arg(minLength));
    else
        FieldHint::showAt(q, VorSearchBox::tr("没有匹配的证券"));
}

void VorSearchBox::Private::choose(const QString& chosen)
{
    popup->hide();
    FieldHint::hideAt(q);
    const bool changed = symbol != chosen;
    symbol = chosen;
    writing = true;
    q->setText(chosen);
    writing = false;
    if (changed)
        announce();
}

void VorSearchBox::Private::unchoose()
{
    if (writing || symbol.isEmpty())
        return;
    symbol.clear();
    announce();
}

void VorSearchBox::Private::announce()
{
    if (q->signalsBlocked())
        return;
    const QPointer<VorSearchBox> box(q);
    const QString told = symbol;
    Q_EMIT q->selectStockCodeChange(told);
    // Whoever heard it may have chosen another security, which has been announced by then, or deleted the box.
    if (!box || symbol != told)
        return;
    const QString name = told.isEmpty() ? QString() : OrloBusinessDataInterface::GetSecurityChineseName(told);
    Q_EMIT q->selectStockNameChange(name);
}

bool VorSearchBox::Private::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (isEnter(key) && isPending() && popup->markedRow() < 0) {
            settle();
            return true;
        }
        if (key.key() == Qt::Key_Down && isPending() && !popup->isVisible()) {
            offer();
            return true;
        }
    }
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
    d->runs = symbols.runs();
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
