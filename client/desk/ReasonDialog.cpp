#include "ReasonDialog.h"

#include "PlainText.h"
#include "PlanStates.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

ReasonDialog::ReasonDialog(const QString& text, QWidget* parent)
    : QDialog(parent)
    , m_reason(new QLineEdit(this))
{
    setObjectName(QStringLiteral("reasonDialog"));
    setWindowTitle(tr("停止计划"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_reason->setObjectName(QStringLiteral("le_reason"));
    m_reason->setMaxLength(PlanStates::LongestReason);
    m_reason->setPlaceholderText(tr("原因"));
    m_reason->setAccessibleName(tr("原因"));
    auto* const stop = new QPushButton(tr("停止"), this);
    stop->setObjectName(QStringLiteral("btn_stop"));
    stop->setEnabled(false);
    auto* const cancel = new QPushButton(tr("取消"), this);
    cancel->setObjectName(QStringLiteral("btn_cancel"));
    connect(m_reason, &QLineEdit::textChanged, stop, [this, stop] { stop->setEnabled(!reason().isEmpty()); });
    connect(stop, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(stop);
    buttons->addWidget(cancel);
    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(PlainText::newLabel(text, this));
    rows->addWidget(m_reason);
    rows->addLayout(buttons);
}

QString ReasonDialog::reason() const
{
    return m_reason->text().trimmed();
}
