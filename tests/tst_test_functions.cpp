#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

namespace {

/// The first capture group of every match.
QStringList allMatches(const QString& text, const QString& pattern)
{
    QStringList found;
    auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (match.hasNext())
        found.append(match.next().captured(1));
    return found;
}

QString readAll(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The file cannot be read: %s", qPrintable(fileName));
    return QString::fromUtf8(file.readAll());
}

QStringList declaredIn(const QString& fileName)
{
    QStringList functions;
    const QStringList parts = readAll(fileName).split(QStringLiteral("\nprivate Q_SLOTS:\n"));
    for (const QString& part : parts.mid(1)) {
        const int end = part.indexOf(QRegularExpression(QStringLiteral("\n(private:|};)\n")));
        functions += allMatches(part.left(end), QStringLiteral("^    void (\\w+)\\(\\)"));
    }
    return functions;
}

QStringList registeredIn(const QString& fileName)
{
    QProcess moc;
    moc.start(QStringLiteral(MOC_PROGRAM), { fileName });
    if (!moc.waitForFinished())
        qFatal("moc does not end: %s", qPrintable(moc.errorString()));
    return allMatches(QString::fromUtf8(moc.readAllStandardOutput()), QStringLiteral("_t->(\\w+)\\(\\);"));
}

} // namespace

/// Qt Test runs what moc finds. A raw string with an escaped quotation mark, for example, hides all functions after it.
class TestFunctionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTestFunctionIsRun_data()
    {
        QTest::addColumn<QString>("fileName");
        const QDir tests(QStringLiteral(TESTS_FOLDER));
        for (const QString& name : tests.entryList({ QStringLiteral("tst_*.cpp") }, QDir::Files)) {
            if (readAll(tests.filePath(name)).contains(QStringLiteral("Q_OBJECT")))
                QTest::newRow(qPrintable(name)) << tests.filePath(name);
        }
    }

    void everyTestFunctionIsRun()
    {
        QFETCH(QString, fileName);
        const QStringList declared = declaredIn(fileName);
        QVERIFY(!declared.isEmpty());
        QCOMPARE(registeredIn(fileName), declared);
    }
};

QTEST_GUILESS_MAIN(TestFunctionsTest)

#include "tst_test_functions.moc"
