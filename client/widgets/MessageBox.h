#pragma once

#include <QDialog>
#include <QStyle>

class QPushButton;

/// A message box of the client. `exec()` returns `Accepted` for the confirming button, otherwise `Rejected`.
class MessageBox : public QDialog {
    Q_OBJECT

public:
    /// The appearance of a kind of box.
    struct Kind {
        QString objectName;
        QString title;
        QStyle::StandardPixmap icon;
    };

    MessageBox(const Kind& kind, const QString& text, QWidget* parent);

    /// Adds the declining button, with the initial focus if `focused`.
    void addDecline(bool focused);

private:
    QWidget* newText(const QString& text);
    QPushButton* newButton(const QString& objectName, const QString& text);

    QPushButton* m_confirm;
};
