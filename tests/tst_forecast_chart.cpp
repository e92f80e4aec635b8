// What the chart of a forecast paints, as pixels of a grabbed picture.
#include "ForecastChart.h"
#include "LoggedTest.h"

#include <QImage>
#include <QtTest>

namespace {

constexpr int ColumnWidth = 20;
constexpr int Height = 60;
const QColor Ground = Qt::white;
const QColor Bar = Qt::blue;
const QColor Line = Qt::red;
const QColor Shade = Qt::gray;

ForecastDay dayOf(TradeCalendar::Day kind, qint64 quantity = 0, double left = 0)
{
    ForecastDay day;
    day.kind = kind;
    day.quantity = quantity;
    day.left = left;
    return day;
}

/// A full day, half a day, a closed day, a day whose closures are not announced yet, an unknown day.
PlanForecast smallForecast()
{
    PlanForecast forecast;
    forecast.total = 300;
    forecast.days = { dayOf(TradeCalendar::Day::Trades, 200, 100), dayOf(TradeCalendar::Day::Trades, 100),
        dayOf(TradeCalendar::Day::Closed), dayOf(TradeCalendar::Day::Trades), dayOf(TradeCalendar::Day::Unknown) };
    forecast.days[3].isProvisional = true;
    return forecast;
}

/// A year, with two closed days in each week, and the same quantity on all other days.
PlanForecast longForecast()
{
    PlanForecast forecast;
    for (int i = 0; i < 364; ++i)
        forecast.days << (i % 7 < 5 ? dayOf(TradeCalendar::Day::Trades, 100) : dayOf(TradeCalendar::Day::Closed));
    return forecast;
}

class ForecastChartTest : public LoggedTest {
    Q_OBJECT

private:
    void prepare() override
    {
        m_chart = std::make_unique<ForecastChart>();
        m_chart->setProperty("groundColor", Ground);
        m_chart->setProperty("barColor", Bar);
        m_chart->setProperty("lineColor", Line);
        m_chart->setProperty("shadeColor", Shade);
        m_chart->resize(5 * ColumnWidth, Height);
    }
    void tidyUp() override { m_chart.reset(); }

    QImage picture() { return m_chart->grab().toImage(); }
    /// How many pixels of a day's column have a colour.
    int count(const QColor& color, int day)
    {
        const QImage all = picture();
        int found = 0;
        for (int x = day * ColumnWidth; x < (day + 1) * ColumnWidth; ++x) {
            for (int y = 0; y < Height; ++y)
                found += all.pixelColor(x, y) == color ? 1 : 0;
        }
        return found;
    }

    std::unique_ptr<ForecastChart> m_chart;

private Q_SLOTS:
    void aBarIsAsHighAsItsDay()
    {
        PlanForecast forecast = smallForecast();
        forecast.total = 0; // no line
        m_chart->setForecast(forecast, QString());
        const QImage all = picture();
        const int middle = ColumnWidth / 2;
        QCOMPARE(all.pixelColor(middle, 0), Bar);
        QCOMPARE(all.pixelColor(middle, Height - 1), Bar);
        QCOMPARE(all.pixelColor(ColumnWidth + middle, Height / 2 - 1), Ground);
        QCOMPARE(all.pixelColor(ColumnWidth + middle, Height / 2), Bar);
        QCOMPARE(all.pixelColor(ColumnWidth + middle, Height - 1), Bar);
        // A fifth of a column is between the bars.
        QCOMPARE(count(Bar, 0), ColumnWidth * 4 / 5 * Height);
        QCOMPARE(count(Bar, 1), ColumnWidth * 4 / 5 * Height / 2);
        for (const int empty : { 2, 3, 4 })
            QCOMPARE(count(Bar, empty), 0);
    }

    void theSmallestBarIsSeen()
    {
        PlanForecast forecast = smallForecast();
        forecast.days[1].quantity = 1;
        forecast.days[0].quantity = 1000000;
        m_chart->setForecast(forecast, QString());
        QVERIFY(count(Bar, 1) > 0);
    }

    void closedDaysAreShadedAndUncertainOnesHatched()
    {
        PlanForecast forecast = smallForecast();
        forecast.total = 0;
        m_chart->setForecast(forecast, QString());
        const int all = ColumnWidth * Height;
        QCOMPARE(count(Shade, 0), 0);
        QCOMPARE(count(Shade, 2), all);
        for (const int uncertain : { 3, 4 }) {
            const int hatched = count(Shade, uncertain);
            QVERIFY2(hatched > all / 20 && hatched < all / 2, qPrintable(QString::number(hatched)));
            QCOMPARE(count(Ground, uncertain), all - hatched);
        }
    }

    void theLineFallsToWhatIsLeft()
    {
        m_chart->setForecast(smallForecast(), QString());
        const QImage all = picture();
        const auto heightAt = [&all](int x) {
            int y = 0;
            while (y < Height && all.pixelColor(x, y) != Line)
                ++y;
            return y;
        };
        QCOMPARE(heightAt(0), 0);
        QVERIFY(qAbs(heightAt(ColumnWidth) - Height * 2 / 3) <= 2);
        QCOMPARE(heightAt(2 * ColumnWidth + 1), Height - 1);
        QCOMPARE(heightAt(5 * ColumnWidth - 1), Height - 1);
    }

    void manyDaysInFewPixels()
    {
        m_chart->setForecast(longForecast(), QString());
        const QImage all = picture();
        int bars = 0;
        for (int x = 0; x < all.width(); ++x)
            bars += all.pixelColor(x, Height - 1) == Bar ? 1 : 0;
        // Two days of seven may have a pixel for themselves.
        QVERIFY2(bars >= all.width() * 5 / 7, qPrintable(QString::number(bars)));
        QCOMPARE(all.pixelColor(0, Height - 1), Bar);
    }

    void withoutDaysItIsEmpty()
    {
        m_chart->setForecast(smallForecast(), QStringLiteral("before"));
        m_chart->setForecast(PlanForecast(), QStringLiteral("nothing"));
        for (int day = 0; day < 5; ++day)
            QCOMPARE(count(Ground, day), ColumnWidth * Height);
        QCOMPARE(m_chart->accessibleDescription(), QStringLiteral("nothing"));
    }

    void onlyAChangeIsPainted()
    {
        m_chart->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_chart.get()));
        m_chart->setForecast(smallForecast(), QString());
        m_chart->repaint();
        QCoreApplication::processEvents();
        PaintCounter counter(m_chart.get());
        m_chart->setForecast(smallForecast(), QString());
        QCoreApplication::processEvents();
        QCOMPARE(counter.paints, 0);
        m_chart->setForecast(longForecast(), QString());
        QTRY_COMPARE(counter.paints, 1);
    }

private:
    struct PaintCounter : QObject {
        explicit PaintCounter(QObject* watched) { watched->installEventFilter(this); }
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return QObject::eventFilter(watched, event);
        }
        int paints = 0;
    };
};

} // namespace

QTEST_MAIN(ForecastChartTest)
#include "tst_forecast_chart.moc"
