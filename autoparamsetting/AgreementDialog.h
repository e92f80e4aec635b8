#pragma once

#include <QStringList>

class QComboBox;
class QWidget;

/// The agreement-signing dialog. It is opened while a signal of the plan type box is being handled.
namespace AgreementDialog {

/// Shows the risk disclosure for holdings reductions and waits until the dialog is closed. The function does not report
/// whether the clients signed. `sender` is the box whose signal is being handled. Returns false if `editor` was deleted
/// in the meantime; the caller must not access it then.
bool run(QWidget* editor, QComboBox* sender, const QStringList& clientNumbers);

} // namespace AgreementDialog
