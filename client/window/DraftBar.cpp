#include "DraftBar.h"

#include "ClientSession.h"
#include "EditorForms.h"
#include "ErrorText.h"
#include "OrloWidget.h"
#include "PlainText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

DraftBar::DraftBar(EditorForms& forms, QWidget* parent)
    : QWidget(parent)
    , m_forms(forms)
    , m_text(PlainText::newLabel(QString(), this))
{
    setObjectName(QStringLiteral("draftBar"));
    m_text->setObjectName(QStringLiteral("draftText"));
    m_text->setWordWrap(true);
    auto* const take = new QPushButton(tr("继续填写"), this);
    take->setObjectName(QStringLiteral("btn_takeDraft"));
    connect(take, &QPushButton::clicked, this, &DraftBar::open);
    auto* const drop = new QPushButton(tr("丢弃"), this);
    drop->setObjectName(QStringLiteral("btn_dropDraft"));
    connect(drop, &QPushButton::clicked, this, &DraftBar::discard);
    auto* const row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(take);
    row->addWidget(drop);
    showNext();
}

void DraftBar::open()
{
    const FormDraft draft = m_forms.drafts().left().constFirst();
    const auto plan =
        draft.plan.isEmpty() ? Result<StoredPlan>(StoredPlan()) : ClientSession::instance().plans().plan(draft.plan);
    const Status known = plan && plan->id != draft.plan ? Status(Error::UnknownPlan, { draft.plan }) : plan.status();
    if (!known) {
        OrloWidget::ShowErrorMsgBox(errorText(known), this);
        return;
    }
    // From now on it is the form's.
    m_forms.drafts().keep(draft);
    showNext();
    m_forms.openDraft(draft);
}

void DraftBar::discard()
{
    m_forms.drafts().drop(m_forms.drafts().left().constFirst().id);
    showNext();
}

void DraftBar::showNext()
{
    const QVector<FormDraft>& left = m_forms.drafts().left();
    setVisible(!left.isEmpty());
    if (!left.isEmpty())
        m_text->setText(tr("上次有%1个表单未提交：%2").arg(QString::number(left.size()), left.constFirst().summary()));
}
