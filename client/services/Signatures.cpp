#include "Signatures.h"

#include "AgreementDC.h"
#include "AgreementStore.h"
#include "ClientSession.h"

#include <QDateTime>

namespace {

StoredAgreement agreementOf(const QString& protocolId)
{
    ClientSession& session = ClientSession::instance();
    return session.isOpen() ? AgreementStore(session.database()).agreement(protocolId) : StoredAgreement();
}

QString signingError(const QString& protocolId, const QStringList& clientNumbers)
{
    const ClientSession& session = ClientSession::instance();
    if (!session.isOpen())
        return QStringLiteral("尚未登录，无法签署协议");
    if (agreementOf(protocolId).protocol.isEmpty())
        return QStringLiteral("协议“%1”不存在").arg(protocolId);
    if (clientNumbers.isEmpty())
        return QStringLiteral("请选择签署协议的客户");
    const QStringList known = session.accounts().clientNumbers();
    for (const QString& number : clientNumbers) {
        if (!known.contains(number))
            return QStringLiteral("客户“%1”不属于当前用户").arg(number);
    }
    return QString();
}

} // namespace

QString agreementTitle(const QString& protocolId)
{
    return agreementOf(protocolId).title;
}

QString agreementText(const QString& protocolId)
{
    return agreementOf(protocolId).content;
}

QString signAgreement(const QString& protocolId, const QStringList& clientNumbers)
{
    const QString refused = signingError(protocolId, clientNumbers);
    if (!refused.isEmpty())
        return refused;
    ClientSession& session = ClientSession::instance();
    const QDateTime now = QDateTime::currentDateTime();
    const QString reason = session.database().transaction([&] {
        AgreementStore store(session.database());
        for (const QString& number : clientNumbers) {
            const QString failed = store.sign(protocolId, number, session.user().id, now);
            if (!failed.isEmpty())
                return failed;
        }
        return QString();
    });
    session.forgetSignatures();
    return reason;
}

AgreementDC& AgreementDC::instance()
{
    static AgreementDC agreements;
    return agreements;
}

QStringList AgreementDC::GetUnsignedClientNoList(const QString& protocolId)
{
    return ClientSession::instance().unsignedClients(protocolId);
}
