#pragma once

#include "DatabaseProbe.h"
#include "PlanForm.h"
#include "PlanStore.h"

#include <QMap>
#include <QStringList>
#include <QVariant>

/// The record that must be stored for a filled-in plan, computed from what was filled in and from the account and the
/// security in the database, without reading the form.
class ExpectedRecord {
public:
    ExpectedRecord(const PlanForm& form, const ShownDates& dates, const QString& userId, DatabaseProbe& probe);

    /// Every key of the record except the other-parameter text.
    const QMap<QString, QString>& fields() const { return m_fields; }
    /// Every key of the other-parameter map.
    const QMap<QString, QVariant>& other() const { return m_other; }

    /// The complete record, as it is sent to the plan service.
    PlanStore::Record record() const;

    /// The differences of a stored record, one sentence for each key, for missing and for additional keys, too.
    QStringList differences(const QMap<QString, QString>& stored) const;

private:
    QString wholeNumber(const QString& typed) const;
    void addIdentity(const QString& userId, DatabaseProbe& probe);
    void addPrices();
    void addPersonAndDates(const ShownDates& dates);
    void addOther();
    QMap<QString, QVariant> algorithm() const;

    const PlanForm m_form;
    const DatabaseProbe::Security m_security;
    QMap<QString, QString> m_fields;
    QMap<QString, QVariant> m_other;
};
