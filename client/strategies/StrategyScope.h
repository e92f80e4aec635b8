#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// What a security is for the scope of a strategy.
struct TradedSecurity {
    QString market;    ///< ISO 10383 code of the exchange
    QString country;   ///< ISO 3166 code
    QStringList types; ///< FIX codes (tag 167) that describe it
};

/// The securities for which a strategy is meant.
struct StrategyScope {
    struct Entry {
        QString code;
        bool isIncluded = true;
    };
    struct Region {
        Entry entry; ///< name of the region
        QVector<Entry> countries;
    };

    QVector<Region> regions;
    QVector<Entry> markets;
    QVector<Entry> securityTypes;

    /// True if the strategy is meant for a security. Every market of the client is in Asia.
    bool contains(const TradedSecurity& security) const;
    bool isEmpty() const { return regions.isEmpty() && markets.isEmpty() && securityTypes.isEmpty(); }
};
