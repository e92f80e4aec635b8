#include "AdvisorPanel.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ForecastChart.h"
#include "ForecastTable.h"
#include "FormulaFacts.h"
#include "OrloSubTitleWidget.h"
#include "PlainText.h"
#include "PlanEvents.h"
#include "RowView.h"
#include "RuleList.h"
#include "SecurityChooser.h"
#include "SecurityFacts.h"
#include "VorSearchBox.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr int UsualWidth = 380;
constexpr int LeastWidth = 240;
const QStringList PriceFields{ QStringLiteral("lineEdit_price1"), QStringLiteral("lineEdit_price2") };
const QString DateRange = QStringLiteral("date_effectivePeriod_Multi");
const QString SingleDate = QStringLiteral("date_effectivePeriod_Single");
constexpr int Spacing = 6;
constexpr int Margin = 10;

OrloSubTitleWidget* newHeading(const QString& text, QWidget* parent)
{
    auto* const heading = new OrloSubTitleWidget(parent);
    heading->SetTitle(text);
    return heading;
}

void setText(QLabel* label, const QString& text)
{
    if (label->text() == text)
        return;
    label->setText(text);
    label->setToolTip(PlainText::toolTip(text));
}

void markFaulty(QLabel* label, bool isFaulty)
{
    if (label->property("faulty").toBool() == isFaulty)
        return;
    label->setProperty("faulty", isFaulty);
    label->style()->unpolish(label);
    label->style()->polish(label);
}

} // namespace

AdvisorPanel::AdvisorPanel(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("advisor"));
    setAccessibleName(tr("顾问"));
    setAttribute(Qt::WA_StyledBackground);
    auto* const sections = new QVBoxLayout(this);
    sections->setContentsMargins(Margin, Margin, Margin, Margin);
    sections->setSpacing(Spacing);
    buildSecurity();
    buildFormula();
    buildForecast();
    buildRules();
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) { noteFocus(now); });
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &AdvisorPanel::refresh);
    const PlanEvents& events = PlanEvents::instance();
    connect(&events, &PlanEvents::planStored, this, &AdvisorPanel::askAgain);
    connect(&events, &PlanEvents::plansStored, this, &AdvisorPanel::askAgain);
    connect(&events, &PlanEvents::plansChanged, this, &AdvisorPanel::askAgain);
    connect(&events, &PlanEvents::connectionRestored, this, &AdvisorPanel::askAgain);
}

AdvisorPanel::~AdvisorPanel() = default;

QLabel* AdvisorPanel::newLabel(const char* name)
{
    QLabel* const label = PlainText::newLabel(QString(), this);
    label->setObjectName(QLatin1String(name));
    label->setWordWrap(true);
    layout()->addWidget(label);
    return label;
}

// Tab stays within the form, whose fields are used far more often.
void AdvisorPanel::addTable(RowView* table, const QString& name)
{
    table->setAccessibleName(name);
    table->setFocusPolicy(Qt::ClickFocus);
    layout()->addWidget(table);
    m_tables << table;
}

void AdvisorPanel::buildSecurity()
{
    layout()->addWidget(newHeading(tr("证券"), this));
    m_security = new RowView(
        QStringLiteral("advisorSecurity"), { { tr("项目"), 28 }, { tr("内容"), 72 } }, RowView::FitsRows, this);
    addTable(m_security, tr("证券"));
}

void AdvisorPanel::buildFormula()
{
    layout()->addWidget(newHeading(tr("价格"), this));
    m_price = newLabel("formulaPrice");
    m_names = new RowView(QStringLiteral("formulaNames"), FormulaFacts::columns(), RowView::Plain, this);
    m_names->setToolTip(tr("点击插入价格公式"));
    addTable(m_names, tr("公式中可用的名称"));
    connect(m_names, &RowView::rowChosen, this, [this](const AdvisorRow& row) { insertName(row.key); });
}

void AdvisorPanel::buildRules()
{
    layout()->addWidget(newHeading(tr("检查"), this));
    m_summary = newLabel("ruleSummary");
    m_rules = new RowView(QStringLiteral("rules"), RuleList::columns(), RowView::Plain, this);
    addTable(m_rules, tr("检查"));
    connect(m_rules, &RowView::rowChosen, this, [this](const AdvisorRow& row) { goTo(row.key); });
}

void AdvisorPanel::buildForecast()
{
    layout()->addWidget(newHeading(tr("每日计划"), this));
    m_headline = newLabel("forecastHeadline");
    m_reduction = newLabel("forecastReduction");
    m_chart = new ForecastChart(this);
    m_chart->setAccessibleName(tr("每日下达和剩余"));
    layout()->addWidget(m_chart);
    m_days = new ForecastTable(this);
    addTable(m_days, tr("每日计划"));
}

// All boxes and lines of the form, also those within its fields: a choice changes other fields without their signals.
void AdvisorPanel::follow(QWidget* form)
{
    if (m_form)
        m_form->removeEventFilter(this);
    m_form = form;
    m_form->installEventFilter(this);
    const QList<QComboBox*> boxes = form->findChildren<QComboBox*>();
    for (QComboBox* const box : boxes)
        connect(box, &QComboBox::currentTextChanged, this, &AdvisorPanel::scheduleRefresh);
    const QList<QLineEdit*> lines = form->findChildren<QLineEdit*>();
    for (QLineEdit* const line : lines)
        connect(line, &QLineEdit::textChanged, this, &AdvisorPanel::scheduleRefresh);
    scheduleRefresh();
}

void AdvisorPanel::setPlan(const QString& planId)
{
    m_planId = planId;
    scheduleRefresh();
}

// Shown and hidden rows, and the end of the algorithm's window.
bool AdvisorPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::WindowActivate)
        scheduleRefresh();
    // The agreement may have been signed in a window over the form.
    if (event->type() == QEvent::WindowActivate && m_facts && *m_facts && !(*m_facts)->unsignedClients.isEmpty())
        askAgain();
    return QWidget::eventFilter(watched, event);
}

void AdvisorPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    scheduleRefresh();
}

void AdvisorPanel::scheduleRefresh()
{
    if (isVisible() && !m_refresh.isActive())
        m_refresh.start(0);
}

void AdvisorPanel::refresh()
{
    const ClientSession& session = ClientSession::instance();
    if (!m_form || !session.isOpen())
        return;
    const FormReading form = FormReading::of(*m_form);
    const StoredAccount* const account = session.accounts().find(form.account);
    const FactsQuestion question = questionOf(form, account);
    if (!(question == m_question))
        ask(question);
    const AdvisedPlan::World world{ session.market(), session.calendar(), clientToday(), session.user() };
    present({ world, form, account, m_facts });
}

FactsQuestion AdvisorPanel::questionOf(const FormReading& form, const StoredAccount* account) const
{
    const ClientSession& session = ClientSession::instance();
    const Security* const security = session.market().find(form.symbol);
    FactsQuestion question;
    question.user = session.user();
    question.today = clientToday();
    question.planId = m_planId;
    if (!account || !security)
        return question;
    question.account = form.account;
    question.exchange = security->exchange;
    question.securityAccount = account->exchangeAccounts.value(security->exchange);
    question.symbol = form.symbol;
    question.instructionType = form.instructionType;
    question.isReduction = form.isReduction();
    (form.isReduction() ? question.executor : question.assignee) = form.assignee;
    return question;
}

// Facts about the same subject stay until the new ones arrive, so that the panel does not flicker.
void AdvisorPanel::ask(const FactsQuestion& question)
{
    if (!question.hasSameSubject(m_question))
        m_facts.reset();
    m_question = question;
    m_isAsking = !question.symbol.isEmpty();
    if (!m_isAsking)
        return;
    reader().ask(question);
}

FactsReader& AdvisorPanel::reader()
{
    if (!m_reader) {
        m_reader = std::make_unique<FactsReader>(ClientSession::instance().database());
        connect(m_reader.get(), &FactsReader::answered, this, &AdvisorPanel::take);
    }
    return *m_reader;
}

void AdvisorPanel::chooseSecurity()
{
    auto* const box = m_form ? m_form->findChild<VorSearchBox*>(QStringLiteral("le_symbol")) : nullptr;
    if (!box || !box->isEnabled() || !box->isVisible())
        return;
    auto* const chooser = new SecurityChooser(box, ClientSession::instance().market(), window());
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    const QString account = FormReading::of(*m_form).account;
    connect(&reader(), &FactsReader::holdingsAnswered, chooser,
        [chooser, account](const QString& of, const Result<QHash<QString, qint64>>& held) {
            if (of == account)
                chooser->setHeld(held);
        });
    reader().askHoldings(account);
    chooser->open();
}

void AdvisorPanel::askAgain()
{
    if (isVisible())
        ask(m_question);
    else
        m_question = FactsQuestion();
}

void AdvisorPanel::take(const FactsQuestion& question, const Result<AdvisorFacts>& facts)
{
    if (!(question == m_question))
        return;
    m_facts = facts;
    m_isAsking = false;
    scheduleRefresh();
}

bool AdvisorPanel::isSettled() const
{
    return !m_isAsking && !m_refresh.isActive();
}

bool AdvisorPanel::focusNext()
{
    auto* const focused = qobject_cast<RowView*>(focusWidget());
    const int next = focused && focused->hasFocus() ? m_tables.indexOf(focused) + 1 : 0;
    if (next >= m_tables.size())
        return false;
    m_tables.at(next)->setFocus(Qt::ShortcutFocusReason);
    return true;
}

void AdvisorPanel::present(const AdvisedPlan& plan)
{
    m_security->setRows(SecurityFacts::rows(plan));
    presentFormula(plan);
    presentForecast(plan);
    presentRules(plan);
}

void AdvisorPanel::presentFormula(const AdvisedPlan& plan)
{
    setText(m_price, FormulaFacts::sentence(plan));
    markFaulty(m_price, !FormulaFacts::isUsable(plan));
    m_names->setRows(FormulaFacts::rows(plan));
}

void AdvisorPanel::presentRules(const AdvisedPlan& plan)
{
    const QVector<RuleList::AdvisedRule> rules = RuleList::of(plan);
    setText(m_summary, RuleList::summary(rules));
    m_rules->setRows(RuleList::rows(rules));
}

void AdvisorPanel::noteFocus(const QWidget* focused)
{
    if (m_form && focused && m_form->isAncestorOf(focused) && PriceFields.contains(focused->objectName()))
        m_priceField = focused->objectName();
}

// Into the price that was edited last, at its cursor.
void AdvisorPanel::insertName(const QString& name)
{
    auto* price = m_form->findChild<QLineEdit*>(m_priceField);
    if (!price || !price->isVisible())
        price = m_form->findChild<QLineEdit*>(PriceFields.constFirst());
    if (name.isEmpty() || !price->isEnabled())
        return;
    const int end = price->cursorPosition() + name.size();
    price->insert(name);
    price->setFocus(Qt::OtherFocusReason);
    price->setCursorPosition(end);
}

void AdvisorPanel::goTo(const QString& field)
{
    QWidget* wanted = m_form->findChild<QWidget*>(field);
    // A reduction has a single date instead of the range.
    if (field == DateRange && !wanted->isVisible())
        wanted = m_form->findChild<QWidget*>(SingleDate);
    wanted->setFocus(Qt::OtherFocusReason);
}

void AdvisorPanel::presentForecast(const AdvisedPlan& plan)
{
    const QString headline = ForecastTexts::headline(plan);
    const QString reduction = ForecastTexts::reduction(plan);
    setText(m_headline, headline);
    markFaulty(m_headline, !ForecastTexts::isInTime(plan));
    setText(m_reduction, reduction);
    m_reduction->setVisible(!reduction.isEmpty());
    const PlanForecast forecast = plan.forecast.valueOr(PlanForecast());
    m_chart->setForecast(forecast, headline);
    m_days->setForecast(forecast);
}

QSize AdvisorPanel::sizeHint() const
{
    return { UsualWidth, QWidget::sizeHint().height() };
}

QSize AdvisorPanel::minimumSizeHint() const
{
    return { LeastWidth, QWidget::minimumSizeHint().height() };
}
