#pragma once

#include <QDialog>
#include <QStringList>
#include <memory>

/// Dialog in which agreements are read and signed; shown modally with `exec()`. What is signed is stored with user
/// and time before the dialog closes.
class OrloAgreementSignWidget : public QDialog {
    Q_OBJECT

public:
    /// `withText` shows the agreement's text, `withAccounts` the list of clients.
    OrloAgreementSignWidget(bool withText, bool withAccounts, QWidget* parent);
    ~OrloAgreementSignWidget() override;

    /// Whether the trader may choose which clients sign; otherwise all do.
    void SetAccountSelectable(bool selectable);
    /// The agreement to sign, `Orlo_Values::ProtocolId`.
    void SetAgreement(const QString& protocolId);
    /// Seconds that must pass before signing is possible.
    void SetSignCountDown(int seconds);
    /// Numbers of the clients who may sign.
    void SetClientNoList(const QStringList& clientNumbers);

private:
    class Private;
    std::unique_ptr<Private> d;
};
