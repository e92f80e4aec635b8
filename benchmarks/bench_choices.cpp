// Measures a single choice and all resulting updates of the form, without painting.
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "CBusinessDataBase.h"
#include "InstructionTargetType.h"
#include "Kelvo_Values.h"
#include "Orlo_Values.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QComboBox>

namespace {

const QString OrdinaryAccount = QStringLiteral("100002");
const QString CreditAccount = QStringLiteral("200001");

/// A change of a box from one code to another.
struct Choice {
    const char* box;
    QString from;
    QString to;
};

/// An editor in which the boxes before the measured one have been set.
class PreparedEditor {
public:
    PreparedEditor()
        : m_editor(nullptr)
    {
        showPainted(m_editor);
        m_editor.setUpdatesEnabled(false);
    }

    void select(const char* box, const QString& code)
    {
        auto* const found = m_editor.findChild<QComboBox*>(QLatin1String(box));
        const int index = found->findData(code);
        if (index < 0)
            qFatal("%s does not offer %s", box, qPrintable(code));
        found->setCurrentIndex(index);
    }

    VorSearchBox* search() { return m_editor.findChild<VorSearchBox*>(); }

private:
    AutoParamSetting m_editor;
};

QString firstOf(const QString& type, const QString& subType, int position)
{
    const auto symbols =
        CBusinessDataBase::GetInstance()->GetAllSymbolByType(type, subType, QString(), false, QStringList());
    return symbols.runs().value(0).value(position);
}

QString share(int position)
{
    return firstOf(Kelvo_Values::MdcSecurityType::StockType, Kelvo_Values::MdcSubSecurityType::Ashares, position);
}

void prepareFor(PreparedEditor& editor, const QString& account, const QString& type)
{
    editor.select("combx_fundAccount", account);
    editor.select("combx_instructionType", type);
    editor.search()->setSymbol(share(0));
    editor.select("combx_priceMode", AutoPlanPriceModel::Custom);
    settle();
}

void choose(benchmark::State& state, const QString& account, const QString& type, const Choice& choice)
{
    PreparedEditor editor;
    prepareFor(editor, account, type);
    Timing timing(state);
    for (auto _ : state) {
        editor.select(choice.box, choice.from);
        settle();
        timing.run([&] { editor.select(choice.box, choice.to); });
    }
}

void chooseSecurity(benchmark::State& state, const QString& account, const QString& type)
{
    PreparedEditor editor;
    prepareFor(editor, account, type);
    Timing timing(state);
    for (auto _ : state) {
        editor.search()->setSymbol(share(0));
        settle();
        timing.run([&] { editor.search()->setSymbol(share(1)); });
    }
}

void measure(const char* name, const QString& account, const QString& type, const Choice& choice)
{
    const std::string full = std::string(name) + '/' + qPrintable(choice.to);
    benchmark::RegisterBenchmark(full.c_str(), choose, account, type, choice)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

void measureBoth(const char* name, const QString& account, const QString& type, const Choice& choice)
{
    measure(name, account, type, choice);
    measure(name, account, type, { choice.box, choice.to, choice.from });
}

void registerChoices()
{
    namespace Type = AutoPlanInstructionType;
    namespace Mode = AutoPlanInstMode;
    namespace Target = InstructionTargetType;
    measureBoth("account", OrdinaryAccount, Type::Ordinary, { "combx_fundAccount", CreditAccount, OrdinaryAccount });
    measureBoth(
        "instruction type", OrdinaryAccount, Type::Ordinary, { "combx_instructionType", Type::Ordinary, Type::Bond });
    measure("instruction type", OrdinaryAccount, Type::Ordinary,
        { "combx_instructionType", Type::Ordinary, Type::HkConnect });
    measureBoth("target type", OrdinaryAccount, Type::Ordinary,
        { "combx_instructionTargetType", Target::QtyOrder, Target::AmountOrder });
    measureBoth("plan type", OrdinaryAccount, Type::Ordinary,
        { "combx_planType", AutoPlanTemplate::SameElements, AutoPlanTemplate::ReduceHoldings });
    measureBoth("side", CreditAccount, Type::Credit,
        { "combx_tradeSide", Kelvo_Values::OrderSide::buy, Kelvo_Values::OrderSide::sell });
    measureBoth("price type", OrdinaryAccount, Type::HkConnect,
        { "combx_priceType", Orlo_Values::HKTimeInForce::InTrade, Orlo_Values::HKTimeInForce::BeforeTrade });
    measureBoth("price mode", OrdinaryAccount, Type::Ordinary,
        { "combx_priceMode", AutoPlanPriceModel::NoLimit, AutoPlanPriceModel::CompareMax });
    measureBoth("mode", OrdinaryAccount, Type::Ordinary,
        { "combx_instructionMode", Mode::NormalTradeReview, Mode::AlgoTradeReview });
    benchmark::RegisterBenchmark("security/ordinary", chooseSecurity, OrdinaryAccount, Type::Ordinary)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("security/credit", chooseSecurity, CreditAccount, Type::Credit)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    registerChoices();
    return client.run();
}
