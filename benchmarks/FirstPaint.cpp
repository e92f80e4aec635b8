// A plug-in for the unmodified program `plandesk`. When the window has been painted and handles events, the plug-in
// prints the monotonic time in nanoseconds and exits the program.
#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <ctime>

namespace {

class FirstPaintWatch : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->inherits("QMainWindow") && !m_painted) {
            m_painted = true;
            QTimer::singleShot(0, this, &FirstPaintWatch::report);
        }
        return false;
    }

private:
    void report()
    {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        std::printf("%lld\n", 1000000000LL * now.tv_sec + now.tv_nsec);
        std::fflush(stdout);
        QCoreApplication::quit();
    }

    bool m_painted = false;
};

} // namespace

class FirstPaint : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstPaint.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        auto* const watch = new FirstPaintWatch(this);
        QCoreApplication::instance()->installEventFilter(watch);
        return watch;
    }
};

#include "FirstPaint.moc"
