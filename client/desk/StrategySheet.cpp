#include "StrategySheet.h"

#include "ErrorText.h"
#include "PlainText.h"
#include "StrategyFolder.h"
#include "StrategyReport.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize UsualSize(760, 480);
constexpr int NameWidth = 260;
const QString FolderKey = QStringLiteral("strategies/folder");

QSettings settings()
{
    return QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
}

QTreeWidgetItem* newRow(const QString& name, const QString& state, const QString& remark)
{
    return new QTreeWidgetItem(QStringList{ name, state, remark });
}

void addRemarks(QTreeWidgetItem* row, const QString& kind, const QVector<Status>& remarks)
{
    for (const Status& remark : remarks)
        row->addChild(newRow(QString(), kind, errorText(remark)));
}

/// The strategy with everything that is to be said about it.
QTreeWidgetItem* rowOf(const ReadStrategy& strategy)
{
    const StrategyDefinition& definition = strategy.definition;
    QTreeWidgetItem* const row = newRow(QStringLiteral("%1 %2").arg(definition.alias, definition.provider).trimmed(),
        StrategyReport::stateText(strategy), definition.description);
    if (!strategy.isRead())
        addRemarks(row, StrategySheet::tr("原因"), { strategy.remarks.refusal });
    addRemarks(row, StrategySheet::tr("原因"), strategy.remarks.obstacles);
    addRemarks(row, StrategySheet::tr("提示"), strategy.remarks.warnings);
    return row;
}

} // namespace

StrategySheet::StrategySheet(QWidget* parent)
    : QDialog(parent)
    , m_folder(PlainText::newLabel(QString(), this))
    , m_files(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("strategySheet"));
    setWindowTitle(tr("策略文件"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(UsualSize);
    build();
    connect(&StrategyFolder::instance(), &StrategyFolder::changed, this, &StrategySheet::showFiles);
}

void StrategySheet::build()
{
    m_folder->setObjectName(QStringLiteral("strategyFolder"));
    m_folder->setWordWrap(true);
    m_files->setObjectName(QStringLiteral("strategyFiles"));
    m_files->setAccessibleName(tr("策略文件"));
    m_files->setHeaderLabels({ tr("名称"), tr("状态"), tr("说明") });
    m_files->setWordWrap(true);
    m_files->setColumnWidth(0, NameWidth);
    auto* const choose = new QPushButton(tr("选择文件夹…"), this);
    choose->setObjectName(QStringLiteral("btn_folder"));
    choose->setAutoDefault(false);
    auto* const close = new QPushButton(tr("关闭"), this);
    close->setObjectName(QStringLiteral("btn_close"));
    close->setDefault(true);
    connect(choose, &QPushButton::clicked, this, &StrategySheet::chooseFolder);
    auto* const none = new QPushButton(tr("只用内置算法"), this);
    none->setObjectName(QStringLiteral("btn_none"));
    none->setAutoDefault(false);
    connect(none, &QPushButton::clicked, this, [this] { useFolder(QString()); });
    connect(close, &QPushButton::clicked, this, &StrategySheet::reject);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(choose);
    buttons->addWidget(none);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(m_folder);
    rows->addWidget(m_files, 1);
    rows->addLayout(buttons);
}

void StrategySheet::open()
{
    showFiles();
    show();
    raise();
    activateWindow();
    m_files->setFocus();
}

void StrategySheet::showFiles()
{
    const QString path = StrategyFolder::instance().path();
    m_folder->setText(path.isEmpty() ? tr("没有选择策略文件夹，只有内置的算法。") : tr("文件夹：%1").arg(path));
    m_files->clear();
    const QVector<StrategyFile> files = StrategyFolder::instance().files();
    for (const StrategyFile& file : files) {
        const QString state = file.failure ? tr("已读取") : tr("拒绝");
        QTreeWidgetItem* const row = newRow(file.name, state, errorText(file.failure.cause()));
        m_files->addTopLevelItem(row);
        addRemarks(row, tr("提示"), file.warnings);
        for (const ReadStrategy& strategy : file.strategies)
            row->addChild(rowOf(strategy));
        row->setExpanded(true);
        for (int i = 0; i < row->childCount(); ++i)
            row->child(i)->setExpanded(true);
    }
}

void StrategySheet::chooseFolder()
{
    const QString path =
        QFileDialog::getExistingDirectory(this, tr("选择策略文件夹"), StrategyFolder::instance().path());
    if (!path.isEmpty())
        useFolder(path);
}

void StrategySheet::useFolder(const QString& path)
{
    settings().setValue(FolderKey, path);
    StrategyFolder::instance().open(path);
    showFiles();
}

QString StrategySheet::rememberedFolder()
{
    return settings().value(FolderKey).toString();
}
