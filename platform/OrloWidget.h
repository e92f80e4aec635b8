#pragma once

#include <QString>
#include <QWidget>

/// The client's message boxes. They are modal, at least to the window of `parent`. Each function returns when the
/// trader closes the box, or when `parent` is deleted while the box is open.
class OrloWidget {
public:
    OrloWidget() = delete;

    /// Shows a warning: the trader must correct something first.
    static void ShowWarningMsgBox(const QString& text, QWidget* parent);
    /// Shows an error.
    static void ShowErrorMsgBox(const QString& text, QWidget* parent);
    /// Shows that an operation succeeded.
    static void ShowTipMsgBox(const QString& text, QWidget* parent);
    /// Asks whether to continue. Returns 0 if the question was declined or closed or `parent` was deleted, another
    /// number if it was accepted. `defaultAnswer` is the answer of the button that has the focus initially.
    static int ShowQuestionMsgBox(const QString& text, QWidget* parent, int defaultAnswer);
};
