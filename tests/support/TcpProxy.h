#pragma once

#include <QByteArray>
#include <QThread>

#include <functional>
#include <memory>

/// Forwards connections from a free port of 127.0.0.1 to a server on another one, on a thread of its own, and fails on
/// demand like a network. A function has taken effect when it returns.
class TcpProxy {
public:
    explicit TcpProxy(quint16 serverPort);
    /// Closes all connections.
    ~TcpProxy();
    TcpProxy(const TcpProxy&) = delete;
    TcpProxy& operator=(const TcpProxy&) = delete;

    quint16 port() const { return m_port; }
    /// Connections that are open to the server.
    int connections();

    enum class Direction { ToServer, ToClient, Both };
    /// Forwards nothing more, and keeps connections open. New ones are accepted, and are silent, too.
    void stall(Direction direction = Direction::Both);
    /// The connections that are open forward nothing more for good, not even their end. New ones do.
    void hold();
    /// Forwards what was stalled and all that follows, also of new connections.
    void resume();
    /// Closes all connections; new ones are accepted.
    void cut();
    /// Accepts no new connections. Those that are open stay.
    void refuse();
    /// The connection that is the first to send a text to the server gets no answers from then on.
    void swallowAnswersTo(const QByteArray& text);
    /// The same, and the text and what follows it do not reach the server.
    void swallow(const QByteArray& text);
    /// Whether the text was sent.
    bool hasSwallowed();

private:
    class Relay;

    void run(const std::function<void()>& work);

    QThread m_thread;
    QObject m_context; ///< on the thread
    std::unique_ptr<Relay> m_relay;
    quint16 m_port = 0;
};
