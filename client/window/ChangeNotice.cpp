#include "ChangeNotice.h"

#include "HistoryTexts.h"
#include "OrloPushButton.h"
#include "PlainText.h"

#include <QHBoxLayout>
#include <QLabel>

ChangeNotice::ChangeNotice(QWidget* parent)
    : QWidget(parent)
    , m_text(PlainText::newLabel(QString(), this))
{
    setObjectName(QStringLiteral("changeNotice"));
    auto* const show = new OrloPushButton(this);
    show->setObjectName(QStringLiteral("btnShowChange"));
    show->setStyleType(QStringLiteral("text"));
    show->setText(tr("查看不同之处"));
    show->setAutoDefault(false);
    connect(show, &QPushButton::clicked, this, [this] { Q_EMIT differencesWanted(*m_change); });
    m_text->setProperty("faulty", true);
    m_text->setWordWrap(true);
    auto* const row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(show);
    hide();
}

void ChangeNotice::showChange(const PlanConflict& change, int edited)
{
    m_change = change;
    m_text->setText(tr("您正在修改第%1版，%2已于%3保存了第%4版。")
                        .arg(QString::number(edited), change.user, HistoryTexts::timeText(change.time),
                            QString::number(change.stored.version)));
    show();
}

void ChangeNotice::clear()
{
    m_change.reset();
    hide();
}
