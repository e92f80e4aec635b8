#include "IssueSheet.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "DecimalText.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "IssueSheetModel.h"
#include "OrloWidget.h"
#include "PlainText.h"
#include "TextTable.h"
#include "WindowPlace.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <memory>
#include <numeric>
#include <utility>

namespace {

constexpr QSize UsualSize(900, 520);
constexpr int MostSums = 8;
constexpr int MeasuredRows = 50;

QString yuanText(double yuan)
{
    return groupedText(QString::number(yuan, 'f', 2));
}

QString sumText(const IssueSheetRows::Sum& sum)
{
    const QString side = sum.isBuy ? IssueSheet::tr("买入") : IssueSheet::tr("卖出");
    const QString text =
        IssueSheet::tr("账户%1 %2 %3笔 %4元").arg(sum.account, side, QString::number(sum.plans), yuanText(sum.yuan));
    if (!sum.isBuy)
        return text;
    return sum.cash ? IssueSheet::tr("%1，可用资金%2元").arg(text, yuanText(*sum.cash))
                    : IssueSheet::tr("%1，资金未知").arg(text);
}

QString sumsText(const QVector<IssueSheetRows::Sum>& sums)
{
    QStringList lines;
    for (const IssueSheetRows::Sum& sum : sums.mid(0, MostSums))
        lines << sumText(sum);
    if (sums.size() > MostSums)
        lines << IssueSheet::tr("另有%1项").arg(sums.size() - MostSums);
    return lines.isEmpty() ? IssueSheet::tr("没有选择计划") : lines.join(QLatin1Char('\n'));
}

} // namespace

IssueSheet::IssueSheet(QWidget* parent)
    : QDialog(parent)
    , m_rows(new IssueSheetModel(this))
    , m_table(new QTableView(this))
    , m_sums(PlainText::newLabel(QString(), this))
    , m_text(PlainText::newLabel(QString(), this))
    , m_progress(new QProgressBar(this))
    , m_all(new QCheckBox(tr("全选"), this))
    , m_issue(new QPushButton(this))
    , m_close(new QPushButton(tr("关闭"), this))
    , m_former(std::make_shared<IssueSheetRows>())
    , m_work(ClientSession::instance().database())
{
    setObjectName(QStringLiteral("issueSheet"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(UsualSize);
    new WindowPlace(this, QStringLiteral("issue"));
    build();
    connect(m_rows, &IssueSheetModel::chosenChanged, this, &IssueSheet::showSums);
    connect(m_rows, &IssueSheetModel::chosenChanged, this, &IssueSheet::computeAgain);
    connect(this, &IssueSheet::colorsChanged, m_rows, [this] { m_rows->setColors(m_buyColor, m_sellColor); });
    connect(m_issue, &QPushButton::clicked, this, &IssueSheet::confirm);
    connect(m_close, &QPushButton::clicked, this, &IssueSheet::reject);
    connect(&m_work, &LongWork::progressed, m_progress, &QProgressBar::setValue);
}

// No key issues by itself: the button that closes is the default one.
void IssueSheet::build()
{
    m_table->setObjectName(QStringLiteral("issueRows"));
    m_table->setModel(m_rows);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setResizeContentsPrecision(MeasuredRows);
    m_table->horizontalHeader()->setMaximumSectionSize(TextTable::WidestColumn);
    m_sums->setObjectName(QStringLiteral("issueSums"));
    m_text->setObjectName(QStringLiteral("issueText"));
    m_text->setWordWrap(true);
    m_progress->setObjectName(QStringLiteral("issueProgress"));
    m_issue->setObjectName(QStringLiteral("btn_issue"));
    m_issue->setAutoDefault(false);
    m_close->setObjectName(QStringLiteral("btn_close"));
    m_close->setDefault(true);
    m_all->setObjectName(QStringLiteral("cb_all"));
    connect(m_all, &QCheckBox::clicked, m_rows, &IssueSheetModel::choose);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_all);
    buttons->addWidget(m_progress, 1);
    buttons->addStretch();
    buttons->addWidget(m_issue);
    buttons->addWidget(m_close);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(m_text);
    rows->addWidget(m_table, 1);
    rows->addWidget(m_sums);
    rows->addLayout(buttons);
}

void IssueSheet::openToday()
{
    show();
    raise();
    activateWindow();
    m_close->setFocus();
    if (!m_work.isRunning()) {
        readPlans();
    } else if (!m_isBusy) {
        m_mustRead = true;
        showWork(tr("正在读取当日的计划……"), 0);
    }
}

void IssueSheet::reject()
{
    if (isWorking())
        m_work.cancel();
    else
        QDialog::reject();
}

void IssueSheet::readPlans()
{
    m_day = clientToday();
    setWindowTitle(tr("下达当日指令 - %1").arg(m_day.toString(Qt::ISODate)));
    retire(m_rows->setRows({}));
    showWork(tr("正在读取当日的计划……"), 0);
    auto rows = std::make_shared<IssueSheetRows>();
    auto read = std::make_shared<Status>();
    const auto work = [read, rows, former = m_former, scene = InstructionIssuer::scene(m_day, IssueMode::Live)](
                          Database& database, const Status& opened, const LongWork::Progress& progress) {
        *former = {};
        DayIssue issue(database, scene);
        const Result<DayPlans> plans = opened ? issue.plans() : opened;
        const auto found = plans ? issue.preview(plans->due, progress) : plans.status();
        *read = found.status();
        *rows = IssueSheetRows(found.valueOr({}));
    };
    m_work.start(work, [this, read, rows] { showPlans(*read, *rows); });
}

void IssueSheet::showPlans(const Status& read, IssueSheetRows& rows)
{
    endWork();
    m_rows->setRows(std::move(rows));
    m_table->resizeColumnsToContents();
    if (!read)
        m_text->setText(errorText(read));
    else
        m_text->setText(m_rows->rowCount() == 0 ? tr("今天没有要下达的计划。") : tr("选择要下达的计划。"));
}

/// Leaves rows to the next work, which destroys them on its thread because that takes long.
void IssueSheet::retire(IssueSheetRows rows)
{
    m_former = std::make_shared<IssueSheetRows>(std::move(rows));
}

/// What would go out for a plan depends on those that are chosen of its account.
void IssueSheet::computeAgain()
{
    m_isOutdated = m_work.isRunning();
    if (m_isOutdated || !m_rows->rows().isOutdated() || !isOfToday())
        return;
    auto rows = std::make_shared<IssueSheetRows>(m_rows->rows());
    auto read = std::make_shared<Status>();
    const auto work = [read, rows, former = m_former, scene = InstructionIssuer::scene(m_day, IssueMode::Live)](
                          Database& database, const Status& opened, const LongWork::Progress& progress) {
        *former = {};
        DayIssue issue(database, scene);
        const Result<DayPlans> plans = opened ? issue.plans(rows->outdated()) : opened;
        const auto found = plans ? issue.preview(plans->due, progress, rows->leftOut()) : plans.status();
        *read = found.status();
        if (found)
            rows->update(*found, plans->issued);
    };
    m_work.start(work, [this, read, rows] { showComputed(*read, *rows); });
}

void IssueSheet::showComputed(const Status& read, IssueSheetRows& rows)
{
    const bool isOutdated = std::exchange(m_isOutdated, false);
    const bool isWanted = read && !isOutdated && !m_mustRead;
    retire(isWanted ? m_rows->update(std::move(rows)) : std::move(rows));
    if (std::exchange(m_mustRead, false))
        readPlans();
    else if (isOutdated)
        computeAgain();
    else if (!read)
        m_sums->setText(errorText(read));
}

/// False if another day has begun since the plans were read; they are read again.
bool IssueSheet::isOfToday()
{
    if (m_day == clientToday())
        return true;
    OrloWidget::ShowWarningMsgBox(
        tr("%1已经过去，没有下达。请核对今天的计划。").arg(m_day.toString(Qt::ISODate)), this);
    readPlans();
    return false;
}

void IssueSheet::confirm()
{
    if (!isOfToday())
        return;
    const QVector<ConfirmedOrder> orders = m_rows->rows().chosen();
    const QString question =
        tr("下达%1条指令？\n%2").arg(QString::number(orders.size()), sumsText(m_rows->rows().sums()));
    constexpr int No = 0;
    if (!orders.isEmpty() && OrloWidget::ShowQuestionMsgBox(question, this, No) != No && isOfToday())
        issue(orders);
}

void IssueSheet::issue(const QVector<ConfirmedOrder>& orders)
{
    showWork(tr("正在下达……"), orders.size());
    auto result = std::make_shared<IssueResult>();
    auto rows = std::make_shared<IssueSheetRows>(m_rows->rows());
    const auto work = [result, rows, former = m_former, orders,
                          scene = InstructionIssuer::scene(m_day, IssueMode::Live)](
                          Database& database, const Status& opened, const LongWork::Progress& progress) {
        *former = {};
        if (opened)
            *result = DayIssue(database, scene).issue(orders, progress);
        else
            result->failure = opened;
        if (result->unknown.isEmpty())
            rows->add(*result);
    };
    m_work.start(work, [this, result, rows] { showResult(*result, *rows); });
}

void IssueSheet::showResult(IssueResult& result, IssueSheetRows& rows)
{
    const bool isKnown = result.unknown.isEmpty();
    InstructionIssuer::finish(result);
    if (!isKnown)
        rows.add(result);
    endWork();
    retire(m_rows->update(std::move(rows)));
    Q_EMIT issued();
    const int skipped = result.skipped.size() + result.changed.size() + result.noLongerDue.size();
    QString text = tr("已下达%1条，此前已下达%2个，未下达%3个。")
                       .arg(QString::number(result.issued.size()), QString::number(result.alreadyIssued.size()),
                           QString::number(skipped));
    if (result.cancelled)
        text += tr("其余已取消，可以再次下达。");
    if (!result.failure)
        text += tr("其余因故未下达：%1").arg(errorText(result.failure));
    m_text->setText(text);
}

void IssueSheet::showSums()
{
    const QVector<IssueSheetRows::Sum> sums = m_rows->rows().sums();
    const int chosen =
        std::accumulate(sums.cbegin(), sums.cend(), 0, [](int plans, const auto& sum) { return plans + sum.plans; });
    m_sums->setText(sumsText(sums));
    m_issue->setText(tr("下达%1条……").arg(chosen));
    m_issue->setEnabled(chosen > 0 && !m_rows->rows().isOutdated());
    m_all->setChecked(m_rows->rows().areAllChosen());
}

void IssueSheet::showWork(const QString& text, int steps)
{
    m_isBusy = true;
    m_text->setText(text);
    m_progress->setRange(0, steps);
    m_progress->setValue(0);
    m_progress->show();
    m_table->setEnabled(false);
    m_issue->setEnabled(false);
    m_close->setText(tr("取消"));
}

void IssueSheet::endWork()
{
    m_isBusy = false;
    m_progress->hide();
    m_table->setEnabled(true);
    m_close->setText(tr("关闭"));
    showSums();
}
