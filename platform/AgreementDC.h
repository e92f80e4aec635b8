#pragma once

#include <QStringList>

/// Which clients have signed which agreement. One per process.
class AgreementDC {
public:
    static AgreementDC& instance(); ///< the service; lives as long as the process

    /// Numbers of the logged-in user's clients who have not signed an agreement (`Orlo_Values::ProtocolId`).
    QStringList GetUnsignedClientNoList(const QString& protocolId);

private:
    AgreementDC() = default;
};
