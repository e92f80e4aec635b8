#pragma once

#include <QString>
#include <QStringList>

/// Finds Chinese in the texts of the English client, except the data of a database and what can only be Chinese: the
/// names in formulas and the assignee that is stored.
class ChineseTexts {
public:
    /// `file`: the database, in SQLite; empty for none.
    explicit ChineseTexts(const QString& file);

    /// Adds further texts that may be shown.
    void allow(const QStringList& texts);
    bool isIn(QString text) const;
    /// The lines with Chinese.
    QStringList linesIn(const QString& text) const;

private:
    QStringList m_data; ///< the longest first
};
