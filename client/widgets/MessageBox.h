#pragma once

#include <QDialog>
#include <QStyle>

class QPushButton;

/// One of the client's message boxes. `exec()` answers `Accepted` for the confirming button, `Rejected` for anything
/// else.
class MessageBox : public QDialog {
    Q_OBJECT

public:
    /// What a kind of box looks like.
    struct Kind {
        QString objectName;
        QString title;
        QStyle::StandardPixmap icon;
    };

    MessageBox(const Kind& kind, const QString& text, QWidget* parent);

    /// Adds the button that declines; it has the focus first when `focused`.
    void addDecline(bool focused);

private:
    QWidget* newText(const QString& text);
    QPushButton* newButton(const QString& objectName, const QString& text);

    QPushButton* m_confirm;
};
