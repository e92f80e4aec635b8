#include "AgreementDialog.h"

#include "OrloAgreementSignWidget.h"
#include "Orlo_Values.h"
#include <QComboBox>
#include <QPointer>

namespace AgreementDialog {

namespace {

constexpr int CountDownSeconds = 15;
const char WaitingProperty[] = "waitsForAgreementDialog";

QPointer<OrloAgreementSignWidget> makeDialog(QWidget* editor, const QStringList& clientNumbers)
{
    QPointer<OrloAgreementSignWidget> dialog = new OrloAgreementSignWidget(true, true, editor);
    dialog->SetAccountSelectable(true);
    dialog->SetAgreement(Orlo_Values::ProtocolId::AutoPlanReduceAgree);
    dialog->SetSignCountDown(CountDownSeconds);
    dialog->SetClientNoList(clientNumbers);
    return dialog;
}

} // namespace

bool run(QWidget* editor, QComboBox* sender, const QStringList& clientNumbers)
{
    const QPointer<QWidget> editorAlive(editor);
    const QPointer<QComboBox> senderAlive(sender);
    const QPointer<OrloAgreementSignWidget> dialog = makeDialog(editor, clientNumbers);

    sender->setProperty(WaitingProperty, true);
    dialog->exec();
    delete dialog;
    if (senderAlive)
        sender->setProperty(WaitingProperty, false);
    if (editorAlive)
        return true;
    if (senderAlive)
        sender->deleteLater();
    return false;
}

void outlive(QComboBox* sender)
{
    if (sender->property(WaitingProperty).toBool())
        sender->setParent(nullptr);
}

} // namespace AgreementDialog
