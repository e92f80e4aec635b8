#include "AutoPlanField.h"
#include "ClientSession.h"
#include "Kelvo_Fields.h"
#include "LimitStore.h"
#include "PlanRequests.h"
#include "PlanSubmission.h"
#include "SessionTest.h"
#include "TestStatus.h"

#include <QtTest>

#include <functional>

namespace UserAccount = Kelvo_Fields::UserAccount;
using Record = QMap<QString, QVariant>;
using Edit = std::function<Record(const Record&)>;

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(Error)

namespace {

const QString Account = QStringLiteral("100001");

/// Sends a new plan. Returns why it is refused.
Error errorOf(const Record& record)
{
    return PlanSubmission::create(record, PlanRequests::newId()).status().error();
}

} // namespace

/// The client keeps the rights, limits and prices by which it has stored a plan. They never decide about another plan
/// once they have changed.
class KeptFactsTest : public SessionTest {
    Q_OBJECT

private:
    /// Runs a statement on another connection, like another client.
    void changeElsewhere(const QString& statement)
    {
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        QCOMPARE(other.execute(statement), Status());
    }

    /// Each second plan is checked by what was kept from the first one.
    void checkSeen(const Record& record, const QString& between, const QString& after, Error refused)
    {
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(errorOf(record), Error::None);
        changeElsewhere(between);
        QCOMPARE(errorOf(record), refused);
        QCOMPARE(storedPlans(), 2);
        changeElsewhere(after);
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(storedPlans(), 4);
    }

    /// Also those that the user does not see.
    int storedPlans()
    {
        Database other;
        return other.open(session().ownersFile()) ? PlanStore(other).count().valueOr(-1) : -1;
    }

private Q_SLOTS:
    void whatAnotherClientChangesBetweenTwoPlansIsSeenByTheSecond_data()
    {
        QTest::addColumn<Edit>("change");
        QTest::addColumn<QString>("between");
        QTest::addColumn<QString>("after");
        QTest::addColumn<Error>("refused");
        const Edit same = [](const Record& record) { return record; };
        const Edit formula = [](const Record& record) { return customPrice(record, QStringLiteral("昨收价")); };
        const auto row = [](const char* name, const Edit& change, const char* between, const char* after,
                             Error refused) {
            QTest::newRow(name) << change << QString::fromUtf8(between) << QString::fromUtf8(after) << refused;
        };
        row("the account", same, "DELETE FROM user_accounts WHERE trading_account = '100001'",
            "INSERT INTO user_accounts VALUES ('trader01', '100001', 0)", Error::UnknownAccount);
        row("the kind of account", same, "UPDATE accounts SET asset_property = 'credit'",
            "UPDATE accounts SET asset_property = '0'", Error::TypeNotOfAccount);
        row("the right to the instruction type", same,
            "DELETE FROM order_authorities WHERE trading_account = '100001' AND instruction_type = '1'",
            "INSERT INTO order_authorities VALUES ('trader01', '100001', '1')", Error::NoAuthority);
        row("the review", same, "UPDATE rule_properties SET property = 1", "UPDATE rule_properties SET property = 0",
            Error::ReviewRequired);
        row("the account at the exchange", same,
            "UPDATE exchange_accounts SET security_account = security_account || '!'",
            "UPDATE exchange_accounts SET security_account = replace(security_account, '!', '')",
            Error::ForeignSecurityAccount);
        row("the executor", reduction, "UPDATE chain_users SET user_name = '何人' WHERE user_name = '苏砚'",
            "UPDATE chain_users SET user_name = '苏砚' WHERE user_name = '何人'", Error::UnknownExecutor);
        row("the largest quantity", same, "UPDATE account_limits SET largest_quantity = 999",
            "UPDATE account_limits SET largest_quantity = 1000", Error::QuantityAboveLimit);
        row("the closing prices", formula, "UPDATE closing_prices SET last_day = '2034-05-06'",
            "UPDATE closing_prices SET last_day = '2024-04-30'", Error::NoUsablePrice);
    }

    void whatAnotherClientChangesBetweenTwoPlansIsSeenByTheSecond()
    {
        QFETCH(Edit, change);
        QFETCH(QString, between);
        QFETCH(QString, after);
        QFETCH(Error, refused);
        checkSeen(change(SampleSession::record()), between, after, refused);
    }

    void anExceptionFromTheLimitsThatEndsIsSeen()
    {
        changeElsewhere(QStringLiteral("UPDATE account_limits SET largest_quantity = 999"));
        changeElsewhere(QStringLiteral("INSERT INTO limit_exceptions (trading_account, largest_quantity, authorised_by,"
                                       " authorised_time, last_day, reason) VALUES ('100001', 1000, 'reviewer05',"
                                       " '2024-05-06T01:00:00.000Z', '2024-05-06', '')"));
        checkSeen(SampleSession::record(), QStringLiteral("UPDATE limit_exceptions SET last_day = '2024-05-05'"),
            QStringLiteral("UPDATE limit_exceptions SET last_day = '2024-05-06'"), Error::QuantityAboveLimit);
    }

    // A user of a server changes none of it.
    void whatThisClientChangesIsSeen()
    {
        Database& database = ClientSession::instance().database();
        if (!database.role().isEmpty())
            return;
        const Record record = SampleSession::record();
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(LimitStore(database).set(Account, { 999, {}, {} }), Status());
        QCOMPARE(errorOf(record), Error::QuantityAboveLimit);
    }

    void whatChangesWhileTheSessionIsClosedIsSeen()
    {
        const Record record = SampleSession::record();
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(errorOf(record), Error::None);
        ClientSession::instance().close();
        changeElsewhere(QStringLiteral("UPDATE account_limits SET largest_quantity = 999"));
        QCOMPARE(session().reopen(), Status());
        QCOMPARE(errorOf(record), Error::QuantityAboveLimit);
    }

    void plansOfOthersChangeNothing()
    {
        const Record record = SampleSession::record();
        QCOMPARE(errorOf(record), Error::None);
        changeElsewhere(QStringLiteral("UPDATE plans SET version = version + 1"));
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(storedPlans(), 2);
    }

    void whatIsKeptOfAnAccountIsNotUsedForAnother()
    {
        const Record record = SampleSession::record();
        QCOMPARE(errorOf(record), Error::None);
        QCOMPARE(errorOf(with(record, UserAccount::tradingAccount, QStringLiteral("100009"))), Error::UnknownAccount);
        QCOMPARE(errorOf(with(record, AutoPlanField::BaseField::expectedUser, QStringLiteral("何人"))),
            Error::UnknownAssignee);
        QCOMPARE(storedPlans(), 1);
    }

    void aRequestThatIsSentAgainIsAnsweredWithItsPlan()
    {
        const Record record = SampleSession::record();
        QCOMPARE(errorOf(record), Error::None);
        const QString request = PlanRequests::newId();
        const Result<QString> first = PlanSubmission::create(record, request);
        QCOMPARE(first.status(), Status());
        const Result<QString> again = PlanSubmission::create(record, request);
        QCOMPARE(again.status(), Status());
        QCOMPARE(*again, *first);
        QCOMPARE(storedPlans(), 2);
    }
};

QTEST_GUILESS_MAIN(KeptFactsTest)
#include "tst_kept_facts.moc"
