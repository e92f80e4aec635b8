#include "AutoPlanField.h"
#include "AutoPlanLogic.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "LimitStore.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SessionTest.h"
#include "TestStatus.h"

#include <QRegularExpression>
#include <QtTest>

#include <functional>

namespace BaseField = AutoPlanField::BaseField;
namespace UserAccount = Kelvo_Fields::UserAccount;
using namespace PlanCodes;
using Record = QMap<QString, QVariant>;
using Edit = std::function<Record(const Record&)>;

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(Error)

namespace {

const QString Account = QStringLiteral("100001");
const QString Executor = QStringLiteral("苏砚");
const QString Assignee = QStringLiteral("程澜");
const QString AssigneeId = QStringLiteral("reviewer05");

AutoPlanLogic& service()
{
    return AutoPlanLogic::instance();
}

/// A plan of a bond, whose price has no daily limit.
Record bond(const Record& record)
{
    const QString symbol = SampleSession::symbolOf(QStringLiteral("bond-corporate"), Kelvo_Values::SymbolPost::sh);
    return with(
        with(record, Orlo_Fields::AutoPlan::subType, InstructionType::Bond), Kelvo_Fields::Security::symbol, symbol);
}

InstructionStore::Fields instruction(
    const QString& state, const QString& targetType, const QString& issued, const QString& filled)
{
    const bool isAmount = targetType == InstructionTargetType::AmountOrder;
    return { { FieldId::EndState, state }, { FieldId::TargetType, targetType },
        { isAmount ? FieldId::IssuedAmount : FieldId::IssuedQty, issued },
        { isAmount ? Orlo_Fields::Security::cumAmount : FieldId::FilledQty, filled } };
}

/// Whether a reason is the sentence of an error, with any details.
bool isOf(const QString& reason, Error error)
{
    const QString sentence = QRegularExpression::escape(errorText(error));
    const QString anyDetails =
        QString(sentence).replace(QRegularExpression(QStringLiteral("\\\\%\\d")), QStringLiteral(".*"));
    return QRegularExpression(QRegularExpression::anchoredPattern(anyDetails)).match(reason).hasMatch();
}

QString errorOf(const Result<IssueResult>& issued)
{
    if (!issued)
        return errorText(issued.status());
    return issued->skipped.size() == 1 ? errorText(issued->skipped.constFirst().reason) : QString();
}

} // namespace

/// What the plan service refuses by itself, with rights, limits and prices as they are stored at that moment.
class PlanRulesTest : public SessionTest {
    Q_OBJECT

private:
    /// Runs statements on another connection, like another client.
    void changeElsewhere(const QStringList& statements)
    {
        Database other;
        QCOMPARE(other.open(session().ownersFile()), Status());
        for (const QString& statement : statements)
            QCOMPARE(other.execute(statement), Status());
    }
    void changeElsewhere(const QString& statement) { changeElsewhere(QStringList{ statement }); }

    static int storedPlans() { return PlanStore(ClientSession::instance().database()).count().valueOr(-1); }

private Q_SLOTS:
    void aNewPlanIsRefused_data()
    {
        QTest::addColumn<QString>("elsewhere");
        QTest::addColumn<Edit>("change");
        QTest::addColumn<Status>("refused");
        const auto row = [](const char* sentence, const QString& elsewhere, const Edit& change, const Status& refused) {
            QTest::newRow(sentence) << elsewhere << change << refused;
        };
        const auto same = [](const Record& record) { return record; };
        const auto field = [](const QString& key, const QString& value) {
            return [key, value](const Record& record) { return with(record, key, value); };
        };
        const auto formula = [](const QString& text) {
            return [text](const Record& record) { return customPrice(record, text); };
        };
        const QString none;
        const auto unknownCode = [](const QString& caption) {
            return Status(Error::UnknownCode, { caption, QString() });
        };

        // --- Rights
        row("the account was taken from the user", QStringLiteral("DELETE FROM user_accounts"), same,
            { Error::UnknownAccount, { Account } });
        row("the right to the instruction type was taken from the user",
            QStringLiteral("DELETE FROM order_authorities WHERE instruction_type = '1'"), same,
            { Error::NoAuthority, { Account } });
        row("the account became a credit account", QStringLiteral("UPDATE accounts SET asset_property = 'credit'"),
            same, { Error::TypeNotOfAccount, { Account, QStringLiteral("普通交易") } });
        row("a Hong Kong connect plan buys", none, field(Orlo_Fields::AutoPlan::subType, InstructionType::HkConnect),
            { Error::SideNotOfType, { QStringLiteral("港股通交易") } });
        row("the account came under review", QStringLiteral("UPDATE rule_properties SET property = 1"), same,
            { Error::ReviewRequired, { Account } });
        row("another user's name", none, field(UserAccount::userID, QStringLiteral("trader03")),
            { Error::ForeignCreator, { QStringLiteral("trader03") } });
        row("nobody's name", none, field(UserAccount::userID, none), { Error::ForeignCreator, { QString() } });

        // --- Executors and assignees
        row(
            "a reduction buys", none,
            [](const Record& record) {
                return with(reduction(record), BaseField::orderSide, Kelvo_Values::OrderSide::buy);
            },
            Error::ReductionBuys);
        row(
            "a reduction has no executor", none,
            [](const Record& record) { return with(reduction(record), BaseField::executeUser, QString()); },
            Error::NoExecutor);
        row(
            "the executor's name is empty", none,
            [](const Record& record) { return with(reduction(record), BaseField::executeUser, QLatin1String("")); },
            Error::NoExecutor);
        row("the executor may only review", none,
            [](const Record& record) { return with(reduction(record), BaseField::executeUser, Assignee); },
            { Error::UnknownExecutor, { Assignee } });
        row("the executor left", QStringLiteral("DELETE FROM chain_users WHERE user_name = '苏砚'"), reduction,
            { Error::UnknownExecutor, { Executor } });
        row("nobody knows the assignee", none, field(BaseField::expectedUser, QStringLiteral("何人")),
            { Error::UnknownAssignee, { QStringLiteral("何人") } });
        row("the assignee may only execute", none, field(BaseField::expectedUser, Executor),
            { Error::UnknownAssignee, { Executor } });

        // --- Codes
        row("an empty plan type", none, field(Orlo_Fields::AutoPlan::templateCode, QLatin1String("")),
            unknownCode(QStringLiteral("计划类型")));
        row("an empty instruction type", none, field(Orlo_Fields::AutoPlan::subType, QLatin1String("")),
            unknownCode(QStringLiteral("指令类型")));
        row("an empty side", none, field(BaseField::orderSide, QLatin1String("")),
            unknownCode(QStringLiteral("交易方向")));
        row("an empty price mode", none, field(BaseField::priceModel, QLatin1String("")),
            unknownCode(QStringLiteral("价格模式")));
        row(
            "an empty target type", none,
            [](const Record& record) {
                return SampleSession::withOther(record, { { FieldId::TargetType, QString() } });
            },
            unknownCode(QStringLiteral("指令单类型")));
        row(
            "an amount without its target type", none,
            [](const Record& record) {
                return SampleSession::withOther(record, { { BaseField::tradeAmount, QStringLiteral("100000.00") } });
            },
            Error::TargetTypeMissing);

        // --- Days and prices
        row("it begins before today", none, field(BaseField::beginDate, QStringLiteral("2024-04-30")),
            { Error::BeginInPast, { QStringLiteral("2024-04-30") } });
        row("a formula gives zero", none, formula(QStringLiteral("昨收价-昨收价")),
            { Error::NoUsablePrice, {}, Error::PriceNotPositive });
        row("a formula gives less than a tick", none, formula(QStringLiteral("0.001")),
            { Error::NoUsablePrice, {}, Error::PriceOutOfRange });
    }

    void aNewPlanIsRefused()
    {
        QFETCH(QString, elsewhere);
        QFETCH(Edit, change);
        QFETCH(Status, refused);
        const Record record = change(SampleSession::record());
        if (!elsewhere.isEmpty())
            changeElsewhere(elsewhere);
        QCOMPARE(service().CreateNewPlan(record), errorText(refused));
        QCOMPARE(storedPlans(), 0);
    }

    void aFormulaWithoutDataIsRefused()
    {
        const Record record = SampleSession::record();
        changeElsewhere(QStringLiteral("DELETE FROM closing_prices"));
        const Status noCloses(Error::NoCloses, { record.value(Kelvo_Fields::Security::symbol).toString() });
        QCOMPARE(service().CreateNewPlan(customPrice(record, QStringLiteral("昨收价"))),
            errorText({ Error::NoUsablePrice, {}, noCloses }));
    }

    void aPlanBeyondTheLimitsIsRefused_data()
    {
        QTest::addColumn<QString>("limits");
        QTest::addColumn<Edit>("change");
        QTest::addColumn<Error>("refused");
        const auto same = [](const Record& record) { return record; };
        const QString usual = QStringLiteral("UPDATE account_limits SET %1");
        const QString own = QStringLiteral("INSERT INTO account_limits (trading_account, %1) VALUES ('100001', %2)");
        const auto row = [](const char* sentence, const QString& limits, const Edit& change, Error refused) {
            QTest::newRow(sentence) << limits << change << refused;
        };
        row("as much as usual is allowed", usual.arg(QStringLiteral("largest_quantity = 1000")), same, Error::None);
        row("one share more", usual.arg(QStringLiteral("largest_quantity = 999")), same, Error::QuantityAboveLimit);
        row("more than the account's own limit", own.arg(QStringLiteral("largest_quantity"), QStringLiteral("999")),
            same, Error::QuantityAboveLimit);
        row("the account's own limit allows more",
            usual.arg(QStringLiteral("largest_quantity = 999")) + QLatin1Char(';')
                + own.arg(QStringLiteral("largest_quantity"), QStringLiteral("1000")),
            same, Error::None);
        row("another account's limit",
            QStringLiteral("INSERT INTO account_limits (trading_account, largest_quantity)"
                           " VALUES ('100002', 1)"),
            same, Error::None);
        row("the shares cost too much", usual.arg(QStringLiteral("largest_amount = 1000")), same,
            Error::AmountAboveLimit);
        row(
            "an amount is too large", usual.arg(QStringLiteral("largest_amount = 99999")),
            [](const Record& record) { return amountPlan(record); }, Error::AmountAboveLimit);
        row(
            "an amount just fits", usual.arg(QStringLiteral("largest_amount = 100000")),
            [](const Record& record) { return amountPlan(record); }, Error::None);
        row(
            "an amount buys too many shares", usual.arg(QStringLiteral("largest_quantity = 100")),
            [](const Record& record) { return amountPlan(record); }, Error::QuantityAboveLimit);
        row(
            "a reduction of all holdings sells too many", usual.arg(QStringLiteral("largest_quantity = 199999")),
            [](const Record& record) { return with(reduction(record), BaseField::totalQty, QStringLiteral("0")); },
            Error::QuantityAboveLimit);
        row(
            "a price beyond the band", usual.arg(QStringLiteral("price_band_per_mille = 20")),
            [](const Record& record) { return customPrice(bond(record), QStringLiteral("昨收价*1.03")); },
            Error::PriceOutsideBand);
        row(
            "a price below the band", usual.arg(QStringLiteral("price_band_per_mille = 20")),
            [](const Record& record) { return customPrice(bond(record), QStringLiteral("昨收价*0.97")); },
            Error::PriceOutsideBand);
        row(
            "a price within the band", usual.arg(QStringLiteral("price_band_per_mille = 20")),
            [](const Record& record) { return customPrice(bond(record), QStringLiteral("昨收价*1.02")); }, Error::None);
        row(
            "a price that nobody would pay", usual.arg(QStringLiteral("largest_quantity = 1000")),
            [](const Record& record) { return customPrice(bond(record), QStringLiteral("昨收价*10")); },
            Error::PriceOutsideBand);
        row("nobody set the usual limits", QStringLiteral("DELETE FROM account_limits"), same, Error::NoLimits);
    }

    void aPlanBeyondTheLimitsIsRefused()
    {
        QFETCH(QString, limits);
        QFETCH(Edit, change);
        QFETCH(Error, refused);
        const Record record = change(SampleSession::record());
        changeElsewhere(limits.split(QLatin1Char(';')));
        const QString reason = service().CreateNewPlan(record);
        QCOMPARE(storedPlans(), refused == Error::None ? 1 : 0);
        QVERIFY2(isOf(reason, refused), qPrintable(reason));
    }

    // Its displayed quantity is 2^64 and a little.
    void aTotalThatNoNumberOfUnitsCanCountIsRefused()
    {
        changeElsewhere({ QStringLiteral("UPDATE securities SET display_factor = 1000000") });
        QCOMPARE(session().reopen(), Status());
        const QString reason = service().CreateNewPlan(
            with(SampleSession::record(), BaseField::totalQty, QStringLiteral("18446744073710")));
        QVERIFY2(isOf(reason, Error::QuantityAboveLimit), qPrintable(reason));
        QCOMPARE(storedPlans(), 0);
    }

    void anExceptionThatAnotherUserAuthorisedWidensTheLimits()
    {
        Database owned;
        QCOMPARE(owned.open(session().ownersFile()), Status());
        LimitStore limits(owned);
        QCOMPARE(limits.set(Account, { 500, std::nullopt, std::nullopt }), Status());
        const QString refused =
            errorText({ Error::QuantityAboveLimit, { QStringLiteral("1000"), QStringLiteral("500") } });
        QCOMPARE(service().CreateNewPlan(SampleSession::record()), refused);
        LimitException exception{ Account, { 1000, std::nullopt, std::nullopt }, QStringLiteral("trader01"),
            QDateTime::currentDateTimeUtc(), SampleSession::today(), QStringLiteral("大宗买入") };
        QCOMPARE(limits.authorise(exception), Status());
        QCOMPARE(service().CreateNewPlan(SampleSession::record()), refused);
        exception.authorisedBy = QStringLiteral("trader03");
        exception.lastDay = SampleSession::today().addDays(-1);
        QCOMPARE(limits.authorise(exception), Status());
        QCOMPARE(service().CreateNewPlan(SampleSession::record()), refused);
        exception.lastDay = SampleSession::today();
        QCOMPARE(limits.authorise(exception), Status());
        QCOMPARE(service().CreateNewPlan(SampleSession::record()), QString());
        exception.authorisedBy = QStringLiteral("nobody");
        QVERIFY(!limits.authorise(exception));
        QCOMPARE(*owned.texts(QStringLiteral("SELECT authorised_by || ' ' || last_day || ' ' || reason"
                                             " FROM limit_exceptions ORDER BY number DESC LIMIT 1"),
                     {}),
            QStringList(QStringLiteral("trader03 2024-05-06 大宗买入")));
    }

    void aRightThatIsGivenCountsAtTheNextCall()
    {
        const Record record = with(with(SampleSession::record(), UserAccount::tradingAccount, QStringLiteral("100003")),
            UserAccount::securityAccount, Kelvo_Values::Exchange::sh + QStringLiteral("100003"));
        QCOMPARE(service().CreateNewPlan(record), errorText({ Error::UnknownAccount, { QStringLiteral("100003") } }));
        changeElsewhere({ QStringLiteral("INSERT INTO user_accounts VALUES ('trader01', '100003', 3)"),
            QStringLiteral("INSERT INTO order_authorities VALUES ('trader01', '100003', '1')") });
        QCOMPARE(service().CreateNewPlan(record), QString());
    }

    void aChangeIsRefused_data()
    {
        QTest::addColumn<QString>("elsewhere");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::addColumn<Status>("refused");
        const auto row = [](const char* sentence, const QString& elsewhere, const QString& key, const QString& value,
                             const Status& refused) {
            QTest::newRow(sentence) << elsewhere << key << value << refused;
        };
        const QString none;
        row("the account was taken from the user, to whom it is assigned",
            QStringLiteral("DELETE FROM user_accounts;UPDATE users SET name = '程澜' WHERE id = 'trader01'"), none,
            none, { Error::UnknownAccount, { Account } });
        row("the right was taken from the user", QStringLiteral("DELETE FROM order_authorities"), none, none,
            { Error::NoAuthority, { Account } });
        row("the account came under review", QStringLiteral("UPDATE rule_properties SET property = 1"), none, none,
            { Error::ReviewRequired, { Account } });
        row("the assignee left", QStringLiteral("DELETE FROM chain_users WHERE user_name = '程澜'"), none, none,
            { Error::UnknownAssignee, { Assignee } });
        row("the limits are less", QStringLiteral("UPDATE account_limits SET largest_quantity = 999"), none, none,
            { Error::QuantityAboveLimit, { QStringLiteral("1000"), QStringLiteral("999") } });
        row("another user's name", none, UserAccount::userID, QStringLiteral("trader03"),
            { Error::ForeignCreator, { QStringLiteral("trader03") } });
        row("it begins before today", none, BaseField::beginDate, QStringLiteral("2024-04-30"),
            { Error::BeginInPast, { QStringLiteral("2024-04-30") } });
        row("the total is below what is used", none, BaseField::totalQty, QStringLiteral("799"),
            { Error::TotalBelowUsed, { QStringLiteral("800") } });
        row("the total is what is used", none, BaseField::totalQty, QStringLiteral("800"), Status());
        row("nothing is wrong", none, none, none, Status());
    }

    void aChangeIsRefused()
    {
        QFETCH(QString, elsewhere);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QFETCH(Status, refused);
        Record record = with(SampleSession::record(), BaseField::beginDate, QStringLiteral("2024-05-07"));
        record.insert(BaseField::expectedUser, Assignee);
        const QString id = session().create(record);
        QVERIFY2(!id.isEmpty(), qPrintable(session().reason()));
        InstructionStore instructions = ClientSession::instance().instructions();
        const QString& byQuantity = InstructionTargetType::QtyOrder;
        QVERIFY(instructions.add(id, SampleSession::today(),
            instruction(EndState::Ended, byQuantity, QStringLiteral("600"), QStringLiteral("500")),
            ClientSession::instance().changeNow()));
        QVERIFY(instructions.add(id, SampleSession::today(),
            instruction(EndState::Running, byQuantity, QStringLiteral("300"), QStringLiteral("100")),
            ClientSession::instance().changeNow()));
        if (elsewhere.contains(QLatin1String("users"))) {
            changeElsewhere(elsewhere.split(QLatin1Char(';')).constLast());
            QCOMPARE(session().reopen(), Status());
            service().GetPlanInfo(id);
        }
        if (!elsewhere.isEmpty())
            changeElsewhere(elsewhere.split(QLatin1Char(';')));
        record.insert(BaseField::autoPlanId, id);
        QCOMPARE(service().modifyPlan(key.isEmpty() ? record : with(record, key, value)), errorText(refused));
    }

    void anAmountKeepsItsTargetTypeAndWhatIsUsed()
    {
        const Record record = amountPlan(SampleSession::record());
        const QString id = session().create(record);
        QVERIFY(ClientSession::instance().instructions().add(id, SampleSession::today(),
            instruction(EndState::Ended, InstructionTargetType::AmountOrder, QStringLiteral("9000.00"),
                QStringLiteral("7000.50")),
            ClientSession::instance().changeNow()));
        const auto change = [&id](const Record& changed) {
            return service().modifyPlan(with(changed, BaseField::autoPlanId, id));
        };
        QCOMPARE(change(amountPlan(record, QStringLiteral("7000.49"))),
            errorText({ Error::TotalBelowUsed, { QStringLiteral("7000.50") } }));
        QCOMPARE(change(amountPlan(record, QStringLiteral("7000.50"))), QString());
        const Record quantity = SampleSession::record();
        QCOMPARE(change(quantity), errorText({ Error::FieldNotChangeable, { QStringLiteral("指令单类型") } }));
        QCOMPARE(change(SampleSession::withOther(quantity, { { BaseField::tradeAmount, QStringLiteral("9000.00") } })),
            errorText(Error::TargetTypeMissing));
    }

    void aUserSeesThePlansOfHisAccountsAndThoseAssignedToHim_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QStringList>("seen");
        const QString assigned = QStringLiteral("AP00000001");
        const QString reduced = QStringLiteral("AP00000002");
        const QString plain = QStringLiteral("AP00000003");
        QTest::newRow("the owner of the account")
            << QStringLiteral("trader01") << QStringList{ plain, reduced, assigned };
        QTest::newRow("the assignee") << AssigneeId << QStringList{ assigned };
        QTest::newRow("the executor") << QStringLiteral("reviewer01") << QStringList{ reduced };
        QTest::newRow("another reviewer") << QStringLiteral("reviewer04") << QStringList();
        QTest::newRow("the owner of another account") << QStringLiteral("trader03") << QStringList();
    }

    void aUserSeesThePlansOfHisAccountsAndThoseAssignedToHim()
    {
        QFETCH(QString, user);
        QFETCH(QStringList, seen);
        const QStringList all{ session().create(with(SampleSession::record(), BaseField::expectedUser, Assignee)),
            session().create(reduction(SampleSession::record())), session().create(SampleSession::record()) };
        QVERIFY(!all.contains(QString()));
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued.size(), 3);
        QCOMPARE(session().reopen(user), Status());

        PlanStore plans = ClientSession::instance().plans();
        QCOMPARE(*plans.count(), seen.size());
        QStringList paged;
        const QVector<StoredPlan> page = *plans.page(0, 10);
        for (const StoredPlan& plan : page)
            paged << plan.id;
        QCOMPARE(paged, seen);
        for (const QString& id : all) {
            const bool isSeen = seen.contains(id);
            QCOMPARE(plans.plan(id)->id, isSeen ? id : QString());
            QCOMPARE(service().GetPlanInfo(id).isEmpty(), !isSeen);
            QCOMPARE(service().GetPlanInstruction(id).size(), isSeen ? 1 : 0);
            if (!isSeen)
                QCOMPARE(service().modifyPlan(with(SampleSession::record(), BaseField::autoPlanId, id)),
                    errorText({ Error::UnknownPlan, { id } }));
        }
    }

    void aUserIssuesThePlansThatHeSees()
    {
        const QString assigned = session().create(with(SampleSession::record(), BaseField::expectedUser, Assignee));
        QVERIFY(!session().create(SampleSession::record()).isEmpty());
        QCOMPARE(session().reopen(QStringLiteral("trader03")), Status());
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued.size(), 0);
        QCOMPARE(session().reopen(AssigneeId), Status());
        const auto issued = InstructionIssuer::issueDay(SampleSession::today());
        QCOMPARE(issued->issued.size(), 1);
        QVERIFY(issued->issued.constFirst().startsWith(assigned));
        QCOMPARE(session().reopen(), Status());
        QCOMPARE(InstructionIssuer::issueDay(SampleSession::today())->issued.size(), 1);
    }

    void anAccountThatIsGivenShowsItsPlansAtOnce()
    {
        const QString id = session().create(SampleSession::record());
        QCOMPARE(session().reopen(QStringLiteral("trader03")), Status());
        QCOMPARE(service().GetPlanInfo(id).isEmpty(), true);
        changeElsewhere(QStringLiteral("INSERT INTO user_accounts VALUES ('trader03', '100001', 1)"));
        QCOMPARE(service().GetPlanInfo(id).isEmpty(), false);
    }

    void aDaySkipsWhatIsNoLongerAllowed_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("elsewhere");
        QTest::addColumn<Status>("skipped");
        const QString owner = QStringLiteral("trader01");
        const auto row = [](const char* sentence, const QString& user, const QString& elsewhere,
                             const Status& skipped) { QTest::newRow(sentence) << user << elsewhere << skipped; };
        row("the right was taken from the user", owner, QStringLiteral("DELETE FROM order_authorities"),
            { Error::NoAuthority, { Account } });
        row("the right was taken from the user who assigned the plan", AssigneeId,
            QStringLiteral("DELETE FROM order_authorities"), { Error::NoAuthority, { Account } });
        row("the assignee left", AssigneeId, QStringLiteral("DELETE FROM chain_users WHERE role = 'forward'"),
            { Error::UnknownAssignee, { Assignee } });
        row("the account came under review", owner, QStringLiteral("UPDATE rule_properties SET property = 1"),
            { Error::ReviewRequired, { Account } });
        row("the limit is less than the share of the day", owner,
            QStringLiteral("UPDATE account_limits SET largest_quantity = 299"),
            { Error::QuantityAboveLimit, { QStringLiteral("300"), QStringLiteral("299") } });
        row("the share of the day is allowed", owner,
            QStringLiteral("UPDATE account_limits SET largest_quantity = 300"), Status());
    }

    void aDaySkipsWhatIsNoLongerAllowed()
    {
        QFETCH(QString, user);
        QFETCH(QString, elsewhere);
        QFETCH(Status, skipped);
        QVERIFY(!session().create(with(SampleSession::record(), BaseField::expectedUser, Assignee)).isEmpty());
        QCOMPARE(session().reopen(user), Status());
        changeElsewhere(elsewhere);
        const auto issued = InstructionIssuer::issueDay(SampleSession::today());
        QCOMPARE(errorOf(issued), errorText(skipped));
        QCOMPARE(issued->issued.size(), skipped ? 1 : 0);
    }
};

QTEST_GUILESS_MAIN(PlanRulesTest)
#include "tst_plan_rules.moc"
