// Measures a keystroke in the security search until the list is painted, compared with a line edit with Qt's completer
// on the same rows. The typed texts are typical for traders: codes, parts of names, and some texts without a match.
#include "BenchmarkClient.h"
#include "ClientSession.h"
#include "SecurityStore.h"
#include "SymbolIndexes.h"
#include "SymbolList.h"
#include "VorSearchBox.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStringListModel>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr int ByCodeAndName = 1;
constexpr int TypedSecurities = 6;

QVector<Security> allSecurities()
{
    QVector<Security> all;
    if (!SecurityStore(ClientSession::instance().database()).readAll([&all](Security&& security) { all << security; }))
        qFatal("the securities cannot be read");
    return all;
}

/// Texts from the loaded market: some complete codes, some names without their first character, and three other texts.
QStringList typedTexts()
{
    const QVector<Security> market = allSecurities();
    QStringList texts{ QStringLiteral("0"), QStringLiteral("Q7"), QStringLiteral("龘龘") };
    for (int i = 0; i < TypedSecurities; ++i) {
        const Security& security = market.at(static_cast<int>(qint64(market.size()) * i / TypedSecurities));
        texts << security.symbol.section(QLatin1Char('.'), 0, 0) << security.name.mid(1);
    }
    return texts;
}

SymbolList allSymbols()
{
    QStringList symbols;
    const QVector<Security> market = allSecurities();
    for (const Security& security : market)
        symbols << security.symbol;
    return symbols;
}

QStringList allRows()
{
    QStringList rows;
    const QVector<Security> market = allSecurities();
    for (const Security& security : market)
        rows << security.symbol + QStringLiteral("  ") + security.name;
    return rows;
}

/// Types into a line edit and waits until its list is shown.
class Typist {
public:
    explicit Typist(QLineEdit& line)
        : m_line(line)
    {
        showPainted(line);
        line.activateWindow();
        line.setFocus();
        settle();
    }

    /// Types every text into the cleared line. Returns the total time of all keystrokes in seconds.
    double typeAll(const QStringList& texts)
    {
        double seconds = 0;
        int stroke = 0;
        for (const QString& text : texts) {
            m_line.clear();
            settle();
            for (const QChar character : text) {
                const double taken = secondsOf([&] { type(character); });
                note(stroke++, taken);
                seconds += taken;
            }
        }
        return seconds;
    }

    /// The slowest keystroke, using the fastest repetition of each.
    double slowest() const { return *std::max_element(m_least.cbegin(), m_least.cend()); }
    double mean() const
    {
        return std::accumulate(m_least.cbegin(), m_least.cend(), 0.0) / static_cast<double>(m_least.size());
    }

private:
    void type(QChar character)
    {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(&m_line, &press);
        QCoreApplication::processEvents();
    }

    void note(int stroke, double seconds)
    {
        while (m_least.size() <= stroke)
            m_least << std::numeric_limits<double>::max();
        m_least[stroke] = std::min(m_least.at(stroke), seconds);
    }

    QLineEdit& m_line;
    QVector<double> m_least;
};

void typeInto(benchmark::State& state, QLineEdit& line)
{
    const QStringList texts = typedTexts();
    Typist typist(line);
    typist.typeAll(texts);
    Timing timing(state);
    for (auto _ : state)
        timing.note(typist.typeAll(texts));
    state.counters["mean_ms"] = typist.mean() * 1000;
    state.counters["slowest_ms"] = typist.slowest() * 1000;
}

void searchBox(benchmark::State& state)
{
    VorSearchBox box;
    box.setSecurityList(allSymbols());
    box.setSearchMode(ByCodeAndName);
    box.setMinMatchLength(1);
    SymbolIndexes::instance().waitForFinished();
    typeInto(state, box);
}

void completer(benchmark::State& state)
{
    QLineEdit line;
    QStringListModel rows(allRows());
    QCompleter completer(&rows);
    completer.setFilterMode(Qt::MatchContains);
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    line.setCompleter(&completer);
    typeInto(state, line);
}

BENCHMARK(searchBox)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(completer)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    return client.run();
}
