#pragma once

#include <QWidget>

class QLabel;
class OrloPushButton;

/// A line above a form: a text, and a button for what can be done about it. Hidden until it has a text.
class NoticeLine : public QWidget {
    Q_OBJECT

public:
    NoticeLine(const QString& name, QWidget* parent);

    void setButton(const QString& name, const QString& text);
    void showText(const QString& text);

Q_SIGNALS:
    /// The button was pressed.
    void wanted();

private:
    QLabel* m_text;
    OrloPushButton* m_button;
};
