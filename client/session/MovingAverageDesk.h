#pragma once

#include <QObject>
#include <QStringList>
#include <QThread>

#include <memory>

/// Answers moving-average queries on a thread of its own, from the stored closing prices and through a connection of
/// its own. Nothing is announced once the desk is gone.
class MovingAverageDesk : public QObject {
    Q_OBJECT

public:
    /// `fileName`: the database, opened when the first question arrives.
    explicit MovingAverageDesk(const QString& fileName);
    ~MovingAverageDesk() override;

    /// Asks for the averages of a security that the market knows. Answers come in the order of the questions.
    void ask(const QString& symbol);

Q_SIGNALS:
    /// Emitted from the desk's thread: names of the averages for which enough closes exist, or why none can be told.
    void answered(const QString& symbol, const QStringList& names, const QString& reason);

private:
    class Reader;

    QThread m_thread;
    Reader* m_reader;
};
