#include "LoggedTest.h"
#include "TcpProxy.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

namespace {

constexpr int Timeout = 10000;

} // namespace

/// The proxy of the tests, between two sockets.
class TcpProxyTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        m_listener = std::make_unique<QTcpServer>();
        QVERIFY(m_listener->listen(QHostAddress::LocalHost));
        m_proxy = std::make_unique<TcpProxy>(m_listener->serverPort());
        m_client = std::make_unique<QTcpSocket>();
        m_client->connectToHost(QHostAddress::LocalHost, m_proxy->port());
        QVERIFY(m_client->waitForConnected(Timeout));
        QVERIFY(m_listener->waitForNewConnection(Timeout));
        m_server = m_listener->nextPendingConnection();
    }

    void tidyUp() override
    {
        m_client.reset();
        m_proxy.reset();
        m_listener.reset();
    }

    static void receive(QTcpSocket& to, const QByteArray& text)
    {
        QTRY_COMPARE_WITH_TIMEOUT(to.bytesAvailable(), text.size(), Timeout);
        QCOMPARE(to.readAll(), text);
    }

    static void send(QTcpSocket& from, QTcpSocket& to, const QByteArray& text)
    {
        from.write(text);
        receive(to, text);
    }

private Q_SLOTS:
    void itForwards()
    {
        send(*m_client, *m_server, "question");
        send(*m_server, *m_client, "answer");
        QCOMPARE(m_proxy->connections(), 1);
        m_server->disconnectFromHost();
        QTRY_COMPARE(m_client->state(), QAbstractSocket::UnconnectedState);
        QTRY_COMPARE(m_proxy->connections(), 0);
    }

    void aStalledDirectionHoldsWhatIsSent()
    {
        m_proxy->stall(TcpProxy::Direction::ToClient);
        m_server->write("held");
        QVERIFY(m_server->waitForBytesWritten(Timeout));
        send(*m_client, *m_server, "question");
        QVERIFY(!m_client->waitForReadyRead(50));
        m_proxy->resume();
        receive(*m_client, "held");
    }

    void aStalledConnectionStaysOpen()
    {
        m_proxy->stall();
        m_client->write("held");
        QVERIFY(m_client->waitForBytesWritten(Timeout));
        m_client->disconnectFromHost();
        QVERIFY(!m_server->waitForReadyRead(50));
        QCOMPARE(m_server->state(), QAbstractSocket::ConnectedState);
        m_proxy->resume();
        QTRY_COMPARE(m_server->state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(m_server->readAll(), QByteArray("held"));
    }

    void aHeldConnectionDoesNotEnd()
    {
        m_proxy->hold();
        m_client->write("held");
        QVERIFY(m_client->waitForBytesWritten(Timeout));
        m_client->disconnectFromHost();
        m_proxy->resume();
        QTcpSocket other;
        other.connectToHost(QHostAddress::LocalHost, m_proxy->port());
        QVERIFY(other.waitForConnected(Timeout));
        QVERIFY(m_listener->waitForNewConnection(Timeout));
        send(other, *m_listener->nextPendingConnection(), "question");
        QVERIFY(!m_server->waitForReadyRead(50));
        QCOMPARE(m_server->state(), QAbstractSocket::ConnectedState);
    }

    void aCutConnectionIsClosedOnBothSides()
    {
        m_proxy->cut();
        QTRY_COMPARE(m_client->state(), QAbstractSocket::UnconnectedState);
        QTRY_COMPARE(m_server->state(), QAbstractSocket::UnconnectedState);
    }

    void newConnectionsAreRefusedUntilItResumes()
    {
        m_proxy->refuse();
        QTcpSocket other;
        other.connectToHost(QHostAddress::LocalHost, m_proxy->port());
        QVERIFY(!other.waitForConnected(Timeout));
        QCOMPARE(other.error(), QAbstractSocket::ConnectionRefusedError);
        send(*m_client, *m_server, "question");
        m_proxy->resume();
        other.connectToHost(QHostAddress::LocalHost, m_proxy->port());
        QVERIFY(other.waitForConnected(Timeout));
    }

    void answersToATextAreSwallowed()
    {
        m_proxy->swallowAnswersTo("COMMIT");
        send(*m_client, *m_server, "BEGIN COM");
        send(*m_server, *m_client, "answer");
        QVERIFY(!m_proxy->hasSwallowed());
        send(*m_client, *m_server, "MIT");
        QVERIFY(m_proxy->hasSwallowed());
        m_server->write("swallowed");
        QVERIFY(!m_client->waitForReadyRead(50));
    }

    void aTextIsSwallowed()
    {
        m_proxy->swallow("COMMIT");
        send(*m_client, *m_server, "BEGIN COM");
        QVERIFY(!m_proxy->hasSwallowed());
        m_client->write("MIT");
        QTRY_VERIFY_WITH_TIMEOUT(m_proxy->hasSwallowed(), Timeout);
        m_client->write("more");
        m_server->write("swallowed");
        QVERIFY(!m_client->waitForReadyRead(50));
        m_client->disconnectFromHost();
        QTRY_COMPARE(m_server->state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(m_server->readAll(), QByteArray());
    }

private:
    std::unique_ptr<QTcpServer> m_listener;
    std::unique_ptr<TcpProxy> m_proxy;
    std::unique_ptr<QTcpSocket> m_client;
    QTcpSocket* m_server = nullptr; ///< the listener's
};

QTEST_GUILESS_MAIN(TcpProxyTest)
#include "tst_tcp_proxy.moc"
