#include "ExportActions.h"

#include "ClientClock.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "ExportRun.h"
#include "OrloWidget.h"
#include "PlainText.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>

namespace {

constexpr int Whole = 1000; // parts of the progress

} // namespace

ExportActions::ExportActions(QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_menu(new QMenu(tr("导出"), window))
{
    m_menu->setObjectName(QStringLiteral("exportMenu"));
    using namespace TransferForms;
    for (const TransferForm& form : { plans(), instructions(), history(), journal(), positions() }) {
        QAction* const action = m_menu->addAction(tr("%1…").arg(form.name()));
        action->setObjectName(QStringLiteral("action_export_") + form.id);
        connect(action, &QAction::triggered, this, [this, form] { chooseFile(form); });
    }
}

void ExportActions::chooseFile(const TransferForm& form)
{
    const QString usual = form.name() + QStringLiteral(".csv");
    const QString file =
        QFileDialog::getSaveFileName(m_window, tr("导出%1").arg(form.name()), usual, tr("表格 (*.csv *.xlsx *.json)"));
    if (!file.isEmpty())
        run(form, file);
}

void ExportActions::run(const TransferForm& form, const QString& file)
{
    ClientSession& session = ClientSession::instance();
    const Result<TableFormat> format = ExportRun::formatOf(file);
    if (!format) {
        showResult(file, format.status());
        return;
    }
    if (!m_work)
        m_work = std::make_unique<LongWork>(session.database());
    auto result = std::make_shared<Status>();
    const auto work = [result, file, format = *format, kind = form.id, market = session.market(), user = session.user(),
                          day = clientToday()](
                          Database& database, const Status& opened, const LongWork::Progress& progress) {
        *result = opened ? ExportRun::toFile({ database, market, user, kind, format, day, progress }, file) : opened;
    };
    showProgress(tr("正在导出%1到%2……").arg(form.name(), QFileInfo(file).fileName()));
    m_menu->setEnabled(false);
    m_work->start(work, [this, result, file] { showResult(file, *result); });
}

void ExportActions::showProgress(const QString& text)
{
    m_progress = new QProgressDialog(m_window);
    m_progress->setObjectName(QStringLiteral("exportProgress"));
    m_progress->setWindowTitle(tr("导出"));
    m_progress->setLabel(PlainText::newLabel(text, m_progress));
    m_progress->setCancelButtonText(tr("取消"));
    m_progress->setRange(0, Whole);
    m_progress->setAutoReset(false);
    connect(m_work.get(), &LongWork::progressed, m_progress, &QProgressDialog::setValue);
    connect(m_progress, &QProgressDialog::canceled, this, [this] { m_work->cancel(); });
    m_progress->show();
}

void ExportActions::showResult(const QString& file, const Status& status)
{
    delete m_progress;
    m_menu->setEnabled(true);
    if (status)
        Q_EMIT finished(tr("已导出到%1").arg(file));
    else if (status.error() == Error::Cancelled)
        Q_EMIT finished(tr("导出已取消，没有写入%1").arg(file));
    else
        OrloWidget::ShowErrorMsgBox(errorText(status), m_window);
}
