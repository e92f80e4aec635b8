#include "Signatures.h"

#include "AccountStore.h"
#include "AgreementDC.h"
#include "AgreementStore.h"
#include "ClientSession.h"
#include "ReadReport.h"

#include <algorithm>

namespace {

Result<StoredAgreement> agreementOf(const QString& protocolId)
{
    ClientSession& session = ClientSession::instance();
    return session.isOpen() ? AgreementStore(session.database()).agreement(protocolId) : StoredAgreement();
}

/// Within the transaction that signs.
Status signingError(const QString& protocolId, const QStringList& clientNumbers)
{
    ClientSession& session = ClientSession::instance();
    const Result<StoredAgreement> agreement = agreementOf(protocolId);
    if (!agreement)
        return agreement.status();
    if (agreement->protocol.isEmpty())
        return { Error::UnknownAgreement, { protocolId } };
    if (agreement->content.trimmed().isEmpty())
        return { Error::EmptyAgreement, { protocolId } };
    if (clientNumbers.isEmpty())
        return Error::NoSigner;
    const auto own = AccountStore(session.database()).accountsOf(session.user().id);
    if (!own)
        return own.status();
    for (const QString& number : clientNumbers) {
        const auto isOf = [&number](const StoredAccount& account) { return account.clientNo == number; };
        if (std::none_of(own->cbegin(), own->cend(), isOf))
            return { Error::ForeignClient, { number } };
    }
    return {};
}

/// Whether a failed transaction stored the signatures all the same, which is possible if its COMMIT failed.
Status outcomeOf(const Status& failure, const QString& protocolId, const QStringList& clientNumbers)
{
    ClientSession& session = ClientSession::instance();
    if (!session.database().commitFailed())
        return failure;
    const auto find = [=, user = session.user().id](Database& database) -> Result<qint64> {
        const auto open = AgreementStore(database).unsignedClientNumbers(protocolId, user);
        if (!open)
            return open.status();
        return std::none_of(clientNumbers.cbegin(), clientNumbers.cend(),
                   [&open](const QString& number) { return open->contains(number); })
            ? 1
            : 0;
    };
    const auto known = [](qint64 found) {
        Q_EMIT PlanEvents::instance().outcomeKnown(UnknownRequest::Signature, found != 0, QString());
    };
    const Result<qint64> stored = session.lookUp(QStringLiteral("sign ") + protocolId, find, known);
    if (!stored)
        return { Error::OutcomeUnknown, {}, failure };
    return *stored == 0 ? failure : Status();
}

} // namespace

QString agreementTitle(const QString& protocolId)
{
    return valueOrReport(agreementOf(protocolId), {}).title;
}

QString agreementText(const QString& protocolId)
{
    return valueOrReport(agreementOf(protocolId), {}).content;
}

Status signAgreement(const QString& protocolId, const QStringList& clientNumbers)
{
    ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return Error::SigningNeedsLogin;
    const Change change = session.changeNow();
    const Status status = session.database().transaction([&]() -> Status {
        if (Status refused = signingError(protocolId, clientNumbers); !refused)
            return refused;
        AgreementStore store(session.database());
        for (const QString& number : clientNumbers) {
            if (Status failed = store.sign(protocolId, number, change); !failed)
                return failed;
        }
        return {};
    });
    session.forgetSignatures();
    return status ? status : outcomeOf(status, protocolId, clientNumbers);
}

AgreementDC& AgreementDC::instance()
{
    static AgreementDC agreements;
    return agreements;
}

QStringList AgreementDC::GetUnsignedClientNoList(const QString& protocolId)
{
    const ClientSession& session = ClientSession::instance();
    return valueOrReport(ClientSession::instance().unsignedClients(protocolId), session.accounts().clientNumbers());
}
