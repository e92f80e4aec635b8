#pragma once

#include "AutoParamSetting.h"
#include "PlanEvents.h"

#include <QElapsedTimer>
#include <QObject>

/// A form that is filled in for a new plan again and again, and measures the time from the press of OK until the plan
/// is stored. Closes the message boxes about it. The session must be open.
class SubmittedForm : public QObject {
    Q_OBJECT

public:
    SubmittedForm();

    /// The shortest time in which a trader can fill in a form. An idle disk is slower, so every measurement that is
    /// compared uses the same pause.
    static void rest();
    /// Fills in the form and rests.
    void fill();
    /// Presses OK. Returns the seconds until the plan was stored; 0 if it was not.
    double submit();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    AutoParamSetting m_editor{ nullptr };
    QElapsedTimer m_timer;
    double m_seconds = 0;
};
