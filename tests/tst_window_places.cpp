// What the windows remember: place, size, skin; and how they fit on a screen.
#include "Appearance.h"
#include "ClientWindowTest.h"
#include "Options.h"
#include "TestStatus.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QtTest>

namespace {

/// The least screen.
constexpr QSize SmallScreen(1024, 600);
/// A screen of 1920 x 1080 at 200 %.
constexpr QSize ZoomedScreen(960, 540);

QRect room()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

} // namespace

class WindowPlacesTest : public ClientWindowTest {
    Q_OBJECT

private Q_SLOTS:
    void theWindowIsWhereItWasLeft()
    {
        openWindow();
        window().setGeometry(10, 30, 780, 500);
        auto* const halves = window().findChild<QSplitter*>();
        halves->setSizes({ 500, 200 });
        const QList<int> sizes = halves->sizes();
        QVERIFY(press(&window(), Qt::Key_F8));
        QVERIFY(window().close());
        closeWindow();
        QCOMPARE(readOptions({ QStringLiteral("plandesk") }, Program::Client)->skin, QStringLiteral("dark"));
        QCOMPARE(readOptions({ QStringLiteral("walk"), QStringLiteral("a") }, Program::WalkThrough)->skin,
            QStringLiteral("light"));
        openWindow();
        QCOMPARE(window().geometry(), QRect(10, 30, 780, 500));
        QCOMPARE(window().findChild<QSplitter*>()->sizes(), sizes);
    }

    void aFormIsWhereItWasLeft()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        dialog().move(60, 20);
        dialog().leave();
        closeWindow();
        openWindow();
        pressForEditor(Qt::Key_N);
        QCOMPARE(dialog().pos(),
            QPoint(60, 20).x() > room().width() - dialog().width()
                ? QPoint(qMax(0, room().width() - dialog().width()), dialog().y())
                : QPoint(60, 20));
    }

    void aWindowComesBackFromAScreenThatIsGone()
    {
        for (const char* name : { "plans", "form" }) {
            QWidget far;
            far.setGeometry(9000, 7000, 700, 500);
            QSettings settings(QStringLiteral("plandesk"), QStringLiteral("plandesk"));
            settings.setValue(QStringLiteral("windows/") + QLatin1String(name), far.saveGeometry());
        }
        openWindow();
        QVERIFY(room().contains(window().geometry()));
        pressForEditor(Qt::Key_N);
        QVERIFY(room().contains(dialog().geometry()));
    }

    void theWindowsFitOnSmallScreens()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        for (const QSize& screen : { SmallScreen, ZoomedScreen }) {
            QCOMPARE(window().minimumSizeHint().expandedTo(screen), screen);
            QCOMPARE(dialog().minimumSizeHint().expandedTo(screen), screen);
        }
    }

    void everyFieldOfALowFormIsReachedByTab()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().fill(ordinary());
        QVERIFY(takeKeyboard(&dialog()));
        dialog().resize(dialog().width(), ZoomedScreen.height());
        QCOMPARE(dialog().height(), ZoomedScreen.height());
        QWidget* const first = dialog().focusWidget();
        int fields = 0;
        do {
            QTest::keyClick(dialog().focusWidget(), Qt::Key_Tab);
            const QWidget* const field = dialog().focusWidget();
            QVERIFY2(field->visibleRegion().boundingRect() == field->rect(), qPrintable(field->objectName()));
            ++fields;
        } while (dialog().focusWidget() != first && fields < 100);
        QVERIFY2(fields > 15 && fields < 100, qPrintable(QString::number(fields)));
        boxOf([this] { dialog().reject(); }, "msgBoxQuestion");
    }
};

QTEST_MAIN(WindowPlacesTest)
#include "tst_window_places.moc"
