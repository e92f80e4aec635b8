#include "MessageFocus.h"

#include "FieldMark.h"
#include "FormInputs.h"
#include "Language.h"
#include "PlanEvents.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

#include <utility>

namespace {

/// A message of the editor, and the field that it is about.
struct Message {
    const char* text;
    const char* field;
    /// The label whose text replaces %1; null if it is any text.
    const char* caption = nullptr;
};

constexpr auto Price1 = "lineEdit_price1";
constexpr auto Price2 = "lineEdit_price2";
constexpr auto Target = "le_targetTotalNum";
constexpr auto Daily = "le_entrustMaxNum";
constexpr auto Algorithm = "btn_algoParamSetting";
constexpr auto Begin = "le_start|le_date";
constexpr auto End = "le_end";

/// In the order of the editor's checks.
constexpr Message Messages[] = {
    { "当前账号未签署风险揭示，请关闭智能规划菜单后重新创建减持计划进行签署。", "combx_fundAccount" },
    { "未绑定资金帐号！", "combx_fundAccount" },
    { "%1必填，请重新编辑！", "combx_instructionType", "la_instructType" },
    { "未输入代码！", "le_symbol" },
    { "未输入目标总量！", Target },
    { "沪市债券目标总量需为%1的正整数倍，是否继续？", Target },
    { "未输入每日计划量!", Daily },
    { "沪市债券%1需为%2的正整数倍，是否继续？", Daily, "la_entrustMaxNum" },
    { "未输入减持占比！", "le_reduceHRatio" },
    { "%1公式必填，请重新编辑！", Price1, "label_price1" },
    { "%1公式包含特殊字符%2，请重新编辑！", Price1, "label_price1" },
    { "%1公式必填，请重新编辑！", Price2, "label_price2" },
    { "%1公式包含特殊字符%2，请重新编辑！", Price2, "label_price2" },
    { "%1必填，请重新编辑！", "combx_assignTo", "la_assignTo" },
    { "%1必填，请重新编辑！", "combx_instructionMode", "la_orderMode" },
    { "未设置算法参数！", Algorithm },
    { "算法参数中的交易账号与计划参数不一致！", Algorithm },
    { "算法参数中的交易方向与计划参数不一致！", Algorithm },
    { "%1算法不支持不限价，请重新设置！", Algorithm },
    { "目标数量不得小于该计划已成交和在下达总和，请重新输入！", Target },
    { "计划已开始执行，结束日期不得早于当日！", End },
    { "计划已开始执行，初始日期不支持修改！", Begin },
    { "%1需等于【%2】的整数倍，是否继续？", Target, "la_targetTotalNum" },
    { "%1需等于【%2】的整数倍，是否继续？", Daily, "la_entrustMaxNum" },
    { "当前账号【%1】的持仓可用小于目标总量，是否继续%2计划？继续请点击【确认】，否则点击【取消】", Target },
    { "。是否继续创建？", "le_symbol" },
};

/// A refusal of the plan service without a caption, and its field.
struct Refusal {
    Error error;
    const char* field;
};

constexpr Refusal Refusals[] = {
    { Error::NoAccount, "combx_fundAccount" },
    { Error::UnknownAccount, "combx_fundAccount" },
    { Error::NoAuthority, "combx_fundAccount" },
    { Error::NoLimits, "combx_fundAccount" },
    { Error::TypeNotOfAccount, "combx_instructionType" },
    { Error::NotACreditAccount, "combx_instructionType" },
    { Error::NoSecurity, "le_symbol" },
    { Error::UnknownSecurity, "le_symbol" },
    { Error::WrongExchange, "le_symbol" },
    { Error::NoSecurityAccount, "le_symbol" },
    { Error::NotConvertible, "le_symbol" },
    { Error::NothingToConvert, "le_symbol" },
    { Error::SideNotOfType, "combx_tradeSide" },
    { Error::ReductionBuys, "combx_tradeSide" },
    { Error::ConversionNotASale, "combx_tradeSide" },
    { Error::NoUsablePrice, Price1 },
    { Error::PriceOutsideBand, Price1 },
    { Error::TotalBelowUsed, Target },
    { Error::QuantityAboveLimit, Target },
    { Error::AmountAboveLimit, Target },
    { Error::RatioOutOfRange, "le_reduceHRatio" },
    { Error::ReviewRequired, "combx_instructionMode" },
    { Error::NoExecutor, "combx_assignTo" },
    { Error::UnknownExecutor, "combx_assignTo" },
    { Error::UnknownAssignee, "combx_assignTo" },
    { Error::EndBeforeBegin, End },
    { Error::BeginInPast, Begin },
    { Error::BeginNotChangeable, Begin },
    { Error::RemarkTooLong, "le_remark" },
};

/// The captions that the service has for fields whose label has another one.
constexpr Message Captions[] = {
    { "目标总量", Target },
    { "目标金额", Target },
    { "每日委托量", Daily },
    { "每日最大金额", Daily },
    { "价格", Price1 },
    { "价格1", Price1 },
    { "价格2", Price2 },
    { "开始日期", Begin },
    { "结束日期", End },
};

bool isAbout(const Message& message, const QString& caption, const QString& text)
{
    QString form = QRegularExpression::escape(editorText(message.text));
    const QString any = QStringLiteral(".*");
    const QString mark = QRegularExpression::escape(QStringLiteral("%1"));
    form.replace(mark, message.caption ? QRegularExpression::escape(caption) : any);
    form.replace(QRegularExpression::escape(QStringLiteral("%2")), any);
    // A description of the security precedes the last question.
    return QRegularExpression(form + QLatin1Char('$')).match(text).hasMatch();
}

} // namespace

MessageFocus::MessageFocus(QWidget* form)
    : QObject(form)
    , m_form(form)
{
    form->installEventFilter(this);
    connect(
        &PlanEvents::instance(), &PlanEvents::planRefused, this, [this](const Status& reason) { m_refusal = reason; });
    const auto* const ok = form->findChild<QAbstractButton*>(QStringLiteral("btn_ok"));
    connect(ok, &QAbstractButton::pressed, this, [this] {
        // It may have been about another form.
        m_refusal = Status();
        unmark();
    });
}

bool MessageFocus::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_form || event->type() != QEvent::ChildPolished)
        return QObject::eventFilter(watched, event);
    // A child that is polished is complete.
    QObject* const child = static_cast<QChildEvent*>(event)->child();
    auto* const box = qobject_cast<QDialog*>(child);
    if (box && box->objectName().startsWith(QLatin1String("msgBox"))) {
        const QString text = box->accessibleDescription();
        connect(box, &QDialog::finished, this,
            [this, name = box->objectName(), text](int result) { boxClosed(name, text, result == QDialog::Accepted); });
    }
    return QObject::eventFilter(watched, event);
}

void MessageFocus::boxClosed(const QString& name, const QString& text, bool isAccepted)
{
    const Status refusal = std::exchange(m_refusal, Status());
    const bool isQuestion = name == QLatin1String("msgBoxQuestion");
    if (name == QLatin1String("msgBoxError") && !refusal)
        show(fieldOf(refusal));
    else if (name == QLatin1String("msgBoxWarning") || (isQuestion && !isAccepted))
        show(fieldOf(text));
}

QWidget* MessageFocus::fieldOf(const QString& text) const
{
    for (const Message& message : Messages) {
        const auto* const label =
            message.caption ? m_form->findChild<QLabel*>(QLatin1String(message.caption)) : nullptr;
        if (isAbout(message, label ? label->text() : QString(), text))
            return fieldCalled(QLatin1String(message.field));
    }
    return nullptr;
}

QWidget* MessageFocus::fieldOf(const Status& refusal) const
{
    if (refusal.error() == Error::InputRefused)
        return FormInputs::refusedField(*m_form);
    for (const Refusal& known : Refusals) {
        if (known.error == refusal.error())
            return fieldCalled(QLatin1String(known.field));
    }
    return fieldWithCaption(refusal.details().value(0));
}

/// The visible one of fields whose names are separated by bars.
QWidget* MessageFocus::fieldCalled(const QString& name) const
{
    const QStringList names = name.split(QLatin1Char('|'));
    for (const QString& one : names) {
        const QList<QWidget*> fields = m_form->findChildren<QWidget*>(one);
        for (QWidget* const field : fields) {
            if (field->isVisible() && field->isEnabled())
                return field;
        }
    }
    return nullptr;
}

QWidget* MessageFocus::fieldWithCaption(const QString& caption) const
{
    for (const Message& known : Captions) {
        if (caption == QString::fromUtf8(known.text))
            return fieldCalled(QLatin1String(known.field));
    }
    const QString shown = editorText(caption.toUtf8().constData());
    const QList<QLabel*> labels = m_form->findChildren<QLabel*>();
    for (const QLabel* const label : labels) {
        if (!caption.isEmpty() && label->text() == shown && label->buddy())
            return fieldCalled(label->buddy()->objectName());
    }
    return nullptr;
}

// As by the Tab key, so that the next character replaces what is wrong.
void MessageFocus::show(QWidget* field)
{
    unmark();
    if (!field)
        return;
    m_marked = field;
    FieldMark::set(field, FieldMark::Faulty, true);
    unmarkOnChange();
    field->setFocus(Qt::TabFocusReason);
    Q_EMIT fieldShown(field);
}

void MessageFocus::unmarkOnChange()
{
    QWidget* const field = m_marked;
    auto* const line =
        qobject_cast<QLineEdit*>(field) ? qobject_cast<QLineEdit*>(field) : field->findChild<QLineEdit*>();
    if (auto* const box = qobject_cast<QComboBox*>(field))
        m_change = connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &MessageFocus::unmark);
    else if (auto* const button = qobject_cast<QAbstractButton*>(field))
        m_change = connect(button, &QAbstractButton::clicked, this, &MessageFocus::unmark);
    else if (line)
        m_change = connect(line, &QLineEdit::textChanged, this, &MessageFocus::unmark);
}

void MessageFocus::unmark()
{
    disconnect(m_change);
    if (m_marked)
        FieldMark::set(m_marked, FieldMark::Faulty, false);
    m_marked.clear();
}
