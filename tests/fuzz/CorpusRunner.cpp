// Runs a fuzz target where libFuzzer is not at hand: over its corpus, then over changed inputs for some seconds.
// Arguments: [-max_total_time=SECONDS] [-seed=N] FOLDER. A finding leaves its input in a file
// "finding-" and the name of the program.

#include "FuzzTarget.h"

#include <QByteArray>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr unsigned longestHang = 10; // seconds until a call that does not return is ended
constexpr int longestInput = 8192;

QByteArray currentInput;
QByteArray findingFile;

void keepInput()
{
    const int file = ::open(findingFile.constData(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
    const auto size = static_cast<size_t>(currentInput.size());
    if (file >= 0 && ::write(file, currentInput.constData(), size) == currentInput.size())
        ::close(file);
}

void onSignal(int signal)
{
    keepInput();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void run(const QByteArray& input)
{
    currentInput = input;
    ::alarm(longestHang);
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.constData()), static_cast<size_t>(input.size()));
    ::alarm(0);
}

/// Makes inputs out of others.
class Mutator {
public:
    Mutator(const QList<QByteArray>& corpus, quint32 seed)
        : m_corpus(corpus)
        , m_random(seed)
    {
    }

    QByteArray next()
    {
        QByteArray input = pick();
        for (int i = below(6); i >= 0; --i)
            change(input);
        return input.left(longestInput);
    }

private:
    int below(int bound) { return static_cast<int>(m_random.bounded(static_cast<quint32>(qMax(bound, 1)))); }
    const QByteArray& pick() { return m_corpus.at(below(m_corpus.size())); }

    /// A piece of some input.
    QByteArray piece()
    {
        const QByteArray& from = pick();
        const int at = below(from.size());
        return from.mid(at, 1 + below(qMin(from.size() - at, 64)));
    }

    void change(QByteArray& input)
    {
        const int at = below(input.size());
        switch (below(6)) {
        case 0:
            if (!input.isEmpty())
                input[at] = static_cast<char>(input.at(at) ^ (1 << below(8)));
            break;
        case 1:
            input.insert(at, static_cast<char>(below(256)));
            break;
        case 2:
            input.remove(at, 1 + below(16));
            break;
        case 3:
            input.insert(at, piece());
            break;
        case 4:
            input.replace(at, 1 + below(16), piece());
            break;
        default:
            input.insert(at, QByteArray(1 + below(200), input.isEmpty() ? '(' : input.at(at)));
        }
    }

    const QList<QByteArray> m_corpus;
    QRandomGenerator m_random;
};

QList<QByteArray> readCorpus(const QString& folder)
{
    QList<QByteArray> corpus;
    const QDir files(folder);
    for (const QString& name : files.entryList(QDir::Files, QDir::Name)) {
        QFile file(files.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            corpus << file.readAll();
    }
    return corpus;
}

/// The number behind "-name="; `absent` when the argument is another.
int optionOf(const QByteArray& argument, const char* name, int absent)
{
    return argument.startsWith(name) ? argument.mid(static_cast<int>(qstrlen(name))).toInt() : absent;
}

} // namespace

int main(int argc, char** argv)
{
    int seconds = 0;
    int seed = static_cast<int>(QRandomGenerator::global()->generate() / 4 + 1);
    for (int i = 1; i < argc; ++i) {
        seconds = optionOf(argv[i], "-max_total_time=", seconds);
        seed = optionOf(argv[i], "-seed=", seed);
    }
    const QList<QByteArray> corpus =
        argc < 2 ? QList<QByteArray>() : readCorpus(QString::fromLocal8Bit(argv[argc - 1]));
    if (corpus.isEmpty()) {
        std::fprintf(stderr, "No inputs in the folder\n");
        return 2;
    }
    findingFile = "finding-" + QByteArray(program_invocation_short_name);
    LLVMFuzzerInitialize(&argc, &argv);
    for (const int signal : { SIGSEGV, SIGABRT, SIGALRM, SIGFPE, SIGBUS })
        std::signal(signal, onSignal);
    for (const QByteArray& input : corpus)
        run(input);
    Mutator mutator(corpus, static_cast<quint32>(seed));
    QElapsedTimer clock;
    clock.start();
    qint64 runs = 0;
    for (; clock.elapsed() < seconds * 1000; ++runs)
        run(mutator.next());
    std::printf("%d inputs of the corpus, %lld changed ones, seed %d\n", corpus.size(), runs, seed);
    return 0;
}
