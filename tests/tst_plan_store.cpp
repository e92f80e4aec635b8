#include "AccountStore.h"
#include "AgreementStore.h"
#include "AuthorityStore.h"
#include "Database.h"
#include "HistoryStore.h"
#include "InstructionStore.h"
#include "Kelvo_Fields.h"
#include "LoggedTest.h"
#include "StoredSample.h"
#include "TestDatabase.h"
#include "TestStatus.h"
#include "UserStore.h"

#include <QtTest>

#include <memory>

using namespace StoredSample;

Q_DECLARE_METATYPE(Error)

/// The stores on both kinds of databases.
class PlanStoreTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void anIdIsTakenOnlyAsItIsWritten_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<qint64>("number");
        QTest::newRow("the first plan") << QStringLiteral("AP00000001") << qint64(1);
        QTest::newRow("more than eight digits") << QStringLiteral("AP123456789") << qint64(123456789);
        QTest::newRow("too few zeros") << QStringLiteral("AP1") << qint64(0);
        QTest::newRow("lower case") << QStringLiteral("ap00000001") << qint64(0);
        QTest::newRow("a sign") << QStringLiteral("AP+0000001") << qint64(0);
        QTest::newRow("zero") << QStringLiteral("AP00000000") << qint64(0);
        QTest::newRow("too large") << QStringLiteral("AP99999999999999999999") << qint64(0);
        QTest::newRow("empty") << QString() << qint64(0);
    }

    void anIdIsTakenOnlyAsItIsWritten()
    {
        QFETCH(QString, id);
        QFETCH(qint64, number);
        QCOMPARE(PlanId::toNumber(id).value_or(0), number);
    }

    void aCreatedPlanReadsBackAsItWas()
    {
        PlanStore plans(*m_database);
        const auto created = plans.create(sampleRecord(), { QStringLiteral("trader01"), Morning });
        QCOMPARE(created.status(), Status());
        const StoredPlan plan = *plans.plan(*created);
        QCOMPARE(plan.id, *created);
        QCOMPARE(plan.version, 1);
        QCOMPARE(plan.creator, QStringLiteral("trader01"));
        QCOMPARE(plan.created, Morning);
        QCOMPARE(plan.changed, Morning);
        QCOMPARE(plan.record, sampleRecord());
        for (const QVariant& value : plan.record)
            QCOMPARE(value.userType(), int(QMetaType::QString));
    }

    void aPlanWithoutOtherParametersHasNoSuchKey()
    {
        PlanStore plans(*m_database);
        PlanStore::Record record = sampleRecord();
        record.remove(OtherParamKey);
        const QString id = *plans.create(record, AtMorning);
        QVERIFY(!plans.record(id)->contains(OtherParamKey));
        record.insert(OtherParamKey, QString());
        QCOMPARE(plans.modify(id, 1, record, AtNoon), Status());
        QVERIFY(plans.record(id)->contains(OtherParamKey));
    }

    void aRecordThatWouldComeBackChangedIsRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Status>("expected");
        const QString remark = AutoPlanField::BaseField::remark;
        const auto row = [&remark](const char* name, const QString& text, const Status& expected) {
            QTest::newRow(name) << remark << text << expected;
        };
        const Status refused(Error::FieldNotStorable, { remark });
        row("half a character at the end", QStringLiteral("a") + QChar(0xD83D), refused);
        row("half a character before others", QString(QChar(0xD83D)) + QStringLiteral("a"), refused);
        row("the second half alone", QString(QChar(0xDE00)), refused);
        row("U+FFFE", QStringLiteral("a") + QChar(0xFFFE), refused);
        row("U+FFFF", QStringLiteral("a") + QChar(0xFFFF), refused);
        row("a byte order mark at the beginning", QChar(0xFEFF) + QStringLiteral("a"), refused);
        row("a null character", QStringLiteral("a") + QChar(0) + QStringLiteral("b"), refused);
        row("a byte order mark inside", QStringLiteral("a") + QChar(0xFEFF), Status());
        row("a character of two halves", QString::fromUtf8("\xF0\x9F\x98\x80"), Status());
        row("quotation marks and backslashes", QStringLiteral("\"a\\\"\\"), Status());
        row("control characters", QStringLiteral("\t\n\x01"), Status());
        row("the longest text", QString(4000, QLatin1Char('x')), Status());
        row("a longer text", QString(4001, QLatin1Char('x')),
            { Error::FieldTooLong, { remark, QStringLiteral("4000") } });
        QTest::newRow("other parameters that are too long")
            << OtherParamKey << QString((1 << 20) + 1, QLatin1Char('x'))
            << Status(Error::FieldTooLong, { OtherParamKey, QStringLiteral("1048576") });
        QTest::newRow("an unknown field") << QStringLiteral("colour") << QStringLiteral("red")
                                          << Status(Error::FieldUnknown, { QStringLiteral("colour") });
    }

    void aRecordThatWouldComeBackChangedIsRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(Status, expected);
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        PlanStore::Record record = sampleRecord();
        record.insert(field, text);
        QCOMPARE(plans.create(record, AtMorning).status(), expected);
        QCOMPARE(plans.modify(id, 1, record, AtNoon), expected);
        QCOMPARE(*plans.record(id), expected ? record : sampleRecord());
        QCOMPARE(*plans.count(), expected ? 2 : 1);
    }

    void anEmptyRecordIsRefused()
    {
        PlanStore plans(*m_database);
        QCOMPARE(plans.create({}, AtMorning).status(), Status(Error::EmptyPlan));
        QCOMPARE(*plans.count(), 0);
    }

    void aModifiedPlanCountsItsVersionUp()
    {
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        const PlanStore::Record changed{ { QStringLiteral("symbol"), QStringLiteral("000001.SZ") } };
        QCOMPARE(plans.modify(id, 1, changed, AtNoon), Status());
        const StoredPlan plan = *plans.plan(id);
        QCOMPARE(plan.version, 2);
        QCOMPARE(plan.record, changed);
        QCOMPARE(plan.created, Morning);
        QCOMPARE(plan.changed, Noon);
    }

    void aCompletedPlanIsNotAnUnendedOne()
    {
        PlanStore plans(*m_database);
        PlanStore::Record record = sampleRecord();
        record.insert(Kelvo_Fields::UserAccount::tradingAccount, QStringLiteral("100001"));
        record.insert(AutoPlanField::BaseField::endDate, QStringLiteral("2024-05-10"));
        addAccount(QStringLiteral("100001"), QStringLiteral("C1"));
        const QString completed = *plans.create(record, AtMorning);
        const QString running = *plans.create(record, AtMorning);
        const auto unended = [&plans] {
            QStringList ids;
            const auto found =
                *plans.unended(QStringLiteral("100001"), QStringLiteral("600000.SH"), QDate(2024, 5, 7), 10);
            for (const StoredPlan& plan : found)
                ids << plan.id;
            return ids;
        };
        QCOMPARE(unended(), (QStringList{ running, completed }));
        QCOMPARE(plans.complete(*plans.plan(completed), QDate(2024, 5, 6), AtNoon), Status());
        QCOMPARE(unended(), QStringList(running));
    }

    void pagesShowTheNewestPlansFirst()
    {
        PlanStore plans(*m_database);
        for (int i = 0; i < 5; ++i)
            QVERIFY(plans.create(sampleRecord(), AtMorning));
        QCOMPARE(*plans.count(), 5);
        const QVector<StoredPlan> page = *plans.page(1, 2);
        QCOMPARE(page.size(), 2);
        QCOMPARE(page.at(0).id, QStringLiteral("AP00000004"));
        QCOMPARE(page.at(1).id, QStringLiteral("AP00000003"));
        QCOMPARE(page.at(0).record, sampleRecord());
        QCOMPARE(plans.page(4, 10)->size(), 1);
        QCOMPARE(plans.page(5, 10)->size(), 0);
        QCOMPARE(plans.page(-1, 10)->size(), 0);
        QCOMPARE(plans.page(0, 0)->size(), 0);
    }

    void plansOfAPeriodIncludeItsFirstAndLastDay()
    {
        PlanStore plans(*m_database);
        const PlanStore::Record period{ { AutoPlanField::BaseField::beginDate, QStringLiteral("2024-05-06") },
            { AutoPlanField::BaseField::endDate, QStringLiteral("2024-05-08") } };
        const QString id = *plans.create(period, AtMorning);
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 5))->due, QStringList());
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 6))->due, QStringList{ id });
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 8))->due, QStringList{ id });
        QCOMPARE(plans.plansOfDay(QDate(2024, 5, 9))->due, QStringList());
    }

    void onlyActivePlansAreThoseOfADay()
    {
        PlanStore plans(*m_database);
        const PlanStore::Record period{ { AutoPlanField::BaseField::beginDate, QStringLiteral("2024-05-06") },
            { AutoPlanField::BaseField::endDate, QStringLiteral("2024-05-08") } };
        const QString id = *plans.create(period, AtMorning);
        const QVector<QPair<QString, PlanState>> others{ { QStringLiteral("paused"), PlanState::Paused },
            { QStringLiteral("stopped"), PlanState::Stopped }, { QStringLiteral("archived"), PlanState::Archived } };
        QCOMPARE(plans.plan(id)->state, PlanState::Active);
        for (const auto& other : others) {
            QCOMPARE(m_database->execute(
                         QStringLiteral("UPDATE plans SET state = ?, version = version + 1"), { other.first }),
                Status());
            QCOMPARE(plans.plan(id)->state, other.second);
            QCOMPARE(plans.plansOfDay(QDate(2024, 5, 6))->due, QStringList());
            QCOMPARE(*plans.count(), 1);
        }
    }

    void timesAreStoredInUtc()
    {
        PlanStore plans(*m_database);
        const QString id = *plans.create(sampleRecord(), AtMorning);
        QCOMPARE(m_database->value(QStringLiteral("SELECT created_time FROM plans"))->toString(),
            QStringLiteral("2024-05-06T01:30:00.125Z"));
        QCOMPARE(plans.plan(id)->created, Morning);
        QCOMPARE(plans.plan(id)->created.timeSpec(), Qt::LocalTime);
    }

    void anInstructionIsStoredAsNumbersAndReadsBackAsItWas()
    {
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        const InstructionStore::Fields fields{ { QStringLiteral("12013"), QStringLiteral("0") },
            { QStringLiteral("57134"), QStringLiteral("Q") }, { QStringLiteral("44"), QStringLiteral("0.070") },
            { QStringLiteral("38"), QStringLiteral("1000") }, { QStringLiteral("14"), QStringLiteral("0") },
            { QStringLiteral("217201"), QStringLiteral("70.00") },
            { QStringLiteral("cumAmount"), QStringLiteral("0.05") } };
        const QString id = *instructions.add(plan, QDate(2024, 5, 6), fields, AtMorning);
        InstructionStore::Fields expected = fields;
        expected.insert(QStringLiteral("75"), QStringLiteral("2024-05-06"));
        QCOMPARE(instructions.ofPlan(plan)->value(id), expected);
        QCOMPARE(m_database
                     ->value(QStringLiteral("SELECT price_ticks || ' ' || price_decimals || ' ' ||"
                                            " issued_quantity || ' ' || issued_fen || ' ' || filled_fen"
                                            " FROM instructions"))
                     ->toString(),
            QStringLiteral("70 3 1000 7000 5"));
        QCOMPARE(instructions.used({ plan }, QDate(2024, 5, 6))->value(plan).quantity, 1000.0);
        QCOMPARE(instructions.used({ plan }, QDate(2024, 5, 6))->value(plan).yuan, 70.0);
    }

    void anInstructionThatWouldComeBackChangedIsRefused_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Error>("error");
        const auto row = [](const char* name, const char* field, const char* text, Error error) {
            QTest::newRow(name) << QString::fromLatin1(field) << QString::fromLatin1(text) << error;
        };
        row("a quantity with a leading zero", "38", "0100", Error::NotNumber);
        row("a quantity with a point", "14", "100.0", Error::NotNumber);
        row("a negative quantity", "14", "-1", Error::NotNumber);
        row("no quantity", "38", "", Error::NotNumber);
        row("an amount with one decimal", "217201", "0.5", Error::NotNumber);
        row("an amount without an integer part", "cumAmount", ".50", Error::NotNumber);
        row("a price with an exponent", "44", "1e3", Error::NotNumber);
        row("a price with seven decimals", "44", "1.0000000", Error::NotNumber);
        row("a price that is too large", "44", "9223372036854775808", Error::NotNumber);
        row("a state that there is not", "12013", "2", Error::DatabaseFailed);
        row("an unknown field", "99", "1", Error::FieldUnknown);
        row("the day, which is given separately", "75", "2024-05-06", Error::FieldUnknown);
    }

    void anInstructionThatWouldComeBackChangedIsRefused()
    {
        QFETCH(QString, field);
        QFETCH(QString, text);
        QFETCH(Error, error);
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        const QString id = *instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning);
        QCOMPARE(instructions.add(plan, QDate(2024, 5, 6), { { field, text } }, AtMorning).status().error(), error);
        QCOMPARE(instructions.update(plan, id, { { field, text } }, AtNoon).error(), error);
        QCOMPARE(instructions.ofPlan(plan)->size(), 1);
        QCOMPARE(instructions.ofPlan(plan)->value(id).size(), 1);
    }

    void anOtherParameterTextOfAMegabyteReadsBack()
    {
        PlanStore plans(*m_database);
        PlanStore::Record record = sampleRecord();
        record.insert(OtherParamKey, QString(1 << 20, QChar(u'数')));
        const QString id = *plans.create(record, AtMorning);
        QCOMPARE(*plans.record(id), record);
    }

    void instructionsBelongToTheirPlanAndDay()
    {
        PlanStore plans(*m_database);
        InstructionStore instructions(*m_database);
        const QString plan = *plans.create(sampleRecord(), AtMorning);
        const QString other = *plans.create(sampleRecord(), AtMorning);
        const InstructionStore::Fields fields{ { QStringLiteral("14"), QStringLiteral("0") },
            { QStringLiteral("38"), QStringLiteral("500") } };
        const QString first = *instructions.add(plan, QDate(2024, 5, 6), fields, AtMorning);
        const QString second = *instructions.add(plan, QDate(2024, 5, 7), fields, AtMorning);
        QVERIFY(first < second);
        QCOMPARE(
            instructions.update(plan, first, { { QStringLiteral("14"), QStringLiteral("300") } }, AtNoon), Status());

        const auto all = *instructions.ofPlan(plan);
        QCOMPARE(all.keys(), QStringList({ first, second }));
        QCOMPARE(all.value(first).value(QStringLiteral("14")).toString(), QStringLiteral("300"));
        QCOMPARE(all.value(first).value(QStringLiteral("38")).toString(), QStringLiteral("500"));
        InstructionStore::Fields expected = fields;
        expected.insert(QStringLiteral("75"), QStringLiteral("2024-05-07"));
        QCOMPARE(all.value(second), expected);
        QCOMPARE(instructions.ofDay(plan, QDate(2024, 5, 7))->keys(), QStringList{ second });
        QCOMPARE(instructions.ofPlan(other)->size(), 0);
    }

    void anInstructionOfAnUnknownPlanIsRefused()
    {
        InstructionStore instructions(*m_database);
        const QString plan = QStringLiteral("AP00000001");
        QCOMPARE(
            instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning).status(), Status(Error::UnknownPlan, { plan }));
        QCOMPARE(instructions.update(plan, QStringLiteral("x"), {}, AtNoon),
            Status(Error::UnknownInstruction, { QStringLiteral("x") }));
        QCOMPARE(instructions.ofPlan(plan)->size(), 0);
    }

    void aMissingInstructionLeavesAGapInTheIds()
    {
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        for (int i = 0; i < 3; ++i)
            QVERIFY(instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning));
        QCOMPARE(m_database->execute(QStringLiteral("DELETE FROM instructions WHERE position = 2")), Status());
        QCOMPARE(*instructions.add(plan, QDate(2024, 5, 7), {}, AtMorning), QStringLiteral("AP00000001-000004"));
    }

    void afterTheLastPlaceThereIsNoInstruction()
    {
        const QString plan = *PlanStore(*m_database).create(sampleRecord(), AtMorning);
        InstructionStore instructions(*m_database);
        QVERIFY(instructions.add(plan, QDate(2024, 5, 6), {}, AtMorning));
        QCOMPARE(m_database->execute(QStringLiteral("UPDATE instructions SET position = 2147483647")), Status());
        QCOMPARE(instructions.add(plan, QDate(2024, 5, 7), {}, AtMorning).status(), Status(Error::NumbersExhausted));
    }

    void aReasonThatWouldComeBackChangedIsRefused()
    {
        PlanStore plans(*m_database);
        const QString plan = *plans.create(sampleRecord(), AtMorning);
        const QString reason = QStringLiteral("a") + QChar(0xFFFE);
        QCOMPARE(plans.setState(plan, 1, PlanState::Stopped, reason, AtNoon),
            Status(Error::FieldNotStorable, { QStringLiteral("reason") }));
        QCOMPARE(plans.plan(plan)->state, PlanState::Active);
    }

    // Each change asks with a request id that was used, which the history refuses.
    void whatIsNotInTheHistoryIsNotStored()
    {
        const QString protocol = QStringLiteral("reduce");
        const QDate day(2024, 5, 6);
        const Change repeated{ QStringLiteral("u"), Noon, QStringLiteral("used") };
        PlanStore plans(*m_database);
        InstructionStore instructions(*m_database);
        AgreementStore agreements(*m_database);
        QCOMPARE(agreements.add({ protocol, QStringLiteral("标题"), QStringLiteral("正文") }), Status());
        const QString id = *plans.create(sampleRecord(), repeated);
        const QString instruction = *instructions.add(id, day, {}, AtMorning);
        PlanStore::Record changed = sampleRecord();
        changed.insert(AutoPlanField::BaseField::remark, QStringLiteral("x"));

        QVERIFY(!plans.create(sampleRecord(), repeated));
        QVERIFY(!plans.modify(id, 1, changed, repeated));
        QVERIFY(!plans.setState(id, 1, PlanState::Paused, QString(), repeated));
        QVERIFY(!plans.complete(*plans.plan(id), day, repeated));
        QVERIFY(!instructions.add(id, day, {}, repeated));
        QVERIFY(!instructions.update(id, instruction, { { QStringLiteral("38"), QStringLiteral("1") } }, repeated));
        QVERIFY(!agreements.sign(protocol, QStringLiteral("C1"), repeated));

        QCOMPARE(*plans.count(), 1);
        const StoredPlan stored = *plans.plan(id);
        QCOMPARE(stored.version, 1);
        QCOMPARE(stored.record, sampleRecord());
        QCOMPARE(stored.state, PlanState::Active);
        QVERIFY(!stored.completed.isValid());
        QCOMPARE(instructions.ofPlan(id)->keys(), QStringList{ instruction });
        QVERIFY(!instructions.ofPlan(id)->value(instruction).contains(QStringLiteral("38")));
        QVERIFY(!agreements.signedTime(protocol, QStringLiteral("C1"))->isValid());
        QCOMPARE(HistoryStore(*m_database).ofPlan(1)->size(), 2);
    }

    void accountsComeInTheOrderInWhichTheyWereGiven()
    {
        UserStore users(*m_database);
        QCOMPARE(users.add({ QStringLiteral("u1"), QStringLiteral("林岫") }), Status());
        addAccount(QStringLiteral("2"), QStringLiteral("C2"));
        addAccount(QStringLiteral("1"), QStringLiteral("C1"));
        AccountStore accounts(*m_database);
        QCOMPARE(accounts.assign(QStringLiteral("u1"), QStringLiteral("2")), Status());
        QCOMPARE(accounts.assign(QStringLiteral("u1"), QStringLiteral("1")), Status());
        QVERIFY(!accounts.assign(QStringLiteral("nobody"), QStringLiteral("1")));

        const QVector<StoredAccount> mine = *accounts.accountsOf(QStringLiteral("u1"));
        QCOMPARE(mine.size(), 2);
        QCOMPARE(mine.at(0).tradingAccount, QStringLiteral("2"));
        QCOMPARE(mine.at(1).tradingAccount, QStringLiteral("1"));
        QCOMPARE(mine.at(0).exchangeAccounts.value(QStringLiteral("XSHG")), QStringLiteral("A1"));
        QCOMPARE(accounts.account(QStringLiteral("1"))->clientNo, QStringLiteral("C1"));
        QCOMPARE(accounts.account(QStringLiteral("9"))->tradingAccount, QString());
        QCOMPARE(users.user(QStringLiteral("u1"))->name, QStringLiteral("林岫"));
        QCOMPARE(users.user(QStringLiteral("u2"))->id, QString());
        QCOMPARE(users.users()->size(), 4);
    }

    void authoritiesAndRulesAreKeptPerUserAccountAndType()
    {
        const QString user = QStringLiteral("u1");
        const QString account = QStringLiteral("1");
        QVERIFY(UserStore(*m_database).add({ user, user }));
        addAccount(account, QStringLiteral("C1"));
        AuthorityStore authorities(*m_database);
        QCOMPARE(authorities.grant(user, account, QStringLiteral("5")), Status());
        QVERIFY(authorities.rights(user, account, QStringLiteral("5"))->authority);
        QVERIFY(!authorities.rights(user, account, QStringLiteral("1"))->authority);
        QVERIFY(!authorities.rights(QStringLiteral("u2"), account, QStringLiteral("5"))->authority);
        QCOMPARE(authorities.rights(user, account, QStringLiteral("5"))->ruleProperty, 0);
        QCOMPARE(authorities.setRuleProperty(user, account, QStringLiteral("5"), 1), Status());
        QCOMPARE(authorities.rights(user, account, QStringLiteral("5"))->ruleProperty, 1);
        QCOMPARE(authorities.rights(user, account, QStringLiteral("1"))->ruleProperty, 0);
    }

    void aChainKeepsItsOrderAndItsDuplicates()
    {
        const QString key = QStringLiteral("K");
        const QStringList names{ QStringLiteral("乙"), QStringLiteral("甲"), QStringLiteral("乙") };
        addAccount(QStringLiteral("1"), QStringLiteral("C1"));
        AuthorityStore chains(*m_database);
        QCOMPARE(chains.addChain(QStringLiteral("1"), QStringLiteral("5"), key), Status());
        QCOMPARE(chains.addChainUsers(key, ChainRole::Forward, names), Status());
        QCOMPARE(chains.rights(QString(), QStringLiteral("1"), QStringLiteral("5"))->chainKey, key);
        QCOMPARE(chains.rights(QString(), QStringLiteral("1"), QStringLiteral("1"))->chainKey, QString());
        QCOMPARE(*chains.chainUsers(key, ChainRole::Forward), names);
        QCOMPARE(*chains.chainUsers(key, ChainRole::Execute), QStringList());
        QVERIFY(!chains.addChainUsers(QStringLiteral("other"), ChainRole::Execute, names));
    }

    void aSignatureIsKeptWithTimeAndUser()
    {
        const QString protocol = QStringLiteral("reduce");
        QVERIFY(UserStore(*m_database).add({ QStringLiteral("u1"), QStringLiteral("u1") }));
        addAccount(QStringLiteral("1"), QStringLiteral("C1"));
        addAccount(QStringLiteral("2"), QStringLiteral("C2"));
        for (const QString& account : { QStringLiteral("1"), QStringLiteral("2") })
            QVERIFY(AccountStore(*m_database).assign(QStringLiteral("u1"), account));
        AgreementStore agreements(*m_database);
        QCOMPARE(agreements.add({ protocol, QStringLiteral("标题"), QStringLiteral("正文") }), Status());
        QCOMPARE(agreements.agreement(protocol)->content, QStringLiteral("正文"));
        QCOMPARE(*agreements.unsignedClientNumbers(protocol, QStringLiteral("u1")),
            QStringList({ QStringLiteral("C1"), QStringLiteral("C2") }));

        QCOMPARE(agreements.sign(protocol, QStringLiteral("C1"), { QStringLiteral("u1"), Morning }), Status());
        QCOMPARE(agreements.sign(protocol, QStringLiteral("C1"), { QStringLiteral("u1"), Noon }), Status());
        QCOMPARE(*agreements.signedTime(protocol, QStringLiteral("C1")), Morning);
        QVERIFY(!agreements.signedTime(protocol, QStringLiteral("C2"))->isValid());
        QCOMPARE(
            *agreements.unsignedClientNumbers(protocol, QStringLiteral("u1")), QStringList{ QStringLiteral("C2") });
        QVERIFY(!agreements.sign(QStringLiteral("unknown"), QStringLiteral("C1"), AtNoon));
    }

private:
    void prepare() override
    {
        m_stored = std::make_unique<TestDatabase>();
        m_database = std::make_unique<Database>();
        QCOMPARE(m_database->open(m_stored->ownersLocation()), Status());
        for (const QString& statement : parents())
            QCOMPARE(m_database->execute(statement), Status());
    }

    void tidyUp() override
    {
        m_database.reset();
        m_stored.reset();
    }

    void addAccount(const QString& number, const QString& clientNo)
    {
        const StoredAccount account{ number, QStringLiteral("F") + number, QStringLiteral("账户"), clientNo,
            AccountAsset::Ordinary, QStringLiteral("B001"), { { QStringLiteral("XSHG"), QStringLiteral("A1") } } };
        QCOMPARE(AccountStore(*m_database).add(account), Status());
    }

    std::unique_ptr<TestDatabase> m_stored;
    std::unique_ptr<Database> m_database;
};

QTEST_GUILESS_MAIN(PlanStoreTest)
#include "tst_plan_store.moc"
