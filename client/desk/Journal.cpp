#include "Journal.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "JournalTexts.h"
#include "PlainText.h"
#include "ReadReport.h"
#include "TextTable.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace {

constexpr QSize UsualSize(980, 560);
constexpr int RowsOfPage = 500;
constexpr int AccountLength = 20; // characters

QPushButton* newButton(const QString& name, const QString& text, QWidget* parent)
{
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

} // namespace

Journal::Journal(QWidget* parent)
    : QDialog(parent)
    , m_day(new QDateEdit(this))
    , m_account(new QComboBox(this))
    , m_table(new TextTable(QStringLiteral("journalRows"), this))
    , m_text(PlainText::newLabel(QString(), this))
    , m_previous(newButton(QStringLiteral("btn_previousPage"), tr("上一页"), this))
    , m_next(newButton(QStringLiteral("btn_nextPage"), tr("下一页"), this))
    , m_work(ClientSession::instance().database())
{
    setObjectName(QStringLiteral("journal"));
    setWindowTitle(tr("日志"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(UsualSize);
    build();
    connect(m_day, &QDateEdit::dateChanged, this, [this] { choose(0); });
    connect(m_account, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { choose(0); });
    connect(m_previous, &QPushButton::clicked, this, [this] { choose(qMax(0, m_page.offset - RowsOfPage)); });
    connect(m_next, &QPushButton::clicked, this, [this] { choose(m_page.offset + RowsOfPage); });
    connect(m_table, &TextTable::chosen, this, [this](int row) { Q_EMIT planWanted(m_entries.at(row).plan.id); });
}

void Journal::build()
{
    m_table->setAccessibleName(tr("当日的指令、未下达的计划和状态变更"));
    m_text->setObjectName(QStringLiteral("journalText"));
    auto* const rows = new QVBoxLayout(this);
    rows->addLayout(newChoice());
    rows->addWidget(m_table, 1);
    rows->addLayout(newPages());
}

QLayout* Journal::newChoice()
{
    m_day->setObjectName(QStringLiteral("de_journalDay"));
    m_day->setAccessibleName(tr("日期"));
    m_day->setLocale(QLocale::c());
    m_day->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    m_account->setObjectName(QStringLiteral("combx_journalAccount"));
    m_account->setAccessibleName(tr("账户"));
    m_account->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_account->setMinimumContentsLength(AccountLength);
    QPushButton* const before = newButton(QStringLiteral("btn_dayBefore"), tr("前一日"), this);
    QPushButton* const after = newButton(QStringLiteral("btn_dayAfter"), tr("后一日"), this);
    QPushButton* const today = newButton(QStringLiteral("btn_today"), tr("今天"), this);
    connect(before, &QPushButton::clicked, this, [this] { m_day->setDate(m_day->date().addDays(-1)); });
    connect(after, &QPushButton::clicked, this, [this] { m_day->setDate(m_day->date().addDays(1)); });
    connect(today, &QPushButton::clicked, this, [this] { m_day->setDate(clientToday()); });
    auto* const choice = new QHBoxLayout;
    for (QWidget* const widget : QList<QWidget*>{ before, m_day, after, today, m_account })
        choice->addWidget(widget);
    choice->addStretch();
    return choice;
}

QLayout* Journal::newPages()
{
    QPushButton* const close = newButton(QStringLiteral("btn_close"), tr("关闭"), this);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* const pages = new QHBoxLayout;
    pages->addWidget(m_text, 1);
    pages->addWidget(m_previous);
    pages->addWidget(m_next);
    pages->addWidget(close);
    return pages;
}

// Accounts may have been imported since the last time, or assigned by others.
void Journal::fillAccounts()
{
    reportFailure(ClientSession::instance().refreshAccounts());
    const QSignalBlocker blocker(m_account);
    const QString chosen = m_account->currentData().toString();
    m_account->clear();
    m_account->addItem(tr("全部账户"), QString());
    const QVector<StoredAccount>& accounts = ClientSession::instance().accounts().accounts();
    for (const StoredAccount& account : accounts)
        m_account->addItem(QStringLiteral("%1 %2").arg(account.tradingAccount, account.name), account.tradingAccount);
    m_account->setCurrentIndex(qMax(0, m_account->findData(chosen)));
}

void Journal::open(const QDate& day)
{
    fillAccounts();
    QDialog::show();
    raise();
    activateWindow();
    m_table->setFocus();
    const QDate before = m_day->date();
    m_day->setDate(day);
    if (before == day)
        choose(0);
}

void Journal::choose(int firstRow)
{
    m_page = { m_day->date(), m_account->currentData().toString(), firstRow, RowsOfPage };
    m_isOutdated = m_work.isRunning();
    if (!m_isOutdated)
        read();
}

void Journal::read()
{
    m_text->setText(tr("正在读取……"));
    struct Answer {
        Result<QVector<JournalEntry>> entries = QVector<JournalEntry>();
        Result<int> count = 0;
    };
    auto answer = std::make_shared<Answer>();
    const auto work = [answer, page = m_page, user = ClientSession::instance().user()](
                          Database& database, const Status& opened, const LongWork::Progress&) {
        JournalStore store(database, user);
        answer->entries = opened ? store.page(page) : opened;
        answer->count = opened ? store.count(page) : opened;
    };
    m_work.start(work, [this, answer] {
        if (std::exchange(m_isOutdated, false))
            read();
        else
            show(answer->entries, answer->count);
    });
}

void Journal::show(const Result<QVector<JournalEntry>>& entries, const Result<int>& count)
{
    const Status status = entries ? count.status() : entries.status();
    // The rows of another page would be taken for those of this one.
    if (!status && m_page == m_shown) {
        m_text->setText(errorText(status));
        return;
    }
    m_shown = status ? m_page : JournalPage();
    m_entries = entries.valueOr({});
    m_count = count.valueOr(0);
    QVector<QStringList> rows;
    for (const JournalEntry& entry : qAsConst(m_entries))
        rows << JournalTexts::cells(entry);
    m_table->setRows(JournalTexts::titles(), rows);
    showPages();
    if (!status)
        m_text->setText(errorText(status));
}

void Journal::showPages()
{
    const int last = m_page.offset + m_entries.size();
    m_previous->setEnabled(m_page.offset > 0);
    m_next->setEnabled(last < m_count);
    if (m_entries.isEmpty())
        m_text->setText(tr("%1没有记录。").arg(m_page.day.toString(Qt::ISODate)));
    else
        m_text->setText(tr("共%1条，第%2至%3条").arg(m_count).arg(m_page.offset + 1).arg(last));
}
