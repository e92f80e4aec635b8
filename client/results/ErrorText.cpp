#include "ErrorText.h"

#include "ErrorSentences.h"

#include <QCoreApplication>

QString errorText(const Status& status)
{
    QStringList values;
    const QStringList& details = status.details();
    for (const QString& detail : details)
        values << captionText(detail);
    if (!status.cause())
        values << errorText(status.cause());
    const QString text = QCoreApplication::translate("Error", errorSentence(status.error()));
    // All at once, so that a placeholder inside a detail is not replaced.
    switch (values.size()) {
    case 0:
        return text;
    case 1:
        return text.arg(values.at(0));
    case 2:
        return text.arg(values.at(0), values.at(1));
    case 3:
        return text.arg(values.at(0), values.at(1), values.at(2));
    default:
        return text.arg(values.at(0), values.at(1), values.at(2), values.at(3));
    }
}

QString captionText(const QString& caption)
{
    return caption.isEmpty() ? caption : QCoreApplication::translate("Caption", caption.toUtf8().constData());
}

QString listText(const QStringList& texts)
{
    return texts.join(QCoreApplication::translate("Error", "、"));
}
