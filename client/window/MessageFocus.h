#pragma once

#include "Status.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

/// Leads the trader from a message of the editor to the field that it is about: when the box is closed, the field has
/// the focus and is marked until its content changes or the plan is sent again. The editor's messages are known by
/// their texts, those of the plan service by their codes.
class MessageFocus : public QObject {
    Q_OBJECT

public:
    /// Watches the boxes of a form, which owns this object.
    explicit MessageFocus(QWidget* form);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// A field has got the focus after a message.
    void fieldShown(QWidget* field);

private:
    void boxClosed(const QString& name, const QString& text, bool isAccepted);
    QWidget* fieldOf(const QString& text) const;
    QWidget* fieldOf(const Status& refusal) const;
    QWidget* fieldCalled(const QString& name) const;
    QWidget* fieldWithCaption(const QString& caption) const;
    void show(QWidget* field);
    void unmarkOnChange();
    void unmark();

    QWidget* m_form;
    QPointer<QWidget> m_marked;
    QMetaObject::Connection m_change; ///< of the content of the marked field
    Status m_refusal;                 ///< what the service has answered to the plan that is being sent
};
