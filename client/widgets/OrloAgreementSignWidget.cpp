#include "OrloAgreementSignWidget.h"

#include "ErrorText.h"
#include "OrloPushButton.h"
#include "OrloWidget.h"
#include "Signatures.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTimer>
#include <QVBoxLayout>

class OrloAgreementSignWidget::Private : public QObject {
public:
    Private(OrloAgreementSignWidget* dialog, bool withText, bool withAccounts);

    void setAgreement(const QString& protocolId);
    void setCountDown(int seconds);
    void setClients(const QStringList& clientNumbers);
    void setSelectable(bool isSelectable);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build(bool withText, bool withAccounts);
    QLayout* newButtons();
    void showItem(QListWidgetItem* item) const;
    QStringList signingClients() const;
    void tick();
    void updateButton();
    void sign();

    OrloAgreementSignWidget* q;
    QLabel* m_title;
    QPlainTextEdit* m_text;
    QLabel* m_clientsCaption;
    QListWidget* m_clients;
    OrloPushButton* m_signButton;
    QTimer m_timer;
    QString m_protocol;
    int m_remaining = 0;
    bool m_selectable = false;
};

OrloAgreementSignWidget::Private::Private(OrloAgreementSignWidget* dialog, bool withText, bool withAccounts)
    : q(dialog)
    , m_title(new QLabel(q))
    , m_text(new QPlainTextEdit(q))
    , m_clientsCaption(new QLabel(tr("签署客户"), q))
    , m_clients(new QListWidget(q))
    , m_signButton(new OrloPushButton(q))
{
    build(withText, withAccounts);
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, &Private::tick);
    q->installEventFilter(this);
    updateButton();
}

void OrloAgreementSignWidget::Private::build(bool withText, bool withAccounts)
{
    m_title->setObjectName(QStringLiteral("agreementTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_title->setAlignment(Qt::AlignCenter);
    m_text->setObjectName(QStringLiteral("agreementText"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setPlaceholderText(tr("无法读取协议的内容，不能签署。"));
    m_text->setVisible(withText);
    m_clients->setObjectName(QStringLiteral("clientList"));
    m_clients->setMaximumHeight(m_clients->fontMetrics().height() * 7);
    m_clients->setVisible(withAccounts);
    m_clientsCaption->setBuddy(m_clients);
    m_clientsCaption->setVisible(withAccounts);
    auto* rows = new QVBoxLayout(q);
    rows->addWidget(m_title);
    rows->addWidget(m_text, 1);
    rows->addWidget(m_clientsCaption);
    rows->addWidget(m_clients);
    rows->addLayout(newButtons());
}

QLayout* OrloAgreementSignWidget::Private::newButtons()
{
    m_signButton->setObjectName(QStringLiteral("btnSign"));
    m_signButton->setStyleType(OrloPushButton::BtnStyleType::Highlight);
    m_signButton->setAutoDefault(false);
    connect(m_signButton, &QPushButton::clicked, this, &Private::sign);
    auto* cancel = new OrloPushButton(q);
    cancel->setObjectName(QStringLiteral("btnCancel"));
    cancel->setText(tr("取消"));
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, q, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_signButton);
    row->addWidget(cancel);
    return row;
}

void OrloAgreementSignWidget::Private::setAgreement(const QString& protocolId)
{
    m_protocol = protocolId;
    const QString name = agreementTitle(protocolId);
    q->setWindowTitle(name.isEmpty() ? tr("签署协议") : name);
    m_title->setText(name);
    m_text->setAccessibleName(q->windowTitle());
    m_text->setPlainText(agreementText(protocolId));
    updateButton();
}

void OrloAgreementSignWidget::Private::setCountDown(int seconds)
{
    m_remaining = qMax(0, seconds);
    updateButton();
}

void OrloAgreementSignWidget::Private::setClients(const QStringList& clientNumbers)
{
    m_clients->clear();
    for (const QString& number : clientNumbers)
        showItem(new QListWidgetItem(number, m_clients));
    updateButton();
}

void OrloAgreementSignWidget::Private::setSelectable(bool isSelectable)
{
    m_selectable = isSelectable;
    for (int row = 0; row < m_clients->count(); ++row)
        showItem(m_clients->item(row));
}

/// Every client is initially checked; without a choice there is no check box.
void OrloAgreementSignWidget::Private::showItem(QListWidgetItem* item) const
{
    if (m_selectable) {
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    } else {
        item->setFlags(item->flags() & ~Qt::ItemIsUserCheckable);
        item->setData(Qt::CheckStateRole, QVariant());
    }
}

QStringList OrloAgreementSignWidget::Private::signingClients() const
{
    QStringList numbers;
    for (int row = 0; row < m_clients->count(); ++row) {
        const QListWidgetItem* item = m_clients->item(row);
        if (!m_selectable || item->checkState() == Qt::Checked)
            numbers.append(item->text());
    }
    return numbers;
}

bool OrloAgreementSignWidget::Private::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && m_remaining > 0)
        m_timer.start();
    if (event->type() == QEvent::Hide)
        m_timer.stop();
    return QObject::eventFilter(watched, event);
}

void OrloAgreementSignWidget::Private::tick()
{
    if (--m_remaining <= 0)
        m_timer.stop();
    updateButton();
}

void OrloAgreementSignWidget::Private::updateButton()
{
    m_signButton->setText(m_remaining > 0 ? tr("签署（%1）").arg(m_remaining) : tr("签署"));
    // Nobody signs what cannot be read.
    const bool isReadable = m_protocol.isEmpty() || !m_text->toPlainText().trimmed().isEmpty();
    m_signButton->setEnabled(m_remaining <= 0 && m_clients->count() > 0 && isReadable);
}

void OrloAgreementSignWidget::Private::sign()
{
    const QStringList numbers = signingClients();
    if (numbers.isEmpty()) {
        OrloWidget::ShowWarningMsgBox(tr("请选择签署客户！"), q);
        return;
    }
    if (const Status status = signAgreement(m_protocol, numbers); status)
        q->accept();
    else
        OrloWidget::ShowErrorMsgBox(errorText(status), q);
}

OrloAgreementSignWidget::OrloAgreementSignWidget(bool withText, bool withAccounts, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , d(std::make_unique<Private>(this, withText, withAccounts))
{
    setObjectName(QStringLiteral("agreementSign"));
    resize(480, withText ? 520 : 240);
}

OrloAgreementSignWidget::~OrloAgreementSignWidget() = default;

void OrloAgreementSignWidget::SetAccountSelectable(bool selectable)
{
    d->setSelectable(selectable);
}

void OrloAgreementSignWidget::SetAgreement(const QString& protocolId)
{
    d->setAgreement(protocolId);
}

void OrloAgreementSignWidget::SetSignCountDown(int seconds)
{
    d->setCountDown(seconds);
}

void OrloAgreementSignWidget::SetClientNoList(const QStringList& clientNumbers)
{
    d->setClients(clientNumbers);
}
