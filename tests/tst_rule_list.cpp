#include "AdvisedPlan.h"
#include "Algo_Values.h"
#include "AutoPlanField.h"
#include "ClientSession.h"
#include "FormulaFacts.h"
#include "InstructionTargetType.h"
#include "Kelvo_Fields.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanCodes.h"
#include "RuleList.h"
#include "SecurityStore.h"
#include "SessionTest.h"
#include "StoredPlan.h"

#include <QtTest>

namespace BaseField = AutoPlanField::BaseField;
using namespace PlanCodes;
using RuleList::Verdict;

namespace {

const QDate Monday = SampleSession::today();

/// A plan in the form and what is stored about it.
struct Situation {
    FormReading form;
    AdvisorFacts facts;
    bool isRead = true;
    Status failure;
};

using Variation = void (*)(Situation& situation);

QString symbolOf(const QString& subType, const QString& suffix = Kelvo_Values::SymbolPost::sh)
{
    return SampleSession::symbolOf(subType, suffix);
}

const StoredAccount& account()
{
    return *ClientSession::instance().accounts().find(QStringLiteral("100001"));
}

/// A purchase of 1,000 shares within the week, which passes every rule.
Situation sound()
{
    Situation situation;
    FormReading& form = situation.form;
    form.account = account().tradingAccount;
    form.instructionType = InstructionType::Ordinary;
    form.targetType = InstructionTargetType::QtyOrder;
    form.planType = PlanType::CumulativeQty;
    form.symbol = symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares);
    form.side = Kelvo_Values::OrderSide::buy;
    form.priceMode = PriceModel::Custom;
    form.price1 = QStringLiteral("昨收价");
    form.target = QStringLiteral("1000");
    form.perDay = QStringLiteral("500");
    form.instructionMode = InstMode::ActiveManage;
    form.begin = Monday.addDays(1);
    form.end = Monday.addDays(4);
    situation.facts.closes = *SecurityStore(ClientSession::instance().database()).closes(form.symbol);
    situation.facts.tradeableQuantity = 200'000;
    situation.facts.tradeableNext = 200'000;
    situation.facts.rights.order = { true, account().assetProperty,
        account().exchangeAccounts.value(Kelvo_Values::Exchange::sh), true, 0, true, true };
    situation.facts.rights.limits = { 100'000'000, 10'000'000'000, 500 };
    return situation;
}

StoredPlan stored(const char* id, const QString& side, const QString& total)
{
    StoredPlan plan;
    plan.id = QLatin1String(id);
    plan.record = with(with(SampleSession::record(), BaseField::orderSide, side), BaseField::totalQty, total);
    return plan;
}

void sell(Situation& s)
{
    s.form.side = Kelvo_Values::OrderSide::sell;
}

void reduce(Situation& s)
{
    sell(s);
    s.form.planType = PlanType::ReduceHoldings;
    s.form.ratio = QStringLiteral("0.5");
    s.form.assignee = QStringLiteral("苏砚");
    s.form.hasPerDay = false;
    s.form.end = QDate();
}

void runAlgorithm(Situation& s)
{
    s.form.instructionMode = InstMode::AlgoReview;
    s.form.algorithm = QStringLiteral("TWAP");
    s.form.algorithmAccount = s.form.account;
    s.form.algorithmSide = Algo_Values::AlgoOrderSide::BuyValue;
}

/// Makes the text of a field one that cannot be used.
void refuse(Situation& s, const char* field)
{
    s.form.refused << RefusedInput{ QLatin1String(field), QString(), QStringLiteral("unreadable") };
}

void edit(Situation& s)
{
    s.facts.edited = stored("AP00000001", s.form.side, QStringLiteral("1000"));
    s.facts.edited.record.insert(BaseField::beginDate, QStringLiteral("2024-05-06"));
    s.form.begin = Monday;
    s.facts.used.quantity = 300;
    s.facts.filled.quantity = 300;
}

AdvisedPlan advised(const Situation& situation, const QDate& today = Monday)
{
    static std::optional<AdvisedPlan::World> world;
    const ClientSession& session = ClientSession::instance();
    world.emplace(AdvisedPlan::World{ session.market(), session.calendar(), today, session.user() });
    std::optional<Result<AdvisorFacts>> read;
    if (!situation.failure)
        read = Result<AdvisorFacts>(situation.failure);
    else if (situation.isRead)
        read = Result<AdvisorFacts>(situation.facts);
    const StoredAccount* const of = session.accounts().find(situation.form.account);
    return { *world, situation.form, of, read };
}

Verdict verdictOf(const AdvisedPlan& plan, const QString& caption)
{
    const auto rules = RuleList::of(plan);
    for (const RuleList::AdvisedRule& rule : rules) {
        if (rule.caption == caption)
            return rule.verdict;
    }
    return { Verdict::Open, QStringLiteral("no such rule") };
}

} // namespace

Q_DECLARE_METATYPE(Variation)

/// The rules of the advisor, one situation for each verdict.
class RuleListTest : public SessionTest {
    Q_OBJECT

private Q_SLOTS:
    void eachRuleHasItsVerdict_data()
    {
        QTest::addColumn<Variation>("change");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("kind");
        const auto row = [](const char* sentence, const char* caption, Verdict::Kind kind, Variation change) {
            QTest::newRow(sentence) << change << QString::fromUtf8(caption) << int(kind);
        };
        const Variation nothing = [](Situation&) {};
        const auto failed = Verdict::Failed;
        const auto asked = Verdict::Asked;
        const auto doubtful = Verdict::Doubtful;
        const auto passed = Verdict::Passed;
        const auto none = Verdict::NotApplicable;

        row("no reduction needs no signature", "风险揭示", none, nothing);
        row("a reduction by a client who has signed", "风险揭示", passed, reduce);
        row("a reduction by a client who has not signed", "风险揭示", failed, [](Situation& s) {
            reduce(s);
            s.facts.unsignedClients << account().clientNo;
        });
        row("an account", "账户", passed, nothing);
        row("no account", "账户", failed, [](Situation& s) { s.form.account.clear(); });
        row("no instruction type", "指令类型", failed, [](Situation& s) { s.form.instructionType.clear(); });
        row("no security", "证券代码", failed, [](Situation& s) { s.form.symbol.clear(); });
        row("no target", "目标总量", failed, [](Situation& s) { s.form.target.clear(); });
        row("a reduction needs no target", "目标总量", none, reduce);
        row("a target of nothing", "目标的倍数", failed, [](Situation& s) { s.form.target = QStringLiteral("0"); });
        row("bonds of which several are one", "目标的倍数", failed, [](Situation& s) {
            s.form.symbol = symbolOf(Orlo_Values::MdcSubSecurityType::ConvertableBondTypeList.constFirst());
            s.form.target = QStringLiteral("1005");
        });
        row("an amount has no multiple", "目标的倍数", none,
            [](Situation& s) { s.form.targetType = InstructionTargetType::AmountOrder; });
        row("the day of a cumulative plan may be empty", "每日计划量", none, nothing);
        row("the same each day, but nothing", "每日计划量", failed, [](Situation& s) {
            s.form.planType = PlanType::SameElements;
            s.form.perDay = QStringLiteral("0");
        });
        row("the same each day", "每日计划量", passed, [](Situation& s) { s.form.planType = PlanType::SameElements; });
        row("a day of nothing", "每日的倍数", passed, [](Situation& s) { s.form.perDay = QStringLiteral("0"); });
        row("a reduction without a ratio", "减持占比", failed, [](Situation& s) {
            reduce(s);
            s.form.ratio.clear();
        });
        row("no formula", "价格", failed, [](Situation& s) { s.form.price1.clear(); });
        row("a special character", "价格的字符", failed, [](Situation& s) { s.form.price1 += QLatin1Char('$'); });
        row("a percentage", "价格的字符", failed, [](Situation& s) { s.form.price1 = QStringLiteral("昨收价%5"); });
        row("one formula is enough", "价格2", none, nothing);
        row("the second of two formulas is missing", "价格2", failed, [](Situation& s) { s.form.hasPrice2 = true; });
        row("a special character in the second", "价格2的字符", failed, [](Situation& s) {
            s.form.hasPrice2 = true;
            s.form.price2 = QStringLiteral("MA5;");
        });
        row("a reduction without an executor", "执行人", failed, [](Situation& s) {
            reduce(s);
            s.form.assignee.clear();
        });
        row("no mode", "下单模式", failed, [](Situation& s) { s.form.instructionMode.clear(); });
        row("no algorithm", "算法参数", none, nothing);
        row("an algorithm", "算法参数", passed, runAlgorithm);
        row("an algorithm without parameters", "算法参数", failed, [](Situation& s) {
            runAlgorithm(s);
            s.form.algorithm.clear();
        });
        row("an algorithm of another account", "算法与计划", failed, [](Situation& s) {
            runAlgorithm(s);
            s.form.algorithmAccount = QStringLiteral("100002");
        });
        row("an algorithm of the other side", "算法与计划", failed, [](Situation& s) {
            runAlgorithm(s);
            sell(s);
        });
        row("an algorithm that needs a limit", "算法与价格", failed, [](Situation& s) {
            runAlgorithm(s);
            s.form.algorithm = QStringLiteral("SNIPER");
            s.form.priceMode = PriceModel::NoLimit;
        });
        row("an algorithm that does not", "算法与价格", passed, [](Situation& s) {
            runAlgorithm(s);
            s.form.priceMode = PriceModel::NoLimit;
        });
        row("a new plan has used nothing", "目标与已用", none, nothing);
        row("a target above what is used", "目标与已用", passed, edit);
        row("a target below what is used", "目标与已用", failed, [](Situation& s) {
            edit(s);
            s.form.target = QStringLiteral("299");
        });
        row("a plan that has begun", "已开始的计划", passed, edit);
        row("a plan that has begun and is moved", "已开始的计划", failed, [](Situation& s) {
            edit(s);
            s.form.begin = Monday.addDays(1);
        });
        row("a plan that has begun and ended", "已开始的计划", failed, [](Situation& s) {
            edit(s);
            s.form.end = Monday.addDays(-3);
        });
        row("no step", "目标的每手", none, nothing);
        row("a target between two steps", "目标的每手", asked, [](Situation& s) {
            s.form.hasSteps = true;
            s.form.target = QStringLiteral("1050");
        });
        row("a day between two steps", "每日的每手", asked, [](Situation& s) {
            s.form.hasSteps = true;
            s.form.perDay = QStringLiteral("550");
        });
        row("a purchase needs no holdings", "持仓可用", none, nothing);
        row("a sale of what is held", "持仓可用", passed, sell);
        row("a sale of more than is held", "持仓可用", asked, [](Situation& s) {
            sell(s);
            s.facts.tradeableQuantity = 999;
        });
        row("credit may sell more than is held", "持仓可用", none, [](Situation& s) {
            sell(s);
            s.form.instructionType = InstructionType::Credit;
            s.facts.tradeableQuantity = 0;
        });
        row("a usual security", "证券状态", passed, nothing);
        row("a sale of any security", "证券状态", none, sell);

        row("a target that is understood", "目标的输入", passed, nothing);
        row("a target that is not", "目标的输入", failed, [](Situation& s) { refuse(s, "le_targetTotalNum"); });
        row("a daily maximum that is not understood", "每日的输入", failed,
            [](Situation& s) { refuse(s, "le_entrustMaxNum"); });
        row("no daily maximum", "每日的输入", passed, [](Situation& s) { s.form.perDay.clear(); });
        row("a ratio that is not understood", "占比的输入", failed, [](Situation& s) {
            reduce(s);
            refuse(s, "le_reduceHRatio");
        });
        row("only a reduction has a ratio", "占比的输入", none, nothing);
        row("a start", "开始日期", passed, nothing);
        row("a start that is not understood", "开始日期", failed, [](Situation& s) { refuse(s, "le_start"); });
        row("an end that is not understood", "结束日期", failed, [](Situation& s) { refuse(s, "le_end"); });
        row("no end", "结束日期", failed, [](Situation& s) { s.form.end = QDate(); });
        row("a reduction needs no end", "结束日期", none, reduce);
        row("a reduction without a date", "单个日期", failed, [](Situation& s) {
            reduce(s);
            s.form.begin = QDate();
        });

        row("a plan that the service accepts", "计划服务", passed, nothing);
        row("a plan that the form refuses", "计划服务", none, [](Situation& s) { s.form.target.clear(); });
        row("a plan without rights", "计划服务", failed, [](Situation& s) { s.facts.rights.order.authority = false; });
        row("a plan above the limits", "计划服务", failed, [](Situation& s) { s.facts.rights.limits.quantity = 999; });
        row("an edited plan that the service accepts", "计划服务", passed, [](Situation& s) {
            edit(s);
            s.facts.edited.record = s.form.record(ClientSession::instance().user().id,
                *ClientSession::instance().market().find(s.form.symbol), account());
        });
        row("an edited plan that was stopped", "计划服务", failed, [](Situation& s) {
            edit(s);
            s.facts.edited.record = s.form.record(ClientSession::instance().user().id,
                *ClientSession::instance().market().find(s.form.symbol), account());
            s.facts.edited.state = PlanState::Stopped;
        });

        row("whole lots", "目标的零股", passed, nothing);
        row("an odd lot", "目标的零股", doubtful, [](Situation& s) { s.form.target = QStringLiteral("1050"); });
        row("an odd lot a day", "每日的零股", doubtful, [](Situation& s) { s.form.perDay = QStringLiteral("550"); });
        row("a formula without a price", "价格可用", doubtful,
            [](Situation& s) { s.form.price1 = QStringLiteral("1-1"); });
        row("a price on a tick", "最小价位", passed, nothing);
        row("a price between two ticks", "最小价位", doubtful,
            [](Situation& s) { s.form.price1 = QStringLiteral("昨收价+0.0012"); });
        row("a purchase of a lot", "最小买入数量", passed, nothing);
        row("a purchase below the least quantity", "最小买入数量", doubtful, [](Situation& s) {
            s.form.symbol = symbolOf(Orlo_Values::MdcSubSecurityType::ScienTechInnovateBoard);
            s.form.perDay = QStringLiteral("199");
        });
        row("a sale may be smaller", "最小买入数量", none, sell);
        row("the same rules every day", "规则变更", passed, nothing);
        row("a price within the limits", "涨跌停", passed, nothing);
        row("a price above the limit", "涨跌停", doubtful,
            [](Situation& s) { s.form.price1 = QStringLiteral("昨收价*2"); });
        row("few plans are no habit", "通常规模", none,
            [](Situation& s) { s.facts.recentPlans.fill(stored("AP1", s.form.side, QStringLiteral("10")), 4); });
        row("ten times the usual", "通常规模", passed,
            [](Situation& s) { s.facts.recentPlans.fill(stored("AP1", s.form.side, QStringLiteral("100")), 5); });
        row("more than that", "通常规模", doubtful,
            [](Situation& s) { s.facts.recentPlans.fill(stored("AP1", s.form.side, QStringLiteral("99")), 5); });
        row("a plan in the same direction", "反向计划", passed,
            [](Situation& s) { s.facts.openPlans << stored("AP1", s.form.side, QStringLiteral("10")); });
        row("a plan in the other direction", "反向计划", doubtful, [](Situation& s) {
            s.facts.openPlans << stored("AP1", Kelvo_Values::OrderSide::sell, QStringLiteral("10"));
        });
        row("two sales of what is held", "合计持仓", passed, [](Situation& s) {
            sell(s);
            s.facts.openPlans << stored("AP1", s.form.side, QStringLiteral("199000"));
        });
        row("two sales of more than is held", "合计持仓", doubtful, [](Situation& s) {
            sell(s);
            s.facts.openPlans << stored("AP1", s.form.side, QStringLiteral("199100"));
        });
        row("a plan that ends in time", "按期完成", passed, nothing);
        row("a plan that does not", "按期完成", doubtful, [](Situation& s) { s.form.perDay = QStringLiteral("100"); });

        row("while facts are being read", "反向计划", Verdict::Open, [](Situation& s) { s.isRead = false; });
        row("after a failed read", "反向计划", Verdict::Open, [](Situation& s) { s.failure = Error::DatabaseBusy; });
    }

    void eachRuleHasItsVerdict()
    {
        QFETCH(Variation, change);
        QFETCH(QString, caption);
        QFETCH(int, kind);
        Situation situation = sound();
        change(situation);
        const Verdict verdict = verdictOf(advised(situation), caption);
        QVERIFY2(verdict.kind == kind, qPrintable(QStringLiteral("%1 %2").arg(int(verdict.kind)).arg(verdict.text)));
    }

    void aPlanThatSpansAChangeOfRulesSaysSo()
    {
        Situation situation = sound();
        situation.form.symbol = symbolOf(Kelvo_Values::MdcSubSecurityType::Gemstock, Kelvo_Values::SymbolPost::sz);
        situation.form.begin = QDate(2020, 8, 20);
        situation.form.end = QDate(2020, 8, 25);
        const AdvisedPlan before = advised(situation, situation.form.begin);
        QCOMPARE(before.security->limitPerMille, 100);
        const Verdict verdict = verdictOf(before, QStringLiteral("规则变更"));
        QCOMPARE(verdict.kind, Verdict::Doubtful);
        QCOMPARE(verdict.text, QStringLiteral("2020-08-24起涨跌幅由10%改为20%"));
        const AdvisedPlan after = advised(situation, QDate(2020, 8, 24));
        QCOMPARE(after.security->limitPerMille, 200);
        QCOMPARE(verdictOf(after, QStringLiteral("规则变更")).kind, Verdict::Passed);
    }

    void aFailedReadGivesItsReason()
    {
        Situation situation = sound();
        situation.failure = Error::DatabaseBusy;
        QCOMPARE(verdictOf(advised(situation), QStringLiteral("反向计划")).text,
            QStringLiteral("数据库正被其他程序或一次导入占用，请稍后再试"));
    }

    void theWorstComesFirst()
    {
        Situation situation = sound();
        situation.form.price1.clear();
        situation.form.target = QStringLiteral("1050");
        const auto rules = RuleList::of(advised(situation));
        const AdvisorRows rows = RuleList::rows(rules);
        QCOMPARE(rows.size(), 42);
        const QStringList failed{ QStringLiteral("✗"), QStringLiteral("价格"), QStringLiteral("未通过：必填") };
        QCOMPARE(rows.constFirst().cells, failed);
        QCOMPARE(rows.constFirst().key, QStringLiteral("lineEdit_price1"));
        QCOMPARE(rows.at(1).cells.constFirst(), QStringLiteral("!"));
        QCOMPARE(rows.constLast().cells.constFirst(), QStringLiteral("–"));
        QCOMPARE(RuleList::summary(rules), QStringLiteral("未通过1项，提醒2项"));
        QCOMPARE(RuleList::summary(RuleList::of(advised(sound()))), QStringLiteral("没有发现问题"));
    }

    void aSoundPlanBreaksNoRule()
    {
        const auto rules = RuleList::of(advised(sound()));
        for (const RuleList::AdvisedRule& rule : rules)
            QVERIFY2(rule.verdict.kind == Verdict::Passed || rule.verdict.kind == Verdict::NotApplicable,
                qPrintable(rule.caption + rule.verdict.text));
    }
};

QTEST_GUILESS_MAIN(RuleListTest)
#include "tst_rule_list.moc"
