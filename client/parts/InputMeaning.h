#pragma once

#include <QLabel>
#include <QLineEdit>

/// A text at the right end of a line edit that says what its input means. If the input leaves no room for it, it is a
/// hint at the field.
class InputMeaning : public QLabel {
    Q_OBJECT

public:
    /// Shows a text in `line`, the line edit of `field`. An empty text hides it.
    static void show(QLineEdit* line, QWidget* field, const QString& text);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit InputMeaning(QLineEdit* line);
    void place();
    int wantedWidth() const;
    bool fits() const;

    QLineEdit* m_line;
};
