#pragma once

#include "Importer.h"

/// Imports closures of the markets into the user's folder, where they extend the trade calendar.
class ClosureImporter : public Importer {
public:
    /// `name`: the base name of the file, under which the closures are stored.
    ClosureImporter(const QString& name, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::closures(); }
    Status take(ImportRow& row) override;
    Status finish() override;
    Status commit() override;

private:
    const QString m_name;
    ImportReport& m_report;
    QByteArray m_csv;
};
