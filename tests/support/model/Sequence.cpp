#include "Sequence.h"

#include "PlanVocabulary.h"
#include "TestClock.h"
#include "Today.h"

#include <algorithm>

namespace model {

namespace {

using Maybe = std::optional<Action>;

QString text(const char* words)
{
    return QString::fromUtf8(words);
}

QString quoted(const QString& words)
{
    return QStringLiteral("\"%1\"").arg(words.size() > 40 ? words.left(20) + QStringLiteral("…") : words);
}

QString dayOf(const QDate& date)
{
    return date.toString(Qt::ISODate);
}

Action named(int kind, const QString& sentence)
{
    Action action;
    action.kind = static_cast<StepKind>(kind);
    action.sentence = sentence;
    return action;
}

Action change(int kind, const QString& sentence, std::function<void(World&)> how)
{
    Action action = named(kind, sentence);
    action.change = std::move(how);
    return action;
}

// --- The trader

Maybe choice(const Step& step, const EditorModel& model)
{
    const auto widget = static_cast<Widget>(step.kind);
    const BoxState& box = model.form.boxes.at(static_cast<std::size_t>(widget));
    if (!model.isUsable(widget) || box.items.isEmpty())
        return {};
    // Every second choice of a plan type selects the last one: a reduction, if offered.
    const int fromFirst = step.first % box.items.size();
    const int index = widget == PlanType && step.second % 2 > 0 ? box.items.size() - 1 : fromFirst;
    const Item& item = box.items.at(index);
    Action action = named(
        ChooseInBox, QStringLiteral("choose %1 %2 in %3").arg(captionOf(widget), quoted(item.text), nameOf(widget)));
    action.widget = widget;
    action.index = index;
    return action;
}

Maybe security(const Step& step, const EditorModel& model)
{
    if (!model.isUsable(Symbol))
        return {};
    const int index = step.first % (model.securities.size() + 1);
    const QString symbol = model.securities.value(index);
    Action action = named(ChooseSecurity,
        symbol.isEmpty() ? QStringLiteral("empty the search box le_symbol")
                         : QStringLiteral("choose the security %1").arg(symbol));
    action.text = symbol;
    return action;
}

QString formula(const Step& step)
{
    const QStringList plain{ text("昨收价*1.01"), text("MA5+0.5"), text("max(昨收价,MA20)"), text("12.34"), QString(),
        text("涨停价（）；"), text("50%"), text("x%%1"), QString(QChar(0xFFFD)), QString(301, QLatin1Char('9')) };
    if (step.first % 3 > 0 || step.second == 0)
        return plain.at(step.first % 4);
    if (step.second % 2 > 0)
        return plain.at(step.first % plain.size());
    return QStringLiteral("MA5") + QChar(32 + step.second % 95) + QLatin1Char('1');
}

Maybe line(const Step& step, const EditorModel& model, Widget widget, const QString& words)
{
    if (!model.isUsable(widget))
        return {};
    Action action = named(step.kind, QStringLiteral("type %1 into %2").arg(quoted(words), nameOf(widget)));
    action.widget = widget;
    action.text = words;
    return action;
}

QString remark(const Step& step)
{
    return QStringList{ text("备注"), QString(), text("\"{}\\ 'x'"), text("100%1") }.at(step.first % 4);
}

Maybe entry(const Step& step, const EditorModel& model, Widget widget, const QList<double>& values)
{
    if (!model.isUsable(widget))
        return {};
    const double value = values.at(step.first % values.size());
    Action action =
        named(step.kind, QStringLiteral("enter %1 into %2").arg(QString::number(value, 'g', 15), nameOf(widget)));
    action.widget = widget;
    action.number = value;
    return action;
}

Maybe quantity(const Step& step, const EditorModel& model, Widget widget)
{
    return entry(step, model, widget, { 1000, 210, 2100, 0, 5, 1999.75, 100.005, 30000, 999.99999999999, 2000000000 });
}

Maybe emptying(const Step& step, const EditorModel& model)
{
    const auto widget = static_cast<Widget>(TargetTotal + step.first % NumberCount);
    if (!model.isUsable(widget))
        return {};
    Action action = named(EmptyNumber, QStringLiteral("empty %1").arg(nameOf(widget)));
    action.widget = widget;
    return action;
}

/// The days that a calendar lets a trader choose, at most 40: the first ones, or the last ones if there is no first
/// day.
QList<QDate> choosable(const DateState& state)
{
    QList<QDate> days;
    const QDate first = state.earliest.isValid() ? state.earliest : state.latest.addDays(-40);
    for (QDate day = first; day.isValid() && day <= state.latest && days.size() < 40; day = day.addDays(1)) {
        if (day.dayOfWeek() < Qt::Saturday && !state.excluded.contains(day))
            days.append(day);
    }
    return days;
}

Maybe range(const Step& step, const EditorModel& model)
{
    const DateState& state = model.form.range;
    const QList<QDate> days = choosable(state);
    if (!model.isUsable(Range) || days.isEmpty())
        return {};
    Action action = named(PickRange, QString());
    const int first = step.first % days.size();
    action.start = state.startIsFree ? days.at(first) : state.start;
    action.end = days.at(qMin(first + step.second % 5, days.size() - 1));
    action.sentence = QStringLiteral("choose the days %1 to %2").arg(dayOf(action.start), dayOf(action.end));
    return action;
}

Maybe day(const Step& step, const EditorModel& model)
{
    const QList<QDate> days = choosable(model.form.single);
    if (!model.isUsable(Single) || days.isEmpty())
        return {};
    Action action = named(PickDate, QString());
    action.start = days.at(step.first % days.size());
    action.sentence = QStringLiteral("choose the day %1").arg(dayOf(action.start));
    return action;
}

Maybe algorithms(const Step& step, const EditorModel& model)
{
    if (!model.isUsable(AlgoButton))
        return {};
    const QStringList strategies{ text("TWAP"), text("VWAP"), text("SNIPER"), text("ICEBERG2"), text("sniper") };
    Action action = named(PressAlgorithms, QStringLiteral("press the algorithm button"));
    if (step.first % 8 < strategies.size())
        action.text = strategies.at(step.first % 8);
    action.sentence += action.text.isEmpty() ? QStringLiteral(" and close the panel")
                                             : QStringLiteral(" and confirm %1 in the panel").arg(action.text);
    return action;
}

Maybe ok(const Step& step, const EditorModel& model)
{
    if (!model.isUsable(OkButton))
        return {};
    Action action = acceptance();
    if (step.first % 4 < 3)
        return action;
    const int declined = step.second % action.answers.size();
    action.answers[declined] = 0;
    action.sentence = QStringLiteral("press OK and decline question %1").arg(declined + 1);
    return action;
}

Maybe cancel(const EditorModel& model)
{
    return model.isUsable(CancelButton) ? Maybe(named(PressCancel, QStringLiteral("press Cancel"))) : Maybe();
}

// --- The services

Maybe averages(const Step& step, const EditorModel& model)
{
    const QString other = model.form.symbol == QLatin1String("600000.K_SH") ? text("00700.HK") : text("600000.K_SH");
    const bool forChosen = step.first % 4 < 3;
    Action action = named(AveragesArrive, QString());
    action.text = forChosen ? model.form.symbol : other;
    if (step.second % 4 > 0)
        action.texts = QStringList{ text("MA5"), text("MA250"), text("MA20"), text("MA60"), text("MA10"), text("MA120"),
            text("MA5") }
                           .mid(step.second % 3);
    action.fails = step.second % 5 == 4;
    action.sentence = QStringLiteral("the averages of %1 arrive: %2%3")
                          .arg(quoted(action.text), action.texts.join(QLatin1Char(' ')),
                              action.fails ? QStringLiteral(", with a failure") : QString());
    return action;
}

QStringList instructionTypes()
{
    using namespace AutoPlanInstructionType;
    return { Ordinary, Credit, Bond, HkConnect };
}

Maybe ruleChange(const Step& step, const World& world)
{
    if (world.accounts.isEmpty())
        return {};
    const QString account = world.accounts.at(step.first % world.accounts.size()).tradingAccount;
    const QString type = instructionTypes().at(step.first / 8 % 4);
    const int rule = step.second % 7 == 6 ? 2 : step.second % 2;
    return change(ChangeRule, QStringLiteral("the rule of %1 for type %2 becomes %3").arg(account, type).arg(rule),
        [=](World& changed) { changed.ruleProperties.insert(account + QLatin1Char('/') + type, rule); });
}

Maybe authorityChange(const Step& step, const World& world)
{
    if (world.accounts.isEmpty())
        return {};
    const QString account = world.accounts.at(step.first % world.accounts.size()).tradingAccount;
    const QStringList types = instructionTypes().mid(step.second % 5);
    return change(ChangeAuthority,
        QStringLiteral("%1 is open to types [%2] from now on").arg(account, types.join(QLatin1Char(' '))),
        [=](World& changed) {
            for (ScriptAccount& one : changed.accounts) {
                if (one.tradingAccount == account)
                    one.types = types;
            }
        });
}

Maybe calendarChange(const Step& step)
{
    const QString exchange = exchanges().at(step.first % exchanges().size());
    const int kind = step.second % CalendarCount;
    return change(ChangeCalendar,
        QStringLiteral("the trade dates of %1 become those of kind %2").arg(exchange).arg(kind),
        [=](World& changed) { setCalendar(changed, exchange, static_cast<Calendar>(kind)); });
}

QStringList clientsOf(const World& world, int bits)
{
    QStringList clients;
    for (int i = 0; i < world.accounts.size(); ++i) {
        if ((bits >> i) % 2 > 0)
            clients.append(world.accounts.at(i).clientNo);
    }
    return clients;
}

Maybe signatureChange(const Step& step, const World& world)
{
    const QStringList clients = clientsOf(world, step.first);
    const bool signsWhenAsked = step.second % 2 > 0;
    return change(ChangeSignatures,
        QStringLiteral("unsigned are the clients [%1], who %2 when asked")
            .arg(clients.join(QLatin1Char(' ')), signsWhenAsked ? text("sign") : text("do not sign")),
        [=](World& changed) {
            changed.unsignedClients = clients;
            changed.signsWhenAsked = signsWhenAsked;
        });
}

Maybe kindChange(const Step& step, const char* what, void (*set)(World&, int), int count)
{
    const int kind = step.first % count;
    return change(step.kind, QStringLiteral("the %1 become those of kind %2").arg(text(what)).arg(kind),
        [=](World& changed) { set(changed, kind); });
}

Maybe answerChange(const Step& step)
{
    const QString answer = QStringList{ QString(), QString(), text("资金不足%1"), text(" ") }.at(step.first % 4);
    return change(ChangeServiceAnswer, QStringLiteral("the plan service answers %1 from now on").arg(quoted(answer)),
        [=](World& changed) { changed.createAnswer = changed.modifyAnswer = answer; });
}

Maybe panelAnswerChange(const Step& step)
{
    const QString answer = QStringList{ text("0"), text("策略加载失败"), QString() }.at(step.first % 3);
    return change(ChangePanelAnswer, QStringLiteral("strategies load with %1 from now on").arg(quoted(answer)),
        [=](World& changed) { changed.panelLoadAnswer = answer; });
}

Maybe bondChange(const Step& step)
{
    const bool on = step.first % 2 > 0;
    return change(ChangeBondConversion,
        QStringLiteral("bonds may %1 be converted from now on").arg(on ? QString() : text("not")),
        [=](World& changed) { setBondConversion(changed, on); });
}

// --- The host

QString planIn(const World& world, int number)
{
    const QStringList ids = world.plans.keys();
    const int index = number % (ids.size() * 8 + 2);
    if (index == ids.size() * 8)
        return {};
    return index > ids.size() * 8 ? text("unknown") : ids.at(index / 8);
}

Maybe traderAction(const Step& step, const EditorModel& model)
{
    switch (step.kind) {
    case ChooseSecurity:
        return security(step, model);
    case TypePrice1:
        return line(step, model, Price1, formula(step));
    case TypePrice2:
        return line(step, model, Price2, formula(step));
    case TypeRemark:
        return line(step, model, Remark, remark(step));
    case EnterTargetTotal:
        return quantity(step, model, TargetTotal);
    case EnterDayMax:
        return quantity(step, model, DayMax);
    case EnterRatio:
        return entry(step, model, Ratio, { 0.25, 1, 0, 0.12345, 0.5 });
    case EmptyNumber:
        return emptying(step, model);
    case PickRange:
        return range(step, model);
    case PickDate:
        return day(step, model);
    case PressAlgorithms:
        return algorithms(step, model);
    case PressOk:
        return ok(step, model);
    case PressCancel:
        return cancel(model);
    default:
        return choice(step, model);
    }
}

Maybe serviceAction(const Step& step, const World& world)
{
    switch (step.kind) {
    case StrategiesArrive:
        return named(StrategiesArrive, QStringLiteral("the strategies arrive"));
    case ChangeRule:
        return ruleChange(step, world);
    case ChangeAuthority:
        return authorityChange(step, world);
    case ChangeUsers:
        return kindChange(step, "users", setUsers, UserKinds);
    case ChangeAlgorithms:
        return kindChange(step, "algorithms", setAlgorithms, AlgorithmKinds);
    case ChangeHoldings:
        return kindChange(step, "holdings", setHoldings, HoldingKinds);
    case ChangeSpent:
        return kindChange(step, "instructions", setSpending, SpendingKinds);
    case ChangeSignatures:
        return signatureChange(step, world);
    case ChangeCalendar:
        return calendarChange(step);
    case ChangeServiceAnswer:
        return answerChange(step);
    case ChangePanelAnswer:
        return panelAnswerChange(step);
    case ChangeBondConversion:
        return bondChange(step);
    default:
        return change(NextDay, QStringLiteral("the next day begins"), [](World&) { setToday(today().addDays(1)); });
    }
}

} // namespace

World worldOf(const Seeds& seeds)
{
    const QDate days[] = { QDate(2024, 5, 6), QDate(2024, 5, 10), QDate(2024, 2, 29), QDate(2024, 12, 31) };
    setToday(days[seeds.today % 4]);
    World world = exploredWorld();
    for (const int kind : seeds.accounts)
        addAccount(world, kind % AccountKindCount);
    for (std::size_t i = 0; i < seeds.rules.size() && !world.accounts.isEmpty(); ++i) {
        const QString account = world.accounts.at(static_cast<int>(i) / 4 % world.accounts.size()).tradingAccount;
        world.ruleProperties.insert(
            account + QLatin1Char('/') + instructionTypes().at(static_cast<int>(i) % 4), seeds.rules.at(i) % 3);
    }
    for (std::size_t i = 0; i < seeds.calendars.size(); ++i)
        setCalendar(world, exchanges().value(static_cast<int>(i)),
            static_cast<Calendar>(seeds.calendars.at(i) % CalendarCount));
    setUsers(world, seeds.users % UserKinds);
    setAlgorithms(world, seeds.algorithms % AlgorithmKinds);
    setHoldings(world, seeds.holdings % HoldingKinds);
    setSpending(world, seeds.spent % SpendingKinds);
    world.unsignedClients = clientsOf(world, seeds.unsignedClients);
    for (const std::vector<int>& numbers : seeds.plans)
        world.storePlan(planOf(world, numbers));
    return world;
}

QStringList described(const Seeds& seeds)
{
    QStringList sentences{ QStringLiteral("users %1, algorithms %2, holdings %3, instructions %4")
                               .arg(seeds.users)
                               .arg(seeds.algorithms)
                               .arg(seeds.holdings)
                               .arg(seeds.spent) };
    for (std::size_t i = 0; i < seeds.calendars.size(); ++i)
        sentences.append(QStringLiteral("trade dates of %1 are of kind %2")
                             .arg(exchanges().value(static_cast<int>(i)))
                             .arg(seeds.calendars.at(i) % CalendarCount));
    return sentences;
}

QStringList described(const World& world)
{
    QStringList sentences{ QStringLiteral("today is %1, unsigned are [%2]")
                               .arg(dayOf(today()), world.unsignedClients.join(QLatin1Char(' '))) };
    for (const ScriptAccount& account : world.accounts)
        sentences.append(QStringLiteral("account %1 (%2, client %3)%4 on [%5] for types [%6]")
                             .arg(account.tradingAccount, account.fundAccount, account.clientNo,
                                 account.isCredit ? text(", credit,") : QString(),
                                 account.exchanges.join(QLatin1Char(' ')), account.types.join(QLatin1Char(' '))));
    for (auto it = world.ruleProperties.cbegin(); it != world.ruleProperties.cend(); ++it) {
        if (it.value() != 0)
            sentences.append(QStringLiteral("rule of %1 is %2").arg(it.key()).arg(it.value()));
    }
    for (auto it = world.plans.cbegin(); it != world.plans.cend(); ++it)
        sentences.append(QStringLiteral("stored %1: %2").arg(it.key(), readable(it.value())));
    return sentences;
}

Action opening(StepKind kind, const QString& planId)
{
    Action action = named(kind,
        QStringLiteral("the host calls %1(%2)")
            .arg(kind == EditPlan ? text("editPlan") : text("copyPlan"), quoted(planId)));
    action.text = planId;
    return action;
}

Action acceptance()
{
    Action action = named(PressOk, QStringLiteral("press OK and accept every question"));
    action.answers = QList<int>{ 1, 2, -1, 4 };
    return action;
}

std::optional<Action> actionOf(const Step& step, const EditorModel& model, const World& world)
{
    if (step.kind <= PressCancel)
        return traderAction(step, model);
    if (step.kind == AveragesArrive)
        return averages(step, model);
    if (step.kind <= NextDay)
        return serviceAction(step, world);
    if (step.kind == EditPlan || step.kind == CopyPlan)
        return opening(static_cast<StepKind>(step.kind), planIn(world, step.first));
    if (step.kind == ResetEnable)
        return named(ResetEnable, QStringLiteral("the host calls resetEnable()"));
    return named(HideOrShow,
        model.shown ? QStringLiteral("the host hides the window") : QStringLiteral("the host shows the window"));
}

void apply(const Action& action, EditorModel& model)
{
    switch (action.kind) {
    case ChooseInBox:
        return model.choose(action.widget, action.index);
    case ChooseSecurity:
        return model.chooseSecurity(action.text);
    case TypePrice1:
    case TypePrice2:
    case TypeRemark:
        return model.type(action.widget, action.text);
    case EnterTargetTotal:
    case EnterDayMax:
    case EnterRatio:
        return model.enter(action.widget, action.number);
    case EmptyNumber:
        return model.empty(action.widget);
    case PickRange:
        return model.pickRange(action.start, action.end);
    case PickDate:
        return model.pickDate(action.start);
    case PressAlgorithms:
        return model.pressAlgorithms();
    case PressOk:
        return model.pressOk(action.answers);
    case PressCancel:
        return model.pressCancel();
    case AveragesArrive:
        return model.averagesArrive(action.text, action.texts, action.fails ? QStringLiteral("查询失败") : QString());
    case StrategiesArrive:
        return model.strategiesArrive();
    case EditPlan:
        return model.editPlan(action.text);
    case CopyPlan:
        return model.copyPlan(action.text);
    case ResetEnable:
        return model.resetEnable();
    case HideOrShow:
        model.shown = !model.shown;
        return;
    default:
        return;
    }
}

} // namespace model
