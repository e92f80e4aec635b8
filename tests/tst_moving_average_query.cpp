#include "AutoPlanLogic.h"
#include "ClientSession.h"
#include "Kelvo_Values.h"
#include "LoggedTest.h"
#include "MovingAverages.h"
#include "SampleSession.h"
#include "TestStatus.h"

#include <QSignalSpy>
#include <QThread>
#include <QtTest>

namespace {

constexpr int Timeout = 10000;

struct Answers {
    QSignalSpy spy{ &AutoPlanLogic::instance(), &AutoPlanLogic::signalQuerySymbolMAResponse };

    bool await() { return spy.count() > 0 || spy.wait(Timeout); }
    QString symbol(int i) const { return spy.at(i).at(0).toString(); }
    QStringList names(int i) const { return spy.at(i).at(1).toStringList(); }
    QString reason(int i) const { return spy.at(i).at(2).toString(); }
};

void ask(const QString& symbol)
{
    Q_EMIT AutoPlanLogic::instance().signalQuerySymbolMAInfo(QStringLiteral("100001"), symbol);
}

QString share()
{
    return SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh);
}

} // namespace

class MovingAverageQueryTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void aSecurityWithAFullYearOfClosesHasEveryAverage()
    {
        const SampleSession session;
        QCOMPARE(session.opened(), Status());
        Answers answers;
        ask(share());
        QVERIFY(answers.await());
        QCOMPARE(answers.spy.count(), 1);
        QCOMPARE(answers.symbol(0), share());
        QCOMPARE(answers.reason(0), QString());
        QCOMPARE(answers.names(0), MovingAverages::names());
    }

    void anAnswerArrivesAfterTheQueryHasReturned()
    {
        const SampleSession session;
        Answers answers;
        // For a security with closes the worker thread answers at any time; this answer does not need that thread.
        ask(QStringLiteral("999999.SH"));
        QCOMPARE(answers.spy.count(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(answers.spy.count(), 1, Timeout);
    }

    void theAnswerIsEmittedFromAnotherThread()
    {
        const SampleSession session;
        std::atomic<QThread*> emitter{ nullptr };
        QObject receiver;
        connect(
            &AutoPlanLogic::instance(), &AutoPlanLogic::signalQuerySymbolMAResponse, &receiver,
            [&emitter] { emitter = QThread::currentThread(); }, Qt::DirectConnection);
        ask(share());
        QTRY_VERIFY_WITH_TIMEOUT(emitter != nullptr, Timeout);
        QVERIFY(emitter != QThread::currentThread());
    }

    void answersArriveInTheOrderOfTheQueries()
    {
        const SampleSession session;
        const QString bond = SampleSession::symbolOf(QStringLiteral("bond-treasury"), QString());
        QVERIFY(!bond.isEmpty());
        Answers answers;
        ask(share());
        ask(bond);
        ask(share());
        QTRY_COMPARE_WITH_TIMEOUT(answers.spy.count(), 3, Timeout);
        QCOMPARE(answers.symbol(0), share());
        QCOMPARE(answers.symbol(1), bond);
        QCOMPARE(answers.symbol(2), share());
    }

    void anUnknownSecurityIsAnsweredWithAReason()
    {
        const SampleSession session;
        Answers answers;
        ask(QStringLiteral("999999.SH"));
        QVERIFY(answers.await());
        QCOMPARE(answers.names(0), QStringList());
        QCOMPARE(answers.reason(0), errorText({ Error::UnknownSecurity, { QStringLiteral("999999.SH") } }));
    }

    void aSecurityWithoutClosesHasNoAverageAndNoReason()
    {
        const SampleSession session;
        Database owned;
        QCOMPARE(owned.open(session.ownersFile()), Status());
        QCOMPARE(owned.execute(QStringLiteral("DELETE FROM closing_prices")), Status());
        Answers answers;
        ask(share());
        QVERIFY(answers.await());
        QCOMPARE(answers.names(0), QStringList());
        QCOMPARE(answers.reason(0), QString());
    }

    void aSessionThatIsClosedAnswersWithAReason()
    {
        Answers answers;
        ask(QStringLiteral("600000.SH"));
        QVERIFY(answers.await());
        QCOMPARE(answers.names(0), QStringList());
        QCOMPARE(answers.reason(0), errorText(Error::AveragesNeedLogin));
    }

    void anUnfinishedAnswerIsDroppedWhenTheSessionCloses()
    {
        auto session = std::make_unique<SampleSession>();
        std::atomic_int answersAfterClosing{ 0 };
        std::atomic_bool closed{ false };
        QObject receiver;
        connect(
            &AutoPlanLogic::instance(), &AutoPlanLogic::signalQuerySymbolMAResponse, &receiver,
            [&] { answersAfterClosing += closed ? 1 : 0; }, Qt::DirectConnection);
        const QString symbol = share();
        for (int i = 0; i < 50; ++i)
            ask(symbol);
        session.reset();
        closed = true;
        QCoreApplication::processEvents();
        QCOMPARE(answersAfterClosing.load(), 0);
    }

    void theNextSessionAnswersAgain()
    {
        SampleSession session;
        QCOMPARE(session.reopen(), Status());
        Answers answers;
        ask(share());
        QVERIFY(answers.await());
        QCOMPARE(answers.symbol(0), share());
    }
};

QTEST_GUILESS_MAIN(MovingAverageQueryTest)
#include "tst_moving_average_query.moc"
