// The effect of fills on positions and cash, for every way to write an instruction.
#include "AutoPlanField.h"
#include "CashStore.h"
#include "ClientSession.h"
#include "ErrorText.h"
#include "InstructionIssuer.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PlanFacts.h"
#include "PositionStore.h"
#include "SessionTest.h"
#include "TickPrice.h"

#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;

namespace {

using Record = QMap<QString, QVariant>;

const QDate Monday = SampleSession::today();
const QDate Tuesday = Monday.addDays(1);
const QString Account = QStringLiteral("100001");

Record purchase(const QString& total)
{
    return with(SampleSession::withOther(
                    SampleSession::record(), { { AutoPlanField::Progress::CurrentQty, QStringLiteral("0") } }),
        BaseField::totalQty, total);
}

Record sale(const QString& total)
{
    return with(purchase(total), BaseField::orderSide, Kelvo_Values::OrderSide::sell);
}

/// Of which half of the lots are filled at once, or none.
Record halfFilled(const Record& record)
{
    return customPrice(record, QStringLiteral("昨收价*1.005"));
}

Record unfilled(const Record& record)
{
    return customPrice(record, QStringLiteral("昨收价*1.05"));
}

InstructionStore::Fields filled(qint64 quantity, const QString& ended = EndState::Ended)
{
    return { { FieldId::FilledQty, QString::number(quantity) }, { FieldId::EndState, ended } };
}

} // namespace

class FillsTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    // --- Positions

    void whatIsBoughtIsSellableOnTheNextDay()
    {
        setPosition(500, 300);
        issue(purchase(QStringLiteral("1000")), Monday);
        QCOMPARE(held(), 1500LL);
        QCOMPARE(sellable(Monday), 300LL);
        QCOMPARE(sellable(Tuesday), 1300LL);
        issue(purchase(QStringLiteral("200")), Tuesday);
        QCOMPARE(sellable(Tuesday), 1300LL);
        QCOMPARE(sellable(Tuesday.addDays(1)), 1500LL);
    }

    void aFirstPurchaseMakesAPosition()
    {
        owner("DELETE FROM positions WHERE symbol = ?", { symbol() });
        issue(purchase(QStringLiteral("1000")), Monday);
        QCOMPARE(held(), 1000LL);
        QCOMPARE(sellable(Monday), 0LL);
        QCOMPARE(sellable(Tuesday), 1000LL);
    }

    void anOpenSaleReservesUntilItsDayEnds()
    {
        setPosition(1000, 1000);
        const QString instruction = issue(halfFilled(sale(QStringLiteral("600"))), Monday);
        QCOMPARE(instructionOf(instruction).value(FieldId::FilledQty).toString(), QStringLiteral("300"));
        QCOMPARE(held(), 700LL);
        QCOMPARE(sellable(Monday), 400LL);
        QCOMPARE(sellable(Tuesday), 700LL);
    }

    void nothingIsSoldTwice()
    {
        setPosition(500, 500);
        issue(unfilled(sale(QStringLiteral("300"))), Monday);
        QCOMPARE(sellable(Monday), 200LL);
        const QString second = issue(sale(QStringLiteral("500")), Monday);
        QCOMPARE(instructionOf(second).value(FieldId::IssuedQty).toString(), QStringLiteral("200"));
        session().create(sale(QStringLiteral("100")));
        QCOMPARE(InstructionIssuer::issueDay(Monday)->skipped.at(0).reason, Status(Error::NothingToSell));
        QCOMPARE(held(), 300LL);
    }

    void thePreviewCountsWhatIsReserved()
    {
        setPosition(500, 500);
        issue(unfilled(sale(QStringLiteral("300"))), Monday);
        const QString plan = session().create(sale(QStringLiteral("500")));
        DayIssue day(ClientSession::instance().database(), InstructionIssuer::scene(Monday));
        QCOMPARE(day.preview({ plan }, [](int) { return true; })->at(0).order.quantity, 200LL);
    }

    void aFillLargerThanWhatMayBeSoldIsRefused()
    {
        setPosition(1000, 500);
        const QString instruction = issue(unfilled(sale(QStringLiteral("500"))), Monday);
        setPosition(1000, 400);
        const auto entries = count("history");
        const Status refused = fill(instruction, filled(450));
        QCOMPARE(errorText(refused), QStringLiteral("卖出的数量超过可卖数量，没有保存"));
        QCOMPARE(count("history"), entries);
        QCOMPARE(held(), 1000LL);
        QCOMPARE(instructionOf(instruction).value(FieldId::FilledQty).toString(), QStringLiteral("0"));
        QCOMPARE(fill(instruction, filled(400)), Status());
        QCOMPARE(held(), 600LL);
        QCOMPARE(sellable(Monday), 0LL);
    }

    void aFillLargerThanTheInstructionIsRefused()
    {
        setPosition(0, 0);
        const QString instruction = issue(purchase(QStringLiteral("500")), Monday);
        QCOMPARE(fill(instruction, filled(0)), Status());
        const auto entries = count("history");
        QCOMPARE(fill(instruction, filled(501)), Status(Error::MoreThanIssued));
        QVERIFY(!fill(instruction, filled(-1)));
        QCOMPARE(count("history"), entries);
        QCOMPARE(held(), 0LL);
        QCOMPARE(fill(instruction, filled(500)), Status());
        QCOMPARE(held(), 500LL);
        const QString plan = session().create(purchase(QStringLiteral("100")));
        InstructionStore instructions = ClientSession::instance().instructions();
        const InstructionStore::Fields minted{ { FieldId::FilledQty, QStringLiteral("1") } };
        QCOMPARE(instructions.add(plan, Monday, minted, now()).status(), Status(Error::MoreThanIssued));
        // What an owner writes follows the same rule.
        Database owner;
        QCOMPARE(owner.open(session().ownersFile()), Status());
        QCOMPARE(owner.execute(QStringLiteral("UPDATE instructions SET issued_quantity = 499")),
            Status(Error::MoreThanIssued));
        QCOMPARE(held(), 500LL);
    }

    void moreThanMayBeSoldIsNotIssuedByOtherPrograms()
    {
        setPosition(300, 300);
        const QString plan = session().create(sale(QStringLiteral("1000")));
        InstructionStore instructions = ClientSession::instance().instructions();
        const InstructionStore::Fields fields{ { FieldId::IssuedQty, QStringLiteral("301") } };
        QCOMPARE(instructions.add(plan, Monday, fields, now()).status(), Status(Error::MoreThanSellable));
        QVERIFY(instructions.ofPlan(plan)->isEmpty());
        QVERIFY(instructions.add(plan, Monday, { { FieldId::IssuedQty, QStringLiteral("300") } }, now()));
        QCOMPARE(sellable(Monday), 0LL);
    }

    void aCorrectedFillIsTakenBack()
    {
        setPosition(1000, 1000);
        const QString sold = issue(sale(QStringLiteral("600")), Monday);
        QCOMPARE(held(), 400LL);
        QCOMPARE(fill(sold, filled(200)), Status());
        QCOMPARE(held(), 800LL);
        QCOMPARE(sellable(Monday), 800LL);
        const QString bought = issue(purchase(QStringLiteral("500")), Monday);
        QCOMPARE(sellable(Tuesday), 1300LL);
        QCOMPARE(fill(bought, filled(100)), Status());
        QCOMPARE(held(), 900LL);
        QCOMPARE(sellable(Tuesday), 900LL);
    }

    void aDeletedInstructionIsTakenBack()
    {
        setPosition(1000, 1000);
        issue(halfFilled(sale(QStringLiteral("600"))), Monday);
        issue(purchase(QStringLiteral("500")), Monday);
        owner("DELETE FROM instructions", {});
        QCOMPARE(held(), 1000LL);
        QCOMPARE(sellable(Monday), 1000LL);
        QCOMPARE(sellable(Tuesday), 1000LL);
    }

    void aPurchaseThatWasSoldAgainIsNotTakenBack()
    {
        setPosition(0, 0);
        const QString bought = issue(purchase(QStringLiteral("500")), Monday);
        issue(sale(QStringLiteral("400")), Tuesday);
        QCOMPARE(sellable(Tuesday), 100LL);
        QCOMPARE(fill(bought, filled(399)), Status(Error::MoreThanSellable));
        QCOMPARE(fill(bought, filled(400)), Status());
        QCOMPARE(held(), 0LL);
    }

    void aFillOfAnEarlierDayCounts()
    {
        setPosition(1000, 1000);
        const QString sold = issue(unfilled(sale(QStringLiteral("600"))), Monday);
        const QString later = issue(unfilled(sale(QStringLiteral("1000"))), Tuesday);
        QCOMPARE(instructionOf(later).value(FieldId::IssuedQty).toString(), QStringLiteral("1000"));
        QCOMPARE(sellable(Tuesday), 0LL);
        QCOMPARE(fill(sold, filled(100)), Status(Error::MoreThanSellable));
        QCOMPARE(fill(later, filled(0)), Status());
        QCOMPARE(fill(sold, filled(100)), Status());
        QCOMPARE(held(), 900LL);
        QCOMPARE(sellable(Tuesday), 900LL);
    }

    void positionsAreInStoredUnits()
    {
        const QString bond = SampleSession::symbolOf(
            Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.constFirst(), Kelvo_Values::SymbolPost::sh);
        QCOMPARE(ClientSession::instance().market().find(bond)->displayFactor, 10);
        const Record record = with(sale(QStringLiteral("100")), Kelvo_Fields::Security::symbol, bond);
        const QString plan = *ClientSession::instance().plans().create(record, now());
        const qint64 before = held(bond);
        const InstructionStore::Fields fields{ { FieldId::IssuedQty, QStringLiteral("100") },
            { FieldId::FilledQty, QStringLiteral("60") } };
        QVERIFY(ClientSession::instance().instructions().add(plan, Monday, fields, now()));
        QCOMPARE(held(bond), before - 6);
        QCOMPARE(sellable(Monday, bond), before - 10);
    }

    void borrowedSharesAndMoneyAreNotBooked_data()
    {
        QTest::addColumn<QString>("side");
        QTest::addColumn<QString>("type");
        QTest::addColumn<qint64>("quantity");
        QTest::addColumn<qint64>("fen");
        const QString buy = Kelvo_Values::OrderSide::buy;
        const QString sell = Kelvo_Values::OrderSide::sell;
        QTest::newRow("a purchase with collateral") << buy << QStringLiteral("1") << 1100LL << 999000LL;
        QTest::newRow("a sale of collateral") << sell << QStringLiteral("2") << 900LL << 1001000LL;
        QTest::newRow("shares bought to be returned") << buy << QStringLiteral("3") << 1000LL << 999000LL;
        QTest::newRow("borrowed shares are sold") << sell << QStringLiteral("4") << 1000LL << 1000000LL;
        QTest::newRow("bought with borrowed money") << buy << QStringLiteral("5") << 1100LL << 1000000LL;
        QTest::newRow("sold to repay money") << sell << QStringLiteral("6") << 900LL << 1000000LL;
        QTest::newRow("bonds become shares") << sell << QStringLiteral("9") << 900LL << 1000000LL;
    }

    void borrowedSharesAndMoneyAreNotBooked()
    {
        QFETCH(QString, side);
        QFETCH(QString, type);
        setPosition(1000, 1000);
        setCash(1000000);
        const QString plan = *ClientSession::instance().plans().create(
            with(purchase(QStringLiteral("100")), BaseField::orderSide, side), now());
        const InstructionStore::Fields fields{ { FieldId::IssuedQty, QStringLiteral("100") },
            { FieldId::FilledQty, QStringLiteral("100") }, { FieldId::IssuedAmount, QStringLiteral("10.00") },
            { Orlo_Fields::Security::cumAmount, QStringLiteral("10.00") }, { FieldId::EndState, EndState::Ended },
            { FieldId::MarginSide, type } };
        const auto added = ClientSession::instance().instructions().add(plan, Monday, fields, now());
        QCOMPARE(added.status(), Status());
        QTEST(held(), "quantity");
        QTEST(cash(Monday).value_or(-1), "fen");
        QCOMPARE(instructionOf(*added).value(FieldId::MarginSide).toString(), type);
    }

    void aReductionOfTheHoldingsKeepsItsTarget()
    {
        setPosition(10000, 10000);
        Record record = with(reduction(SampleSession::record()), BaseField::totalQty, QStringLiteral("0"));
        record = SampleSession::withOther(record,
            { { BaseField::JCRatio, QStringLiteral("0.1") },
                { AutoPlanField::Progress::CurrentQty, QStringLiteral("0") } });
        const QString plan = session().create(record);
        QVERIFY2(!plan.isEmpty(), qPrintable(session().reason()));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(InstructionIssuer::issueDay(Monday.addDays(i))->issued.size(), 1);
            const auto fields = ClientSession::instance().instructions().ofDay(plan, Monday.addDays(i));
            QCOMPARE(fields->first().value(FieldId::IssuedQty).toString(), QStringLiteral("1000"));
        }
        QCOMPARE(held(), 7000LL);
    }

    // --- Cash

    void unknownCashBoundsNothing()
    {
        QVERIFY(!cash(Monday));
        issue(purchase(QStringLiteral("1000")), Monday);
        QVERIFY(!cash(Monday));
    }

    void purchasesShareTheCash()
    {
        const qint64 lot = fenOfALot();
        setCash(5 * lot + lot / 2);
        const QStringList plans{ session().create(purchase(QStringLiteral("300"))),
            session().create(purchase(QStringLiteral("300"))), session().create(purchase(QStringLiteral("300"))) };
        DayIssue day(ClientSession::instance().database(), InstructionIssuer::scene(Monday));
        const auto rows = *day.preview(plans, [](int) { return true; });
        QCOMPARE(rows.at(0).order.quantity, 300LL);
        QVERIFY(!rows.at(0).order.isCutToCash);
        QCOMPARE(rows.at(0).cash.value_or(0), static_cast<double>(5 * lot + lot / 2) / 100);
        QCOMPARE(rows.at(1).order.quantity, 200LL);
        QVERIFY(rows.at(1).order.isCutToCash);
        const QString left = QString::number(static_cast<double>(lot / 2) / 100, 'f', 2);
        const QString price = QString::number(static_cast<double>(lot) / 100, 'f', 2);
        QCOMPARE(rows.at(2).reason, Status(Error::NotEnoughCash, { left, price }));
        QCOMPARE(errorText(rows.at(2).reason), QStringLiteral("资金不足：可用%1元，一手需要%2元").arg(left, price));
        const auto result = InstructionIssuer::issueDay(Monday);
        QCOMPARE(result->issued.size(), 2);
        QCOMPARE(result->skipped.at(0).reason, rows.at(2).reason);
        QCOMPARE(cash(Monday).value_or(-1), lot / 2);
    }

    void anOpenPurchaseReservesCashUntilItsDayEnds()
    {
        const qint64 lot = fenOfALot();
        setCash(10 * lot);
        const QString instruction =
            issue(customPrice(purchase(QStringLiteral("400")), QStringLiteral("昨收价*0.95")), Monday);
        const qint64 issued =
            qRound64(instructionOf(instruction).value(FieldId::IssuedAmount).toString().toDouble() * 100);
        QCOMPARE(cash(Monday).value_or(-1), 10 * lot - issued);
        QCOMPARE(cash(Tuesday).value_or(-1), 10 * lot);
        InstructionStore::Fields fields = filled(100, EndState::Running);
        fields.insert(Orlo_Fields::Security::cumAmount, QString::number(static_cast<double>(issued / 4) / 100, 'f', 2));
        QCOMPARE(fill(instruction, fields), Status());
        QCOMPARE(cash(Monday).value_or(-1), 10 * lot - issued);
        QCOMPARE(cash(Tuesday).value_or(-1), 10 * lot - issued / 4);
    }

    void aSaleAddsToTheCash()
    {
        const qint64 lot = fenOfALot();
        setPosition(1000, 1000);
        setCash(0);
        const QStringList plans{ session().create(sale(QStringLiteral("200"))),
            session().create(purchase(QStringLiteral("300"))) };
        DayIssue day(ClientSession::instance().database(), InstructionIssuer::scene(Monday));
        QCOMPARE(day.preview(plans, [](int) { return true; })->at(1).order.quantity, 200LL);
        QCOMPARE(InstructionIssuer::issueDay(Monday)->issued.size(), 2);
        QCOMPARE(cash(Monday).value_or(-1), 0LL);
        QCOMPARE(held(), 1000LL);
        owner("DELETE FROM instructions WHERE plan = (SELECT max(number) FROM plans)", {});
        QCOMPARE(cash(Monday).value_or(-1), 2 * lot);
    }

private:
    static Change now() { return ClientSession::instance().changeNow(); }
    static QString symbol() { return SampleSession::record().value(Kelvo_Fields::Security::symbol).toString(); }

    static StoredPosition position(const QDate& day, const QString& ofSymbol)
    {
        return PositionStore(ClientSession::instance().database())
            .positions(Account, QString(), ofSymbol, day)
            ->value(0);
    }
    static qint64 held(const QString& ofSymbol = symbol()) { return position(Monday, ofSymbol).quantity; }
    static qint64 sellable(const QDate& day, const QString& ofSymbol = symbol())
    {
        return position(day, ofSymbol).tradeableQuantity;
    }

    static std::optional<qint64> cash(const QDate& day)
    {
        return *CashStore(ClientSession::instance().database()).available(Account, day);
    }

    static qint64 fenOfALot()
    {
        const Security& share = *ClientSession::instance().market().find(symbol());
        const auto closes = SecurityStore(ClientSession::instance().database()).closes(share.symbol)->ticks;
        return closes.constLast() * 100;
    }

    static qint64 count(const char* table)
    {
        return ClientSession::instance()
            .database()
            .value(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(table))
            ->toLongLong();
    }

    static InstructionStore::Fields instructionOf(const QString& id)
    {
        return ClientSession::instance().instructions().ofPlan(id.section(QLatin1Char('-'), 0, 0))->value(id);
    }

    static Status fill(const QString& instruction, const InstructionStore::Fields& fields)
    {
        return ClientSession::instance().instructions().update(
            instruction.section(QLatin1Char('-'), 0, 0), instruction, fields, now());
    }

    /// Creates a plan and issues its instruction, whose id is returned.
    QString issue(const Record& record, const QDate& day) const
    {
        const QString plan = session().create(record);
        DayIssue issue(ClientSession::instance().database(), InstructionIssuer::scene(day));
        return issue.issue({ plan }, [](int) { return true; }).issued.value(0);
    }

    void owner(const char* statement, const QVariantList& values) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        QCOMPARE(file.execute(QLatin1String(statement), values), Status());
    }

    void setPosition(qint64 quantity, qint64 sellable) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        const QString account = SampleSession::record().value(Kelvo_Fields::UserAccount::securityAccount).toString();
        QCOMPARE(PositionStore(file).set({ Account, account, symbol(), quantity, sellable }), Status());
    }

    void setCash(qint64 fen) const
    {
        Database file;
        QCOMPARE(file.open(session().ownersFile()), Status());
        QCOMPARE(CashStore(file).set(Account, fen), Status());
    }
};

QTEST_GUILESS_MAIN(FillsTest)
#include "tst_fills.moc"
