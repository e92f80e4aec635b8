#include "LoggedTest.h"
#include "PinyinInitials.h"

#include <QtTest>

class PinyinInitialsTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void aNameHasItsInitials_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("initials");
        QTest::newRow("characters with one reading") << "岚川科技"
                                                     << "LCKJ";
        QTest::newRow("a reading that begins with a vowel") << "安奥"
                                                            << "AA";
        QTest::newRow("one of two readings is that of a bank") << "银行"
                                                               << "YH YX";
        QTest::newRow("two readings each") << "长重"
                                           << "CC CZ ZC ZZ";
        QTest::newRow("letters and digits stay") << "TCL科技3"
                                                 << "TCLKJ3";
        QTest::newRow("small letters") << "st海"
                                       << "STH";
        QTest::newRow("other characters are left out") << "*ST 海・川"
                                                       << "STHC";
        QTest::newRow("a surrogate pair is left out") << QStringLiteral("\U00020BB7川") << "C";
        QTest::newRow("nothing") << ""
                                 << "";
        QTest::newRow("the first and the last character of the table") << QStringLiteral("\u3400\u9FA5") << "QY";
    }

    void aNameHasItsInitials()
    {
        QFETCH(QString, name);
        QFETCH(QString, initials);
        QCOMPARE(PinyinInitials::of(name), initials);
    }

    void manyReadingsAreLimited()
    {
        const QString many = PinyinInitials::of(QStringLiteral("行行行行行行行行"));
        QCOMPARE(many.split(QLatin1Char(' ')).size(), 16);
    }
};

QTEST_GUILESS_MAIN(PinyinInitialsTest)
#include "tst_pinyin_initials.moc"
