#pragma once

#include "SymbolIndexes.h"

/// A search in several runs of symbols. It uses the parts of their indexes that are ready when it is constructed; a run
/// that was not passed to `SymbolIndexes::prepare` yields nothing.
class SymbolSearch {
public:
    /// How much of the runs can be searched.
    enum Stage { Nothing, Codes, CodesAndNames };

    explicit SymbolSearch(const QVector<QStringList>& runs, const SymbolIndexes& indexes = SymbolIndexes::instance());

    Stage stage() const { return m_stage; }

    /// The characters of all names by their codes; empty until the stage allows a search by name.
    QBitArray letters() const;

    /// The following take a text in its search form and find nothing until the stage allows it.

    /// The symbols that are `code` or begin with `code` and the dot before the market, in the order of the runs.
    QStringList exact(const QString& code) const;
    /// Appends symbols that begin with `prefix`, by code, until `found` holds `limit`. None is appended twice.
    void appendByCode(const QString& prefix, int limit, QStringList& found) const;
    /// Appends symbols whose Chinese name contains `part`, run by run, until `found` holds `limit`.
    void appendByName(const QString& part, int limit, QStringList& found) const;

private:
    QVector<std::shared_ptr<const SymbolIndex>> m_indexes;
    Stage m_stage = CodesAndNames;
};
