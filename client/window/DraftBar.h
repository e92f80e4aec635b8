#pragma once

#include <QWidget>

class EditorForms;
class QLabel;

/// Offers the forms that were not sent before the client was killed, one after the other. Hidden if there is none.
class DraftBar : public QWidget {
    Q_OBJECT

public:
    DraftBar(EditorForms& forms, QWidget* parent);

private:
    void open();
    void discard();
    void showNext();

    EditorForms& m_forms;
    QLabel* m_text;
};
