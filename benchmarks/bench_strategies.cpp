// Measures the panel of a large strategy, from a key to the painted panel with all rules settled, and reading a folder
// of strategy files.
#include "BenchmarkClient.h"
#include "ParameterForm.h"
#include "StrategyFile.h"
#include "StrategyFolder.h"

#include <QBuffer>
#include <QEventLoop>
#include <QFile>
#include <QLineEdit>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Parameters, of which each but one has a state rule, and conditions of a large strategy, and of one as they are used.
constexpr int Parameters = 100;
constexpr int Edits = 200;
constexpr int UsualParameters = 20;
constexpr int Files = 1000;
constexpr QSize Shown(500, 600);

QString withQuotes(QString text)
{
    return text.replace(QLatin1Char('\''), QLatin1Char('"'));
}

QString rootOf(const QString& content)
{
    return withQuotes(
               QStringLiteral("<Strategies xmlns='http://www.fixprotocol.org/FIXatdl-1-1/Core'"
                              " xmlns:lay='http://www.fixprotocol.org/FIXatdl-1-1/Layout'"
                              " xmlns:val='http://www.fixprotocol.org/FIXatdl-1-1/Validation'"
                              " xmlns:flow='http://www.fixprotocol.org/FIXatdl-1-1/Flow'"
                              " xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' strategyIdentifierTag='847'>"))
        + content + QStringLiteral("</Strategies>");
}

/// Every control but the first has a state rule on it, so that one key changes them all.
QString strategyText(const QString& name, int count, int edits)
{
    QString parameters;
    QString controls;
    QString rules;
    for (int i = 0; i < count; ++i) {
        parameters += QStringLiteral("<Parameter name='P%1' xsi:type='Int_t' fixTag='%2'/>").arg(i).arg(7000 + i);
        const QString effect =
            i % 2 == 0 ? QStringLiteral("value='{NULL}'") : QStringLiteral("enabled='false' visible='false'");
        const QString rule =
            QStringLiteral("<flow:StateRule %1><val:Edit field='c%2' operator='GT' value='5'/></flow:StateRule>")
                .arg(effect)
                .arg(0);
        controls += QStringLiteral("<lay:Control ID='c%1' xsi:type='lay:SingleSpinner_t' parameterRef='P%1' "
                                   "label='P%1' initValue='1'>%2</lay:Control>")
                        .arg(i)
                        .arg(i == 0 ? QString() : rule);
    }
    for (int i = 0; i < edits; ++i)
        rules += QStringLiteral(
            "<val:StrategyEdit errorMessage='m'><val:Edit field='P%1' operator='LE' field2='P%2'/></val:StrategyEdit>")
                     .arg(i % count)
                     .arg((i + 1) % count);
    return withQuotes(QStringLiteral(
        "<Strategy name='%1' version='1' wireValue='x' providerID='bench'>%2<lay:StrategyLayout>"
        "<lay:StrategyPanel orientation='VERTICAL'>%3</lay:StrategyPanel></lay:StrategyLayout>%4</Strategy>")
                          .arg(name, parameters, controls, rules));
}

StrategyDefinition readLarge()
{
    QByteArray bytes = rootOf(strategyText(QStringLiteral("Large"), Parameters, Edits)).toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const StrategyFile file = StrategyFile::read(buffer, QStringLiteral("large.xml"));
    if (!file.failure || !file.strategies.constFirst().isUsable())
        qFatal("the strategy is not read");
    return file.strategies.constFirst().definition;
}

void keyInPanel(benchmark::State& state)
{
    // The panel shows a form that is higher than the screen in a scroll area.
    QScrollArea area;
    auto& form = *new ParameterForm(readLarge(), &area);
    area.setWidgetResizable(true);
    area.setWidget(&form);
    area.resize(Shown);
    showPainted(area);
    auto* const edit = form.findChild<QWidget*>(QStringLiteral("input_P0"))->findChild<QLineEdit*>();
    edit->setFocus();
    double slowest = 0;
    Timing timing(state);
    // Every second key makes the conditions of all rules hold, the others lift them.
    int number = 0;
    for (auto _ : state) {
        edit->selectAll();
        settle();
        const auto key = number++ % 2 == 0 ? Qt::Key_9 : Qt::Key_1;
        slowest = std::max(slowest, timing.run([&] {
            QTest::keyClick(edit, key);
            benchmark::DoNotOptimize(form.check());
            settle();
        }));
    }
    state.counters["slowest_ms"] = slowest * 1000;
}

void readFolder(benchmark::State& state)
{
    const QTemporaryDir folder;
    for (int i = 0; i < Files; ++i) {
        QFile file(folder.filePath(QStringLiteral("%1.xml").arg(i)));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("no file");
        file.write(rootOf(strategyText(QStringLiteral("S%1").arg(i), UsualParameters, UsualParameters)).toUtf8());
    }
    Timing timing(state);
    for (auto _ : state) {
        timing.run([&] {
            QEventLoop loop;
            QObject::connect(&StrategyFolder::instance(), &StrategyFolder::changed, &loop, &QEventLoop::quit);
            StrategyFolder::instance().open(folder.path());
            loop.exec();
        });
    }
    if (StrategyFolder::instance().files().size() != Files)
        qFatal("not every file is read");
}

} // namespace

int main(int argc, char** argv)
{
    BenchmarkClient client(argc, argv);
    benchmark::RegisterBenchmark("keyInPanel", keyInPanel)->UseManualTime()->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("readFolder", readFolder)->UseManualTime()->Unit(benchmark::kMillisecond);
    return client.run();
}
