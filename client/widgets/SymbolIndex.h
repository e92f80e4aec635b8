#pragma once

#include <QString>
#include <QStringList>
#include <QVector>
#include <map>
#include <memory>

/// What of a text or a symbol counts in a search: full-width letters and digits are the plain ones, case is not told.
QString searchForm(const QString& text);

/// One run of symbols, sorted for search by code, and by name where that is asked for. It is built when it is first
/// searched; a search then costs the logarithm of the run's size.
class SymbolIndex {
public:
    /// The index of a run, one per run and process. Runs that share their data share the index.
    static std::shared_ptr<const SymbolIndex> of(const QStringList& run);

    explicit SymbolIndex(const QStringList& run);

    /// Appends the symbols that are `code` or begin with `code` and the dot before the market.
    void appendExact(const QString& code, QStringList& found) const;
    /// Appends symbols that begin with `prefix`, by code, until `found` holds `limit`. None is appended twice.
    void appendByCode(const QString& prefix, int limit, QStringList& found) const;
    /// Appends symbols whose Chinese name contains `part`, until `found` holds `limit`. `part` must have at least
    /// `minLength` characters; the names are read when a length is first searched.
    void appendByName(const QString& part, int minLength, int limit, QStringList& found) const;

private:
    struct Suffix {
        int row;
        int from;
    };
    struct Names {
        QVector<QString> names;
        QVector<Suffix> suffixes;
    };

    const Names& namesFor(int minLength) const;
    Names readNames(int minLength) const;
    int firstNotBefore(const QString& prefix) const;

    QStringList m_run;
    QVector<QString> m_codes; ///< search forms, by row
    QVector<int> m_byCode;    ///< rows, sorted by code
    mutable std::map<int, Names> m_names;
};
