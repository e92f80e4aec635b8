#include "LogCatcher.h"
#include "QuantityRounding.h"

#include <QtTest>

class QuantityRoundingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aValueCountsAsZeroWithinTheTolerance_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("zero");
        QTest::newRow("zero") << 0.0 << true;
        QTest::newRow("negative zero") << -0.0 << true;
        QTest::newRow("just above zero") << 9e-11 << true;
        QTest::newRow("just below zero") << -9e-11 << true;
        QTest::newRow("above the tolerance") << 1.1e-10 << false;
        QTest::newRow("below the tolerance") << -1.1e-10 << false;
        QTest::newRow("the smallest ratio of four decimals") << 0.0001 << false;
        QTest::newRow("one") << 1.0 << false;
    }

    void aValueCountsAsZeroWithinTheTolerance()
    {
        QFETCH(double, value);
        QFETCH(bool, zero);
        QCOMPARE(isZero(value), zero);
    }

    void aQuantityIsRoundedWithATolerance_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<qint64>("whole");
        QTest::newRow("zero") << 0.0 << qint64(0);
        QTest::newRow("a whole number") << 5.0 << qint64(5);
        QTest::newRow("a whole number that binary has made too small") << 4.9999995 << qint64(5);
        QTest::newRow("farther below than binary goes") << 4.999998 << qint64(4);
        QTest::newRow("a fraction is dropped, not rounded up") << 1999.7 << qint64(1999);
        QTest::newRow("a hair below zero is not negative") << -1e-11 << qint64(0);
        QTest::newRow("a negative whole number") << -5.0 << qint64(-5);
        QTest::newRow("a negative number that binary has made too large") << -4.9999995 << qint64(-5);
        QTest::newRow("a negative fraction is dropped towards zero") << -4.7 << qint64(-4);
        QTest::newRow("the largest quantity of the inputs") << 2000000000.0 << qint64(2000000000);
        QTest::newRow("more than 32 bits hold") << 5000000000.0 << qint64(5000000000);
    }

    void aQuantityIsRoundedWithATolerance()
    {
        QFETCH(double, value);
        QFETCH(qint64, whole);
        QCOMPARE(roundToWhole(value), whole);
    }

    void aQuantityIsTruncatedWithoutATolerance_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<qint32>("whole");
        QTest::newRow("zero") << 0.0 << 0;
        QTest::newRow("a whole number") << 150.0 << 150;
        QTest::newRow("a fraction is dropped") << 1999.7 << 1999;
        QTest::newRow("a hair below a whole number is the number below") << 4.9999999 << 4;
        QTest::newRow("a negative fraction is dropped towards zero") << -1.5 << -1;
        QTest::newRow("the largest quantity of the inputs") << 2000000000.0 << 2000000000;
    }

    void aQuantityIsTruncatedWithoutATolerance()
    {
        QFETCH(double, value);
        QFETCH(qint32, whole);
        QCOMPARE(truncateToInt32(value), whole);
    }

    void theTwoKindsOfRoundingDifferJustBelowAWholeNumber()
    {
        QCOMPARE(roundToWhole(99.9999999), qint64(100));
        QCOMPARE(truncateToInt32(99.9999999), 99);
    }

    void aDisplayedQuantityIsStoredInWholeUnits_data()
    {
        QTest::addColumn<double>("displayed");
        QTest::addColumn<int>("factor");
        QTest::addColumn<qint32>("stored");
        QTest::newRow("the fraction and the remainder are dropped") << 1999.7 << 10 << 199;
        QTest::newRow("factor one drops the fraction only") << 1999.7 << 1 << 1999;
        QTest::newRow("a multiple of the factor") << 2000.0 << 10 << 200;
        QTest::newRow("less than one unit is none") << 9.0 << 10 << 0;
        QTest::newRow("nothing") << 0.0 << 10 << 0;
        QTest::newRow("the largest quantity of the inputs") << 2000000000.0 << 1 << 2000000000;
    }

    void aDisplayedQuantityIsStoredInWholeUnits()
    {
        QFETCH(double, displayed);
        QFETCH(int, factor);
        QFETCH(qint32, stored);
        QCOMPARE(storedQuantity(displayed, factor), stored);
    }

    void aValidFactorIsReturnedWithoutALogLine_data()
    {
        QTest::addColumn<int>("factor");
        QTest::newRow("shares") << 1;
        QTest::newRow("lots of ten bonds") << 10;
        QTest::newRow("lots of a hundred") << 100;
    }

    void aValidFactorIsReturnedWithoutALogLine()
    {
        QFETCH(int, factor);
        const LogCatcher log;
        QCOMPARE(usableDisplayFactor(factor, "caller"), factor);
        QCOMPARE(log.lines().size(), 0);
    }

    void aFactorOfZeroCountsAsOneAndIsLogged()
    {
        LogCatcher log;
        log.expectWarning(QStringLiteral("AutoParamSetting::someOperation"));
        QCOMPARE(usableDisplayFactor(0, "AutoParamSetting::someOperation"), 1);
        QCOMPARE(log.lines().size(), 1);
        QCOMPARE(
            log.lines().first().text, QStringLiteral("AutoParamSetting::someOperation display factor 0 counts as 1"));
        QCOMPARE(log.problems(), QStringList());
    }
};

QTEST_GUILESS_MAIN(QuantityRoundingTest)
#include "tst_quantity_rounding.moc"
