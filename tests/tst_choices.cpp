#include "Exploration.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "TestClock.h"

#include <QtTest>

using namespace model;

namespace {

/// The texts in a list whose bits are set.
QStringList subset(const QStringList& all, int bits)
{
    QStringList chosen;
    for (int i = 0; i < all.size(); ++i) {
        if ((bits >> i) % 2 > 0)
            chosen.append(all.at(i));
    }
    return chosen;
}

QStringList instructionTypes()
{
    using namespace AutoPlanInstructionType;
    return { Ordinary, Credit, Bond, HkConnect };
}

/// The differences between editor and model, and the steps that led to them; empty if they agree.
QString report(const Exploration& exploration)
{
    if (exploration.differences().isEmpty())
        return {};
    return (exploration.history() + exploration.differences()).join(QLatin1Char('\n'));
}

int itemsOf(const Exploration& exploration, Widget box)
{
    return exploration.model().form.boxes.at(static_cast<std::size_t>(box)).items.size();
}

/// The combo boxes below the account, in their order in the form.
constexpr Widget Boxes[] = { InstructionType, TargetType, PlanType, TradeSide, EntrustType, PriceType, PriceMode,
    InstructionMode, AssignTo };

} // namespace

/// Every account and every pair of choices: compares the whole form and the calls of the services with the model.
class ChoicesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { setToday(QDate(2024, 5, 6)); }

    void everyAccountIsOfferedAsItsAuthoritiesAndExchangesAllow_data()
    {
        QTest::addColumn<bool>("isCredit");
        QTest::newRow("credit accounts") << true;
        QTest::newRow("other accounts") << false;
    }

    void everyAccountIsOfferedAsItsAuthoritiesAndExchangesAllow()
    {
        QFETCH(bool, isCredit);
        for (int held = 0; held < 16; ++held) {
            for (int allowed = 0; allowed < 16; ++allowed) {
                World world = exploredWorld();
                world.addAccount(
                    QStringLiteral("acc1"), subset(exchanges(), held), subset(instructionTypes(), allowed), isCredit);
                QCOMPARE(report(Exploration(world)), QString());
            }
        }
    }

    void everyPairOfAccountsLeavesItsChoice()
    {
        for (int pair = 0; pair < AccountKindCount * AccountKindCount; ++pair) {
            World world = exploredWorld();
            model::addAccount(world, pair / AccountKindCount);
            model::addAccount(world, pair % AccountKindCount);
            Exploration exploration(world);
            QCOMPARE(report(exploration), QString());
            for (const int account : { 0, 1, 0 }) {
                exploration.take(Step{ FundAccount, account, 0 });
                QCOMPARE(report(exploration), QString());
            }
        }
    }

    void everyPairOfChoicesCascades_data()
    {
        QTest::addColumn<bool>("isCredit");
        QTest::addColumn<int>("rule");
        // The last one is unknown.
        for (const int rule : { AutoPlanRuleProperty::NoReview, AutoPlanRuleProperty::Review, 2 }) {
            QTest::addRow("a credit account under rule %d", rule) << true << rule;
            QTest::addRow("an ordinary account under rule %d", rule) << false << rule;
        }
    }

    void everyPairOfChoicesCascades()
    {
        QFETCH(bool, isCredit);
        QFETCH(int, rule);
        World world = exploredWorld();
        world.ruleProperty = rule;
        setBondConversion(world, true);
        if (isCredit)
            world.addCreditAccount(QStringLiteral("acc1"));
        else
            world.addOrdinaryAccount(QStringLiteral("acc1"));
        Exploration exploration(world);
        exploration.take(Step{ PressAlgorithms, 0, 0 });
        for (int type = 0; type < itemsOf(exploration, InstructionType); ++type) {
            exploration.take(Step{ InstructionType, type, 0 });
            for (const Widget first : Boxes) {
                for (const Widget second : Boxes) {
                    chooseEveryPair(exploration, first, second);
                    QCOMPARE(report(exploration), QString());
                }
            }
        }
    }

    void everySecurityIsShownAndReported_data() { everyPairOfChoicesCascades_data(); }

    void everySecurityIsShownAndReported()
    {
        QFETCH(bool, isCredit);
        QFETCH(int, rule);
        World world = exploredWorld();
        world.ruleProperty = rule;
        if (isCredit)
            world.addCreditAccount(QStringLiteral("acc1"));
        else
            world.addOrdinaryAccount(QStringLiteral("acc1"));
        Exploration exploration(world);
        for (int type = 0; type < itemsOf(exploration, InstructionType); ++type) {
            exploration.take(Step{ InstructionType, type, 0 });
            for (int target = 0; target < itemsOf(exploration, TargetType); ++target) {
                exploration.take(Step{ TargetType, target, 0 });
                const int securities = exploration.model().securities.size();
                // The last choice clears the box.
                for (int i = 0; i <= securities; ++i) {
                    for (const int priceMode : { 1, 2, 0 })
                        takeAll(exploration,
                            { Step{ ChooseSecurity, i, 0 }, Step{ TypePrice1, 1, 0 }, Step{ AveragesArrive, 0, 1 },
                                Step{ PriceMode, priceMode, 0 }, Step{ TypePrice1, 1, 0 }, Step{ TypePrice2, 1, 0 },
                                Step{ AveragesArrive, 0, 2 }, Step{ AveragesArrive, 0, 4 } });
                    QCOMPARE(report(exploration), QString());
                }
            }
        }
    }

private:
    /// Stops where editor and model differ.
    static void takeAll(Exploration& exploration, const QList<Step>& steps)
    {
        for (const Step& step : steps) {
            if (exploration.differences().isEmpty())
                exploration.take(step);
        }
    }

    /// Chooses each item of the first box and then each item of the second, with a security and a price where possible.
    static void chooseEveryPair(Exploration& exploration, Widget first, Widget second)
    {
        takeAll(exploration, { Step{ ChooseSecurity, 0, 0 } });
        for (int i = 0; i < itemsOf(exploration, first); ++i) {
            takeAll(exploration, { Step{ first, i, 0 }, Step{ ChooseSecurity, 1, 0 }, Step{ TypePrice1, 1, 0 } });
            for (int j = 0; j < itemsOf(exploration, second); ++j)
                takeAll(exploration, { Step{ second, j, 0 } });
        }
    }
};

QTEST_MAIN(ChoicesTest)
#include "tst_choices.moc"
