#pragma once

#include "Security.h"
#include "Status.h"

#include <QDate>
#include <QHash>
#include <QVector>

#include <optional>

/// A rule of an exchange for the securities of a board.
enum class TradeRule {
    Limit, ///< daily price limit in thousandths; 0 means none
    Lot,   ///< smallest quantity of a purchase, in displayed units
    Step,  ///< step of quantities, in displayed units
    Tick,  ///< step of prices, in yuan
};

/// The rules of the exchanges by board, special treatment and day. Does not use a clock.
class Rulebook {
public:
    /// A value that changes within a period.
    struct Change {
        TradeRule rule;
        QDate day; ///< the first with the new value
        double before = 0;
        double after = 0;
    };

    /// The rules of the file `plandesk/rulebook.csv` in the data folders of the user and the system, as it was at the
    /// first call; without a valid one, those built into the program.
    static const Rulebook& present();
    static const Rulebook& builtIn();
    /// Reads `headings` and a line for each rule and period. A rule must be known from its first day on without a gap.
    static Result<Rulebook> read(const QByteArray& csv);
    static QString headings();

    /// The value on a day; absent if the book has no such rule for the security.
    std::optional<double> value(const Security& security, TradeRule rule, const QDate& day) const;
    /// The security with price limit and step of a day. One that follows another rule than its board, for example
    /// without a limit on its first days, keeps its own.
    Security onDay(const Security& security, const QDate& day) const;
    /// What changes for a security after the first day, up to and including the last one.
    QVector<Change> changes(const Security& security, const QDate& first, const QDate& last) const;

private:
    struct Period {
        QDate first;
        QDate last; ///< invalid for an open end
        double value = 0;
    };
    /// The periods of a rule, by day.
    struct Series {
        QString flag; ///< empty for all flags without rules of their own
        TradeRule rule = TradeRule::Limit;
        QVector<Period> periods;
    };

    Status add(const QString& line);
    static Status add(const Series& added, QVector<Series>& board);
    static Result<Period> periodOf(TradeRule rule, const QStringList& cells);
    const Series* find(const Security& security, TradeRule rule) const;
    /// The same, if the security follows the rule.
    const Series* followed(const Security& security, TradeRule rule, double own) const;
    static const Period* on(const Series& series, const QDate& day);

    QHash<QString, QVector<Series>> m_boards; ///< by exchange and sub-type
};
