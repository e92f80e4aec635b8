#include "ConflictDialog.h"

#include "HistoryTexts.h"
#include "PlainText.h"
#include "PlanFormatter.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize UsualSize(720, 360);

/// The texts of a plan's fields by caption. All versions get the same number and time: they always differ.
QVector<QPair<QString, QString>> fieldsOf(StoredPlan plan)
{
    plan.version = 1;
    return PlanFormatter(plan).fields();
}

QString textOf(const QVector<QPair<QString, QString>>& fields, const QString& caption)
{
    for (const auto& field : fields) {
        if (field.first == caption)
            return field.second;
    }
    return QString();
}

} // namespace

ConflictDialog::ConflictDialog(const PlanConflict& conflict, QWidget* parent)
    : QDialog(parent)
    , m_table(new QTableWidget(this))
    , m_buttons(new QDialogButtonBox(this))
{
    setObjectName(QStringLiteral("planConflict"));
    setWindowTitle(tr("计划%1已被修改").arg(conflict.stored.id));
    setWindowModality(Qt::WindowModal);
    const QString time = HistoryTexts::timeText(conflict.time);
    auto* const text = PlainText::newLabel(tr("您打开计划后，%1于%2保存了第%3版。请核对不同之处，选择如何继续。")
                                               .arg(conflict.user, time, QString::number(conflict.stored.version)),
        this);
    text->setObjectName(QStringLiteral("conflictText"));
    text->setWordWrap(true);
    m_table->setObjectName(QStringLiteral("conflictFields"));
    m_table->setAccessibleName(tr("不同的字段"));
    m_table->setTabKeyNavigation(false);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setColumnCount(4);
    m_table->setHorizontalHeaderLabels({ tr("字段"), tr("您打开时"), tr("现在保存的"), tr("您填写的") });
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    addButton(QStringLiteral("btnReload"), tr("读取新版本"), Reload);
    addButton(QStringLiteral("btnKeep"), tr("保留我填写的"), Keep);
    addButton(QStringLiteral("btnLater"), tr("取消"), Rejected);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(text);
    rows->addWidget(m_table, 1);
    rows->addWidget(m_buttons);
    fill(conflict);
    m_table->setColumnHidden(3, conflict.refused.isEmpty());
    // The columns get their widths when the dialog is shown, and each one after its signal.
    connect(m_table->horizontalHeader(), &QHeaderView::sectionResized, m_table, &QTableView::resizeRowsToContents,
        Qt::QueuedConnection);
    resize(UsualSize);
}

void ConflictDialog::fill(const PlanConflict& conflict)
{
    StoredPlan refused = conflict.stored;
    if (!conflict.refused.isEmpty())
        refused.record = conflict.refused;
    const auto opened = fieldsOf(conflict.opened);
    const auto stored = fieldsOf(conflict.stored);
    const auto mine = fieldsOf(refused);
    QStringList captions;
    const auto all = opened + stored + mine;
    for (const auto& field : all) {
        if (!captions.contains(field.first))
            captions << field.first;
    }
    for (const QString& caption : qAsConst(captions)) {
        const QStringList texts{ caption, textOf(opened, caption), textOf(stored, caption), textOf(mine, caption) };
        if (texts.at(1) != texts.at(2) || texts.at(2) != texts.at(3))
            addRow(texts, texts.at(1) != texts.at(2));
    }
}

// What the other user changed is bold.
void ConflictDialog::addRow(const QStringList& texts, bool isForeign)
{
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    for (int column = 0; column < texts.size(); ++column) {
        auto* const item = new QTableWidgetItem(texts.at(column));
        QFont font = m_table->font();
        font.setBold(isForeign);
        item->setFont(font);
        m_table->setItem(row, column, item);
    }
}

void ConflictDialog::addButton(const QString& objectName, const QString& text, int result)
{
    QPushButton* const button = m_buttons->addButton(text, QDialogButtonBox::ActionRole);
    button->setObjectName(objectName);
    // Enter, also one that is pressed too often, must not discard the form.
    button->setDefault(result == Rejected);
    connect(button, &QPushButton::clicked, this, [this, result] { done(result); });
}
