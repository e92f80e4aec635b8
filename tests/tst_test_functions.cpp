#include "SourceText.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

namespace {

QStringList declaredIn(const QString& fileName)
{
    QStringList functions;
    const QStringList parts = textOf(fileName).split(QStringLiteral("\nprivate Q_SLOTS:\n"));
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
            if (textOf(tests.filePath(name)).contains(QStringLiteral("Q_OBJECT")))
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
