#include "OrloAccountComboBox.h"
#include "OrloAgreementSignWidget.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "OrloElidedLabel.h"
#include "OrloFormulaNormal.h"
#include "OrloHintLabel.h"
#include "OrloPushButton.h"
#include "OrloSubTitleWidget.h"
#include "Script.h"
#include "VorSearchBox.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QStandardItemModel>
#include <QWheelEvent>

#include <cmath>

namespace {

/// Records an operation of a widget with the widget's name.
void record(const QObject* widget, const char* operation, const QVariantList& arguments = {})
{
    Script::instance().record(widget->objectName() + QLatin1Char('.') + QLatin1String(operation), arguments);
}

QVariantList asVariants(const QList<QDate>& dates)
{
    QVariantList values;
    for (const QDate& date : dates)
        values.append(date);
    return values;
}

QVariantList asVariants(const QList<int>& numbers)
{
    QVariantList values;
    for (const int number : numbers)
        values.append(number);
    return values;
}

QString orQuotes(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("\"\"") : text;
}

/// Records a combo box's items and signals in the script's steps. The box gets a model that is connected here before
/// the box connects to it, so that an item is recorded before the signal that it causes.
void writeSteps(QComboBox* combo)
{
    auto* const model = new QStandardItemModel(0, 1, combo);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, combo, [combo] {
        if (combo->count() == 0)
            Script::instance().step(combo->objectName() + QStringLiteral(".clear()"));
    });
    QObject::connect(model, &QAbstractItemModel::rowsInserted, combo, [combo](const QModelIndex&, int first) {
        const QString code = combo->itemData(first, Qt::UserRole).toString();
        Script::instance().step(QStringLiteral("%1.append(%2, %3)")
                                    .arg(combo->objectName(), orQuotes(combo->itemText(first)), orQuotes(code)));
    });
    combo->setModel(model);
    QObject::connect(combo, &QComboBox::currentTextChanged, combo, [combo](const QString& text) {
        Script::instance().step(QStringLiteral("%1 announces %2").arg(combo->objectName(), orQuotes(text)));
    });
}

} // namespace

// --- OrloComboBox

class OrloComboBox::Private {
public:
    bool searchEnabled = false;
};

OrloComboBox::OrloComboBox(QWidget* parent)
    : QComboBox(parent)
    , d(new Private)
{
    writeSteps(this);
}

OrloComboBox::~OrloComboBox() = default;

void OrloComboBox::setSearchEnabled(bool enabled)
{
    record(this, "setSearchEnabled", { enabled });
    d->searchEnabled = enabled;
}

bool OrloComboBox::isSearchEnabled() const
{
    return d->searchEnabled;
}

void OrloComboBox::ResetEnable()
{
    record(this, "ResetEnable");
    setEnabled(true);
}

void OrloComboBox::showPopup()
{
    QComboBox::showPopup();
}

void OrloComboBox::hidePopup()
{
    QComboBox::hidePopup();
}

void OrloComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

// --- OrloAccountComboBox

class OrloAccountComboBox::Private {
public:
    DisplayMode mode = DisplayMode::NameAndFundAccount;
    QList<tagUserAccountInfo> accounts;
};

OrloAccountComboBox::OrloAccountComboBox(QWidget* parent, DisplayMode mode)
    : OrloComboBox(parent)
    , d(new Private)
{
    d->mode = mode;
}

OrloAccountComboBox::~OrloAccountComboBox() = default;

OrloAccountComboBox::DisplayMode OrloAccountComboBox::displayMode() const
{
    return d->mode;
}

void OrloAccountComboBox::SetAccountList(const QList<tagUserAccountInfo>& accounts)
{
    QStringList tradingAccounts;
    for (const tagUserAccountInfo& account : accounts)
        tradingAccounts.append(account.tradingAccount);
    record(this, "SetAccountList", { tradingAccounts });
    clear();
    d->accounts = accounts;
    for (const tagUserAccountInfo& account : accounts)
        addItem(account.fundAccount, account.tradingAccount);
}

QString OrloAccountComboBox::GetCurTradingAccount() const
{
    return currentData(Qt::UserRole).toString();
}

QString OrloAccountComboBox::GetCurFundAccount() const
{
    return d->accounts.value(currentIndex()).fundAccount;
}

// --- OrloAgreementSignWidget

/// Ends the dialog as soon as its event loop runs, so that `exec()` returns at once.
class OrloAgreementSignWidget::Private : public QObject {
public:
    explicit Private(OrloAgreementSignWidget* dialog)
        : m_dialog(dialog)
    {
        dialog->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            shown();
        return false;
    }

private:
    void shown()
    {
        record(m_dialog->isModal() ? QStringLiteral("modally") : QStringLiteral("beside the form"));
        QMetaObject::invokeMethod(
            this, [this] { runHookAndClose(); }, Qt::QueuedConnection);
    }

    void runHookAndClose()
    {
        const QPointer<QDialog> dialog = m_dialog;
        const std::function<void()> hook = std::move(Script::instance().whileAgreementOpen);
        Script::instance().whileAgreementOpen = nullptr;
        if (hook)
            hook();
        if (dialog != nullptr)
            dialog->reject();
    }

    static void record(const QString& how)
    {
        Script::instance().record(QStringLiteral("OrloAgreementSignWidget.shown"), { how });
    }

    OrloAgreementSignWidget* m_dialog = nullptr;
};

OrloAgreementSignWidget::OrloAgreementSignWidget(bool withText, bool withAccounts, QWidget* parent)
    : QDialog(parent)
    , d(new Private(this))
{
    Script::instance().record(QStringLiteral("OrloAgreementSignWidget"),
        { withText, withAccounts, parent == nullptr ? QString() : parent->objectName() });
}

OrloAgreementSignWidget::~OrloAgreementSignWidget() = default;

void OrloAgreementSignWidget::SetAccountSelectable(bool selectable)
{
    Script::instance().record(QStringLiteral("OrloAgreementSignWidget.SetAccountSelectable"), { selectable });
}

void OrloAgreementSignWidget::SetAgreement(const QString& protocolId)
{
    Script::instance().record(QStringLiteral("OrloAgreementSignWidget.SetAgreement"), { protocolId });
}

void OrloAgreementSignWidget::SetSignCountDown(int seconds)
{
    Script::instance().record(QStringLiteral("OrloAgreementSignWidget.SetSignCountDown"), { seconds });
}

void OrloAgreementSignWidget::SetClientNoList(const QStringList& clientNumbers)
{
    QStringList sorted = clientNumbers;
    sorted.sort();
    Script::instance().record(QStringLiteral("OrloAgreementSignWidget.SetClientNoList"), { sorted });
}

// --- OrloDateEdit

/// Keeps what the editor sets, readable as properties: "mode", "withTime", "exceptDaysOfWeek", "exceptDates",
/// "minDate", "maxDate" and "startCalendarEnabled".
class OrloDateEdit::Private {
public:
    QDate start;
    QDate end;
    QDate date;
};

OrloDateEdit::OrloDateEdit(QWidget* parent)
    : QFrame(parent)
    , d(new Private)
{
    if (!Script::instance().datesHaveCaptions)
        return;
    auto* const caption = new QLabel(QStringLiteral("inner caption"), this);
    auto* const input = new QLineEdit(this);
    input->setAccessibleName(QStringLiteral("inner name"));
    caption->setBuddy(input);
}

OrloDateEdit::~OrloDateEdit() = default;

void OrloDateEdit::SetMode(int mode, bool withTime)
{
    record(this, "SetMode", { mode, withTime });
    setProperty("mode", mode);
    setProperty("withTime", withTime);
}

void OrloDateEdit::SetExceptDayOfWeek(const QList<int>& daysOfWeek)
{
    record(this, "SetExceptDayOfWeek", { QVariant(asVariants(daysOfWeek)) });
    setProperty("exceptDaysOfWeek", asVariants(daysOfWeek));
}

void OrloDateEdit::SetExceptDateList(const QList<QDate>& dates)
{
    record(this, "SetExceptDateList", { QVariant(asVariants(dates)) });
    setProperty("exceptDates", asVariants(dates));
}

void OrloDateEdit::SetMinDate(const QDate& date)
{
    record(this, "SetMinDate", { date });
    setProperty("minDate", date);
}

void OrloDateEdit::SetMaxDate(const QDate& date)
{
    record(this, "SetMaxDate", { date });
    setProperty("maxDate", date);
}

void OrloDateEdit::SetStartEndDate(const QDate& start, const QDate& end)
{
    record(this, "SetStartEndDate", { start, end });
    d->start = start;
    d->end = end;
}

void OrloDateEdit::SetDate(const QDate& date)
{
    record(this, "SetDate", { date });
    d->date = date;
}

void OrloDateEdit::SetStartCalendarEnabled(bool enabled)
{
    record(this, "SetStartCalendarEnabled", { enabled });
    setProperty("startCalendarEnabled", enabled);
}

QDate OrloDateEdit::GetStartDate() const
{
    return d->start;
}

QDate OrloDateEdit::GetEndDate() const
{
    return d->end;
}

QDate OrloDateEdit::GetDate() const
{
    return d->date;
}

// --- OrloDoubleSpinBox

class OrloDoubleSpinBox::Private {
public:
    int showType = 0;
    bool emptyMode = false;
    bool empty = false;
};

OrloDoubleSpinBox::OrloDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
    , d(new Private)
{
    setLocale(QLocale::c());
    connect(lineEdit(), &QLineEdit::textChanged, this, [this](const QString& text) { d->empty = text.isEmpty(); });
}

OrloDoubleSpinBox::~OrloDoubleSpinBox() = default;

QString OrloDoubleSpinBox::GetStrValue() const
{
    return lineEdit()->text();
}

void OrloDoubleSpinBox::SetShowType(int showType)
{
    record(this, "SetShowType", { showType });
    d->showType = showType;
}

void OrloDoubleSpinBox::setEmptyMode(bool emptyMode)
{
    record(this, "setEmptyMode", { emptyMode });
    d->emptyMode = emptyMode;
    d->empty = emptyMode;
    QDoubleSpinBox::setValue(minimum());
}

QValidator::State OrloDoubleSpinBox::validate(QString& text, int& position) const
{
    return text.isEmpty() ? QValidator::Acceptable : QDoubleSpinBox::validate(text, position);
}

void OrloDoubleSpinBox::fixup(QString& text) const
{
    QDoubleSpinBox::fixup(text);
}

double OrloDoubleSpinBox::valueFromText(const QString& text) const
{
    return text.isEmpty() ? 0.0 : QDoubleSpinBox::valueFromText(text);
}

QString OrloDoubleSpinBox::textFromValue(double value) const
{
    if (d->empty)
        return {};
    QString text = QString::number(value, 'f', decimals());
    while (d->showType == 2 && text.contains(QLatin1Char('.'))
        && (text.endsWith(QLatin1Char('0')) || text.endsWith(QLatin1Char('.')))) {
        const bool wasPoint = text.endsWith(QLatin1Char('.'));
        text.chop(1);
        if (wasPoint)
            break;
    }
    return text;
}

void OrloDoubleSpinBox::stepBy(int steps)
{
    QDoubleSpinBox::stepBy(steps);
}

void OrloDoubleSpinBox::clear()
{
    record(this, "clear");
    d->empty = true;
    QDoubleSpinBox::setValue(0);
}

void OrloDoubleSpinBox::setValue(double value)
{
    record(this, "setValue", { value });
    const bool fits = std::isfinite(value) && value >= minimum() && value <= maximum();
    if (!fits)
        qWarning("OrloDoubleSpinBox::setValue: %f does not fit %s", value, qPrintable(objectName()));
    d->empty = !fits;
    QDoubleSpinBox::setValue(fits ? value : 0);
}

void OrloDoubleSpinBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void OrloDoubleSpinBox::focusOutEvent(QFocusEvent* event)
{
    QDoubleSpinBox::focusOutEvent(event);
}

bool OrloDoubleSpinBox::event(QEvent* event)
{
    return QDoubleSpinBox::event(event);
}

// --- OrloDecimalLineEdit

OrloDecimalLineEdit::OrloDecimalLineEdit(QWidget* parent)
    : OrloDoubleSpinBox(parent)
{
    setButtonSymbols(QAbstractSpinBox::NoButtons);
}

OrloDecimalLineEdit::~OrloDecimalLineEdit() = default;

// --- Labels

OrloElidedLabel::OrloElidedLabel(QWidget* parent)
    : QLabel(parent)
{
}

OrloElidedLabel::~OrloElidedLabel() = default;

QSize OrloElidedLabel::minimumSizeHint() const
{
    return QLabel::minimumSizeHint();
}

void OrloElidedLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
}

OrloHintLabel::OrloHintLabel(QWidget* parent)
    : QLabel(parent)
{
}

OrloHintLabel::~OrloHintLabel() = default;

// --- Formula inputs

class OrloFormulaPrompter::Private {
public:
    QLineEdit* edit = nullptr;
    QStringList functions;
    QStringList items;
};

OrloFormulaPrompter::OrloFormulaPrompter(QLineEdit* edit)
    : d(new Private)
{
    d->edit = edit;
}

OrloFormulaPrompter::~OrloFormulaPrompter() = default;

void OrloFormulaPrompter::setMode(int mode)
{
    record(d->edit, "setMode", { mode });
}

void OrloFormulaPrompter::SetFunctionItems(const QStringList& functions)
{
    record(d->edit, "SetFunctionItems", { functions });
    d->functions = functions;
}

void OrloFormulaPrompter::SetFormulaItems(const QStringList& items)
{
    record(d->edit, "SetFormulaItems", { items });
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

// --- OrloPushButton

class OrloPushButton::Private {
public:
    QString styleType;
};

OrloPushButton::OrloPushButton(QWidget* parent)
    : QPushButton(parent)
    , d(new Private)
{
}

OrloPushButton::~OrloPushButton() = default;

void OrloPushButton::setStyleType(const QString& styleType)
{
    record(this, "setStyleType", { styleType });
    d->styleType = styleType;
}

QString OrloPushButton::styleType() const
{
    return d->styleType;
}

// --- OrloSubTitleWidget

class OrloSubTitleWidget::Private {
public:
    QString title;
};

OrloSubTitleWidget::OrloSubTitleWidget(QWidget* parent)
    : QWidget(parent)
    , d(new Private)
{
}

OrloSubTitleWidget::~OrloSubTitleWidget() = default;

void OrloSubTitleWidget::SetTitle(const QString& title)
{
    record(this, "SetTitle", { title });
    d->title = title;
}

QString OrloSubTitleWidget::Title() const
{
    return d->title;
}

// --- VorSearchBox

class VorSearchBox::Private {
public:
    QString symbol;
};

VorSearchBox::VorSearchBox(QWidget* parent)
    : QLineEdit(parent)
    , d(new Private)
{
}

VorSearchBox::~VorSearchBox() = default;

void VorSearchBox::setSecurityList(const SymbolList& symbols)
{
    record(this, "setSecurityList", { symbols.toStringList() });
}

void VorSearchBox::setSearchMode(int mode)
{
    record(this, "setSearchMode", { mode });
}

void VorSearchBox::setMinMatchLength(int length)
{
    record(this, "setMinMatchLength", { length });
}

void VorSearchBox::setSymbol(const QString& symbol)
{
    record(this, "setSymbol", { symbol });
    setText(symbol);
    if (d->symbol == symbol)
        return;
    d->symbol = symbol;
    Q_EMIT selectStockCodeChange(symbol);
    Q_EMIT selectStockNameChange(Script::instance().securities.value(symbol).chineseName);
}

QString VorSearchBox::getSymbol() const
{
    return d->symbol;
}
