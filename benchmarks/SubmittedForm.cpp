#include "SubmittedForm.h"

#include "BenchmarkClient.h"
#include "Kelvo_Values.h"
#include "OrloDecimalLineEdit.h"
#include "SampleSession.h"
#include "VorSearchBox.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QTest>
#include <QTimer>

namespace {

template <class Widget> Widget* field(const QWidget& editor, const char* name)
{
    return editor.findChild<Widget*>(QLatin1String(name));
}

} // namespace

SubmittedForm::SubmittedForm()
{
    connect(&PlanEvents::instance(), &PlanEvents::planStored, this,
        [this] { m_seconds = static_cast<double>(m_timer.nsecsElapsed()) * 1e-9; });
    qApp->installEventFilter(this);
    showPainted(m_editor);
}

void SubmittedForm::rest()
{
    QTest::qWait(250);
}

void SubmittedForm::fill()
{
    m_editor.resetEnable();
    QComboBox* const account = field<QComboBox>(m_editor, "combx_fundAccount");
    account->setCurrentIndex(account->findData(QStringLiteral("100001")));
    field<VorSearchBox>(m_editor, "le_symbol")
        ->setSymbol(SampleSession::symbolOf(Kelvo_Values::MdcSubSecurityType::Ashares, Kelvo_Values::SymbolPost::sh));
    field<OrloDecimalLineEdit>(m_editor, "le_targetTotalNum")->setValue(1000);
    rest();
}

double SubmittedForm::submit()
{
    auto* const ok = field<QAbstractButton>(m_editor, "btn_ok");
    m_seconds = 0;
    m_timer.start();
    ok->click();
    return m_seconds;
}

bool SubmittedForm::eventFilter(QObject* watched, QEvent* event)
{
    auto* const box = qobject_cast<QDialog*>(watched);
    if (box && event->type() == QEvent::Show)
        QTimer::singleShot(0, box, &QDialog::accept);
    return false;
}
