#include "OrloFormulaPrompter.h"

#include "FieldHint.h"
#include "FormulaCompletion.h"
#include "OrloFormulaNormal.h"
#include "SuggestionPopup.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace {

constexpr int WhileTyping = 1;

} // namespace

class OrloFormulaPrompter::Private : public QObject {
public:
    explicit Private(QLineEdit* line);

    bool eventFilter(QObject* watched, QEvent* event) override;

    int mode = 0;
    QStringList functions;
    QStringList items;

private:
    void typed();
    void offer(bool asked);
    void insert(const QString& chosen);

    QLineEdit* m_edit;
    SuggestionPopup* m_popup;
    QStringList m_offered;
    bool m_inserting = false;
};

OrloFormulaPrompter::Private::Private(QLineEdit* line)
    : m_edit(line)
    , m_popup(new SuggestionPopup(line))
{
    m_popup->setTabChooses(true);
    m_edit->installEventFilter(this);
    connect(m_edit, &QLineEdit::textEdited, this, &Private::typed);
    connect(m_popup, &SuggestionPopup::rowChosen, this, [this](int row) { insert(m_offered.at(row)); });
}

void OrloFormulaPrompter::Private::typed()
{
    if (m_inserting)
        return;
    FieldHint::hideAt(m_edit);
    if (mode == WhileTyping)
        offer(false);
}

/// Opens the list of completions at the cursor. Without a request by key, it stays closed for an empty input and for a
/// complete name.
void OrloFormulaPrompter::Private::offer(bool asked)
{
    const QString formula = m_edit->text();
    const int cursor = m_edit->cursorPosition();
    const QString token = FormulaCompletion::tokenBefore(formula, cursor);
    m_offered.clear();
    if (!token.isEmpty() || (FormulaCompletion::mayBeginAt(formula, cursor) && (asked || !formula.isEmpty())))
        m_offered = FormulaCompletion::matches(token, items + functions);
    if (!asked && m_offered == QStringList(token))
        m_offered.clear();
    // After an operator Enter still belongs to the form, so no row is marked until the trader moves into the list.
    m_popup->offer(m_offered, asked || !token.isEmpty() ? 0 : -1);
}

void OrloFormulaPrompter::Private::insert(const QString& chosen)
{
    const int cursor = m_edit->cursorPosition();
    const auto edited = FormulaCompletion::inserted(m_edit->text(), cursor, chosen);
    if (edited.formula.size() > m_edit->maxLength()) {
        FieldHint::showAt(m_edit, QLineEdit::tr("最多输入%1个字符").arg(m_edit->maxLength()));
        return;
    }
    const QScopedValueRollback<bool> own(m_inserting, true);
    const int typedLength = FormulaCompletion::tokenBefore(m_edit->text(), cursor).size();
    // Inserted over the selection, so that one undo reverts it.
    m_edit->setSelection(cursor - typedLength, typedLength);
    m_edit->insert(chosen);
    m_edit->setCursorPosition(edited.cursor);
}

bool OrloFormulaPrompter::Private::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && !m_edit->isReadOnly()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Space && key->modifiers() == Qt::ControlModifier) {
            offer(true);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

OrloFormulaPrompter::OrloFormulaPrompter(QLineEdit* edit)
    : d(std::make_unique<Private>(edit))
{
}

OrloFormulaPrompter::~OrloFormulaPrompter() = default;

void OrloFormulaPrompter::setMode(int mode)
{
    d->mode = mode;
}

void OrloFormulaPrompter::SetFunctionItems(const QStringList& functions)
{
    d->functions = functions;
}

void OrloFormulaPrompter::SetFormulaItems(const QStringList& items)
{
    d->items = items;
}

QStringList OrloFormulaPrompter::FunctionItems() const
{
    return d->functions;
}

QStringList OrloFormulaPrompter::FormulaItems() const
{
    return d->items;
}

OrloFormulaNormal::OrloFormulaNormal(QWidget* parent)
    : QLineEdit(parent)
    , OrloFormulaPrompter(static_cast<QLineEdit*>(this))
{
}

OrloFormulaNormal::~OrloFormulaNormal() = default;
