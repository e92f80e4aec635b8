#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <QVector>

class QWidget;

/// What a trader has filled in and not sent: the values of the form's fields that he could change, as codes of items
/// and as typed texts.
struct FormDraft {
    struct Value {
        QString field; ///< object name
        QString code;  ///< of a box's item, or of a security
        QString text;  ///< as shown
    };

    QString id;
    QString plan;    ///< the edited plan; empty for a new one
    int version = 0; ///< the version that the form was made from
    QDateTime time;  ///< of the last change
    QVector<Value> values;
    QString algorithm; ///< empty if its parameters are not set
    QVariantMap parameters;

    /// Reads the values of a form.
    void read(const QWidget& form);
    /// Fills in a form from the top, because each choice refills the fields below it. Returns the captions of the
    /// fields that do not take their value any more.
    QStringList fill(QWidget& form) const;
    /// What the draft is about, in a line.
    QString summary() const;

    QJsonObject toJson() const;
    static FormDraft fromJson(const QJsonObject& json);
};
