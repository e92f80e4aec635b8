#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>

/// Dialog for reading and signing agreements, shown modally with `exec()`. Signatures are stored with user and time
/// before the dialog closes.
class OrloAgreementSignWidget : public QDialog {
    Q_OBJECT

public:
    /// Constructs the dialog. `withText` shows the agreement's text, `withAccounts` the list of clients.
    OrloAgreementSignWidget(bool withText, bool withAccounts, QWidget* parent);
    ~OrloAgreementSignWidget() override;

    /// Sets whether the trader can choose the clients who sign; otherwise all sign.
    void SetAccountSelectable(bool selectable);
    /// Sets the agreement to sign, `Orlo_Values::ProtocolId`.
    void SetAgreement(const QString& protocolId);
    /// Sets the number of seconds before signing becomes possible.
    void SetSignCountDown(int seconds);
    /// Sets the numbers of the clients who can sign.
    void SetClientNoList(const QStringList& clientNumbers);

private:
    class Private;
    std::unique_ptr<Private> d;
};
