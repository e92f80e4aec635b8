#include "LogCatcher.h"
#include "SpecialCharacters.h"

#include <QtTest>

namespace {

const QString Untouched = QStringLiteral("as before");

} // namespace

class SpecialCharactersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyAsciiCharacterIsRefusedOrPasses()
    {
        const LogCatcher log;
        const QString refused = QStringLiteral("`~!@#$&=|{}':[]<>?;");
        QCOMPARE(refused.size(), 19);
        for (ushort unicode = 1; unicode < 128; ++unicode) {
            const QString text = QStringLiteral("MA5") + QChar(unicode) + QStringLiteral("+");
            QString found = Untouched;
            const bool isRefused = refused.contains(QChar(unicode));
            QVERIFY2(isContainsSpecialChar(text, found) == isRefused, qPrintable(text));
            QCOMPARE(found, isRefused ? QString(QChar(unicode)) : Untouched);
        }
    }

    void anUndecodableCharacterIsRefused()
    {
        const LogCatcher log;
        QString found;
        QVERIFY(isContainsSpecialChar(QStringLiteral("MA5\uFFFD"), found));
        QCOMPARE(found, QStringLiteral("\uFFFD"));
    }

    void fullWidthPunctuationPasses_data()
    {
        QTest::addColumn<QString>("character");
        const QString punctuation = QStringLiteral("（）【】‘；：”“’。，、？！＠＃＄％＆＝｜｛｝［］＜＞～｀＇");
        for (const QChar character : punctuation)
            QTest::newRow(qPrintable(QString(character))) << QString(character);
    }

    void fullWidthPunctuationPasses()
    {
        QFETCH(QString, character);
        const LogCatcher log;
        QString found = Untouched;
        QVERIFY(!isContainsSpecialChar(QStringLiteral("MA(5)") + character, found));
        QCOMPARE(found, Untouched);
        QCOMPARE(log.lines().size(), 0);
    }

    void aFormulaPasses_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::newRow("nothing") << QString();
        QTest::newRow("an average and a factor") << QStringLiteral("MA(5)*1.01");
        QTest::newRow("a full-width semicolon") << QStringLiteral("MA(5)；");
        QTest::newRow("names and functions") << QStringLiteral("max(昨收价*0.99,跌停价)-MA20/2+1");
        QTest::newRow("a lone percent sign") << QStringLiteral("x%");
        QTest::newRow("percent signs without a digit behind them") << QStringLiteral("%%a%");
        QTest::newRow("a digit before the percent sign") << QStringLiteral("5%");
        QTest::newRow("a blank between percent sign and digit") << QStringLiteral("5% 1");
        QTest::newRow("a full-width digit behind a percent sign") << QStringLiteral("5%１");
        QTest::newRow("a backslash") << QStringLiteral("a\\b");
    }

    void aFormulaPasses()
    {
        QFETCH(QString, formula);
        const LogCatcher log;
        QString found = Untouched;
        QVERIFY(!isContainsSpecialChar(formula, found));
        QCOMPARE(found, Untouched);
        QCOMPARE(log.lines().size(), 0);
    }

    void aFormulaIsRefusedForItsFirstMatch_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("match");
        QTest::newRow("a semicolon") << QStringLiteral("a;b") << QStringLiteral(";");
        QTest::newRow("a percent sign with a digit") << QStringLiteral("x%1") << QStringLiteral("%1");
        QTest::newRow("only the first digit belongs to it") << QStringLiteral("x%12") << QStringLiteral("%1");
        QTest::newRow("several percent signs with a digit") << QStringLiteral("x%%%7") << QStringLiteral("%%%7");
        QTest::newRow("the first of two characters") << QStringLiteral("a&b;c") << QStringLiteral("&");
        QTest::newRow("a character before a percent sign") << QStringLiteral(";%1") << QStringLiteral(";");
        QTest::newRow("a percent sign before a character") << QStringLiteral("%1;") << QStringLiteral("%1");
        QTest::newRow("a lone percent sign is passed over") << QStringLiteral("%;%1") << QStringLiteral(";");
        QTest::newRow("on a second line") << QStringLiteral("a\n=b") << QStringLiteral("=");
        QTest::newRow("at the very end") << QStringLiteral("昨收价?") << QStringLiteral("?");
    }

    void aFormulaIsRefusedForItsFirstMatch()
    {
        QFETCH(QString, formula);
        QFETCH(QString, match);
        const LogCatcher log;
        QString found = Untouched;
        QVERIFY(isContainsSpecialChar(formula, found));
        QCOMPARE(found, match);
    }

    void aMatchIsLoggedWithItsPlace()
    {
        const LogCatcher log;
        QString found;
        QVERIFY(isContainsSpecialChar(QStringLiteral("昨收价*1.01%%7"), found));
        QCOMPARE(log.lines().size(), 1);
        const LogLine line = log.lines().constFirst();
        QCOMPARE(line.type, QtDebugMsg);
        QVERIFY2(
            QRegularExpression(QStringLiteral("\\b8\\b.*\\b11\\b")).match(line.text).hasMatch(), qPrintable(line.text));
    }
};

QTEST_GUILESS_MAIN(SpecialCharactersTest)
#include "tst_special_characters.moc"
