#pragma once

#include <QString>
#include <QWidget>

/// The client's message boxes: modal to `parent`'s window, closed by the trader. Each returns also when `parent` is
/// deleted while the box is open.
class OrloWidget {
public:
    OrloWidget() = delete;

    /// Something must be corrected first.
    static void ShowWarningMsgBox(const QString& text, QWidget* parent);
    /// Something has failed.
    static void ShowErrorMsgBox(const QString& text, QWidget* parent);
    /// Something has succeeded.
    static void ShowTipMsgBox(const QString& text, QWidget* parent);
    /// Asks whether to go on: 0 when declined, closed or when `parent` is deleted, another number when accepted.
    /// `defaultAnswer` is the answer of the button that has the focus first.
    static int ShowQuestionMsgBox(const QString& text, QWidget* parent, int defaultAnswer);
};
