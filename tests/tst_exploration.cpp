#include "Exploration.h"
#include "RoundTrip.h"
#include "TestClock.h"
#include "Today.h"

#include <QApplication>

#include <rapidcheck.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <random>

// Runs random actions of traders, hosts and services on the editor and its model. Arguments: the number of sequences,
// and the seed.

namespace model {

/// What RapidCheck prints of a sequence; the steps are printed where one fails.
static void showValue(const Sequence& sequence, std::ostream& out)
{
    out << sequence.steps.size() << " steps, listed below";
}

} // namespace model

namespace {

using model::Exploration;
using model::Seeds;
using model::Sequence;
using model::Step;

constexpr int StepsPerSequence = 30;
/// More steps are generated than executed: some are impossible at their position.
constexpr int StepsDrawn = 60;
constexpr int DefaultSequences = 1000;
/// Seconds after which a sequence counts as hanging.
constexpr unsigned LongestSequence = 20;

struct Tally {
    qint64 sequences = 0;
    qint64 steps = 0;
    qint64 sent = 0;
    qint64 trips = 0;
};

Tally& tally()
{
    static Tally counted;
    return counted;
}

class Dice {
public:
    explicit Dice(const rc::Random& random)
        : m_random(random)
    {
    }

    int upTo(int count) { return static_cast<int>(m_random.next() % static_cast<std::uint64_t>(count)); }
    bool oneIn(int count) { return upTo(count) == 0; }
    std::vector<int> several(int many, int count)
    {
        std::vector<int> drawn;
        drawn.reserve(static_cast<std::size_t>(many));
        for (int i = 0; i < many; ++i)
            drawn.push_back(upTo(count));
        return drawn;
    }

private:
    rc::Random m_random;
};

Seeds drawSeeds(Dice& dice)
{
    Seeds seeds;
    seeds.accounts = dice.several(dice.oneIn(12) ? 0 : 1 + dice.upTo(3), model::AccountKindCount);
    // Half of the accounts are of the kinds that allow the most actions.
    for (int& kind : seeds.accounts)
        kind = dice.oneIn(2) ? 2 * dice.upTo(2) : kind;
    seeds.rules = dice.several(16, 6);
    for (int& rule : seeds.rules)
        rule = rule == 5 ? 2 : rule % 2;
    seeds.calendars = dice.oneIn(3) ? dice.several(4, model::CalendarCount) : std::vector<int>();
    for (int i = dice.oneIn(8) ? 0 : 1 + dice.upTo(3); i > 0; --i)
        seeds.plans.push_back(dice.several(model::PlanNumbers, 60));
    seeds.today = dice.upTo(4);
    seeds.users = dice.oneIn(4) ? dice.upTo(3) : 0;
    seeds.algorithms = dice.oneIn(3) ? dice.upTo(4) : 0;
    seeds.holdings = dice.upTo(3);
    seeds.spent = dice.oneIn(2) ? dice.upTo(4) : 0;
    seeds.unsignedClients = dice.oneIn(4) ? dice.upTo(16) : 0;
    return seeds;
}

constexpr int Any = -1;

/// What a trader does from top to bottom.
std::vector<Step> filling()
{
    using namespace model;
    std::vector<Step> steps;
    for (const int kind : { int(FundAccount), int(InstructionType), int(TargetType), int(PlanType), int(ChooseSecurity),
             int(TradeSide), int(EntrustType), int(PriceType), int(PriceMode), int(TypePrice1), int(TypePrice2),
             int(EnterTargetTotal), int(EnterDayMax), int(EnterRatio), int(InstructionMode), int(PressAlgorithms),
             int(AssignTo), int(PickRange), int(PickDate), int(TypeRemark), int(PressOk), int(PressOk) })
        steps.push_back(Step{ kind, Any, Any });
    return steps;
}

/// A plan by algorithm, whose side and account change after its parameters were confirmed.
std::vector<Step> algorithm()
{
    using namespace model;
    return { { FundAccount, Any, 0 }, { TargetType, Any, 0 }, { ChooseSecurity, Any, 0 }, { EnterTargetTotal, 0, 0 },
        { PriceMode, Any, 0 }, { TypePrice1, 0, 0 }, { TypePrice2, 1, 0 }, { TradeSide, Any, 0 },
        { EntrustType, Any, 0 }, { InstructionMode, 1, 0 }, { PressAlgorithms, Any, 0 }, { TradeSide, Any, 0 },
        { PressOk, 0, 0 }, { PressAlgorithms, Any, 0 }, { PressOk, Any, Any } };
}

/// A holdings reduction.
std::vector<Step> reduction()
{
    using namespace model;
    return { { FundAccount, Any, 0 }, { InstructionType, 0, 0 }, { PlanType, 0, 1 }, { ChooseSecurity, Any, 0 },
        { PriceMode, 1, 0 }, { TypePrice1, 1, 0 }, { EnterDayMax, Any, 0 }, { EnterTargetTotal, Any, 0 },
        { EnterRatio, Any, 0 }, { AssignTo, Any, 0 }, { PickDate, Any, 0 }, { PressOk, Any, Any } };
}

/// A stored plan is opened, changed and sent while the days go by.
std::vector<Step> editing()
{
    using namespace model;
    return { { EditPlan, Any, 0 }, { PriceMode, Any, 0 }, { TypePrice1, Any, Any }, { TypePrice2, 1, 0 },
        { PickRange, Any, Any }, { PickDate, Any, 0 }, { PressOk, 0, 0 }, { NextDay, 0, 0 }, { PressOk, 0, 0 },
        { ResetEnable, 0, 0 }, { PressOk, 0, 0 } };
}

std::vector<Step> pattern(int number)
{
    switch (number) {
    case 0:
        return algorithm();
    case 1:
        return reduction();
    case 2:
        return editing();
    case 3:
    case 4:
        return filling();
    default:
        return {};
    }
}

int drawKind(Dice& dice)
{
    using namespace model;
    const int dealt = dice.upTo(100);
    if (dealt < 45)
        return dice.upTo(EmptyNumber);
    if (dealt < 60)
        return dice.oneIn(2) ? static_cast<int>(PressOk) : static_cast<int>(ChooseSecurity);
    if (dealt < 68)
        return dice.oneIn(2) ? static_cast<int>(EditPlan) : static_cast<int>(CopyPlan);
    return dice.upTo(StepKindCount);
}

Step drawStep(Dice& dice, Step step)
{
    const bool takesFirst = step.kind == model::TargetType && !dice.oneIn(4);
    if (step.first == Any)
        step.first = takesFirst ? 0 : dice.upTo(64 * 3);
    if (step.second == Any)
        step.second = dice.upTo(210);
    return step;
}

void append(Sequence& sequence, const std::vector<Step>& steps, Dice& dice)
{
    for (const Step& step : steps)
        sequence.steps.push_back(drawStep(dice, step));
}

void appendAny(Sequence& sequence, int count, Dice& dice)
{
    for (int i = 0; i < count; ++i)
        sequence.steps.push_back(drawStep(dice, Step{ drawKind(dice), Any, Any }));
}

Sequence drawSequence(const rc::Random& random)
{
    Dice dice(random);
    Sequence sequence;
    sequence.seeds = drawSeeds(dice);
    appendAny(sequence, dice.upTo(4), dice);
    if (!dice.oneIn(4))
        append(sequence, { Step{ model::FundAccount, Any, Any } }, dice);
    append(sequence, pattern(dice.upTo(8)), dice);
    appendAny(sequence, StepsDrawn - static_cast<int>(sequence.steps.size()), dice);
    return sequence;
}

/// A form that only a trader touches, filled from top to bottom again and again.
Sequence drawTrader(const rc::Random& random)
{
    Dice dice(random);
    Sequence sequence;
    sequence.seeds = drawSeeds(dice);
    sequence.seeds.plans.clear();
    sequence.seeds.spent = 0;
    std::vector<Step> first = filling();
    if (dice.oneIn(4))
        first.insert(first.end() - 2, Step{ model::EmptyNumber, 1, 0 });
    append(sequence, first, dice);
    append(sequence, pattern(dice.upTo(2)), dice);
    append(sequence, filling(), dice);
    return sequence;
}

// --- Shrinking

rc::Seq<int> smaller(int number)
{
    return rc::shrink::towards(number, 0);
}

rc::Seq<Step> simpler(const Step& step)
{
    return rc::seq::concat(rc::seq::map(smaller(step.first),
                               [=](int first) {
                                   return Step{ step.kind, first, step.second };
                               }),
        rc::seq::map(smaller(step.second), [=](int second) {
            return Step{ step.kind, step.first, second };
        }));
}

template <class Member> rc::Seq<Sequence> withLess(const Sequence& sequence, Member Seeds::*member)
{
    return rc::seq::map(rc::shrink::removeChunks(sequence.seeds.*member), [=](const Member& less) {
        Sequence changed = sequence;
        changed.seeds.*member = less;
        return changed;
    });
}

rc::Seq<Sequence> withSmaller(const Sequence& sequence, std::vector<int> Seeds::*member)
{
    return rc::seq::map(rc::shrink::eachElement(sequence.seeds.*member, smaller), [=](const std::vector<int>& numbers) {
        Sequence changed = sequence;
        changed.seeds.*member = numbers;
        return changed;
    });
}

rc::Seq<Sequence> withSmaller(const Sequence& sequence, int Seeds::*member)
{
    return rc::seq::map(smaller(sequence.seeds.*member), [=](int number) {
        Sequence changed = sequence;
        changed.seeds.*member = number;
        return changed;
    });
}

rc::Seq<Sequence> withSmallerPlans(const Sequence& sequence)
{
    const auto simplerPlan = [](const std::vector<int>& numbers) { return rc::shrink::eachElement(numbers, smaller); };
    return rc::seq::map(
        rc::shrink::eachElement(sequence.seeds.plans, simplerPlan), [=](const std::vector<std::vector<int>>& plans) {
            Sequence changed = sequence;
            changed.seeds.plans = plans;
            return changed;
        });
}

rc::Seq<Sequence> withSteps(const Sequence& sequence, const rc::Seq<std::vector<Step>>& alternatives)
{
    return rc::seq::map(alternatives, [=](const std::vector<Step>& steps) {
        Sequence changed = sequence;
        changed.steps = steps;
        return changed;
    });
}

rc::Seq<Sequence> shrunk(const Sequence& sequence)
{
    return rc::seq::concat(withSteps(sequence, rc::shrink::removeChunks(sequence.steps)),
        withLess(sequence, &Seeds::plans), withLess(sequence, &Seeds::accounts), withLess(sequence, &Seeds::calendars),
        withLess(sequence, &Seeds::rules), withSmaller(sequence, &Seeds::accounts),
        withSmaller(sequence, &Seeds::rules), withSmaller(sequence, &Seeds::calendars), withSmallerPlans(sequence),
        withSmaller(sequence, &Seeds::today), withSmaller(sequence, &Seeds::users),
        withSmaller(sequence, &Seeds::algorithms), withSmaller(sequence, &Seeds::holdings),
        withSmaller(sequence, &Seeds::spent), withSmaller(sequence, &Seeds::unsignedClients),
        withSteps(sequence, rc::shrink::eachElement(sequence.steps, simpler)));
}

rc::Gen<Sequence> sequences()
{
    return [](const rc::Random& random, int) {
        return rc::shrinkable::shrinkRecur(drawSequence(random), [](const Sequence& one) { return shrunk(one); });
    };
}

rc::Gen<Sequence> tradersOnly()
{
    return [](const rc::Random& random, int) {
        return rc::shrinkable::shrinkRecur(drawTrader(random), [](const Sequence& one) { return shrunk(one); });
    };
}

// --- The properties

const Exploration* S_running = nullptr;

QStringList indented(const QStringList& sentences)
{
    QStringList lines;
    for (const QString& sentence : sentences)
        lines.append(QStringLiteral("  ") + sentence);
    return lines;
}

std::string report(const QStringList& history, const QStringList& differences)
{
    QStringList lines = QStringList{ QStringLiteral("To follow it:") } + indented(history);
    if (!differences.isEmpty())
        lines += QStringList{ QStringLiteral("Then these differ:") } + indented(differences);
    return lines.join(QLatin1Char('\n')).toStdString();
}

/// The last output of a process that crashes or hangs in the editor.
void tellAndDie(int signal)
{
    std::signal(signal, SIG_DFL);
    if (S_running != nullptr)
        std::fprintf(stderr, "\n%s\nThe program was ended there by signal %d\n",
            report(S_running->history(), {}).c_str(), signal);
    std::raise(signal);
}

/// Executes steps until there are enough of them, or editor and model differ.
int run(Exploration& exploration, const Sequence& sequence, int wanted, const std::function<void()>& afterEach)
{
    S_running = &exploration;
    alarm(LongestSequence);
    int taken = 0;
    for (const Step& step : sequence.steps) {
        if (taken == wanted || !exploration.differences().isEmpty())
            break;
        if (!exploration.take(step))
            continue;
        ++taken;
        afterEach();
    }
    alarm(0);
    S_running = nullptr;
    return taken;
}

void editorDoesWhatItsModelSays(const Sequence& sequence)
{
    Exploration exploration(worldOf(sequence.seeds));
    tally().steps += run(exploration, sequence, StepsPerSequence, [] {});
    ++tally().sequences;
    tally().sent += exploration.sent();
    if (!exploration.differences().isEmpty())
        RC_FAIL(report(described(sequence.seeds) + exploration.history(), exploration.differences()));
}

void plansComeBackAsTheyWereSent(const Sequence& sequence)
{
    // Each with the clock at the day on which its plan was created.
    QMap<QString, QPair<QDate, World>> worlds;
    {
        Exploration exploration(worldOf(sequence.seeds));
        run(exploration, sequence, static_cast<int>(sequence.steps.size()), [&] {
            if (!exploration.created().isEmpty())
                worlds.insert(exploration.created(), { today(), exploration.world() });
        });
    }
    RC_PRE(!worlds.isEmpty());
    for (auto it = worlds.cbegin(); it != worlds.cend(); ++it) {
        ++tally().trips;
        setToday(it.value().first);
        const QStringList errors = model::roundTripErrors(it.value().second, it.key());
        if (!errors.isEmpty())
            RC_FAIL(report(errors, {}));
    }
}

bool check(const char* description, int count, quint64 seed, const std::function<void()>& property)
{
    rc::detail::TestMetadata metadata;
    metadata.id = metadata.description = description;
    rc::detail::TestParams parameters;
    parameters.seed = seed;
    parameters.maxSuccess = count;
    parameters.maxDiscardRatio = 50;
    std::fprintf(stderr, "%s\n", description);
    const rc::detail::TestResult result = rc::detail::checkTestable(property, metadata, parameters);
    rc::detail::printResultMessage(result, std::cerr);
    std::cerr << std::endl;
    return result.template is<rc::detail::SuccessResult>();
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    for (const int signal : { SIGSEGV, SIGABRT, SIGFPE, SIGALRM })
        std::signal(signal, tellAndDie);
    const QStringList arguments = QCoreApplication::arguments();
    const int count = arguments.size() > 1 ? arguments.at(1).toInt() : DefaultSequences;
    const quint64 seed = arguments.size() > 2 ? arguments.at(2).toULongLong() : std::random_device()();
    // Without an explicit seed the library would print a different one than it uses.
    if (!qEnvironmentVariableIsSet("RC_PARAMS"))
        qputenv("RC_PARAMS", "seed=" + QByteArray::number(seed));
    const bool explored =
        check("The editor does what its model says", count, seed, [] { editorDoesWhatItsModelSays(*sequences()); });
    const bool travelled = check("A plan that was sent comes back as it was sent", count / 8, seed,
        [] { plansComeBackAsTheyWereSent(*tradersOnly()); });
    std::printf("sequences %lld steps %lld plans sent %lld round trips %lld seed %llu\n", tally().sequences,
        tally().steps, tally().sent, 4 * tally().trips, seed);
    return explored && travelled ? 0 : 1;
}
