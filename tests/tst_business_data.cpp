#include "AgreementDC.h"
#include "AgreementStore.h"
#include "Algo_Fields.h"
#include "AutoPlanField.h"
#include "BusinessDataInterface.h"
#include "CBusinessDataBase.h"
#include "CDataBase.h"
#include "ClientSession.h"
#include "ConfigurationStore.h"
#include "InstructionBusinessDataInterface.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "LoggedTest.h"
#include "OrloBusiUtils.h"
#include "OrloBusinessDataInterface.h"
#include "OrloConstants.h"
#include "OrloTradeLogic.h"
#include "Orlo_Fields.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "SampleSession.h"
#include "Security.h"
#include "Signatures.h"
#include "SymbolIndexes.h"
#include "TestStatus.h"

#include <QtTest>

using Kelvo_Values::MdcSecurityType::BondType;
using Kelvo_Values::MdcSecurityType::FundType;
using Kelvo_Values::MdcSecurityType::StockType;
using namespace PlanCodes;

namespace {

namespace SubType {
using namespace Kelvo_Values::MdcSubSecurityType;
using namespace Orlo_Values::MdcSubSecurityType;
} // namespace SubType

using Data = OrloBusinessDataInterface;
using Rules = InstructionBusinessDataInterface;

const QString& agreement()
{
    return Orlo_Values::ProtocolId::AutoPlanReduceAgree;
}

QList<tagUserAccountInfo> accountsOfUser()
{
    return Data::GetFundAccountListByFundProp(3, 16, false, QStringList(), true);
}

QStringList tradingAccounts()
{
    QStringList numbers;
    for (const tagUserAccountInfo& account : accountsOfUser())
        numbers << account.tradingAccount;
    return numbers;
}

QString share()
{
    return SampleSession::symbolOf(SubType::Ashares, Kelvo_Values::SymbolPost::sh);
}

QString convertible()
{
    return SampleSession::symbolOf(SubType::ConvertableBondTypeList.constFirst(), Kelvo_Values::SymbolPost::sh);
}

int distinct(QStringList texts)
{
    texts.removeDuplicates();
    return texts.size();
}

bool allEndWith(const SymbolList& symbols, const QString& suffix)
{
    const QStringList all = symbols.toStringList();
    return !all.isEmpty()
        && std::all_of(all.cbegin(), all.cend(), [&](const QString& symbol) { return symbol.endsWith(suffix); });
}

} // namespace

class BusinessDataTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
    }

    void cleanupTestCase() { m_session.reset(); }

    void codesOfAFamilyDifferFromEachOther_data()
    {
        using namespace AutoPlanField;
        QTest::addColumn<QStringList>("codes");
        QTest::newRow("keys of a record and of its other parameters") << QStringList{ BaseField::autoPlanId,
            BaseField::orderSide, BaseField::priceModel, BaseField::priceFixed, BaseField::priceFormula1,
            BaseField::priceFormula2, BaseField::totalQty, BaseField::InstMode, BaseField::expectedUser,
            BaseField::executeUser, BaseField::beginDate, BaseField::endDate, BaseField::planOtherParam,
            BaseField::remark, BaseField::tradeAmount, BaseField::dayMaxTradeAmount, BaseField::algoParam,
            BaseField::algoStrategyName, BaseField::securitySubType, BaseField::JCRatio, BaseField::JCModel,
            Progress::CurrentQty, Kelvo_Fields::UserAccount::userID, Kelvo_Fields::UserAccount::tradingAccount,
            Kelvo_Fields::UserAccount::securityExchange, Kelvo_Fields::UserAccount::securityAccount,
            Kelvo_Fields::Security::symbol, Kelvo_Fields::Security::timeInForce, Kelvo_Fields::Security::transActTime,
            Kelvo_Fields::Security::tradeableQty, Orlo_Fields::AutoPlan::templateCode, Orlo_Fields::AutoPlan::subType,
            Orlo_Fields::Security::cumAmount, FieldId::Price, FieldId::TradeDate, FieldId::FilledQty,
            FieldId::IssuedQty, FieldId::EndState, FieldId::TargetType, FieldId::IssuedAmount, FieldId::Branch,
            FieldId::MarginSide };
        QTest::newRow("exchanges") << QStringList{ Kelvo_Values::Exchange::sh, Kelvo_Values::Exchange::sz,
            Orlo_Values::Exchange::bj, Orlo_Values::Exchange::HkStockCirculation };
        QTest::newRow("security types") << QStringList{ StockType, BondType, FundType };
        QTest::newRow("security sub-types") << QStringList{ SubType::Ashares, SubType::Gemstock,
            SubType::Smallandmediumstock, SubType::Assetbackedsecurities, SubType::TradingopenindexfundETF,
            SubType::ScienTechInnovateBoard, SubType::BjSelectedStock, SubType::HStcokCirculation, SubType::Reits,
            SubType::DirectedConBond, SubType::PaidRationBond, SubType::PaidRationStock };
        QTest::newRow("bonds") << SubType::AllBondNoRepurchaseTypeList;
        using namespace Orlo_Values::SideUnion;
        QTest::newRow("entrust types") << QStringList{ normalBuy, collateralBuy, collateralSell, marginBuy, marginSell,
            financingBuy, financingSell, marginBuyNormal, marginSellNormal, BondConversion, paidRationShare };
        QTest::newRow("price types") << QStringList{ Orlo_Values::HKTimeInForce::InTrade,
            Orlo_Values::HKTimeInForce::BeforeTrade };
        QTest::newRow("sides") << QStringList{ Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell };
        QTest::newRow("target types") << QStringList{ InstructionTargetType::QtyOrder,
            InstructionTargetType::AmountOrder };
        using namespace Algo_Fields::AlgoInstContentInfo;
        QTest::newRow("keys of an algorithm's base data")
            << QStringList{ TradingAccount, Symbol, OrderSide, EntrustProp };
    }

    void codesOfAFamilyDifferFromEachOther()
    {
        QFETCH(QStringList, codes);
        QVERIFY(!codes.contains(QString()));
        QCOMPARE(distinct(codes), codes.size());
    }

    void aPurchaseHasTheSameCodeInAllThreeFamilies()
    {
        QCOMPARE(Orlo_Values::OrderSide::buy, Kelvo_Values::OrderSide::buy);
        QCOMPARE(Orlo_Values::SideUnion::normalBuy, Kelvo_Values::OrderSide::buy);
    }

    void theListOfBondsHoldsTheConvertibleOnes()
    {
        QVERIFY(SubType::ConvertableBondTypeList.contains(SubType::DirectedConBond));
        for (const QString& code : SubType::ConvertableBondTypeList)
            QVERIFY2(SubType::AllBondNoRepurchaseTypeList.contains(code), qPrintable(code));
        QVERIFY(!SubType::AllBondNoRepurchaseTypeList.contains(QString()));
    }

    void aStoppedStartLeavesNoSession()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("stopped.db"));
        ClientSession& session = ClientSession::instance();
        QCOMPARE(session.open(file, QString(), [](int, int) { return false; }, {}), Status(Error::SampleCancelled));
        QVERIFY(!session.isOpen());
        QCOMPARE(m_session->reopen(), Status());
    }

    void aDatabaseThatCannotBeOpenedIsRefusedWithAReason()
    {
        const QTemporaryDir folder;
        QCOMPARE(ClientSession::instance().open(folder.path(), QString()),
            Status(Error::CannotOpenDatabase, { folder.path() }, Error::DatabaseIsFolder));
        QVERIFY(!ClientSession::instance().isOpen());
        QCOMPARE(m_session->reopen(), Status());
    }

    void aUserSeesTheirAccountsInOrder()
    {
        const QStringList expected{ QStringLiteral("100001"), QStringLiteral("100002"), QStringLiteral("200001") };
        QCOMPARE(tradingAccounts(), expected);
    }

    void aUserWithoutAccountsSeesNone()
    {
        QCOMPARE(m_session->reopen(QStringLiteral("trader02")), Status());
        QCOMPARE(tradingAccounts(), QStringList());
        QCOMPARE(m_session->reopen(), Status());
    }

    void accountsCanBeRestrictedToAType()
    {
        const QStringList credit{ Orlo_Values::FundAccountType::Credit };
        const QList<tagUserAccountInfo> accounts = Data::GetFundAccountListByFundProp(3, 16, false, credit, true);
        QCOMPARE(accounts.size(), 1);
        QCOMPARE(accounts.constFirst().tradingAccount, QStringLiteral("200001"));
        log().expectWarning(QStringLiteral("select no account"));
        QCOMPARE(Data::GetFundAccountListByFundProp(1, 16, false, QStringList(), true).size(), 0);
    }

    void anAccountIsReturnedWithItsNumbers()
    {
        const tagUserAccountInfo account =
            CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(QStringLiteral("100001"));
        QCOMPARE(account.tradingAccount, QStringLiteral("100001"));
        QVERIFY(!account.fundAccount.isEmpty());
        QVERIFY(!account.accountName.isEmpty());
        QCOMPARE(account.clientNo, QStringLiteral("C10001"));
        QVERIFY(!account.branchNo.isEmpty());
    }

    void securityAccountsAreReturnedByExchange()
    {
        const QString account = QStringLiteral("200001");
        const QMap<QString, QString> byExchange = Data::GetCurrentSecurityAccountByTradingAccount(account);
        const QStringList expected{ Kelvo_Values::Exchange::sz, Kelvo_Values::Exchange::sh };
        QCOMPARE(byExchange.keys(), expected);
        QCOMPARE(Data::GetCurrentSecurityAccountByTradingAndExchange(account, Kelvo_Values::Exchange::sh),
            byExchange.value(Kelvo_Values::Exchange::sh));
        QCOMPARE(
            Data::GetCurrentSecurityAccountByTradingAndExchange(account, Orlo_Values::Exchange::HkStockCirculation),
            QString());
        QCOMPARE(Data::GetAccountAssetPropByTradingAccount(account), Orlo_Values::FundAccountType::Credit);
    }

    void anUnknownAccountIsAnsweredEmpty()
    {
        const QString unknown = QStringLiteral("999");
        QCOMPARE(
            CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(unknown).tradingAccount, QString());
        QVERIFY(Data::GetCurrentSecurityAccountByTradingAccount(unknown).isEmpty());
        QCOMPARE(Data::GetAccountAssetPropByTradingAccount(unknown), QString());
        QCOMPARE(Rules::hasOrderAuthority(unknown, InstructionType::Ordinary), false);
        QCOMPARE(Rules::GetCurrentUserInstructionRuleProper(unknown, InstructionType::Ordinary), 0);
        QCOMPARE(Rules::getChainKeyForTraddingAccout(unknown, InstructionType::Ordinary), QString());
    }

    void aSecurityIsReturnedWithItsRules()
    {
        const QString symbol = share();
        QCOMPARE(Data::GetFirstSecurityExchangeBySymbol(symbol), Kelvo_Values::Exchange::sh);
        QCOMPARE(Data::GetSecurityTypeBySymbol(symbol), StockType);
        QCOMPARE(Data::GetSecuritySubTypeBySymbol(symbol), SubType::Ashares);
        QCOMPARE(CBusinessDataBase::GetInstance()->GetSecuritySubTypeBySymbol(symbol), SubType::Ashares);
        QVERIFY(!Data::GetSecurityChineseName(symbol).isEmpty());
        QCOMPARE(Data::GetQtyStepBySymbol(symbol), 100);
        QCOMPARE(Data::GetDispFactorBySymbol(symbol), 1);
        QCOMPARE(Data::GetPricePrecisionBySymbol(symbol, QString()), 2);
        QVERIFY(CBusinessDataBase::GetInstance()->IsSymbolHasPriceLimit(symbol));
    }

    void aBondInShanghaiIsKeptInLotsOfTen()
    {
        QCOMPARE(Data::GetDispFactorBySymbol(convertible()), 10);
        QCOMPARE(Data::GetSecurityTypeBySymbol(convertible()), BondType);
        QCOMPARE(Data::GetPricePrecisionBySymbol(convertible(), Kelvo_Values::Exchange::sh), 3);
    }

    void anUnknownSecurityIsAnsweredByTheContract()
    {
        const QString unknown = QStringLiteral("999999.SH");
        QString description = QStringLiteral("left over");
        QCOMPARE(Data::GetFirstSecurityExchangeBySymbol(unknown), QString());
        QCOMPARE(Data::GetSecurityTypeBySymbol(unknown), QString());
        QCOMPARE(Data::GetSecurityChineseName(unknown), QString());
        QCOMPARE(Data::GetQtyStepBySymbol(unknown), 0);
        QCOMPARE(Data::GetDispFactorBySymbol(unknown), 1);
        QCOMPARE(Data::GetPricePrecisionBySymbol(unknown, QString()), 2);
        QCOMPARE(Data::GetSymbolStType(unknown, description), Orlo_Values::StFlag::Normal);
        QCOMPARE(description, QString());
        QVERIFY(!CBusinessDataBase::GetInstance()->IsSymbolHasPriceLimit(unknown));
    }

    void specialTreatmentComesWithASentence()
    {
        QString description = QStringLiteral("left over");
        QCOMPARE(Data::GetSymbolStType(share(), description), Orlo_Values::StFlag::Normal);
        QCOMPARE(description, QString());
        const QString sentence = QStringLiteral("该证券被实施其他风险警示");
        Database owned;
        QCOMPARE(owned.open(m_session->ownersFile()), Status());
        QCOMPARE(owned.execute(QStringLiteral("UPDATE securities SET st_flag = ?, st_text = ? WHERE symbol = ?"),
                     { SpecialTreatment::St, sentence, share() }),
            Status());
        QCOMPARE(m_session->reopen(), Status());
        QCOMPARE(Data::GetSymbolStType(share(), description), SpecialTreatment::St);
        QCOMPARE(description, sentence);
    }

    void symbolsAreChosenBySubTypeAndSuffix()
    {
        CBusinessDataBase* data = CBusinessDataBase::GetInstance();
        const QStringList shares{ SubType::Ashares, SubType::BjSelectedStock };
        const QStringList shanghai{ Kelvo_Values::SymbolPost::sh };
        QVERIFY(allEndWith(data->GetAllSymbolByTypeList(StockType, shares, shanghai, false, {}), shanghai.first()));
        QVERIFY(allEndWith(
            data->GetAllSymbolByType(StockType, SubType::HStcokCirculation, QString(), false, {}), SymbolSuffix::Hk));
    }

    void excludedSymbolsAreLeftOut()
    {
        CBusinessDataBase* data = CBusinessDataBase::GetInstance();
        const int all = data->GetAllSymbolByType(StockType, SubType::Ashares, QString(), false, {}).size();
        const SymbolList fewer = data->GetAllSymbolByType(StockType, SubType::Ashares, QString(), false, { share() });
        QCOMPARE(fewer.size(), all - 1);
        QVERIFY(!fewer.toStringList().contains(share()));
    }

    void positionsAreThoseOfTheSecurityAccount()
    {
        const tagUserAccountInfo account =
            CBusinessDataBase::GetInstance()->GetAccountDetailsByTradinngAccount(QStringLiteral("100001"));
        const QString securityAccount =
            Data::GetCurrentSecurityAccountByTradingAndExchange(account.tradingAccount, Kelvo_Values::Exchange::sh);
        const auto positionsIn = [&](const tagUserAccountInfo& owner, const QString& shareholder, const QString& seat) {
            return BusinessDataInterface::GetPositionListByAccount(
                owner, shareholder, share(), QString(), QString(), QString(), seat);
        };
        const auto positions = positionsIn(account, securityAccount, QString());
        QCOMPARE(positions.size(), 1);
        QCOMPARE(positions.first().value(Kelvo_Fields::Security::tradeableQty).toDouble(), 200000.0);
        QCOMPARE(positionsIn(account, QString(), QString()), positions);
        QCOMPARE(positionsIn(account, QStringLiteral("X"), QString()).size(), 0);
        QCOMPARE(positionsIn(account, securityAccount, QStringLiteral("1")).size(), 0);
        QCOMPARE(positionsIn(tagUserAccountInfo(), securityAccount, QString()).size(), 0);
    }

    void authoritiesAndRulesBelongToAccountAndType()
    {
        QVERIFY(Rules::hasOrderAuthority(QStringLiteral("100001"), InstructionType::Ordinary));
        QVERIFY(!Rules::hasOrderAuthority(QStringLiteral("100001"), InstructionType::Credit));
        QVERIFY(Rules::hasOrderAuthority(QStringLiteral("200001"), InstructionType::Credit));
        QCOMPARE(Rules::GetCurrentUserInstructionRuleProper(QStringLiteral("100001"), InstructionType::Ordinary), 0);
        QCOMPARE(Rules::GetCurrentUserInstructionRuleProper(QStringLiteral("100002"), InstructionType::Ordinary), 1);
        QCOMPARE(Rules::GetCurrentUserInstructionRuleProper(QStringLiteral("100002"), InstructionType::Credit), 0);
    }

    void aChainNamesExecutorsAndForwardUsers()
    {
        const QString key = Rules::getChainKeyForTraddingAccout(QStringLiteral("100001"), InstructionType::Ordinary);
        QVERIFY(!key.isEmpty());
        QCOMPARE(Rules::GetExcuteUsers(key).size(), 3);
        const QStringList forwarders = Rules::GetForwardUsers(key, VorInstructionNodeType::Forward);
        QCOMPARE(forwarders.size(), 4);
        QCOMPARE(distinct(forwarders), 3);
        QCOMPARE(Rules::GetForwardUsers(key, VorInstructionNodeType::Execute), Rules::GetExcuteUsers(key));
        QCOMPARE(Rules::GetForwardUsers(key, VorInstructionNodeType::Review), QStringList());
        QCOMPARE(Rules::GetExcuteUsers(QString()), QStringList());
        const QString hongKong =
            Rules::getChainKeyForTraddingAccout(QStringLiteral("100001"), InstructionType::HkConnect);
        QCOMPARE(Rules::GetForwardUsers(hongKong, VorInstructionNodeType::Forward), QStringList());
    }

    void entrustTypesTurnIntoNumbersAndBack()
    {
        for (int number = 1; number <= static_cast<int>(VorMarginTradeType::PaidRationShare); ++number) {
            const auto type = static_cast<VorMarginTradeType>(number);
            const QString code = Rules::transEnum2SideUnion(type);
            QVERIFY2(!code.isEmpty(), qPrintable(QString::number(number)));
            QCOMPARE(Rules::transSideUnion2Enum(code), type);
        }
        QCOMPARE(Rules::transSideUnion2Enum(Orlo_Values::SideUnion::marginSell), VorMarginTradeType::MarginSell);
        QCOMPARE(Rules::transEnum2SideUnion(VorMarginTradeType::None), QString());
        QCOMPARE(Rules::transEnum2SideUnion(static_cast<VorMarginTradeType>(99)), QString());
        QCOMPARE(Rules::transSideUnion2Enum(QString()), VorMarginTradeType::None);
    }

    void everyEntrustTypeHasANameAndATranslation()
    {
        using namespace Orlo_Values::SideUnion;
        const QStringList codes{ normalBuy, collateralBuy, collateralSell, marginBuy, marginSell, financingBuy,
            financingSell, marginBuyNormal, marginSellNormal, BondConversion, paidRationShare };
        QStringList names;
        for (const QString& code : codes) {
            names << OrloBusiUtils::GetSideUnionChineseName(code);
            QVERIFY(!CDataBase::GetInstance()
                         ->GetStaticCfgValue(OrloConstants::DictionaryKey::SideUnion2AlgoDefines, code)
                         .isEmpty());
        }
        QVERIFY(!names.contains(QString()));
        QCOMPARE(distinct(names), codes.size());
        QCOMPARE(OrloBusiUtils::GetSideUnionChineseName(QStringLiteral("?")), QString());
    }

    void staticTextsFallBackToTheDefault()
    {
        CDataBase* texts = CDataBase::GetInstance();
        QCOMPARE(texts->GetStaticCfgValue(StaticCategory::InstructionType, InstructionType::Bond),
            QStringLiteral("债券交易"));
        QCOMPARE(texts->GetStaticCfgValue(StaticCategory::TargetType, InstructionTargetType::AmountOrder),
            QStringLiteral("按金额"));
        QCOMPARE(texts->GetStaticCfgValue(OrloConstants::DictionaryKey::exchangeChineseName, Orlo_Values::Exchange::bj),
            QStringLiteral("北京证券交易所"));
        QCOMPARE(texts->GetStaticCfgValue(QStringLiteral("nowhere"), QStringLiteral("1")), QString());
        QCOMPARE(texts->GetStaticCfgValue(QStringLiteral("nowhere"), QStringLiteral("1"), QStringLiteral("x")),
            QStringLiteral("x"));
    }

    void aSecurityOfItsOwnListComesBeforeTheListForAll()
    {
        Database owned;
        QCOMPARE(owned.open(m_session->ownersFile()), Status());
        StrategyStore store(owned);
        const QString& target = InstructionTargetType::QtyOrder;
        const QStringList all{ QStringLiteral("TWAP"), QStringLiteral("VWAP") };
        const QStringList own{ QStringLiteral("POV") };
        QCOMPARE(store.setWhiteList(InstructionType::Ordinary, target, QString(), all), Status());
        QCOMPARE(store.setWhiteList(InstructionType::Ordinary, target, share(), own), Status());
        QCOMPARE(Rules::getWhiteAlgoNameList(InstructionType::Ordinary, target, share()), own);
        QCOMPARE(Rules::getWhiteAlgoNameList(InstructionType::Ordinary, target, convertible()), all);
        QVERIFY(Rules::getWhiteAlgoNameList(InstructionType::Bond, target, convertible()) != all);
        QCOMPARE(
            Rules::getBlackAlgoNameList(InstructionTargetType::AmountOrder), QStringList{ QStringLiteral("SNIPER") });
        QCOMPARE(Rules::getBlackAlgoNameList(QString()), QStringList());
    }

    void aSignatureIsStoredWithUserAndTimeAndCountsAtOnce()
    {
        QCOMPARE(m_session->reopen(QStringLiteral("trader07")), Status());
        const QStringList open = AgreementDC::instance().GetUnsignedClientNoList(agreement());
        QCOMPARE(open, QStringList{ QStringLiteral("C10007") });
        QVERIFY(!agreementTitle(agreement()).isEmpty());
        QVERIFY(!agreementText(agreement()).isEmpty());
        QCOMPARE(signAgreement(agreement(), open), Status());
        QCOMPARE(AgreementDC::instance().GetUnsignedClientNoList(agreement()), QStringList());
        QVERIFY(AgreementStore(ClientSession::instance().database()).signedTime(agreement(), open.first())->isValid());
        const auto signer = ClientSession::instance().database().value(
            QStringLiteral("SELECT \"user\" FROM signatures WHERE client_no = ?"), { open.first() });
        QCOMPARE(signer->toString(), QStringLiteral("trader07"));
        QCOMPARE(m_session->reopen(), Status());
    }

    void aSignatureForAnAccountThatWasTakenAwayIsRefused()
    {
        QCOMPARE(m_session->reopen(QStringLiteral("trader09")), Status());
        const QStringList own = AgreementDC::instance().GetUnsignedClientNoList(agreement());
        QCOMPARE(own, QStringList{ QStringLiteral("C10009") });
        const QString account = ClientSession::instance().accounts().accounts().constFirst().tradingAccount;
        Database administrator;
        QCOMPARE(administrator.open(m_session->ownersFile()), Status());
        QCOMPARE(AccountStore(administrator).unassign(QStringLiteral("trader09"), account), Status());
        QCOMPARE(signAgreement(agreement(), own), Status(Error::ForeignClient, own));
        QCOMPARE(AccountStore(administrator).assign(QStringLiteral("trader09"), account), Status());
        QCOMPARE(m_session->reopen(), Status());
    }

    void aSignatureForAForeignClientIsRefusedForAll()
    {
        QCOMPARE(m_session->reopen(QStringLiteral("trader09")), Status());
        const QStringList own = AgreementDC::instance().GetUnsignedClientNoList(agreement());
        QCOMPARE(own, QStringList{ QStringLiteral("C10009") });
        QCOMPARE(signAgreement(agreement(), own + QStringList{ QStringLiteral("C10010") }),
            Status(Error::ForeignClient, { QStringLiteral("C10010") }));
        QCOMPARE(signAgreement(agreement(), {}), Status(Error::NoSigner));
        QCOMPARE(signAgreement(QStringLiteral("nothing"), own),
            Status(Error::UnknownAgreement, { QStringLiteral("nothing") }));
        Database owned;
        QCOMPARE(owned.open(m_session->ownersFile()), Status());
        const QStringList text =
            *owned.texts(QStringLiteral("SELECT content FROM agreements WHERE protocol = ?"), { agreement() });
        const QString change = QStringLiteral("UPDATE agreements SET content = ? WHERE protocol = ?");
        QCOMPARE(owned.execute(change, { QStringLiteral(" "), agreement() }), Status());
        QCOMPARE(signAgreement(agreement(), own), Status(Error::EmptyAgreement, { agreement() }));
        QCOMPARE(owned.execute(change, { text.constFirst(), agreement() }), Status());
        QCOMPARE(AgreementDC::instance().GetUnsignedClientNoList(agreement()), own);
        QCOMPARE(m_session->reopen(), Status());
    }

    void aBondIsConvertedOnlyWherePossible()
    {
        OrloTradeLogic& logic = OrloTradeLogic::instance();
        const QString credit = QStringLiteral("200001");
        const QString& sell = Kelvo_Values::OrderSide::sell;
        QVERIFY(logic.checkMarginBondConvertEnable(credit, convertible(), sell, false));
        QVERIFY(!logic.checkMarginBondConvertEnable(credit, convertible(), Kelvo_Values::OrderSide::buy, false));
        QVERIFY(!logic.checkMarginBondConvertEnable(credit, share(), sell, false));
        QVERIFY(!logic.checkMarginBondConvertEnable(QStringLiteral("100001"), convertible(), sell, false));
        QVERIFY(!logic.checkMarginBondConvertEnable(credit, QStringLiteral("999999.SH"), sell, false));
    }

    void withoutASessionEveryAnswerIsEmpty()
    {
        const QString symbol = share();
        ClientSession::instance().close();
        QCOMPARE(tradingAccounts(), QStringList());
        QVERIFY(CBusinessDataBase::GetInstance()->GetLoginAccountDetail().isEmpty());
        QCOMPARE(Data::GetSecurityChineseName(symbol), QString());
        QCOMPARE(CBusinessDataBase::GetInstance()
                     ->GetAllSymbolByType(StockType, SubType::Ashares, QString(), false, {})
                     .size(),
            0);
        QCOMPARE(Rules::getWhiteAlgoNameList(InstructionType::Ordinary, InstructionTargetType::QtyOrder, symbol),
            QStringList());
        QCOMPARE(AgreementDC::instance().GetUnsignedClientNoList(agreement()), QStringList());
        QCOMPARE(signAgreement(agreement(), { QStringLiteral("C10001") }), Status(Error::SigningNeedsLogin));
        QCOMPARE(
            CDataBase::GetInstance()->GetStaticCfgValue(StaticCategory::InstructionType, InstructionType::Ordinary),
            QString());
    }

    void aSessionMayBeClosedWhileItsSearchIsPrepared()
    {
        const SampleSession large(QStringLiteral("trader01"), 20000);
        QCOMPARE(large.opened(), Status());
        const SymbolList symbols =
            CBusinessDataBase::GetInstance()->GetAllSymbolByType(StockType, SubType::Ashares, QString(), false, {});
        QCoreApplication::processEvents();
        const auto index = SymbolIndexes::instance().of(symbols.runs().first());
        QVERIFY(index);
        ClientSession::instance().close();
        QVERIFY2(!SymbolIndexes::instance().of(symbols.runs().first()), "nothing of the session is kept");
    }

private:
    std::unique_ptr<SampleSession> m_session;
};

QTEST_GUILESS_MAIN(BusinessDataTest)
#include "tst_business_data.moc"
