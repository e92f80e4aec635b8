#include "EditorModel.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "OrloConstants.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "Today.h"

#include <algorithm>

// The form's boxes, and the effects of a change in one on the others.

namespace model {

namespace {

constexpr int MaxFormula = 300;

bool holdsMainland(const QStringList& exchanges)
{
    return exchanges.contains(Kelvo_Values::Exchange::sh) || exchanges.contains(Kelvo_Values::Exchange::sz);
}

bool holdsMainlandOrBeijing(const QStringList& exchanges)
{
    return holdsMainland(exchanges) || exchanges.contains(Orlo_Values::Exchange::bj);
}

bool holdsHongKong(const QStringList& exchanges)
{
    return exchanges.contains(Orlo_Values::Exchange::HkStockCirculation);
}

int rankOf(const QString& name)
{
    static const QStringList order{ QStringLiteral("昨收价"), QStringLiteral("涨停价"), QStringLiteral("跌停价"),
        QStringLiteral("MA20"), QStringLiteral("MA60"), QStringLiteral("MA120"), QStringLiteral("MA5"),
        QStringLiteral("MA10"), QStringLiteral("MA250") };
    return order.indexOf(name);
}

double rounded(double value, int decimals)
{
    return QString::number(value, 'f', decimals).toDouble();
}

QString shownText(double value, int decimals, bool asRatio)
{
    QString text = QString::number(value, 'f', decimals);
    if (!asRatio || decimals == 0)
        return text;
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

} // namespace

QString call(const QString& operation, const QVariantList& arguments)
{
    return ScriptCall{ operation, arguments }.text();
}

// --- Form

bool EditorModel::isUsable(Widget which) const
{
    return isVisible(which) && widget(which).enabled;
}

const QString& EditorModel::code(Widget which) const
{
    static const QString none;
    const BoxState& state = box(which);
    return state.current < 0 ? none : state.items.at(state.current).code;
}

void EditorModel::show(std::initializer_list<Widget> which, bool on)
{
    for (const Widget one : which)
        widget(one).shown = on;
}

void EditorModel::enable(std::initializer_list<Widget> which, bool on)
{
    for (const Widget one : which)
        widget(one).enabled = on;
}

void EditorModel::setText(Widget which, const QString& value)
{
    widget(which).text = which == Price1 || which == Price2 ? value.left(MaxFormula) : value;
}

void EditorModel::setNumber(Widget which, double value)
{
    const double most = which == Ratio ? 1 : 2000000000;
    if (value < 0 || value > most) {
        effects.warnings.append(nameOf(which));
        clearNumber(which);
        return;
    }
    NumberState& state = number(which);
    state.value = rounded(value, state.decimals);
    state.text = shownText(state.value, state.decimals, which == Ratio);
}

void EditorModel::clearNumber(Widget which)
{
    number(which).value = 0;
    number(which).text.clear();
}

void EditorModel::setDecimals(Widget which, int decimals)
{
    NumberState& state = number(which);
    state.decimals = decimals;
    state.value = rounded(state.value, decimals);
    if (!state.text.isEmpty())
        state.text = shownText(state.value, decimals, which == Ratio);
}

// --- Boxes

void EditorModel::clearSilently(Widget which)
{
    box(which) = BoxState();
}

void EditorModel::append(Widget which, const QString& itemText, const QString& itemCode)
{
    box(which).items.append(Item{ itemText, itemCode });
    if (box(which).items.size() == 1)
        select(which, 0);
}

void EditorModel::selectSilently(Widget which, int index)
{
    box(which).current = index < box(which).items.size() ? index : -1;
}

void EditorModel::select(Widget which, int index)
{
    const int before = box(which).current;
    selectSilently(which, index);
    if (box(which).current != before)
        announce(which);
}

void EditorModel::selectCode(Widget which, const QString& itemCode)
{
    const QVector<Item>& items = box(which).items;
    const auto found =
        std::find_if(items.cbegin(), items.cend(), [&](const Item& item) { return item.code == itemCode; });
    select(which, found == items.cend() ? -1 : static_cast<int>(found - items.cbegin()));
}

void EditorModel::announce(Widget which)
{
    if (!m_connected)
        return;
    if (which == FundAccount)
        fillInstructionTypes();
    else if (which == InstructionType)
        instructionTypeChanged();
    else if (which == TargetType)
        targetTypeChanged();
    else if (which == PlanType)
        planTypeChanged();
    else if (which == TradeSide)
        fillEntrustTypes();
    else if (which == EntrustType || which == PriceType)
        fillModes();
    else if (which == PriceMode)
        priceModeChanged();
    else if (which == InstructionMode)
        modeChanged();
}

bool EditorModel::isByAmount() const
{
    return code(TargetType) == InstructionTargetType::AmountOrder;
}

bool EditorModel::isByQuantity() const
{
    return code(TargetType) == InstructionTargetType::QtyOrder;
}

bool EditorModel::isReduction() const
{
    return code(PlanType) == AutoPlanTemplate::ReduceHoldings;
}

// --- Construction

EditorModel::EditorModel(const World& world)
    : form(designedForm())
    , m_world(world)
{
    widget(Exchange).enabled = false;
    hideRows();
    fillForNewPlan();
    m_connected = true;
    if (!widget(FundAccount).enabled)
        fillInstructionTypes();
}

void EditorModel::hideRows()
{
    show({ RatioLabel, Ratio, ReduceModeLabel, ReduceMode, Single, PriceTypeLabel, PriceType, EntrustTypeLabel,
             EntrustType },
        false);
    setSteps(false, QString());
}

void EditorModel::fillForNewPlan()
{
    fillAccounts();
    fillInstructionTypes();
    fillTargetTypes();
    fillPlanTypes();
    fillSecurities();
    symbolChanged();
    fillSides();
    fillPriceTypes(QString());
    fillPriceModes(QString());
    priceModeChanged();
    number(Ratio).decimals = 4;
    clearNumber(Ratio);
    fillAssignees();
    fillPeriod();
    append(ReduceMode, QStringLiteral("连续90天减持不超过总股本1%"), QStringLiteral("1"));
}

bool EditorModel::isOffered(const ScriptAccount& candidate) const
{
    const QStringList &types = candidate.types, &held = candidate.exchanges;
    return (types.contains(AutoPlanInstructionType::Ordinary) && holdsMainlandOrBeijing(held))
        || (types.contains(AutoPlanInstructionType::HkConnect) && holdsHongKong(held))
        || (types.contains(AutoPlanInstructionType::Credit) && holdsMainland(held))
        || (types.contains(AutoPlanInstructionType::Bond) && holdsMainland(held));
}

void EditorModel::fillAccounts()
{
    for (const ScriptAccount& candidate : m_world.accounts) {
        if (!isOffered(candidate))
            continue;
        m_accounts.insert(candidate.tradingAccount, candidate);
        append(FundAccount, candidate.fundAccount, candidate.tradingAccount);
    }
    if (box(FundAccount).items.size() > 1)
        select(FundAccount, -1);
    else
        enable({ FundAccount }, false);
}

// --- Filling

void EditorModel::fillInstructionTypes()
{
    clearSilently(InstructionType);
    const ScriptAccount chosen = m_world.account(account());
    const auto offer = [this](const QString& type) {
        append(InstructionType, m_world.staticText(AutoPlanStaticCfg::InstructionType, type), type);
    };
    if (chosen.isCredit) {
        if (chosen.types.contains(AutoPlanInstructionType::Credit) && holdsMainland(chosen.exchanges))
            offer(AutoPlanInstructionType::Credit);
        return;
    }
    for (const QString& type : { AutoPlanInstructionType::Ordinary, AutoPlanInstructionType::Bond }) {
        if (chosen.types.contains(type) && holdsMainlandOrBeijing(chosen.exchanges))
            offer(type);
    }
    if (chosen.types.contains(AutoPlanInstructionType::HkConnect) && holdsHongKong(chosen.exchanges))
        offer(AutoPlanInstructionType::HkConnect);
}

void EditorModel::fillTargetTypes()
{
    clearSilently(TargetType);
    const auto offer = [this](const QString& type) {
        append(TargetType, m_world.staticText(AutoPlanStaticCfg::TargetType, type), type);
    };
    offer(InstructionTargetType::QtyOrder);
    const QString type = code(InstructionType);
    const bool mayBeByAmount = type == AutoPlanInstructionType::Ordinary || type == AutoPlanInstructionType::Credit
        || type == AutoPlanInstructionType::Bond;
    if (m_world.rule(account(), type) == 1 && mayBeByAmount)
        offer(InstructionTargetType::AmountOrder);
}

void EditorModel::fillPlanTypes()
{
    clearSilently(PlanType);
    append(PlanType, QStringLiteral("累计数量"), AutoPlanTemplate::CumulativeQty);
    append(PlanType, QStringLiteral("平均数量"), AutoPlanTemplate::AverageQty);
    append(PlanType, QStringLiteral("相同要素"), AutoPlanTemplate::SameElements);
    if (code(InstructionType) == AutoPlanInstructionType::Ordinary && isByQuantity())
        append(PlanType, QStringLiteral("减持"), AutoPlanTemplate::ReduceHoldings);
}

void EditorModel::fillSides()
{
    clearSilently(TradeSide);
    if (code(InstructionType) != AutoPlanInstructionType::HkConnect)
        append(TradeSide, QStringLiteral("买入"), Kelvo_Values::OrderSide::buy);
    append(TradeSide, QStringLiteral("卖出"), Kelvo_Values::OrderSide::sell);
}

void EditorModel::fillEntrustTypes()
{
    using namespace Orlo_Values::SideUnion;
    clearSilently(EntrustType);
    const QString side = code(TradeSide);
    if (code(InstructionType) != AutoPlanInstructionType::Credit || account().isEmpty() || form.symbol.isEmpty()
        || side.isEmpty())
        return;
    const QString subType = m_world.security(form.symbol).subType;
    const bool buys = side == normalBuy;
    QStringList offered;
    if (subType == Orlo_Values::MdcSubSecurityType::PaidRationStock
        || subType == Orlo_Values::MdcSubSecurityType::PaidRationBond)
        offered = QStringList{ paidRationShare };
    else if (Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.contains(subType))
        offered = QStringList{ buys ? collateralBuy : collateralSell };
    else if (buys)
        offered = QStringList{ collateralBuy, financingBuy, marginBuyNormal, marginBuy };
    else
        offered = QStringList{ collateralSell, marginSellNormal, marginSell, financingSell };
    // The query about bond conversion comes after the four sales are in the box.
    for (const QString& type : offered)
        append(EntrustType, QStringLiteral("委托类别-") + type, type);
    if (offered.size() == 4 && !buys && m_world.bondConversionEnabled(account(), form.symbol, side))
        append(EntrustType, QStringLiteral("委托类别-") + BondConversion, BondConversion);
}

void EditorModel::fillModes()
{
    if (!m_planId.isEmpty() && !widget(InstructionMode).enabled)
        return;
    const bool hadChoice = box(InstructionMode).current >= 0;
    clearSilently(InstructionMode);
    if (hadChoice)
        announce(InstructionMode);
    if (m_world.rule(account(), code(InstructionType)) == 1) {
        fillReviewModes();
        reInitPanel();
        return;
    }
    append(InstructionMode, QStringLiteral("主动管理"), AutoPlanInstMode::ActiveManage);
    show({ AlgoButton }, false);
}

void EditorModel::fillReviewModes()
{
    using namespace Orlo_Values::SideUnion;
    if (isByQuantity() && code(PriceMode) != AutoPlanPriceModel::NoLimit)
        append(InstructionMode, QStringLiteral("普通交易复核"), AutoPlanInstMode::NormalTradeReview);
    const QString type = code(InstructionType);
    const QStringList algorithmic{ collateralBuy, collateralSell, marginBuy, marginSell, financingBuy };
    bool offersAlgorithms = true;
    if (type == AutoPlanInstructionType::HkConnect)
        offersAlgorithms = code(PriceType) == Orlo_Values::HKTimeInForce::InTrade;
    else if (type == AutoPlanInstructionType::Credit)
        offersAlgorithms = algorithmic.contains(code(EntrustType));
    if (offersAlgorithms)
        append(InstructionMode, QStringLiteral("算法交易复核"), AutoPlanInstMode::AlgoTradeReview);
}

void EditorModel::fillPriceTypes(const QString& mode)
{
    clearSilently(PriceType);
    append(PriceType, QStringLiteral("增强限价盘"), Orlo_Values::HKTimeInForce::InTrade);
    if (m_planId.isEmpty() || mode == AutoPlanInstMode::NormalTradeReview || mode == AutoPlanInstMode::ActiveManage)
        append(PriceType, QStringLiteral("竞价限价盘"), Orlo_Values::HKTimeInForce::BeforeTrade);
}

void EditorModel::fillPriceModes(const QString& mode)
{
    clearSilently(PriceMode);
    if (m_planId.isEmpty() || mode != AutoPlanInstMode::NormalTradeReview)
        append(PriceMode, QStringLiteral("不限价"), AutoPlanPriceModel::NoLimit);
    append(PriceMode, QStringLiteral("自定义"), AutoPlanPriceModel::Custom);
    append(PriceMode, QStringLiteral("比较值取最大"), AutoPlanPriceModel::CompareMax);
    append(PriceMode, QStringLiteral("比较值取最小"), AutoPlanPriceModel::CompareMin);
    select(PriceMode, 0);
}

QStringList EditorModel::priceNames() const
{
    const ScriptSecurity chosen = m_world.security(form.symbol);
    QStringList names{ QStringLiteral("昨收价") };
    if (chosen.hasPriceLimit)
        names << QStringLiteral("涨停价") << QStringLiteral("跌停价");
    if (!form.symbol.isEmpty() && chosen.type != Kelvo_Values::MdcSecurityType::BondType)
        names += m_averages;
    std::stable_sort(names.begin(), names.end(),
        [](const QString& left, const QString& right) { return rankOf(left) < rankOf(right); });
    return names;
}

void EditorModel::fillPrices(bool clearTexts)
{
    form.functions1.clear();
    if (code(PriceMode) == AutoPlanPriceModel::Custom)
        form.functions1 = QStringList{ QStringLiteral("max(,)"), QStringLiteral("min(,)") };
    form.names1 = form.names2 = priceNames();
    const int decimals = form.symbol.isEmpty() ? 2 : m_world.security(form.symbol).pricePrecision;
    if (code(PriceMode) == AutoPlanPriceModel::NoLimit) {
        setText(Price1, QString::number(0.0, 'f', decimals));
        return;
    }
    if (clearTexts) {
        setText(Price1, QString());
        setText(Price2, QString());
    }
}

void EditorModel::fillAssignees()
{
    clearSilently(AssignTo);
    if (account().isEmpty() && !isReduction()) {
        append(AssignTo, AutoPlanAssignee::NotSpecified, QString());
        return;
    }
    const QString chain = m_world.chain(account(), code(InstructionType));
    if (isReduction()) {
        for (const QString& user : m_world.executeUsers(chain))
            append(AssignTo, user, QString());
        return;
    }
    QStringList users = m_world.forwardUsers(chain);
    users.removeDuplicates();
    std::sort(users.begin(), users.end());
    append(AssignTo, AutoPlanAssignee::NotSpecified, QString());
    for (const QString& user : users)
        append(AssignTo, user, QString());
}

void EditorModel::fillSecurities()
{
    using namespace Kelvo_Values;
    using namespace Orlo_Values::MdcSubSecurityType;
    using namespace Kelvo_Values::MdcSubSecurityType;
    setSymbol(QString());
    const QString &stock = MdcSecurityType::StockType, &bond = MdcSecurityType::BondType,
                  &fund = MdcSecurityType::FundType;
    const QStringList mainland{ SymbolPost::sh, SymbolPost::sz };
    const QString type = code(InstructionType);
    securities.clear();
    if (type == AutoPlanInstructionType::Ordinary) {
        securities += symbolsOf(stock, { Ashares, Gemstock, ScienTechInnovateBoard, BjSelectedStock });
        if (!isByAmount()) {
            securities += symbolsOf(fund, { TradingopenindexfundETF });
            securities += symbolsOf(fund, { Reits }, mainland);
        }
    } else if (type == AutoPlanInstructionType::Credit) {
        securities += symbolsOf(stock, { Ashares, Smallandmediumstock, Gemstock, ScienTechInnovateBoard });
        securities += symbolsOf(bond, ConvertableBondTypeList, mainland);
        if (!isByAmount())
            securities += symbolsOf(fund, { Reits }, mainland);
    } else if (type == AutoPlanInstructionType::Bond) {
        QStringList subTypes = AllBondNoRepurchaseTypeList;
        subTypes.removeAll(DirectedConBond);
        securities = symbolsOf(bond, subTypes << Assetbackedsecurities, mainland);
    } else if (type == AutoPlanInstructionType::HkConnect) {
        securities = symbolsOf(stock, { HStcokCirculation });
    }
    effects.outward.append(call(QStringLiteral("le_symbol.setSecurityList"), { securities }));
}

void EditorModel::fillPeriod()
{
    const QString exchange =
        form.symbol.isEmpty() ? Kelvo_Values::Exchange::sh : m_world.security(form.symbol).exchange;
    const QList<QDate> dates = m_world.tradeDates(exchange);
    const QDate tomorrow = today().addDays(1);
    QDate last = tomorrow.addMonths(3);
    QList<QDate> excluded;
    if (m_world.tradeDatesError(exchange).isEmpty() && !dates.isEmpty()) {
        last = dates.last();
        for (QDate date = tomorrow; date <= last; date = date.addDays(1)) {
            if (!dates.contains(date))
                excluded.append(date);
        }
    } else {
        effects.warnings.append(QStringLiteral("AutoParamSetting::InitDateEffectivePeriod"));
    }
    m_startOffset = 1;
    while (!dates.isEmpty() && !dates.contains(today().addDays(m_startOffset)))
        ++m_startOffset;
    const QDate first = today().addDays(m_startOffset);
    form.range.excluded = form.single.excluded = excluded;
    form.range.earliest = form.range.start = form.range.end = first;
    form.range.latest = last;
    form.single.earliest = form.single.date = first;
    form.single.latest = first.addMonths(3);
}

void EditorModel::layOut(bool forReduction)
{
    show({ TargetTotalLabel, TargetTotal }, true);
    show({ DayMaxLabel, DayMax, DayMaxUnit, TargetUnit, Range }, !forReduction);
    show({ RatioLabel, Ratio, ReduceModeLabel, ReduceMode, Single }, forReduction);
    setText(AssignToLabel, forReduction ? QStringLiteral("执行人") : QStringLiteral("分配给"));
}

void EditorModel::setUnits()
{
    if (!isByAmount() && !isByQuantity())
        return;
    QString unit = QStringLiteral("元");
    if (isByQuantity()) {
        const bool isBond = m_world.security(form.symbol).type == Kelvo_Values::MdcSecurityType::BondType;
        unit = isBond ? QStringLiteral("张") : QStringLiteral("股");
    }
    setText(TargetUnit, unit);
    setText(DayMaxUnit, unit);
}

void EditorModel::setSteps(bool visible, const QString& step)
{
    setText(TargetStep, step);
    setText(DayMaxStep, step);
    show({ TargetStep, DayMaxStep }, visible);
}

QStringList EditorModel::symbolsOf(const QString& type, const QStringList& subTypes, const QStringList& suffixes) const
{
    return m_world.symbolsOf({ type, subTypes, suffixes }).toStringList();
}

/// The search box emits its signals for another security, then for its name.
void EditorModel::setSymbol(const QString& symbol)
{
    setText(Symbol, symbol);
    if (form.symbol == symbol)
        return;
    form.symbol = symbol;
    if (!m_connected)
        return;
    symbolChanged();
    setText(SymbolName, m_world.security(symbol).chineseName);
}

QStringList EditorModel::unsignedClients() const
{
    QStringList found;
    for (const ScriptAccount& offered : m_accounts) {
        if (m_world.unsignedClients.contains(offered.clientNo) && !found.contains(offered.clientNo))
            found.append(offered.clientNo);
    }
    found.sort();
    return found;
}

// --- Reactions

void EditorModel::instructionTypeChanged()
{
    fillTargetTypes();
    fillPlanTypes();
    fillSecurities();
    symbolChanged();
    fillSides();
    show({ PriceTypeLabel, PriceType }, code(InstructionType) == AutoPlanInstructionType::HkConnect);
    show({ EntrustTypeLabel, EntrustType }, code(InstructionType) == AutoPlanInstructionType::Credit);
    fillEntrustTypes();
    fillModes();
    fillPrices(true);
    symbolChanged();
    fillAssignees();
}

void EditorModel::targetTypeChanged()
{
    fillPlanTypes();
    fillSecurities();
    symbolChanged();
    if (isByQuantity() || isByAmount()) {
        setDecimals(TargetTotal, isByAmount() ? 2 : 0);
        setDecimals(DayMax, isByAmount() ? 2 : 0);
    }
    setUnits();
    fillModes();
    readAlgorithmLists();
}

void EditorModel::planTypeChanged()
{
    setText(DayMaxLabel,
        code(PlanType) == AutoPlanTemplate::SameElements ? QStringLiteral("每日计划量")
                                                         : QStringLiteral("每日最大委托量"));
    if (!isReduction()) {
        enable({ TradeSide }, true);
        layOut(false);
        fillAssignees();
        return;
    }
    if (code(TradeSide) == Kelvo_Values::OrderSide::buy)
        selectCode(TradeSide, Kelvo_Values::OrderSide::sell);
    enable({ TradeSide }, false);
    layOut(true);
    const QStringList clients = unsignedClients();
    if (!clients.isEmpty() && shown)
        signAgreement(clients);
    fillAssignees();
}

void EditorModel::signAgreement(const QStringList& clients)
{
    const QString dialog = QStringLiteral("OrloAgreementSignWidget");
    const QString agreement = Orlo_Values::ProtocolId::AutoPlanReduceAgree;
    effects.outward << call(dialog, { true, true, QStringLiteral("AutoParamSetting") })
                    << call(dialog + QStringLiteral(".SetAccountSelectable"), { true })
                    << call(dialog + QStringLiteral(".SetAgreement"), { agreement })
                    << call(dialog + QStringLiteral(".SetSignCountDown"), { 15 })
                    << call(dialog + QStringLiteral(".SetClientNoList"), { clients })
                    << call(dialog + QStringLiteral(".shown"), { QStringLiteral("modally") });
}

void EditorModel::symbolChanged()
{
    if (form.symbol.isEmpty()) {
        setText(SymbolName, QString());
        setText(Exchange, QString());
        setSteps(false, QString());
        return;
    }
    const ScriptSecurity chosen = m_world.security(form.symbol);
    setText(Exchange, m_world.staticText(OrloConstants::DictionaryKey::exchangeChineseName, chosen.exchange));
    const bool inSteps = chosen.subType == Orlo_Values::MdcSubSecurityType::HStcokCirculation;
    setSteps(inSteps, inSteps ? QString::number(chosen.qtyStep) : QString());
    setUnits();
    fillEntrustTypes();
    priceModeChanged();
    readAlgorithmLists();
    reInitPanel();
    m_averages.clear();
    effects.outward.append(call(QStringLiteral("signalQuerySymbolMAInfo"), { account(), form.symbol }));
    fillPeriod();
}

void EditorModel::priceModeChanged()
{
    setText(Price1, QString());
    setText(Price2, QString());
    fillPrices(true);
    const QString mode = code(PriceMode);
    const bool compares = mode != AutoPlanPriceModel::NoLimit && mode != AutoPlanPriceModel::Custom;
    setText(Price1Label, compares ? QStringLiteral("价格1") : QStringLiteral("价格"));
    enable({ Price1 }, mode != AutoPlanPriceModel::NoLimit);
    show({ Price2Label, Price2, Price2Unit }, compares);
    fillModes();
}

void EditorModel::modeChanged()
{
    show({ AlgoButton }, code(InstructionMode) == AutoPlanInstMode::AlgoTradeReview);
}

void EditorModel::readAlgorithmLists()
{
    m_white = m_world.whiteAlgoNames(code(InstructionType), code(TargetType), form.symbol);
    m_black = m_world.blackAlgoNames(code(TargetType));
}

// --- The trader

void EditorModel::pickRange(const QDate& start, const QDate& end)
{
    form.range.start = start;
    form.range.end = end;
}

// --- The services

void EditorModel::averagesArrive(const QString& symbol, const QStringList& names, const QString& failure)
{
    if (symbol != form.symbol)
        return;
    if (failure.isEmpty())
        m_averages = names;
    fillPrices(false);
}

} // namespace model
