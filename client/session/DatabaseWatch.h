#pragma once

#include "DatabaseThread.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

/// Watches the session's database for its window: notices changes by others and the loss of the connection to a server,
/// and connects again. Use it on the database's thread.
class DatabaseWatch : public QObject {
    Q_OBJECT

public:
    /// Starts to watch an open database. `reopen` opens it again; it is called when the server answers again.
    DatabaseWatch(Database& database, const std::function<Status()>& reopen);
    ~DatabaseWatch() override;
    DatabaseWatch(const DatabaseWatch&) = delete;
    DatabaseWatch& operator=(const DatabaseWatch&) = delete;

    /// True until the database has been opened again after a loss.
    bool isLost() const { return m_isLost; }

Q_SIGNALS:
    /// Another client may have changed stored data.
    void changed();
    void lost();
    /// An attempt to connect again has failed.
    void stillLost(const Status& reason);
    void restored();

private:
    void start();
    void look();
    void poll();
    void tryAgain();
    void finish(const Status& attempt);

    Database& m_database;
    const std::function<Status()> m_reopen;
    QTimer m_polling;
    QTimer m_retrying;
    bool m_isLost = false;
    bool m_isFileChanged = false; ///< noticed by the last look
    bool m_isTrying = false;
    std::unique_ptr<DatabaseThread> m_attempts; ///< while the connection is lost
};
