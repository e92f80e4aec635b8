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
/// A window beside another one.
constexpr QSize NarrowWindow(800, 540);

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
        // The screen of the test has no room for both.
        QSettings(QStringLiteral("plandesk"), QStringLiteral("plandesk"))
            .setValue(QStringLiteral("advisor/isShown"), false);
        openWindow();
        pressForEditor(Qt::Key_N);
        dialog().move(60, 20);
        dialog().leave();
        closeWindow();
        openWindow();
        pressForEditor(Qt::Key_N);
        // The platform of the test moves a restored window by its frame; the form is higher than the screen.
        QVERIFY2(qAbs(dialog().x() - 60) <= 4, qPrintable(QString::number(dialog().x())));
        QCOMPARE(dialog().y(), 0);
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
        QVERIFY(room().contains(window().geometry().topLeft()));
        pressForEditor(Qt::Key_N);
        QVERIFY(room().contains(dialog().geometry().topLeft()));
    }

    void theWindowsFitOnSmallScreens()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        for (const QSize& screen : { SmallScreen, ZoomedScreen, NarrowWindow }) {
            QCOMPARE(window().minimumSizeHint().expandedTo(screen), screen);
            QCOMPARE(dialog().minimumSizeHint().expandedTo(screen), screen);
        }
    }

    void theListIsUsedInANarrowWindow()
    {
        openWindow();
        window().resize(NarrowWindow);
        QCOMPARE(window().size(), NarrowWindow);
        for (const char* const name : { "filter_all", "filter_own", "le_search" }) {
            const auto* const part = field<QWidget>(window(), name);
            QVERIFY2(part->visibleRegion().boundingRect() == part->rect(), name);
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
