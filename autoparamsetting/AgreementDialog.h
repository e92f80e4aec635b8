#pragma once

#include <QStringList>

class QComboBox;
class QWidget;

/// The agreement-signing dialog, opened from within the signal of the box that made it necessary.
namespace AgreementDialog {

/// Shows the risk disclosure of holdings reduction to be signed by clients, and waits for it to be closed. Does not
/// report whether they signed. `sender` is the box whose signal is being handled. Returns false when `editor` was
/// deleted meanwhile; then nothing of it may be touched.
bool run(QWidget* editor, QComboBox* sender, const QStringList& clientNumbers);

} // namespace AgreementDialog
