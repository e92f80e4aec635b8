#pragma once

#include "Database.h"

#include <QObject>
#include <QTimer>

/// Watches the session's database for its window. Use it on the database's thread.
class DatabaseWatch : public QObject {
    Q_OBJECT

public:
    /// Starts to watch an open database.
    explicit DatabaseWatch(Database& database);
    ~DatabaseWatch() override { m_database.endWatch(); }
    DatabaseWatch(const DatabaseWatch&) = delete;
    DatabaseWatch& operator=(const DatabaseWatch&) = delete;

Q_SIGNALS:
    /// Another client may have changed stored data.
    void changed();

private:
    Database& m_database;
    QTimer m_polling;
};
