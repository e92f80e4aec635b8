#include "AccountStore.h"
#include "AgreementStore.h"
#include "AuthorityStore.h"
#include "CloseCodec.h"
#include "Kelvo_Values.h"
#include "Market.h"
#include "MovingAverages.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "PositionStore.h"
#include "SampleAccounts.h"
#include "SampleMarket.h"
#include "SampleTexts.h"
#include "SecurityStore.h"
#include "TestStatus.h"
#include "TickPrice.h"
#include "UserStore.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

namespace SubType {
using namespace Kelvo_Values::MdcSubSecurityType;
using namespace Orlo_Values::MdcSubSecurityType;
} // namespace SubType

using Kelvo_Values::MdcSecurityType::BondType;
using Kelvo_Values::MdcSecurityType::FundType;
using Kelvo_Values::MdcSecurityType::StockType;
namespace InstructionType = PlanCodes::InstructionType;

const QDate LastDay(2024, 4, 30);
constexpr int FullHistory = 260;
const QDateTime SignedTime(QDate(2024, 4, 1), QTime(9, 0));

/// A database with a sample market, in a temporary folder.
struct SampleFile {
    explicit SampleFile(int size = 0, quint64 seed = 7)
    {
        status = database.open(folder.filePath(QStringLiteral("market.db")));
        if (status)
            status = SampleMarket::write(database, { seed, size, LastDay });
        if (status)
            status = market.load(database);
    }

    int countOf(const QString& type, const QStringList& subTypes, const QStringList& suffixes = {}) const
    {
        return market.symbols(type, subTypes, suffixes).size();
    }

    QTemporaryDir folder;
    Database database;
    Market market;
    Status status;
};

QByteArray fingerprint(Database& database)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const Status status = database.read(
        QStringLiteral("SELECT symbol, name, quantity_step, limit_per_mille, st_text, closes FROM securities"
                       " JOIN closing_prices ON security = position ORDER BY position"),
        {}, [&hash](const QSqlQuery& row) {
            for (int i = 0; i < 6; ++i)
                hash.addData(row.value(i).toByteArray());
        });
    return status ? hash.result() : QByteArray();
}

} // namespace

class SampleMarketTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_file = std::make_unique<SampleFile>();
        QCOMPARE(m_file->status, Status());
        const auto append = [this](Security&& security) { m_securities.append(std::move(security)); };
        QCOMPARE(SecurityStore(database()).readAll(append), Status());
        QCOMPARE(m_securities.size(), market().count());
        QCOMPARE(SampleTexts::write(database()), Status());
        QCOMPARE(SampleAccounts::write(database(), SignedTime), Status());
    }

    void closesReadBackAsTheyWere_data()
    {
        QTest::addColumn<QVector<qint64>>("ticks");
        QTest::newRow("none") << QVector<qint64>();
        QTest::newRow("one") << QVector<qint64>{ 1 };
        QTest::newRow("up and down") << QVector<qint64>{ 1000, 1064, 999, 999, 1100 };
        QTest::newRow("far apart") << QVector<qint64>{ 1, 1000000000000, 2 };
        QTest::newRow("as large as fits") << QVector<qint64>{ std::numeric_limits<qint64>::max() / 4, 0 };
    }

    void closesReadBackAsTheyWere()
    {
        QFETCH(QVector<qint64>, ticks);
        const auto decoded = CloseCodec::decode(CloseCodec::encode(ticks));
        QVERIFY(decoded.has_value());
        QCOMPARE(*decoded, ticks);
    }

    void aDamagedBlobHasNoCloses_data()
    {
        QTest::addColumn<QByteArray>("blob");
        QTest::newRow("ends within a number") << QByteArray("\x02\x80", 2);
        QTest::newRow("a number without end") << QByteArray(200, '\xff');
    }

    void aDamagedBlobHasNoCloses()
    {
        QFETCH(QByteArray, blob);
        QVERIFY(!CloseCodec::decode(blob).has_value());
    }

    void everyKindHasItsNumberOfSecurities()
    {
        using namespace SubType;
        const QStringList shares{ Ashares, Smallandmediumstock, Gemstock, ScienTechInnovateBoard, BjSelectedStock };
        const QString sh = Kelvo_Values::SymbolPost::sh;
        const QString sz = Kelvo_Values::SymbolPost::sz;
        QCOMPARE(market().count(), 10370);
        QCOMPARE(SampleMarket::standardSize(), 10370);
        QCOMPARE(m_file->countOf(StockType, shares), 5400);
        QCOMPARE(m_file->countOf(StockType, { Ashares }, { sh }), 1700);
        QCOMPARE(m_file->countOf(StockType, { ScienTechInnovateBoard }), 590);
        QCOMPARE(m_file->countOf(StockType, { Smallandmediumstock }), 950);
        QCOMPARE(m_file->countOf(StockType, { Gemstock }), 1260);
        QCOMPARE(m_file->countOf(StockType, { BjSelectedStock }), 250);
        QCOMPARE(m_file->countOf(FundType, { TradingopenindexfundETF }), 900);
        QCOMPARE(m_file->countOf(FundType, { Reits }), 70);
        QCOMPARE(m_file->countOf(StockType, { HStcokCirculation }), 500);

        QStringList listedConvertible = ConvertableBondTypeList;
        listedConvertible.removeAll(DirectedConBond);
        QCOMPARE(m_file->countOf(BondType, listedConvertible), 500);
        const QStringList allBonds = AllBondNoRepurchaseTypeList + QStringList{ Assetbackedsecurities };
        QCOMPARE(m_file->countOf(BondType, allBonds), 3500);
        for (const QString& subType : allBonds) {
            QVERIFY2(m_file->countOf(BondType, { subType }, { sh }) > 0, qPrintable(subType));
            QVERIFY2(m_file->countOf(BondType, { subType }, { sz }) > 0, qPrintable(subType));
        }
    }

    void codesAreInTheRangesOfTheirBoard_data()
    {
        using namespace SubType;
        QTest::addColumn<QString>("type");
        QTest::addColumn<QStringList>("subTypes");
        QTest::addColumn<QString>("pattern");
        const auto row = [](const char* name, const QString& type, const QStringList& subTypes, const char* pattern) {
            QTest::newRow(name) << type << subTypes << QString::fromLatin1(pattern);
        };
        row("main boards", StockType, { Ashares }, "(60[0135]\\d{3}\\.SH|00[013]\\d{3}\\.SZ)");
        row("small and medium", StockType, { Smallandmediumstock }, "00[2]\\d{3}\\.SZ");
        row("growth", StockType, { Gemstock }, "30[01]\\d{3}\\.SZ");
        row("science and technology", StockType, { ScienTechInnovateBoard }, "688\\d{3}\\.SH");
        row("Beijing", StockType, { BjSelectedStock }, "(43|83|87|92)\\d{4}\\.BJ");
        row("connect", StockType, { HStcokCirculation }, "\\d{5}\\.HK");
        row("index funds", FundType, { TradingopenindexfundETF }, "(5[168]\\d{4}\\.SH|159\\d{3}\\.SZ)");
        row("trusts", FundType, { Reits }, "(508\\d{3}\\.SH|180\\d{3}\\.SZ)");
        row("convertible bonds", BondType, { ConvertableBondTypeList.constFirst() }, "(11\\d{4}\\.SH|12\\d{4}\\.SZ)");
    }

    void codesAreInTheRangesOfTheirBoard()
    {
        QFETCH(QString, type);
        QFETCH(QStringList, subTypes);
        QFETCH(QString, pattern);
        const QRegularExpression expected(QRegularExpression::anchoredPattern(pattern));
        const QStringList symbols = market().symbols(type, subTypes, {}).toStringList();
        QVERIFY(!symbols.isEmpty());
        for (const QString& symbol : symbols)
            QVERIFY2(expected.match(symbol).hasMatch(), qPrintable(symbol));
    }

    void symbolsAndShareNamesAreUnique()
    {
        QSet<QString> symbols;
        QSet<QString> names;
        int shares = 0;
        for (const Security& security : m_securities) {
            symbols.insert(security.symbol);
            if (security.type != StockType || security.stFlag != Orlo_Values::StFlag::Normal)
                continue;
            names.insert(security.name);
            ++shares;
        }
        QCOMPARE(symbols.size(), market().count());
        QCOMPARE(names.size(), shares);
    }

    void everySecurityIsComplete()
    {
        for (const Security& security : m_securities) {
            QVERIFY2(!security.name.isEmpty() && !security.exchange.isEmpty() && !security.subType.isEmpty(),
                qPrintable(security.symbol));
            QVERIFY2(security.previousClose > 0, qPrintable(security.symbol));
            QCOMPARE(market().find(security.symbol)->name, security.name);
        }
        const Security& first = m_securities.constFirst();
        QCOMPARE(first.exchange, Kelvo_Values::Exchange::sh);
        QCOMPARE(first.pricePrecision, 2);
        QCOMPARE(first.quantityStep, 100);
    }

    void shanghaiBondsAloneAreKeptInLotsOfTen()
    {
        for (const Security& security : m_securities) {
            const bool isShanghaiBond = security.type == BondType && security.exchange == Kelvo_Values::Exchange::sh;
            QCOMPARE(security.displayFactor, isShanghaiBond ? 10 : 1);
        }
    }

    void limitsFollowTheBoard()
    {
        const QSet<int> shareLimits{ 0, 50, 100, 200, 300 };
        for (const Security& security : m_securities) {
            if (security.subType == SubType::HStcokCirculation)
                QVERIFY(!security.hasPriceLimit());
            else if (security.type == StockType)
                QVERIFY(shareLimits.contains(security.limitPerMille));
            else if (security.subType == SubType::Assetbackedsecurities)
                QVERIFY(!security.hasPriceLimit());
            else if (security.subType == SubType::Reits)
                QCOMPARE(security.limitPerMille, 100);
        }
    }

    void specialTreatmentShowsInNameFlagAndText()
    {
        int special = 0;
        for (const Security& security : m_securities) {
            const bool isSpecial = security.stFlag != Orlo_Values::StFlag::Normal;
            QCOMPARE(security.name.startsWith(QLatin1String("ST")) || security.name.startsWith(QLatin1String("*ST")),
                isSpecial);
            QCOMPARE(security.stText.isEmpty(), !isSpecial);
            if (!isSpecial)
                continue;
            ++special;
            QCOMPARE(security.limitPerMille, 50);
            QVERIFY(security.name.startsWith(security.stFlag));
            QVERIFY(security.stText.contains(security.name));
        }
        QVERIFY2(special > 50 && special < 300, qPrintable(QString::number(special)));
    }

    void hongKongLotsDiffer()
    {
        QSet<int> lots;
        for (const QString& symbol : market().symbols(StockType, { SubType::HStcokCirculation }, {}).toStringList())
            lots.insert(market().find(symbol)->quantityStep);
        for (const int lot : { 100, 200, 400, 500, 1000, 2000 })
            QVERIFY2(lots.contains(lot), qPrintable(QString::number(lot)));
    }

    void closesEndOnTheLastDayAndStayWithinTheLimits()
    {
        SecurityStore store(database());
        for (int i = 0; i < market().count(); i += 97) {
            const Security& security = m_securities.at(i);
            const CloseHistory history = *store.closes(security.symbol);
            QCOMPARE(history.lastDay, LastDay);
            QCOMPARE(history.ticks.constLast(), security.previousClose);
            QVERIFY(*std::min_element(history.ticks.cbegin(), history.ticks.cend()) > 0);
            for (int day = 1; security.hasPriceLimit() && day < history.ticks.size(); ++day) {
                const auto limits = TickPrice::limits(history.ticks.at(day - 1), security.limitPerMille);
                QVERIFY(history.ticks.at(day) >= limits.down && history.ticks.at(day) <= limits.up);
            }
        }
        QVERIFY(store.closes(QStringLiteral("none"))->ticks.isEmpty());
    }

    void someNewListingsHaveFewerCloses()
    {
        SecurityStore store(database());
        int full = 0;
        int fewer = 0;
        for (const QString& symbol : market().symbols(StockType, { SubType::Ashares }, {}).toStringList()) {
            const int closes = store.closes(symbol)->ticks.size();
            QVERIFY(closes >= 1 && closes <= FullHistory);
            ++(closes == FullHistory ? full : fewer);
        }
        QVERIFY2(fewer > 20 && fewer < full / 10, qPrintable(QString::number(fewer)));
    }

    void theSameSeedMakesTheSameMarket()
    {
        SampleFile first(500, 1);
        SampleFile again(500, 1);
        SampleFile other(500, 2);
        QVERIFY(first.status && again.status && other.status);
        QCOMPARE(fingerprint(first.database), fingerprint(again.database));
        QVERIFY(fingerprint(first.database) != fingerprint(other.database));
    }

    void aMarketMayBeSmaller()
    {
        for (const int size : { 200, 777, 10369 }) {
            const SampleFile file(size);
            QCOMPARE(file.status, Status());
            QCOMPARE(file.market.count(), size);
            QVERIFY(file.countOf(StockType, { SubType::BjSelectedStock }) > 0);
            QVERIFY(file.countOf(FundType, { SubType::Reits }) > 0);
            QVERIFY(file.countOf(BondType, { SubType::DirectedConBond }) > 0);
        }
    }

    void aMarketMayBeLarger()
    {
        QVERIFY(SampleMarket::largestSize() >= 1000000);
        const SampleFile grown(20000);
        QCOMPARE(grown.status, Status());
        QCOMPARE(grown.market.count(), 20000);
        QCOMPARE(grown.countOf(StockType, { SubType::Ashares }), m_file->countOf(StockType, { SubType::Ashares }));
        QVERIFY(grown.countOf(BondType, { SubType::Assetbackedsecurities }) > 3000);
    }

    void anImpossibleSizeIsRefused_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("below zero") << -1;
        QTest::newRow("too few for every kind") << 199;
        QTest::newRow("more than there are codes") << SampleMarket::largestSize() + 1;
    }

    void anImpossibleSizeIsRefused()
    {
        QFETCH(int, size);
        const SampleFile file(size);
        QCOMPARE(file.status,
            Status(
                Error::MarketSizeOutOfRange, { QStringLiteral("200"), QString::number(SampleMarket::largestSize()) }));
    }

    void progressEndsWithEverySecurity()
    {
        QTemporaryDir folder;
        Database database;
        QCOMPARE(database.open(folder.filePath(QStringLiteral("m.db"))), Status());
        QVector<int> seen;
        const auto progress = [&seen](int done, int total) {
            seen << done;
            return total == 1200;
        };
        QCOMPARE(SampleMarket::write(database, { 7, 1200, LastDay }, progress), Status());
        QCOMPARE(seen, QVector<int>({ 0, 500, 1000, 1200 }));
    }

    void aStoppedMarketLeavesNothing()
    {
        QTemporaryDir folder;
        Database database;
        QCOMPARE(database.open(folder.filePath(QStringLiteral("m.db"))), Status());
        const auto stopHalfway = [](int done, int) { return done < 500; };
        QCOMPARE(SampleMarket::write(database, { 7, 1200, LastDay }, stopHalfway), Status(Error::SampleCancelled));
        QCOMPARE(*SecurityStore(database).count(), 0);
        QCOMPARE(SampleMarket::write(database, { 7, 1200, QDate() }), Status(Error::NoLastClose));
    }

    void aHundredThousandSecuritiesAreWrittenWithinAMinute()
    {
        QVERIFY(SampleMarket::largestSize() >= 100000);
        QElapsedTimer timer;
        timer.start();
        SampleFile file(100000);
        QCOMPARE(file.status, Status());
        QCOMPARE(file.market.count(), 100000);
        QVERIFY2(timer.elapsed() < 60000, qPrintable(QString::number(timer.elapsed())));

        const QString fileName = file.database.location();
        file.database.close();
        timer.restart();
        Market again;
        QCOMPARE(file.database.open(fileName), Status());
        QCOMPARE(again.load(file.database), Status());
        QVERIFY2(timer.elapsed() < 10000, qPrintable(QString::number(timer.elapsed())));
    }

    void whatIsReadIsWhatWasAdded()
    {
        Database database;
        QTemporaryDir folder;
        QCOMPARE(database.open(folder.filePath(QStringLiteral("m.db"))), Status());
        const Security plain{ QStringLiteral("000001.SZ"), QStringLiteral("名称"), QStringLiteral("t"),
            QStringLiteral("s"), QStringLiteral("x"), 3, 10, 200, 50, QStringLiteral("ST"), QStringLiteral("说明"), 0 };
        Security other = plain;
        other.symbol = QStringLiteral("nodot");
        other.name = QString();
        other.type = QStringLiteral("t2");
        SecurityStore store(database);
        QCOMPARE(store.add(plain, { LastDay, { 7, 1000000000000 } }), Status());
        QCOMPARE(store.add(other, {}), Status());

        Market read;
        QCOMPARE(read.load(database), Status());
        QCOMPARE(read.count(), 2);
        const Security& first = *read.find(QStringLiteral("000001.SZ"));
        const QStringList texts{ first.symbol, first.name, first.type, first.subType, first.exchange, first.stFlag,
            first.stText };
        QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("000001.SZ 名称 t s x ST 说明"));
        QCOMPARE(QVector<int>({ first.pricePrecision, first.displayFactor, first.quantityStep, first.limitPerMille }),
            QVector<int>({ 3, 10, 200, 50 }));
        QCOMPARE(first.previousClose, 1000000000000);
        QCOMPARE(read.find(other.symbol)->name, QString());
        QCOMPARE(read.find(other.symbol)->type, other.type);
        QCOMPARE(read.find(other.symbol)->previousClose, 0);
        QCOMPARE(read.symbols().toStringList(), QStringList({ plain.symbol, other.symbol }));
        QCOMPARE(read.symbols(other.type, { other.subType }, {}).toStringList(), QStringList(other.symbol));
        QCOMPARE(read.symbols(other.type, { other.subType }, { Kelvo_Values::SymbolPost::sh }).size(), 0);
    }

    void aMarketThatCannotBeReadIsReportedAndKept()
    {
        SampleFile file(200);
        QCOMPARE(file.database.execute(QStringLiteral("ALTER TABLE closing_prices RENAME TO other")), Status());
        QCOMPARE(file.market.load(file.database),
            Status(Error::DatabaseFailed, { QStringLiteral("no such table: closing_prices") }));
        file.database.close();
        QCOMPARE(file.market.load(file.database), Status(Error::DatabaseNotOpen));
        QCOMPARE(file.market.count(), 200);
    }

    void anUnknownSymbolIsNotFound()
    {
        QVERIFY(!market().find(QStringLiteral("999999.XX")));
        QVERIFY(!market().find(QString()));
        QCOMPARE(Market().count(), 0);
        QVERIFY(!Market().find(QStringLiteral("600000.SH")));
    }

    void aQuestionIsRestrictedBySubTypeAndSuffix()
    {
        const QString sh = Kelvo_Values::SymbolPost::sh;
        const QString sz = Kelvo_Values::SymbolPost::sz;
        const QStringList trusts{ SubType::Reits };
        QCOMPARE(m_file->countOf(FundType, trusts, { sh }), 46);
        QCOMPARE(m_file->countOf(FundType, trusts, { sh, sz }), 70);
        QCOMPARE(m_file->countOf(FundType, trusts, { QString() }), 70);
        QCOMPARE(m_file->countOf(BondType, trusts), 0);
        QCOMPARE(m_file->countOf(FundType, {}), 0);
    }

    void answersShareTheirRuns()
    {
        const auto wide = market().symbols(StockType, { SubType::Gemstock, SubType::Ashares }, {}).runs();
        const auto narrow = market().symbols(StockType, { SubType::Ashares }, { Kelvo_Values::SymbolPost::sz }).runs();
        QCOMPARE(wide.size(), 3);
        QCOMPARE(narrow.size(), 1);
        QVERIFY(narrow.first().isSharedWith(wide.at(1)));
    }

    void averagesNeedThatManyCloses_data()
    {
        QTest::addColumn<int>("closes");
        QTest::addColumn<int>("averages");
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("one too few") << 4 << 0;
        QTest::newRow("just five") << 5 << 1;
        QTest::newRow("one too few for twenty") << 19 << 2;
        QTest::newRow("one too few for all") << 249 << 5;
        QTest::newRow("just all") << 250 << 6;
    }

    void averagesNeedThatManyCloses()
    {
        QFETCH(int, closes);
        QFETCH(int, averages);
        QCOMPARE(MovingAverages::available(closes), MovingAverages::names().mid(0, averages));
        const QVector<qint64> ticks(closes, 1000);
        for (int i = 0; i < MovingAverages::names().size(); ++i)
            QCOMPARE(MovingAverages::value(MovingAverages::names().at(i), ticks, 2).has_value(), i < averages);
    }

    void anAverageIsThatOfTheLastCloses()
    {
        const QVector<qint64> ticks{ 9999999, 1000, 1001, 1002, 1003, 1005 };
        QCOMPARE(*MovingAverages::value(QStringLiteral("MA5"), ticks, 2), 10.022);
        QCOMPARE(*MovingAverages::value(QStringLiteral("MA5"), ticks, 3), 1.0022);
        QVERIFY(!MovingAverages::value(QStringLiteral("MA7"), ticks, 2));
    }

    void usersOfEverySituationAreThere()
    {
        AccountStore accounts(database());
        AuthorityStore authorities(database());
        const auto accountsOf = [&](const char* user) { return *accounts.accountsOf(QString::fromLatin1(user)); };
        const QString defaultUser = SampleAccounts::defaultUser();

        const auto mine = *accounts.accountsOf(defaultUser);
        QCOMPARE(mine.size(), 3);
        for (const QString& type : { InstructionType::Ordinary, InstructionType::Bond, InstructionType::HkConnect }) {
            for (int i = 0; i < 2; ++i) {
                QVERIFY(authorities.rights(defaultUser, mine.at(i).tradingAccount, type)->authority);
                QCOMPARE(authorities.rights(defaultUser, mine.at(i).tradingAccount, type)->ruleProperty, i);
            }
        }
        QCOMPARE(mine.at(2).assetProperty, Orlo_Values::FundAccountType::Credit);
        QVERIFY(authorities.rights(defaultUser, mine.at(2).tradingAccount, InstructionType::Credit)->authority);

        QCOMPARE(accountsOf("trader02").size(), 0);
        QCOMPARE(accountsOf("trader03").size(), 1);
        QCOMPARE(accountsOf("trader04").at(0).assetProperty, Orlo_Values::FundAccountType::Credit);
        const auto bondOnly = accountsOf("trader05").at(0);
        QCOMPARE(bondOnly.exchangeAccounts.keys(), QStringList{ Orlo_Values::Exchange::bj });
        QVERIFY(!authorities.rights(QStringLiteral("trader05"), bondOnly.tradingAccount, InstructionType::Ordinary)
                     ->authority);
        QVERIFY(
            authorities.rights(QStringLiteral("trader05"), bondOnly.tradingAccount, InstructionType::Bond)->authority);
        QCOMPARE(accountsOf("trader06").at(0).exchangeAccounts.keys(),
            QStringList{ Orlo_Values::Exchange::HkStockCirculation });
        QCOMPARE(accountsOf("trader08").at(0).exchangeAccounts.keys(), QStringList{ Orlo_Values::Exchange::bj });
        QVERIFY(accountsOf("trader09").at(0).exchangeAccounts.isEmpty());
        const auto powerless = accountsOf("trader10").at(0);
        QVERIFY(!authorities.rights(QStringLiteral("trader10"), powerless.tradingAccount, InstructionType::Ordinary)
                     ->authority);
    }

    void onlySomeClientsHaveSigned()
    {
        AgreementStore agreements(database());
        const QString protocol = Orlo_Values::ProtocolId::AutoPlanReduceAgree;
        QCOMPARE(*agreements.unsignedClientNumbers(protocol, SampleAccounts::defaultUser()), QStringList());
        QCOMPARE(*agreements.unsignedClientNumbers(protocol, QStringLiteral("trader07")),
            QStringList{ QStringLiteral("C10007") });
        QCOMPARE(*agreements.signedTime(protocol, QStringLiteral("C10001")), SignedTime);
        QVERIFY(agreements.agreement(protocol)->content.size() > 200);
    }

    void positionsAreAmpleAndScarce()
    {
        const StoredAccount account = AccountStore(database()).accountsOf(SampleAccounts::defaultUser())->at(0);
        const QStringList shares =
            *SecurityStore(database()).firstSymbols(SubType::Ashares, Kelvo_Values::SymbolPost::sh, 2);
        PositionStore positions(database());
        const QString securityAccount = account.exchangeAccounts.value(Kelvo_Values::Exchange::sh);
        const auto ample =
            *positions.positions(account.tradingAccount, securityAccount, shares.at(0), QDate(2024, 5, 6));
        const auto scarce =
            *positions.positions(account.tradingAccount, securityAccount, shares.at(1), QDate(2024, 5, 6));
        QCOMPARE(ample.size(), 1);
        QCOMPARE(ample.at(0).tradeableQuantity, qint64(200000));
        QCOMPARE(scarce.at(0).quantity, qint64(500));
        QCOMPARE(scarce.at(0).tradeableQuantity, qint64(300));
    }

private:
    const Market& market() const { return m_file->market; }
    Database& database() const { return m_file->database; }

    std::unique_ptr<SampleFile> m_file;
    QVector<Security> m_securities; ///< as stored
};

QTEST_GUILESS_MAIN(SampleMarketTest)
#include "tst_sample_market.moc"
