#pragma once

#include <QString>

class QWidget;

/// Boxes that ask nobody: their texts go to the console, and a question is accepted.
struct OrloWidget {
    static void ShowWarningMsgBox(const QString& text, QWidget* parent);
    static void ShowErrorMsgBox(const QString& text, QWidget* parent);
    static void ShowTipMsgBox(const QString& text, QWidget* parent);
    static int ShowQuestionMsgBox(const QString& text, QWidget* parent, int defaultAnswer);
};
