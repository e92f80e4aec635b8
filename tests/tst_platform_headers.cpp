#include <QDir>
#include <QRegularExpression>
#include <QtTest>

/// The build compiles each header alone. These tests verify that the build covers every header, and that the editor
/// uses no name that a client may choose itself.
class PlatformHeadersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyHeaderOfTheSeamIsCompiledAlone()
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

    void everyHeaderIsGuarded()
    {
        const QDir folder(QStringLiteral(PLATFORM_FOLDER));
        for (const QString& name : folder.entryList({ QStringLiteral("*.h") }, QDir::Files)) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QVERIFY2(file.readAll().startsWith("#pragma once\n"), qPrintable(name));
        }
    }

    void theEditorUsesNoNameThatAClientMayChoose()
    {
        const QRegularExpression ownName(
            QStringLiteral("\\b(StrategyMode|VorInstructionNodeType|VorMarginTradeType)::\\w+|\\bSymbolList\\b"));
        const QDir folder(QStringLiteral(EDITOR_FOLDER));
        const QStringList names = folder.entryList({ QStringLiteral("*.h"), QStringLiteral("*.cpp") }, QDir::Files);
        QVERIFY(names.size() > 20);
        for (const QString& name : names) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QRegularExpressionMatch match = ownName.match(QString::fromUtf8(file.readAll()));
            QVERIFY2(!match.hasMatch(), qPrintable(name + QLatin1Char(' ') + match.captured()));
        }
    }
};

QTEST_GUILESS_MAIN(PlatformHeadersTest)
#include "tst_platform_headers.moc"
