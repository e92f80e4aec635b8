#pragma once

#include "Importer.h"
#include "SecurityStore.h"
#include "TradeCalendar.h"

#include <map>
#include <unordered_map>
#include <vector>

/// Imports closing prices in any order. They wait in a buffer of fixed size and are then added to the stored ones,
/// security by security: a file with a line for each day and security would otherwise read and write each of them very
/// often.
class CloseImporter : public Importer {
public:
    /// `calendar`: knows the trade days, each of which has a close from a security's first one to its last one.
    /// `replaces`: whether a security in the file keeps only the closes in the file.
    CloseImporter(Database& database, const TradeCalendar& calendar, bool replaces, ImportReport& report);

    const TransferForm& form() const override { return TransferForms::closes(); }
    Status take(ImportRow& row) override;
    Status finish() override;
    Status findRemovals() override;
    Status remove() override;

private:
    /// The trade days of an exchange, as numbers from 0 on.
    struct Days {
        QVector<QDate> dates;
        qint64 first = 0;     ///< Julian day of the first number
        QVector<int> numbers; ///< by Julian day from `first` on; -1 for other days
        int numberOf(qint64 julianDay) const;
    };
    /// A security of the market.
    struct Known {
        QString symbol;
        int precision = 0;
        const Days* days = nullptr;
        bool hasCloses = false; ///< stored before
        bool isInFile = false;
        qint16 firstBefore = -1; ///< number of the first stored day; -1 without closes
        qint16 lastBefore = -1;
    };
    struct Close {
        qint64 ticks;
        quint32 line;
        qint16 day;
    };
    /// A security's consecutive closes.
    struct Range {
        int first = 0;
        std::vector<qint64> ticks;

        int end() const { return first + static_cast<int>(ticks.size()); }
    };

    Status load();
    const Days* daysOf(const QString& exchange);
    int securityOf(ImportRow& row);
    std::optional<int> dayOf(ImportRow& row, const Known& known);
    std::optional<qint64> ticksOf(ImportRow& row, const Known& known);
    Status flush(bool isLast);
    Status add(Known& known, std::vector<Close>& closes, bool isLast, bool& isAdded);
    Status storedRange(Known& known, Range& range);
    bool isWithoutDuplicates(const Known& known, const std::vector<Close>& closes);
    void refuse(qint64 line, const Status& reason);

    SecurityStore m_store;
    const TradeCalendar& m_calendar;
    const bool m_replaces;
    ImportReport& m_report;
    bool m_isLoaded = false;
    std::map<QString, Days> m_days; ///< by exchange; `Known` points to them
    std::vector<Known> m_securities;
    std::unordered_map<std::string_view, int> m_numbers; ///< of the securities, by the symbols below
    std::vector<std::string> m_symbols;
    int m_last = -1;                           ///< the security of the last row
    std::vector<std::vector<Close>> m_waiting; ///< by number of the security
    qint64 m_waitingCount = 0;
};
