#include "AgreementDialog.h"

#include "OrloAgreementSignWidget.h"
#include "Orlo_Values.h"
#include "SenderGuard.h"

#include <QComboBox>
#include <QPointer>

namespace AgreementDialog {

namespace {

constexpr int CountDownSeconds = 15;

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
    const SenderGuard guard(sender);
    const QPointer<OrloAgreementSignWidget> dialog = makeDialog(editor, clientNumbers);
    dialog->exec();
    delete dialog;
    return !editorAlive.isNull();
}

} // namespace AgreementDialog
