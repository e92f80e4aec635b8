#pragma once

#include "Status.h"

#include <QString>
#include <QStringList>

/// What an agreement says and who has signed it, as the store keeps it.

/// Title of an agreement (`Orlo_Values::ProtocolId`); empty when the store holds no such agreement.
QString agreementTitle(const QString& protocolId);

/// Text of an agreement as plain text; empty when the store holds no such agreement.
QString agreementText(const QString& protocolId);

/// Stores that the clients have signed an agreement, with the logged-in user and the present time, all of them or
/// none.
Status signAgreement(const QString& protocolId, const QStringList& clientNumbers);
