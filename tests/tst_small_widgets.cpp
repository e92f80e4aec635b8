#include "Appearance.h"
#include "FieldHint.h"
#include "HintReader.h"
#include "LoggedTest.h"
#include "OrloElidedLabel.h"
#include "OrloHintLabel.h"
#include "OrloPushButton.h"
#include "OrloSubTitleWidget.h"
#include "OrloUtils.h"
#include "Popups.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

class SmallWidgetsTest : public LoggedTest {
    Q_OBJECT

private Q_SLOTS:
    void anElidedLabelShowsTheWholeTextAsToolTip()
    {
        OrloElidedLabel label;
        const QString text = QStringLiteral("一家名字很长的股份有限公司");
        label.setText(text);
        label.resize(60, 20);
        label.grab();
        QCOMPARE(label.text(), text);
        QCOMPARE(label.toolTip(), text);
        label.resize(600, 20);
        label.grab();
        QCOMPARE(label.toolTip(), QString());
    }

    void anElidedLabelCanBeNarrow()
    {
        OrloElidedLabel label;
        label.setText(QString(100, QLatin1Char('W')));
        QVERIFY(label.minimumSizeHint().width() < 40);
        QVERIFY(label.sizeHint().width() > 400);
    }

    void labelsShowPlainText()
    {
        QCOMPARE(OrloHintLabel().textFormat(), Qt::PlainText);
        QCOMPARE(OrloElidedLabel().textFormat(), Qt::PlainText);
    }

    void aButtonIsPolishedAgainWhenItsStyleChanges()
    {
        QWidget window;
        window.setStyleSheet(QStringLiteral("OrloPushButton { color: #000001; }"
                                            "OrloPushButton[styleType=\"highlight\"] { color: #000002; }"));
        OrloPushButton button(&window);
        window.show();
        QCOMPARE(button.styleType(), OrloPushButton::BtnStyleType::Normal);
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(0, 0, 1));
        button.setStyleType(OrloPushButton::BtnStyleType::Highlight);
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(0, 0, 2));
        button.setStyleType(QStringLiteral("no such style"));
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(0, 0, 1));
    }

    void aTextButtonShrinksItsTextToItsWidth()
    {
        QWidget window;
        QFont large = window.font();
        large.setPixelSize(24);
        window.setFont(large);
        OrloPushButton button(&window);
        button.setText(QStringLiteral("算法参数设置"));
        button.setStyleType(OrloPushButton::BtnStyleType::Text);
        button.setFixedWidth(82);
        window.show();
        QVERIFY(button.fontMetrics().horizontalAdvance(button.text()) <= 82);
    }

    void aHeadingShowsItsTitle()
    {
        OrloSubTitleWidget heading;
        heading.SetTitle(QStringLiteral("基本参数"));
        QCOMPARE(heading.Title(), QStringLiteral("基本参数"));
        QCOMPARE(heading.findChild<QLabel*>()->text(), QStringLiteral("基本参数"));
    }

    void aToolWindowIsPlaced_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<QPoint>("expected");
        QTest::newRow("below its parent") << 0 << QPoint(150, 180);
        QTest::newRow("beside its parent") << 1 << QPoint(250, 150);
        QTest::newRow("centred over the window") << 2 << QPoint(200, 175);
    }

    void aToolWindowIsPlaced()
    {
        QFETCH(int, place);
        QFETCH(QPoint, expected);
        QWidget window;
        window.setGeometry(100, 100, 300, 200);
        QWidget parent(&window);
        parent.setGeometry(50, 50, 100, 30);
        QWidget tool(&parent, Qt::Tool | Qt::FramelessWindowHint);
        tool.resize(100, 50);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.move(100, 100);
        QCOMPARE(OrloUtils::GetWidgetPos(&tool, place), expected + window.mapToGlobal(QPoint()) - QPoint(100, 100));
        QCOMPARE(OrloUtils::GetWidgetPos(nullptr, place), QPoint());
    }

    void aToolWindowStaysOnTheScreen()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget window;
        window.setGeometry(screen.right() - 60, screen.bottom() - 60, 50, 50);
        QWidget tool(&window, Qt::Tool | Qt::FramelessWindowHint);
        tool.resize(200, 150);
        window.show();
        for (int place : { 0, 1, 2 })
            QVERIFY(screen.contains(QRect(OrloUtils::GetWidgetPos(&tool, place), tool.size())));
    }

    void aPopupOpensAboveWhereTheScreenEnds()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget field;
        field.setGeometry(screen.left() + 50, screen.bottom() - 40, 100, 30);
        field.show();
        const int top = field.mapToGlobal(QPoint()).y();
        QCOMPARE(popupPlace(&field, QSize(100, 200)).y(), top - 200);
        field.move(screen.left() + 50, screen.top() + 50);
        QCOMPARE(popupPlace(&field, QSize(100, 200)).y(), field.mapToGlobal(QPoint()).y() + 30);
    }

    void aHintIsHiddenWithItsField()
    {
        QLineEdit field;
        FieldHint::showAt(&field, QStringLiteral("看不见"));
        QCOMPARE(hintAt(&field), QString());
        field.show();
        FieldHint::showAt(&field, QStringLiteral("第一"));
        FieldHint::showAt(&field, QStringLiteral("第二"));
        QCOMPARE(hintAt(&field), QStringLiteral("第二"));
        QCOMPARE(field.findChildren<FieldHint*>().size(), 1);
        field.hide();
        QCOMPARE(hintAt(&field), QString());
    }

    void thereAreTwoSkins()
    {
        QCOMPARE(skinNames(), (QStringList{ QStringLiteral("light"), QStringLiteral("dark") }));
        QVERIFY(skinSheet(QStringLiteral("light")) != skinSheet(QStringLiteral("dark")));
    }

    void anUnknownSkinIsEmptyAndLogged()
    {
        log().expectWarning(QStringLiteral("skinSheet"));
        QCOMPARE(skinSheet(QStringLiteral("../light")), QString());
    }
};

QTEST_MAIN(SmallWidgetsTest)
#include "tst_small_widgets.moc"
