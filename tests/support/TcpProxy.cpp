#include "TcpProxy.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>

namespace {

constexpr int Timeout = 5000;

/// What all connections do.
struct Flow {
    bool toServer = true;
    bool toClient = true;
    QByteArray swallowed;      ///< the text whose answer is swallowed; empty once it was sent
    bool swallowsText = false; ///< whether the text is, too
};

bool hasEnded(const QTcpSocket& socket)
{
    return socket.state() == QAbstractSocket::UnconnectedState;
}

QByteArray arrived(QTcpSocket& socket)
{
    return socket.bytesAvailable() > 0 ? socket.readAll() : QByteArray();
}

/// Forwards data and then the end of the connection.
void pass(QTcpSocket& from, QTcpSocket& to, const QByteArray& data)
{
    if (!hasEnded(to))
        to.write(data);
    if (hasEnded(from))
        to.disconnectFromHost();
}

/// A client's connection and the one to the server for it.
class Connection : public QObject {
public:
    Connection(QTcpSocket* client, quint16 serverPort, Flow& flow, QObject* parent);

    void forward();
    void resume();
    void hold() { m_isHeld = true; }
    void cut();
    bool isOpen() const { return !hasEnded(m_server); }

private:
    void lookForText(const QByteArray& data);

    QTcpSocket& m_client;
    QTcpSocket m_server;
    Flow& m_flow;
    QByteArray m_sent; ///< the last bytes, because the text may arrive in parts
    bool m_isSwallowing = false;
    bool m_isDropping = false; ///< what the client sends
    bool m_isHeld = false;
};

Connection::Connection(QTcpSocket* client, quint16 serverPort, Flow& flow, QObject* parent)
    : QObject(parent)
    , m_client(*client)
    , m_flow(flow)
{
    m_client.setParent(this);
    m_server.setProxy(QNetworkProxy::NoProxy);
    m_server.connectToHost(QHostAddress::LocalHost, serverPort);
    m_server.waitForConnected(Timeout);
    for (QTcpSocket* const socket : { &m_client, &m_server }) {
        connect(socket, &QTcpSocket::readyRead, this, &Connection::forward);
        connect(socket, &QTcpSocket::disconnected, this, &Connection::forward);
    }
    forward();
}

void Connection::forward()
{
    if (m_isHeld)
        return;
    if (m_flow.toServer) {
        const QByteArray data = arrived(m_client);
        lookForText(data);
        pass(m_client, m_server, m_isDropping ? QByteArray() : data);
    }
    if (m_flow.toClient && !m_isSwallowing)
        pass(m_server, m_client, arrived(m_server));
    if (hasEnded(m_client) && hasEnded(m_server))
        deleteLater();
}

void Connection::lookForText(const QByteArray& data)
{
    const QByteArray& text = m_flow.swallowed;
    if (text.isEmpty())
        return;
    m_sent = m_sent.right(text.size() - 1) + data;
    m_isSwallowing = m_sent.contains(text);
    m_isDropping = m_isSwallowing && m_flow.swallowsText;
    if (m_isSwallowing)
        m_flow.swallowed.clear();
}

void Connection::resume()
{
    m_isSwallowing = false;
    m_isDropping = false;
    forward();
}

void Connection::cut()
{
    for (QTcpSocket* const socket : { &m_client, &m_server }) {
        disconnect(socket, nullptr, this, nullptr);
        socket->abort();
    }
    deleteLater();
}

} // namespace

class TcpProxy::Relay {
public:
    explicit Relay(quint16 serverPort)
        : m_serverPort(serverPort)
    {
        m_listener.setProxy(QNetworkProxy::NoProxy);
        QObject::connect(&m_listener, &QTcpServer::newConnection, &m_connections, [this] {
            while (QTcpSocket* const client = m_listener.nextPendingConnection())
                new Connection(client, m_serverPort, m_flow, &m_connections);
        });
        listen();
    }
    ~Relay() { cut(); }

    quint16 port() const { return m_port; }
    Flow& flow() { return m_flow; }
    /// On the same port each time.
    void listen()
    {
        if (!m_listener.isListening() && !m_listener.listen(QHostAddress::LocalHost, m_port))
            qFatal("The proxy cannot listen: %s", qPrintable(m_listener.errorString()));
        m_port = m_listener.serverPort();
    }
    void refuse() { m_listener.close(); }
    void resume()
    {
        m_flow = Flow();
        for (Connection* const connection : connections())
            connection->resume();
        listen();
    }
    void hold()
    {
        for (Connection* const connection : connections())
            connection->hold();
    }
    void cut()
    {
        for (Connection* const connection : connections())
            connection->cut();
    }
    int openConnections() const
    {
        int open = 0;
        for (const Connection* const connection : connections())
            open += connection->isOpen() ? 1 : 0;
        return open;
    }

private:
    QList<Connection*> connections() const
    {
        QList<Connection*> found;
        for (QObject* const connection : m_connections.children())
            found << static_cast<Connection*>(connection);
        return found;
    }

    const quint16 m_serverPort;
    quint16 m_port = 0;
    Flow m_flow;
    QTcpServer m_listener;
    QObject m_connections; ///< parent of the connections
};

TcpProxy::TcpProxy(quint16 serverPort)
{
    m_thread.setObjectName(QStringLiteral("proxy"));
    m_context.moveToThread(&m_thread);
    m_thread.start();
    run([&] {
        m_relay = std::make_unique<Relay>(serverPort);
        m_port = m_relay->port();
    });
}

TcpProxy::~TcpProxy()
{
    run([this] { m_relay.reset(); });
    m_thread.quit();
    m_thread.wait();
}

int TcpProxy::connections()
{
    int open = 0;
    run([&] { open = m_relay->openConnections(); });
    return open;
}

void TcpProxy::stall(Direction direction)
{
    run([&] {
        m_relay->flow().toServer = direction == Direction::ToClient;
        m_relay->flow().toClient = direction == Direction::ToServer;
    });
}

void TcpProxy::hold()
{
    run([this] { m_relay->hold(); });
}

void TcpProxy::resume()
{
    run([this] { m_relay->resume(); });
}

void TcpProxy::cut()
{
    run([this] { m_relay->cut(); });
}

void TcpProxy::refuse()
{
    run([this] { m_relay->refuse(); });
}

void TcpProxy::swallow(const QByteArray& text)
{
    run([&] {
        m_relay->flow().swallowed = text;
        m_relay->flow().swallowsText = true;
    });
}

void TcpProxy::swallowAnswersTo(const QByteArray& text)
{
    run([&] {
        m_relay->flow().swallowed = text;
        m_relay->flow().swallowsText = false;
    });
}

bool TcpProxy::hasSwallowed()
{
    bool swallowed = false;
    run([&] { swallowed = m_relay->flow().swallowed.isEmpty(); });
    return swallowed;
}

void TcpProxy::run(const std::function<void()>& work)
{
    QMetaObject::invokeMethod(&m_context, work, Qt::BlockingQueuedConnection);
}
