#pragma once

#include "store/Database.h"

/// Static configuration: texts by category and key.
class StaticTextStore {
public:
    explicit StaticTextStore(Database& database);

    QString set(const QString& category, const QString& key, const QString& text);
    /// `fallback` when there is no such text.
    QString text(const QString& category, const QString& key, const QString& fallback = QString());

private:
    Database& m_database;
};
