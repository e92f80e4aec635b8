// Measures the advisor's slowest update after a key or a choice in the form, compared with painting the same panel
// once without computing anything. The period has 260 trade days.
#include "AdvisorPanel.h"
#include "AutoParamSetting.h"
#include "BenchmarkClient.h"
#include "CBusinessDataBase.h"
#include "ClientSession.h"
#include "Kelvo_Values.h"
#include "OrloDateEdit.h"
#include "PlanVocabulary.h"
#include "VorSearchBox.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>

#include <algorithm>
#include <limits>

namespace {

constexpr int TradeDays = 260;
const QString Account = QStringLiteral("100002");

/// A change of the form, like a trader's.
using Change = std::function<void()>;

/// The form with the advisor beside it. The form's own painting is not measured.
class AdvisedForm {
public:
    AdvisedForm()
        : m_editor(new AutoParamSetting(&m_window))
        , m_panel(new AdvisorPanel(&m_window))
    {
        auto* const halves = new QHBoxLayout(&m_window);
        halves->addWidget(m_editor);
        halves->addWidget(m_panel);
        m_panel->follow(m_editor);
        showPainted(m_window);
        fill();
        m_editor->setUpdatesEnabled(false);
        settlePanel();
    }

    AdvisorPanel& panel() { return *m_panel; }

    /// The slowest of the updates that follow a change, of which the last shows what was read for it, in seconds.
    double slowestUpdate(const Change& change)
    {
        change();
        double slowest = 0;
        do {
            slowest = std::max(slowest, secondsOf([] { QCoreApplication::processEvents(); }));
        } while (!m_panel->isSettled());
        return std::max(slowest, secondsOf([] { QCoreApplication::processEvents(); }));
    }

    /// Changes back and forth, so that each begins where the one before has ended.
    QVector<Change> changes()
    {
        return {
            [this] { key("le_targetTotalNum", Qt::Key_0); },
            [this] { key("le_targetTotalNum", Qt::Key_Backspace); },
            [this] { key("lineEdit_price1", Qt::Key_9); },
            [this] { key("lineEdit_price1", Qt::Key_Backspace); },
            [this] { key("le_remark", Qt::Key_A); },
            [this] { select("combx_planType", AutoPlanTemplate::AverageQty); },
            [this] { select("combx_planType", AutoPlanTemplate::CumulativeQty); },
            [this] { select("combx_tradeSide", Kelvo_Values::OrderSide::sell); },
            [this] { select("combx_tradeSide", Kelvo_Values::OrderSide::buy); },
            [this] { setPeriod(TradeDays / 2); },
            [this] { setPeriod(TradeDays); },
            [this] { chooseSecurity(1); },
            [this] { chooseSecurity(0); },
        };
    }

private:
    template <class Widget> Widget* find(const char* name) { return m_editor->findChild<Widget*>(QLatin1String(name)); }

    void select(const char* name, const QString& code)
    {
        auto* const box = find<QComboBox>(name);
        box->setCurrentIndex(box->findData(code));
    }

    void type(const char* name, const QString& text)
    {
        for (const QChar character : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
            QCoreApplication::sendEvent(find<QWidget>(name), &press);
        }
    }

    void key(const char* name, Qt::Key code)
    {
        QKeyEvent press(QEvent::KeyPress, code, Qt::NoModifier, code == Qt::Key_Backspace ? QString() : QChar(code));
        QCoreApplication::sendEvent(find<QWidget>(name), &press);
    }

    // The choice resets the prices and the period.
    void chooseSecurity(int position)
    {
        const auto shares = CBusinessDataBase::GetInstance()->GetAllSymbolByType(
            Kelvo_Values::MdcSecurityType::StockType, Kelvo_Values::MdcSubSecurityType::Ashares, QString(), false, {});
        find<VorSearchBox>("le_symbol")->setSymbol(shares.runs().value(0).value(position));
        type("lineEdit_price1", QStringLiteral("max(0.99*MA5,MA20)"));
        setPeriod(TradeDays);
    }

    void setPeriod(int days)
    {
        const TradeCalendar& calendar = ClientSession::instance().calendar();
        auto* const range = find<OrloDateEdit>("date_effectivePeriod_Multi");
        const auto all = calendar.tradeDays(Kelvo_Values::Exchange::sh, range->GetStartDate());
        range->SetStartEndDate(all->constFirst(), all->at(days - 1));
    }

    void fill()
    {
        select("combx_fundAccount", Account);
        select("combx_instructionType", AutoPlanInstructionType::Ordinary);
        select("combx_priceMode", AutoPlanPriceModel::Custom);
        chooseSecurity(0);
        type("le_targetTotalNum", QStringLiteral("1000000"));
        type("le_entrustMaxNum", QStringLiteral("3000"));
    }

    void settlePanel()
    {
        do {
            settle();
        } while (!m_panel->isSettled());
        settle();
    }

    QWidget m_window;
    AutoParamSetting* m_editor;
    AdvisorPanel* m_panel;
};

void advisor(benchmark::State& state)
{
    AdvisedForm form;
    const QVector<Change> changes = form.changes();
    QVector<double> least(changes.size(), std::numeric_limits<double>::max());
    double bare = std::numeric_limits<double>::max();
    Timing timing(state);
    for (auto _ : state) {
        double slowest = 0;
        for (int i = 0; i < changes.size(); ++i) {
            const double taken = form.slowestUpdate(changes.at(i));
            least[i] = std::min(least.at(i), taken);
            slowest = std::max(slowest, taken);
            bare = std::min(bare, secondsOf([&] { form.panel().repaint(); }));
        }
        timing.note(slowest);
    }
    state.counters["slowest_ms"] = *std::max_element(least.cbegin(), least.cend()) * 1000;
    state.counters["bare_ms"] = bare * 1000;
}

BENCHMARK(advisor)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
