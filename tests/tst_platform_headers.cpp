#include <QDir>
#include <QtTest>

/// The headers are compiled alone by the build; here, that none was forgotten.
class PlatformHeadersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyHeaderOfTheSeamIsCompiledAlone();
    void everyHeaderIsGuarded();
};

void PlatformHeadersTest::everyHeaderOfTheSeamIsCompiledAlone()
{
    const QStringList present =
        QDir(QStringLiteral(PLATFORM_FOLDER)).entryList({ QStringLiteral("*.h") }, QDir::Files, QDir::Name);
    QStringList compiled = QStringLiteral(COMPILED_HEADERS).split(QLatin1Char(','));
    compiled.sort();
    QStringList sorted = present;
    sorted.sort();
    QVERIFY(!sorted.isEmpty());
    QCOMPARE(compiled, sorted);
}

void PlatformHeadersTest::everyHeaderIsGuarded()
{
    const QDir folder(QStringLiteral(PLATFORM_FOLDER));
    for (const QString& name : folder.entryList({ QStringLiteral("*.h") }, QDir::Files)) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(file.readAll().startsWith("#pragma once\n"), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(PlatformHeadersTest)
#include "tst_platform_headers.moc"
