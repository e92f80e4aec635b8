#include "OrloAccountComboBox.h"
#include "OrloAgreementSignWidget.h"
#include "OrloDateEdit.h"
#include "OrloDecimalLineEdit.h"
#include "OrloElidedLabel.h"
#include "OrloFormulaNormal.h"
#include "OrloHintLabel.h"
#include "OrloPushButton.h"
#include "OrloSubTitleWidget.h"
#include "OrloUtils.h"
#include "OrloWidget.h"
#include "ParamListWidget_single.h"
#include "VorSearchBox.h"

#include <QDateEdit>
#include <QHBoxLayout>
#include <QTextStream>

// The headers declare no members for this client, so the widgets keep their state in properties.

// --- Choices

OrloComboBox::OrloComboBox(QWidget* parent)
    : QComboBox(parent)
{
}

void OrloComboBox::setSearchEnabled()
{
}

void OrloComboBox::ResetEnable()
{
    setEnabled(true);
}

OrloAccountComboBox::OrloAccountComboBox(QWidget* parent, DisplayMode mode)
    : OrloComboBox(parent)
{
    setProperty("isFull", mode == DisplayMode::Full);
}

void OrloAccountComboBox::SetAccountList(const QList<tagUserAccountInfo>& accounts)
{
    const QString text = property("isFull").toBool() ? QStringLiteral("%1 of %2") : QStringLiteral("%1");
    clear();
    for (const tagUserAccountInfo& account : accounts)
        addItem(text.arg(account.tradingAccount, account.clientNo), account.tradingAccount);
}

QString OrloAccountComboBox::GetCurTradingAccount()
{
    return currentData().toString();
}

QString OrloAccountComboBox::GetCurFundAccount()
{
    return currentText();
}

VorSearchBox::VorSearchBox(QWidget* parent)
    : QLineEdit(parent)
{
    connect(this, &QLineEdit::returnPressed, this, [this] {
        if (property("symbols").toStringList().contains(text()))
            setSymbol(text());
    });
}

void VorSearchBox::setSecurityList(const QStringList& symbols)
{
    setProperty("symbols", symbols);
}

void VorSearchBox::setSearchMode(int)
{
}

void VorSearchBox::setMinMatchLength(int)
{
}

/// Selects a security when its whole symbol was typed and Enter is pressed.
void VorSearchBox::setSymbol(const QString& symbol)
{
    setText(symbol);
    if (symbol == getSymbol())
        return;
    setProperty("symbol", symbol);
    emit selectStockCodeChange(symbol);
    emit selectStockNameChange(symbol.section(QLatin1Char('@'), 0, 0));
}

QString VorSearchBox::getSymbol()
{
    return property("symbol").toString();
}

// --- Dates: two date edits beside each other, of which a single date shows the first

namespace {

QDateEdit* start(const OrloDateEdit* field)
{
    return field->findChild<QDateEdit*>(QStringLiteral("start"));
}

QDateEdit* end(const OrloDateEdit* field)
{
    return field->findChild<QDateEdit*>(QStringLiteral("end"));
}

} // namespace

OrloDateEdit::OrloDateEdit(QWidget* parent)
    : QFrame(parent)
{
    auto* const row = new QHBoxLayout(this);
    for (const char* const name : { "start", "end" }) {
        auto* const edit = new QDateEdit;
        edit->setObjectName(QLatin1String(name));
        row->addWidget(edit);
    }
}

void OrloDateEdit::SetMode(int mode, bool)
{
    end(this)->setVisible(mode == 1);
}

void OrloDateEdit::SetExceptDayOfWeek(const QList<int>&)
{
}

void OrloDateEdit::SetExceptDateList(const QList<QDate>&)
{
}

void OrloDateEdit::SetMinDate(const QDate& date)
{
    start(this)->setMinimumDate(date);
    end(this)->setMinimumDate(date);
}

void OrloDateEdit::SetMaxDate(const QDate& date)
{
    start(this)->setMaximumDate(date);
    end(this)->setMaximumDate(date);
}

void OrloDateEdit::SetStartEndDate(const QDate& first, const QDate& last)
{
    start(this)->setDate(first);
    end(this)->setDate(last);
}

void OrloDateEdit::SetDate(const QDate& date)
{
    start(this)->setDate(date);
}

void OrloDateEdit::SetStartCalendarEnabled(bool enabled)
{
    start(this)->setEnabled(enabled);
}

QDate OrloDateEdit::GetStartDate() const
{
    return start(this)->date();
}

QDate OrloDateEdit::GetEndDate() const
{
    return end(this)->date();
}

QDate OrloDateEdit::GetDate() const
{
    return start(this)->date();
}

// --- Numbers and formulas

OrloDecimalLineEdit::OrloDecimalLineEdit(QWidget* parent)
    : QDoubleSpinBox(parent)
{
}

QString OrloDecimalLineEdit::GetStrValue() const
{
    return cleanText();
}

void OrloDecimalLineEdit::SetShowType(int)
{
}

void OrloDecimalLineEdit::setEmptyMode(bool)
{
}

OrloFormulaNormal::OrloFormulaNormal(QWidget* parent)
    : QLineEdit(parent)
{
}

void OrloFormulaNormal::setMode(int)
{
}

void OrloFormulaNormal::SetFunctionItems(const QStringList&)
{
}

void OrloFormulaNormal::SetFormulaItems(const QStringList& items)
{
    setPlaceholderText(items.join(QLatin1Char(' ')));
}

// --- Labels and buttons

OrloElidedLabel::OrloElidedLabel(QWidget* parent)
    : QLabel(parent)
{
}

OrloHintLabel::OrloHintLabel(QWidget* parent)
    : QLabel(parent)
{
}

OrloSubTitleWidget::OrloSubTitleWidget(QWidget* parent)
    : QWidget(parent)
{
}

void OrloSubTitleWidget::SetTitle(const QString& title)
{
    setToolTip(title);
}

OrloPushButton::OrloPushButton(QWidget* parent)
    : QPushButton(parent)
{
}

void OrloPushButton::setStyleType(const QString& styleType)
{
    setFlat(styleType == BtnStyleType::Text);
}

// --- The panel of an algorithm, which this client never fills in

ParamListWidget_single::ParamListWidget_single(QWidget* parent)
    : QWidget(parent)
{
}

QString ParamListWidget_single::LoadStrategy(
    const AesStrategy&, const QMap<QString, QVariant>&, const QMap<QString, QVariant>&, const QString&)
{
    return QStringLiteral("no algorithms here");
}

QMap<QString, QVariant> ParamListWidget_single::GetParamMap() const
{
    return {};
}

QString ParamListWidget_single::GetStrategyName() const
{
    return {};
}

bool ParamListWidget_single::HasParams() const
{
    return false;
}

void ParamListWidget_single::RefreshAlgoList()
{
}

void ParamListWidget_single::ReInit()
{
}

void ParamListWidget_single::ClearParams()
{
}

void ParamListWidget_single::setAlgoWhiteList(QStringList)
{
}

void ParamListWidget_single::setAlgoBlackList(QStringList)
{
}

QStringList ParamListWidget_single::getAuthorityAlgoList()
{
    return {};
}

AlgoErrorCode ParamListWidget_single::setBaseInfoData(QMap<QString, QVariant>, bool)
{
    return AlgoErrorCode();
}

// --- Windows

OrloAgreementSignWidget::OrloAgreementSignWidget(bool, bool, QWidget* parent)
    : QDialog(parent)
{
}

void OrloAgreementSignWidget::SetAccountSelectable(bool)
{
}

void OrloAgreementSignWidget::SetAgreement(const QString&)
{
}

void OrloAgreementSignWidget::SetSignCountDown(int)
{
}

void OrloAgreementSignWidget::SetClientNoList(const QStringList&)
{
}

QPoint OrloUtils::GetWidgetPos(QWidget* widget, int)
{
    return widget->pos();
}

// Message boxes print their texts on the console; questions are accepted.

namespace {

void print(const char* kind, const QString& text)
{
    QTextStream(stdout) << kind << ": " << text << '\n';
}

} // namespace

void OrloWidget::ShowWarningMsgBox(const QString& text, QWidget*)
{
    print("warning", text);
}

void OrloWidget::ShowErrorMsgBox(const QString& text, QWidget*)
{
    print("error", text);
}

void OrloWidget::ShowTipMsgBox(const QString& text, QWidget*)
{
    print("tip", text);
}

int OrloWidget::ShowQuestionMsgBox(const QString& text, QWidget*, int)
{
    print("question", text);
    return 1;
}
