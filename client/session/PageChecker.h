#pragma once

#include "DatabaseThread.h"

#include <QObject>

/// Checks on another thread whether the whole database is undamaged. Emits nothing after its destruction, which ends
/// the check.
class PageChecker : public QObject {
    Q_OBJECT

public:
    /// Starts the check.
    explicit PageChecker(const Database& session);

Q_SIGNALS:
    /// The database is damaged or cannot be read.
    void failed(const Status& failure);

private:
    DatabaseThread m_thread;
};
