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
    QLabel* title;
    QPlainTextEdit* text;
    QLabel* clientsCaption;
    QListWidget* clients;
    OrloPushButton* signButton;
    QTimer timer;
    QString protocol;
    int remaining = 0;
    bool selectable = false;
};

OrloAgreementSignWidget::Private::Private(OrloAgreementSignWidget* dialog, bool withText, bool withAccounts)
    : q(dialog)
    , title(new QLabel(q))
    , text(new QPlainTextEdit(q))
    , clientsCaption(new QLabel(tr("签署客户"), q))
    , clients(new QListWidget(q))
    , signButton(new OrloPushButton(q))
{
    build(withText, withAccounts);
    timer.setInterval(1000);
    connect(&timer, &QTimer::timeout, this, &Private::tick);
    q->installEventFilter(this);
    updateButton();
}

void OrloAgreementSignWidget::Private::build(bool withText, bool withAccounts)
{
    title->setObjectName(QStringLiteral("agreementTitle"));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    title->setAlignment(Qt::AlignCenter);
    text->setObjectName(QStringLiteral("agreementText"));
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setVisible(withText);
    clients->setObjectName(QStringLiteral("clientList"));
    clients->setMaximumHeight(clients->fontMetrics().height() * 7);
    clients->setVisible(withAccounts);
    clientsCaption->setBuddy(clients);
    clientsCaption->setVisible(withAccounts);
    auto* rows = new QVBoxLayout(q);
    rows->addWidget(title);
    rows->addWidget(text, 1);
    rows->addWidget(clientsCaption);
    rows->addWidget(clients);
    rows->addLayout(newButtons());
}

QLayout* OrloAgreementSignWidget::Private::newButtons()
{
    signButton->setObjectName(QStringLiteral("btnSign"));
    signButton->setStyleType(OrloPushButton::BtnStyleType::Highlight);
    signButton->setAutoDefault(false);
    connect(signButton, &QPushButton::clicked, this, &Private::sign);
    auto* cancel = new OrloPushButton(q);
    cancel->setObjectName(QStringLiteral("btnCancel"));
    cancel->setText(tr("取消"));
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, q, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(signButton);
    row->addWidget(cancel);
    return row;
}

void OrloAgreementSignWidget::Private::setAgreement(const QString& protocolId)
{
    protocol = protocolId;
    const QString name = agreementTitle(protocolId);
    q->setWindowTitle(name.isEmpty() ? tr("签署协议") : name);
    title->setText(name);
    text->setAccessibleName(q->windowTitle());
    text->setPlainText(agreementText(protocolId));
}

void OrloAgreementSignWidget::Private::setCountDown(int seconds)
{
    remaining = qMax(0, seconds);
    updateButton();
}

void OrloAgreementSignWidget::Private::setClients(const QStringList& clientNumbers)
{
    clients->clear();
    for (const QString& number : clientNumbers)
        showItem(new QListWidgetItem(number, clients));
    updateButton();
}

void OrloAgreementSignWidget::Private::setSelectable(bool isSelectable)
{
    selectable = isSelectable;
    for (int row = 0; row < clients->count(); ++row)
        showItem(clients->item(row));
}

/// Every client is initially checked; without a choice there is no check box.
void OrloAgreementSignWidget::Private::showItem(QListWidgetItem* item) const
{
    if (selectable) {
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
    for (int row = 0; row < clients->count(); ++row) {
        const QListWidgetItem* item = clients->item(row);
        if (!selectable || item->checkState() == Qt::Checked)
            numbers.append(item->text());
    }
    return numbers;
}

bool OrloAgreementSignWidget::Private::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && remaining > 0)
        timer.start();
    if (event->type() == QEvent::Hide)
        timer.stop();
    return QObject::eventFilter(watched, event);
}

void OrloAgreementSignWidget::Private::tick()
{
    if (--remaining <= 0)
        timer.stop();
    updateButton();
}

void OrloAgreementSignWidget::Private::updateButton()
{
    signButton->setText(remaining > 0 ? tr("签署（%1）").arg(remaining) : tr("签署"));
    signButton->setEnabled(remaining <= 0 && clients->count() > 0);
}

void OrloAgreementSignWidget::Private::sign()
{
    const QStringList numbers = signingClients();
    if (numbers.isEmpty()) {
        OrloWidget::ShowWarningMsgBox(tr("请选择签署客户！"), q);
        return;
    }
    if (const Status status = signAgreement(protocol, numbers); status)
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
