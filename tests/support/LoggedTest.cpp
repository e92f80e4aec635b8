#include "LoggedTest.h"

#include <QListView>
#include <QWheelEvent>
#include <QtTest>

void LoggedTest::init()
{
    m_log = std::make_unique<LogCatcher>();
    prepare();
}

void LoggedTest::cleanup()
{
    tidyUp();
    const QStringList problems = m_log->problems();
    m_log.reset();
    QCOMPARE(problems, QStringList());
}

void FieldTest::prepare()
{
    m_window = std::make_unique<QWidget>();
    m_window->resize(360, 120);
}

void FieldTest::tidyUp()
{
    m_window.reset();
}

void FieldTest::showWith(QWidget* field)
{
    m_next = new QLineEdit(m_window.get());
    m_next->move(0, 60);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->activateWindow();
    field->setFocus();
    QTRY_VERIFY(field->hasFocus());
}

void FieldTest::retype(QWidget* field, const QString& text)
{
    field->setFocus();
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(field, text);
}

bool FieldTest::turnWheel(QWidget* widget, int step)
{
    const QPointF middle = widget->rect().center();
    QWheelEvent wheel(middle, widget->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120 * step), Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget, &wheel);
    return wheel.isAccepted();
}

QStringList FieldTest::suggestions(const QWidget* field)
{
    const auto* const list = field->findChild<QListView*>(QStringLiteral("suggestions"));
    QStringList rows;
    for (int row = 0; list && list->isVisible() && row < list->model()->rowCount(); ++row)
        rows.append(list->model()->index(row, 0).data().toString());
    return rows;
}
