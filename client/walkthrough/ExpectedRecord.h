#pragma once

#include "DatabaseProbe.h"
#include "PlanForm.h"
#include "PlanStore.h"

#include <QMap>
#include <QStringList>
#include <QVariant>

/// The record that a filled-in plan must be stored as, worked out from what was filled in and from what the database
/// says of the account and the security, without looking at the form.
class ExpectedRecord {
public:
    ExpectedRecord(const PlanForm& form, const ShownDates& dates, const QString& userId, DatabaseProbe& facts);

    /// Every key of the record but the other-parameter text.
    const QMap<QString, QString>& fields() const { return m_fields; }
    /// Every key of the other-parameter map.
    const QMap<QString, QVariant>& other() const { return m_other; }

    /// All of it, as it is sent to the plan service.
    PlanStore::Record record() const;

    /// Where a stored record is not as expected, one sentence for each key; keys too many and too few included.
    QStringList differences(const QMap<QString, QString>& stored) const;

private:
    QString wholeNumber(const QString& typed) const;
    void addIdentity(const QString& userId, DatabaseProbe& facts);
    void addPrices();
    void addPersonAndDates(const ShownDates& dates);
    void addOther();
    QMap<QString, QVariant> algorithm() const;

    const PlanForm m_form;
    const DatabaseProbe::Security m_security;
    QMap<QString, QString> m_fields;
    QMap<QString, QVariant> m_other;
};
