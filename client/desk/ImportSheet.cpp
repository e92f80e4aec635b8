#include "ImportSheet.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "OrloWidget.h"
#include "PlainText.h"
#include "PlanEvents.h"
#include "TextTable.h"
#include "TransferForm.h"
#include "WindowPlace.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

constexpr QSize UsualSize(900, 560);
constexpr int MeasuredRows = 50;
// The sheet lists each row of a usual file.
constexpr int MostRows = 100000;
constexpr int MostRemovals = 10;
constexpr int Whole = 1000; // parts of a file's progress

bool isPlans(const QString& kind)
{
    return kind == TransferForms::plans().id;
}

const TransferForm& formOf(const QString& kind, bool hasTemplate)
{
    static const QVector<TransferForm> forms = TransferForms::importable();
    const auto isKind = [&kind](const TransferForm& form) { return form.id == kind; };
    return hasTemplate ? TransferForms::planSheet() : *std::find_if(forms.cbegin(), forms.cend(), isKind);
}

QString columnsText(const TransferForm& form)
{
    QStringList needed;
    QStringList others;
    for (const TransferForm::Column& column : form.columns)
        (column.isRequired ? needed : others) << column.name();
    const QString comma = ImportSheet::tr("、");
    const QString text = ImportSheet::tr("第一行是列名，必须有：%1").arg(needed.join(comma));
    return others.isEmpty() ? text : ImportSheet::tr("%1；可以有：%2").arg(text, others.join(comma));
}

} // namespace

struct ImportSheet::Results {
    QVector<ImportReport> reports;
    QVector<Status> statuses; ///< of the reports
    QVector<ImportSheetRow> rows;
    Result<Market> market{ Market() }; ///< after the import
};

ImportSheet::ImportSheet(QWidget* parent)
    : QDialog(parent)
    , m_rows(new ImportSheetModel(this))
    , m_table(new QTableView(this))
    , m_kind(new QComboBox(this))
    , m_templateLabel(PlainText::newLabel(tr("模板计划"), this))
    , m_template(new QLineEdit(this))
    , m_files(PlainText::newLabel(QString(), this))
    , m_columns(PlainText::newLabel(QString(), this))
    , m_replaces(new QCheckBox(tr("删除文件中没有的内容"), this))
    , m_leavesOut(new QCheckBox(tr("略去有错误的行"), this))
    , m_text(PlainText::newLabel(QString(), this))
    , m_progress(new QProgressBar(this))
    , m_work(ClientSession::instance().database())
{
    setObjectName(QStringLiteral("importSheet"));
    setWindowTitle(tr("导入"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(UsualSize);
    new WindowPlace(this, QStringLiteral("import"));
    build();
    connect(m_kind, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ImportSheet::showKind);
    connect(m_template, &QLineEdit::textChanged, this, &ImportSheet::showKind);
    connect(m_template, &QLineEdit::returnPressed, this, &ImportSheet::preview);
    connect(m_replaces, &QCheckBox::toggled, this, &ImportSheet::forgetPreview);
    connect(m_leavesOut, &QCheckBox::toggled, this, &ImportSheet::showButtons);
    connect(&m_work, &LongWork::progressed, this, [this](int done) {
        // The rest of a short file takes a time that is not known.
        m_progress->setRange(0, done < Whole * m_sources.size() ? Whole * m_sources.size() : 0);
        m_progress->setValue(done);
    });
}

void ImportSheet::build()
{
    m_table->setObjectName(QStringLiteral("importRows"));
    m_table->setAccessibleName(tr("各行的结果"));
    m_table->setModel(m_rows);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setResizeContentsPrecision(MeasuredRows);
    m_table->horizontalHeader()->setMaximumSectionSize(TextTable::WidestColumn);
    m_files->setObjectName(QStringLiteral("importFiles"));
    m_columns->setObjectName(QStringLiteral("importColumns"));
    m_columns->setWordWrap(true);
    m_text->setObjectName(QStringLiteral("importText"));
    m_text->setWordWrap(true);
    m_progress->setObjectName(QStringLiteral("importProgress"));
    m_progress->hide();
    m_replaces->setObjectName(QStringLiteral("cb_replace"));
    m_leavesOut->setObjectName(QStringLiteral("cb_leaveOut"));
    auto* const options = new QHBoxLayout;
    options->addWidget(m_replaces);
    options->addWidget(m_leavesOut);
    options->addStretch();
    auto* const rows = new QVBoxLayout(this);
    rows->addLayout(newChoice());
    rows->addWidget(m_columns);
    rows->addLayout(options);
    rows->addWidget(m_text);
    rows->addWidget(m_table, 1);
    rows->addLayout(newButtons());
}

QLayout* ImportSheet::newChoice()
{
    m_kind->setObjectName(QStringLiteral("combx_importKind"));
    m_kind->setAccessibleName(tr("类别"));
    for (const TransferForm& form : TransferForms::importable())
        m_kind->addItem(form.name(), form.id);
    m_template->setObjectName(QStringLiteral("le_template"));
    m_template->setPlaceholderText(tr("计划编号，或空"));
    m_template->setAccessibleName(m_templateLabel->text());
    m_templateLabel->setBuddy(m_template);
    auto* const choice = new QHBoxLayout;
    choice->addWidget(m_kind);
    choice->addWidget(m_templateLabel);
    choice->addWidget(m_template);
    choice->addWidget(newButton("btn_files", tr("选择文件…"), &ImportSheet::chooseFiles));
    choice->addWidget(newButton("btn_paste", tr("从剪贴板粘贴"), &ImportSheet::paste));
    choice->addWidget(m_files, 1);
    return choice;
}

// No key imports or closes by itself: there is no default button.
QLayout* ImportSheet::newButtons()
{
    m_preview = newButton("btn_preview", tr("预览"), &ImportSheet::preview);
    m_import = newButton("btn_import", tr("导入"), &ImportSheet::import);
    m_close = newButton("btn_close", tr("关闭"), &ImportSheet::reject);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_progress, 1);
    buttons->addStretch();
    buttons->addWidget(m_preview);
    buttons->addWidget(m_import);
    buttons->addWidget(m_close);
    return buttons;
}

QPushButton* ImportSheet::newButton(const char* name, const QString& text, void (ImportSheet::*act)())
{
    auto* const button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

void ImportSheet::openFor(const QString& templatePlan)
{
    if (!m_work.isRunning()) {
        setSources({}, QString());
        m_template->setText(templatePlan);
        m_kind->setCurrentIndex(templatePlan.isEmpty() ? 0 : m_kind->findData(TransferForms::plans().id));
        showKind();
    }
    show();
    raise();
    activateWindow();
    m_kind->setFocus();
}

void ImportSheet::reject()
{
    if (m_work.isRunning())
        m_work.cancel();
    else
        QDialog::reject();
}

QString ImportSheet::kind() const
{
    return m_kind->currentData().toString();
}

QString ImportSheet::templatePlan() const
{
    return isPlans(kind()) ? m_template->text().trimmed() : QString();
}

void ImportSheet::showKind()
{
    const bool hasTemplate = !templatePlan().isEmpty();
    m_templateLabel->setVisible(isPlans(kind()));
    m_template->setVisible(isPlans(kind()));
    m_columns->setText(columnsText(formOf(kind(), hasTemplate)));
    const bool mayReplace = bool(ImportRun::check(kind(), true));
    m_replaces->setVisible(mayReplace);
    m_replaces->setChecked(m_replaces->isChecked() && mayReplace);
    m_leavesOut->setVisible(hasTemplate);
    forgetPreview();
}

void ImportSheet::chooseFiles()
{
    const QStringList files = QFileDialog::getOpenFileNames(
        this, tr("选择要导入的文件"), QString(), tr("表格 (*.csv *.txt *.xlsx *.json);;所有文件 (*)"));
    QVector<Source> sources;
    QStringList names;
    for (const QString& file : files) {
        sources << Source{ file, std::nullopt };
        names << QFileInfo(file).fileName();
    }
    if (!sources.isEmpty())
        setSources(sources, names.join(tr("、")));
}

void ImportSheet::paste()
{
    const QString text = QGuiApplication::clipboard()->text();
    if (text.isEmpty())
        m_text->setText(tr("剪贴板中没有文字。"));
    else if (!text.isValidUtf16())
        m_text->setText(tr("剪贴板中的文字含有无法保存的字符。"));
    else
        setSources({ { tr("剪贴板"), text.toUtf8() } }, tr("剪贴板"));
}

void ImportSheet::setSources(const QVector<Source>& sources, const QString& names)
{
    m_sources = sources;
    // Each file would remove what the others have.
    if (sources.size() > 1)
        m_replaces->setChecked(false);
    m_files->setText(names);
    forgetPreview();
    if (!sources.isEmpty())
        preview();
}

void ImportSheet::forgetPreview()
{
    m_reports.clear();
    m_rows->setRows({});
    m_text->setText(m_sources.isEmpty() ? tr("选择文件，或从表格软件复制后粘贴。") : tr("先预览，再导入。"));
    showButtons();
}

void ImportSheet::preview()
{
    run(true);
}

void ImportSheet::import()
{
    if (isConfirmed())
        run(false);
}

bool ImportSheet::isConfirmed()
{
    QStringList removals;
    for (const ImportReport& report : qAsConst(m_reports))
        removals += report.removals;
    if (removals.isEmpty())
        return true;
    QStringList lines = removals.mid(0, MostRemovals);
    if (removals.size() > MostRemovals)
        lines << tr("……");
    constexpr int No = 0;
    const QString question =
        tr("将删除%1项：\n%2\n是否继续？").arg(QString::number(removals.size()), lines.join(QLatin1Char('\n')));
    return OrloWidget::ShowQuestionMsgBox(question, this, No) != No;
}

std::vector<ImportTask> ImportSheet::tasks(bool isTrial) const
{
    std::vector<ImportTask> all;
    for (int i = 0; i < m_sources.size(); ++i) {
        ImportTask task;
        task.kind = kind();
        task.file = m_sources.at(i).file;
        task.contents = m_sources.at(i).contents;
        task.location = ClientSession::instance().database().location();
        task.databaseFile = ClientSession::instance().database().file();
        task.replaces = m_replaces->isChecked();
        task.removals = m_reports.value(i).removals;
        task.templatePlan = templatePlan();
        task.leavesOut = m_leavesOut->isChecked();
        task.isTrial = isTrial;
        if (isPlans(task.kind))
            task.scene.emplace(InstructionIssuer::scene(clientToday()));
        all.push_back(task);
    }
    return all;
}

void ImportSheet::run(bool isTrial)
{
    if (m_work.isRunning() || m_sources.isEmpty())
        return;
    auto results = std::make_shared<Results>();
    const auto work = [results, isTrial, tasks = tasks(isTrial)](
                          Database& database, const Status& opened, const LongWork::Progress& progress) mutable {
        bool goesOn = true;
        for (ImportTask& task : tasks) {
            const int before = results->reports.size() * Whole;
            task.progress = [&](int perMille) { return goesOn = progress(before + perMille); };
            ImportReport report;
            report.mostFaults = MostRows;
            report.mostResults = MostRows;
            results->statuses << (goesOn ? ImportRun::run(task, report) : Status(Error::Cancelled));
            results->reports << report;
        }
        results->rows = importSheetRows(results->reports, results->statuses);
        Market market;
        const bool isChanged = !isTrial && !isPlans(tasks.front().kind);
        const Status read = isChanged && opened ? market.load(database) : opened;
        results->market = read ? Result<Market>(market) : read;
    };
    m_text->setText(isTrial ? tr("正在检查……") : tr("正在导入……"));
    m_progress->setRange(0, Whole * m_sources.size());
    m_progress->setValue(0);
    m_reports.clear();
    m_work.start(work, [this, results, isTrial] { showResults(*results, isTrial); });
    showButtons();
}

void ImportSheet::showResults(const Results& results, bool isTrial)
{
    m_rows->setRows(results.rows);
    m_table->resizeColumnsToContents();
    QStringList lines;
    bool isWhole = true;
    for (int i = 0; i < results.reports.size(); ++i) {
        const Status& status = results.statuses.at(i);
        const bool isReported = status || status.error() == Error::FileNotImported;
        isWhole = isWhole && isReported;
        lines << (isReported ? ImportTexts::summary(results.reports.at(i), isTrial)
                             : tr("%1：%2").arg(results.reports.at(i).file, errorText(status)));
    }
    if (isTrial && isWhole)
        m_reports = results.reports;
    if (const Status taken = isTrial ? Status() : take(results); !taken)
        lines << errorText(taken);
    m_text->setText(lines.join(QLatin1Char('\n')));
    showButtons();
}

// Other windows show what was imported at once.
Status ImportSheet::take(const Results& results)
{
    const bool isStored = std::any_of(
        results.reports.cbegin(), results.reports.cend(), [](const ImportReport& report) { return report.isStored; });
    if (!isStored)
        return {};
    if (!isPlans(kind()))
        return results.market ? ClientSession::instance().takeImported(*results.market) : results.market.status();
    Q_EMIT PlanEvents::instance().plansChanged();
    return {};
}

void ImportSheet::showButtons()
{
    const bool isRunning = m_work.isRunning();
    const bool mayLeaveOut = m_leavesOut->isVisibleTo(this) && m_leavesOut->isChecked();
    const bool isRight = std::all_of(m_reports.cbegin(), m_reports.cend(),
        [&](const ImportReport& report) { return report.rows > 0 && (report.faultCount == 0 || mayLeaveOut); });
    m_progress->setVisible(isRunning);
    m_preview->setEnabled(!isRunning && !m_sources.isEmpty());
    m_import->setEnabled(!isRunning && !m_reports.isEmpty() && isRight);
    m_close->setText(isRunning ? tr("取消") : tr("关闭"));
    for (QWidget* const widget : QList<QWidget*>{ m_kind, m_template, m_leavesOut,
             findChild<QWidget*>(QStringLiteral("btn_files")), findChild<QWidget*>(QStringLiteral("btn_paste")) })
        widget->setEnabled(!isRunning);
    m_replaces->setEnabled(!isRunning && m_sources.size() <= 1);
}

ImportActions::ImportActions(QWidget* window, const std::function<QString()>& current)
    : QObject(window)
    , m_window(window)
{
    add("action_import", tr("导入…"), [] { return QString(); });
    add("action_sheet", tr("按此计划批量新建…"), current);
}

void ImportActions::add(const char* name, const QString& text, const std::function<QString()>& templatePlan)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, [this, templatePlan] {
        if (!m_sheet)
            m_sheet = new ImportSheet(m_window);
        m_sheet->openFor(templatePlan());
    });
    m_actions << action;
}
