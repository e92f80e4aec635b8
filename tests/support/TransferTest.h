#pragma once

#include "ExportRun.h"
#include "ImportRun.h"
#include "LoggedTest.h"
#include "PlanStore.h"
#include "TestDatabase.h"

#include <QTemporaryDir>

#include <memory>

/// A test of imports and exports. Each function has a database of its own, which is empty.
class TransferTest : public LoggedTest {
protected:
    using Counts = QVector<qint64>;

    void prepare() override;
    void tidyUp() override;

    static QString text(const char* words) { return QString::fromUtf8(words); }
    /// The names of roles are the same for all databases of a server.
    static QString ownUser(const char* name);

    const TestDatabase& database() const { return *m_database; }
    /// Writes a file. The users wang and li get the names of `ownUser`.
    QString add(const QString& name, QByteArray contents) const;
    /// A copy of a documented file.
    QString sample(const QString& kind) const;
    /// The documented file with the strategy SLICE@DESK.
    static QString strategyFile();

    /// The kinds before plans, in the order of the documentation.
    static QStringList kinds();
    /// Imports the samples of the kinds before one, or of all.
    void importUntil(const QString& end);
    /// Logs in the user wang, who is in the samples.
    void logIn();
    ImportTask taskOf(const QString& kind, const QString& file);
    Status run(const QString& kind, const QString& file, ImportReport& report);
    /// Warns of a failure.
    ImportReport imported(const QString& kind, const QString& file);
    QByteArray exported(const QString& kind, TableFormat format);

    static QStringList reasons(const ImportReport& report);
    /// Added, changed, unchanged and kept rows.
    static Counts counts(const ImportReport& report);
    /// All rows of the tables into which files are imported.
    QString contents() const;

private:
    std::unique_ptr<TestDatabase> m_database;
    std::unique_ptr<QTemporaryDir> m_folder;
};
