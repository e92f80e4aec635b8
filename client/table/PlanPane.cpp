#include "PlanPane.h"

#include "ClientClock.h"
#include "PlainText.h"
#include "PlanSearchText.h"
#include "PlanTable.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>

namespace {

constexpr int BarMargin = 6;
constexpr int SearchWidth = 300;
constexpr int NarrowSearch = 80;
// The frame, and the button that clears the text.
constexpr int SearchMargin = 40;

} // namespace

PlanPane::PlanPane(QWidget* parent)
    : QWidget(parent)
    , m_table(new PlanTable(this))
    , m_filters(new QButtonGroup(this))
    , m_search(new QLineEdit(this))
{
    auto* const rows = new QHBoxLayout;
    rows->setSpacing(0);
    rows->addWidget(m_table);
    rows->addWidget(m_table->positionBar());
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(QMargins());
    all->setSpacing(0);
    all->addLayout(buildBar());
    all->addLayout(rows);
    connect(m_table, &PlanTable::listChanged, this, &PlanPane::listChanged);
    connect(m_table, &PlanTable::searchTyped, this, &PlanPane::beginSearch);
}

void PlanPane::goTo(const QString& planId)
{
    m_table->selectPlan(planId);
    QAbstractButton* const all = m_filters->button(static_cast<int>(PlanFilter::Current));
    QAbstractButton* const archived = m_filters->button(static_cast<int>(PlanFilter::Archived));
    for (QAbstractButton* const filter : { all, archived, all }) {
        if (m_table->currentPlan().id == planId)
            break;
        m_search->clear();
        filter->click();
        m_table->selectPlan(planId);
    }
    m_table->setFocus();
}

QHBoxLayout* PlanPane::buildBar()
{
    buildSearch();
    auto* const bar = new QHBoxLayout;
    bar->setContentsMargins(BarMargin, BarMargin, BarMargin, BarMargin);
    bar->addWidget(addFilter(QStringLiteral("filter_all"), tr("全部"), PlanFilter::Current));
    bar->addWidget(addFilter(QStringLiteral("filter_today"), tr("今日"), PlanFilter::Today));
    bar->addWidget(addFilter(QStringLiteral("filter_running"), tr("进行中"), PlanFilter::Running));
    bar->addWidget(addFilter(QStringLiteral("filter_failed"), tr("异常"), PlanFilter::Failed));
    bar->addWidget(addFilter(QStringLiteral("filter_own"), tr("我的"), PlanFilter::Own));
    bar->addWidget(addFilter(QStringLiteral("filter_archived"), tr("已归档"), PlanFilter::Archived));
    bar->addStretch();
    bar->addWidget(m_search, 1);
    m_filters->buttons().constFirst()->setChecked(true);
    connect(m_filters, QOverload<QAbstractButton*>::of(&QButtonGroup::buttonClicked), this, &PlanPane::apply);
    return bar;
}

QAbstractButton* PlanPane::addFilter(const QString& name, const QString& text, PlanFilter filter)
{
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setCheckable(true);
    button->setAutoDefault(false);
    m_filters->addButton(button, static_cast<int>(filter));
    return button;
}

void PlanPane::buildSearch()
{
    m_search->setObjectName(QStringLiteral("le_search"));
    m_search->setAccessibleName(tr("搜索计划"));
    m_search->setPlaceholderText(tr("搜索"));
    m_search->setToolTip(PlainText::toolTip(tr("编号、证券代码、名称、账户（Ctrl+F）")));
    m_search->setClearButtonEnabled(true);
    const QSize text = m_search->fontMetrics().size(Qt::TextSingleLine, m_search->placeholderText());
    m_search->setMinimumSize(NarrowSearch, text.height() + SearchMargin / 4);
    m_search->setMaximumWidth(qMax(SearchWidth, text.width() + SearchMargin));
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &PlanPane::apply);
    auto* const find = new QShortcut(QKeySequence(QKeySequence::Find), this);
    find->setContext(Qt::WindowShortcut);
    connect(find, &QShortcut::activated, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
}

// Enter and Down lead to the plans that were found, Escape back to all. The window's shortcuts do not get these keys.
bool PlanPane::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched != m_search || (!isOverride && event->type() != QEvent::KeyPress))
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        if (!isOverride)
            m_search->clear();
        [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        event->accept();
        if (!isOverride)
            m_table->setFocus();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void PlanPane::beginSearch(const QString& text)
{
    m_search->setFocus();
    m_search->setText(text);
}

void PlanPane::apply()
{
    PlanList list = m_table->list();
    list.filter = static_cast<PlanFilter>(m_filters->checkedId());
    list.today = clientToday();
    list.search = planSearch(m_search->text());
    Q_EMIT listChanged(m_table->show(list));
}
