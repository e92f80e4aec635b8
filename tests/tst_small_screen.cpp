// The windows at 200 % on a screen of 1024 x 600, of which they get half as many pixels. The test's platform has
// another screen, so the windows are resized.
#include "ClientWindowTest.h"
#include "PlanTable.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

namespace {

constexpr QSize Screen(512, 300);

} // namespace

class SmallScreenTest : public ClientWindowTest {
    Q_OBJECT

private:
    /// Whether nothing of a widget is cut.
    static bool isWhole(const QWidget& widget) { return widget.visibleRegion().boundingRect() == widget.rect(); }

private Q_SLOTS:
    void pixelsAreDoubled() { QCOMPARE(qApp->devicePixelRatio(), 2.0); }

    void theListIsUsed()
    {
        createSamples(3);
        for (const char* const skin : { "light", "dark" }) {
            openWindow();
            window().setSkin(QLatin1String(skin));
            window().resize(Screen);
            QTRY_COMPARE(window().size(), Screen);
            for (const char* const name : { "filter_all", "filter_today", "filter_running", "filter_failed",
                     "filter_own", "filter_archived", "le_search" })
                QVERIFY2(isWhole(*field<QWidget>(window(), name)), name);
            auto* const table = window().findChild<PlanTable*>();
            QVERIFY(table->viewport()->height() >= 3 * table->rowHeight(0));
            QCOMPARE(window().grab().size(), 2 * Screen);
            closeWindow();
        }
    }

    void theFormIsScrolledUpAndDownOnly()
    {
        openWindow();
        pressForEditor(Qt::Key_N);
        dialogDriver().fill(ordinary());
        QVERIFY(takeKeyboard(&dialog()));
        dialog().resize(Screen);
        QTRY_COMPARE(dialog().size(), Screen);
        const auto* const area = qobject_cast<QScrollArea*>(dialogEditor()->parentWidget()->parentWidget());
        QTRY_VERIFY(!area->horizontalScrollBar()->isVisible());
        QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
        QVERIFY(area->verticalScrollBar()->maximum() > 0);
        const QWidget* const first = dialog().focusWidget();
        int fields = 0;
        do {
            QTest::keyClick(dialog().focusWidget(), Qt::Key_Tab);
            QVERIFY2(isWhole(*dialog().focusWidget()), qPrintable(dialog().focusWidget()->objectName()));
            ++fields;
        } while (dialog().focusWidget() != first && fields < 100);
        QVERIFY2(fields > 15 && fields < 100, qPrintable(QString::number(fields)));
        boxOf([this] { dialog().reject(); }, "msgBoxQuestion");
    }
};

int main(int argc, char** argv)
{
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication application(argc, argv);
    SmallScreenTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_small_screen.moc"
