#include "AlgorithmPanel.h"

#include "Algo_Fields.h"
#include "Algo_Values.h"
#include "ErrorText.h"
#include "FieldMark.h"
#include "OrloBusinessDataInterface.h"
#include "OrloStrategyFactory.h"
#include "ParamListWidget.h"
#include "PlainText.h"
#include "StrategyLibrary.h"
#include "WindowPlace.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace Content = Algo_Fields::AlgoInstContentInfo;
namespace Side = Algo_Values::AlgoOrderSide;

namespace {

const QString Success = QStringLiteral("0");
constexpr int Narrowest = 420;
// On a screen that is narrower than this, texts of a large font are not cut: the window hangs over the edge.
constexpr int WidestMinimum = 600;
/// Largest parts of the screen for the parameters.
constexpr double FormWidth = 0.9;
constexpr double FormHeight = 0.6;

QLabel* boldLabel(const QString& text, QWidget* parent)
{
    auto* const label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

QString sideText(const QString& side)
{
    if (side == Side::BuyValue)
        return AlgorithmPanel::tr("买入");
    return side == Side::SellValue ? AlgorithmPanel::tr("卖出") : QStringLiteral("—");
}

} // namespace

AlgorithmPanel::AlgorithmPanel(int offers, QWidget* parent)
    : ParamListWidget_single(parent)
    , m_offers(offers)
{
    setObjectName(QStringLiteral("algorithmPanel"));
    setWindowTitle(AlgorithmPanel::tr("算法参数设置"));
    setMinimumWidth(Narrowest);
    // The editor turns it into a window; until then it must not appear inside its parent.
    hide();
    buildPanel();
    connectPanel();
    d->baseDataTaken = [this](const QMap<QString, QVariant>& handedOver) { takeValues(handedOver); };
    replaceForm(nullptr);
}

AlgorithmPanel::~AlgorithmPanel() = default;

void AlgorithmPanel::buildPanel()
{
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    auto* const border = new QFrame(this);
    border->setObjectName(QStringLiteral("frame_algorithm"));
    border->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    outer->addWidget(border);

    auto* const column = new QVBoxLayout(border);
    column->addWidget(boldLabel(windowTitle(), border));
    buildChoice(column);
    m_formLayout = new QVBoxLayout;
    column->addLayout(m_formLayout);
    m_message = PlainText::newLabel(QString(), border);
    m_message->setObjectName(QStringLiteral("lab_message"));
    m_message->setWordWrap(true);
    QPalette colors = m_message->palette();
    colors.setColor(QPalette::WindowText, FieldMark::colour());
    m_message->setPalette(colors);
    column->addWidget(m_message);
    column->addStretch(1);
    buildButtons(column);
}

void AlgorithmPanel::buildChoice(QVBoxLayout* column)
{
    m_baseData = PlainText::newLabel(QString(), this);
    m_baseData->setObjectName(QStringLiteral("lab_baseData"));
    column->addWidget(m_baseData);

    auto* const line = new QHBoxLayout;
    auto* const label = new QLabel(AlgorithmPanel::tr("算法"), this);
    m_strategies = new QComboBox(this);
    m_strategies->setObjectName(QStringLiteral("combx_strategy"));
    m_strategies->setEnabled((m_offers & StrategyChoice) != 0);
    label->setBuddy(m_strategies);
    line->addWidget(label);
    line->addWidget(m_strategies, 1);
    column->addLayout(line);

    m_description = PlainText::newLabel(QString(), this);
    m_description->setObjectName(QStringLiteral("lab_description"));
    m_description->setWordWrap(true);
    column->addWidget(m_description);
}

void AlgorithmPanel::buildButtons(QVBoxLayout* column)
{
    m_ok = new QPushButton(AlgorithmPanel::tr("确定"), this);
    m_ok->setObjectName(QStringLiteral("btn_ok"));
    m_cancel = new QPushButton(AlgorithmPanel::tr("取消"), this);
    m_cancel->setObjectName(QStringLiteral("btn_cancel"));
    auto* const line = new QHBoxLayout;
    line->addStretch(1);
    for (QPushButton* const button : { m_ok, m_cancel }) {
        // Return presses the button that has the focus, not always OK.
        button->setAutoDefault(true);
        line->addWidget(button);
    }
    column->addLayout(line);
}

void AlgorithmPanel::connectPanel()
{
    connect(
        m_strategies, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &AlgorithmPanel::slotStrategyChanged);
    connect(m_ok, &QPushButton::clicked, this, &AlgorithmPanel::slotOk);
    connect(m_cancel, &QPushButton::clicked, this, &AlgorithmPanel::slotCancel);
}

QString AlgorithmPanel::LoadStrategy(const AesStrategy& strategy, const QMap<QString, QVariant>& defaults,
    const QMap<QString, QVariant>& parameters, const QString& symbol)
{
    if (Status status = checkChoice(strategy.name); !status)
        return errorText(status);
    m_symbol = symbol;
    d->choice.load(strategy.name);
    QMap<QString, QVariant> given = defaults;
    for (auto it = parameters.cbegin(); it != parameters.cend(); ++it)
        given.insert(it.key(), it.value());

    const StrategyDefinition definition = StrategyLibrary::instance().strategy(strategy.name);
    showStrategy(strategy.name, AlgorithmChoice::parameterValues(definition, given));
    showBaseData();
    m_strategies->setFocus(Qt::OtherFocusReason);
    if (!strategy.name.isEmpty())
        show();
    return Success;
}

Status AlgorithmPanel::checkChoice(const QString& name) const
{
    if (name.isEmpty())
        return {};
    if (StrategyLibrary::instance().strategy(name).name.isEmpty())
        return { Error::StrategyNotDefined, { name } };
    if (!d->choice.offered().contains(name))
        return { Error::StrategyNotOffered, { name } };
    return {};
}

QMap<QString, QVariant> AlgorithmPanel::GetParamMap() const
{
    return d->choice.confirmedMap();
}

QString AlgorithmPanel::GetStrategyName() const
{
    return d->choice.confirmedName();
}

bool AlgorithmPanel::HasParams() const
{
    return !d->choice.confirmedName().isEmpty();
}

void AlgorithmPanel::RefreshAlgoList()
{
    d->choice.refresh();
    fillStrategies();
}

void AlgorithmPanel::ReInit()
{
    fillStrategies();
    updateSecurity();
    showBaseData();
}

void AlgorithmPanel::ClearParams()
{
    d->choice.clear();
    m_symbol.clear();
    hide();
    showStrategy({}, {});
    showBaseData();
}

void AlgorithmPanel::fillStrategies()
{
    const QSignalBlocker blocker(m_strategies);
    m_strategies->clear();
    const QStringList offered = d->choice.offered();
    for (const QString& name : offered)
        m_strategies->addItem(StrategyLibrary::instance().strategy(name).alias, name);
    selectStrategy(m_form ? m_form->strategyName() : QString());
}

void AlgorithmPanel::selectStrategy(const QString& name)
{
    const QSignalBlocker blocker(m_strategies);
    m_strategies->setCurrentIndex(
        m_strategies->findData(name, Qt::UserRole, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void AlgorithmPanel::showStrategy(const QString& name, const QMap<QString, QString>& values)
{
    selectStrategy(name);
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(name);
    replaceForm(strategy.name.isEmpty() ? nullptr : new ParameterForm(strategy, this));
    m_description->setText(strategy.description);
    m_description->setVisible(!strategy.description.isEmpty());
    updateSecurity();
    if (m_form) {
        m_form->setValues(values);
        m_form->setOrderFields(orderFields());
    }
    resizeToContents();
}

/// `adjustSize()` is limited to two thirds of the screen and would cut off hints in large fonts or at a large zoom.
void AlgorithmPanel::resizeToContents()
{
    ensurePolished();
    fitScroll();
    // Layouts keep their former size hints until they are activated, the inner ones first.
    m_formLayout->activate();
    layout()->activate();
    setMinimumWidth(qBound(Narrowest, sizeHint().width(), WidestMinimum));
    QSize wanted = sizeHint().expandedTo({ Narrowest, 0 });
    if (layout()->hasHeightForWidth())
        wanted.setHeight(layout()->totalHeightForWidth(wanted.width()));
    resize(wanted);
    keepOnScreen(this);
}

/// A large form is as large as the screen allows, and scrolls.
void AlgorithmPanel::fitScroll()
{
    if (!m_scroll)
        return;
    const QList<QLayout*> layouts = m_form->findChildren<QLayout*>();
    std::for_each(layouts.crbegin(), layouts.crend(), [](QLayout* inner) { inner->activate(); });
    const QSize room = screen()->availableSize();
    const QSize most(
        qMax(WidestMinimum, static_cast<int>(room.width() * FormWidth)), static_cast<int>(room.height() * FormHeight));
    QSize wanted = m_form->sizeHint();
    if (wanted.height() > most.height())
        wanted.rwidth() += m_scroll->verticalScrollBar()->sizeHint().width();
    if (wanted.width() > most.width())
        wanted.rheight() += m_scroll->horizontalScrollBar()->sizeHint().height();
    m_scroll->setMinimumSize(wanted.boundedTo(most));
}

/// The form's layout requests more or less room when a panel is opened or closed, or controls appear or disappear.
bool AlgorithmPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest && m_scroll && watched == m_scroll->viewport())
        resizeToContents();
    return ParamListWidget_single::eventFilter(watched, event);
}

void AlgorithmPanel::replaceForm(ParameterForm* form)
{
    if (m_scroll) {
        m_scroll->hide();
        m_scroll->deleteLater();
    }
    m_scroll = nullptr;
    m_form = form;
    m_ok->setEnabled(m_form != nullptr);
    const QString choose = m_strategies->count() > 0 ? AlgorithmPanel::tr("请选择算法。")
                                                     : AlgorithmPanel::tr("当前证券和指令类型没有可用的算法。");
    showMessage(m_form ? QString() : choose);
    if (!m_form)
        return;
    m_scroll = new QScrollArea(this);
    m_scroll->setObjectName(QStringLiteral("algorithmParameters"));
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(m_form);
    // The skin of the panel shows through.
    for (QWidget* const part : { m_scroll->viewport(), static_cast<QWidget*>(m_form) })
        part->setAutoFillBackground(false);
    m_scroll->viewport()->installEventFilter(this);
    m_formLayout->addWidget(m_scroll, 1);
    m_scroll->setVisible((m_offers & Parameters) != 0);
    if (m_form->lastInput())
        setTabOrder(m_form->lastInput(), m_ok);
    setTabOrder(m_ok, m_cancel);
}

/// The fields of the order that the plan's base data contain.
QMap<QString, QString> AlgorithmPanel::orderFields() const
{
    const QMap<QString, QVariant> base = d->choice.baseData();
    const QString side = base.value(Content::OrderSide).toString();
    QMap<QString, QString> fields{ { QStringLiteral("FIX_Account"), base.value(Content::TradingAccount).toString() },
        { QStringLiteral("FIX_Symbol"), m_symbol } };
    if (side == Side::BuyValue || side == Side::SellValue)
        fields.insert(QStringLiteral("FIX_Side"), side == Side::BuyValue ? QStringLiteral("1") : QStringLiteral("2"));
    return fields;
}

void AlgorithmPanel::showBaseData()
{
    const QMap<QString, QVariant> base = d->choice.baseData();
    m_baseData->setText(AlgorithmPanel::tr("账号：%1    证券：%2    方向：%3")
                            .arg(base.value(Content::TradingAccount).toString(), m_symbol,
                                sideText(base.value(Content::OrderSide).toString())));
    resizeToContents();
}

void AlgorithmPanel::showMessage(const QString& message)
{
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
}

void AlgorithmPanel::takeValues(const QMap<QString, QVariant>& handedOver)
{
    if (handedOver.contains(Content::Symbol))
        m_symbol = handedOver.value(Content::Symbol).toString();
    const QString loaded = d->choice.loaded();
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(loaded);
    const QMap<QString, QString> values = AlgorithmChoice::parameterValues(strategy, handedOver);
    if (m_form && m_form->strategyName() == loaded) {
        m_form->setValues(values);
        m_form->setOrderFields(orderFields());
    } else {
        showStrategy(loaded, values);
    }
    updateSecurity();
    showBaseData();
}

void AlgorithmPanel::updateSecurity()
{
    if (m_form && !m_symbol.isEmpty())
        m_form->setSecurity(OrloBusinessDataInterface::GetQtyStepBySymbol(m_symbol),
            OrloBusinessDataInterface::GetPricePrecisionBySymbol(m_symbol, {}));
}

void AlgorithmPanel::slotStrategyChanged()
{
    const QString name = m_strategies->currentData().toString();
    d->choice.load(name);
    const bool confirmed = name == d->choice.confirmedName();
    const StrategyDefinition strategy = StrategyLibrary::instance().strategy(name);
    showStrategy(name,
        confirmed ? AlgorithmChoice::parameterValues(strategy, d->choice.confirmedMap()) : QMap<QString, QString>());
}

void AlgorithmPanel::slotOk()
{
    if (!m_form)
        return;
    const ParameterForm::Fault fault = m_form->check();
    m_form->markFault(fault.parameter);
    showMessage(errorText(fault.status));
    if (!fault.status)
        return resizeToContents();
    d->choice.confirm(m_form->strategy(), m_form->values());
    hide();
}

void AlgorithmPanel::slotCancel()
{
    hide();
}

void AlgorithmPanel::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        slotCancel();
    else if (isEnter && (event->modifiers() & Qt::ControlModifier))
        slotOk();
    else
        ParamListWidget_single::keyPressEvent(event);
}

/// The style has set up all parts now, which can change their sizes.
void AlgorithmPanel::showEvent(QShowEvent* event)
{
    ParamListWidget_single::showEvent(event);
    resizeToContents();
}

OrloStrategyFactory& OrloStrategyFactory::instance()
{
    static OrloStrategyFactory factory;
    return factory;
}

ParamListWidget_single* OrloStrategyFactory::CreateStrategyWgt(StrategyMode mode, QWidget* parent,
    const QString& globalType, QStringList whiteList, QStringList blackList, int flags)
{
    // The client has one layout and one kind of panel and ignores requests for others.
    Q_UNUSED(mode)
    Q_UNUSED(globalType)
    auto* const panel = new AlgorithmPanel(flags, parent);
    panel->setAlgoWhiteList(whiteList);
    panel->setAlgoBlackList(blackList);
    panel->RefreshAlgoList();
    return panel;
}
