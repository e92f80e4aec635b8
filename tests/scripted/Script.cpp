#include "Script.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace {

QString readableList(const QVariantList& values)
{
    QStringList parts;
    for (const QVariant& value : values)
        parts.append(readable(value));
    return parts.join(QStringLiteral(", "));
}

QString readableMap(const QVariantMap& map)
{
    QStringList parts;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        parts.append(it.key() + QStringLiteral(": ") + readable(it.value()));
    return QLatin1Char('{') + parts.join(QStringLiteral(", ")) + QLatin1Char('}');
}

/// Records the events of the form's widgets in the script.
class FormWatcher : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QWidget* const widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && !widget->objectName().isEmpty()
            && !widget->objectName().startsWith(QLatin1String("qt_")))
            note(*widget, event->type());
        return false;
    }

private:
    static void note(const QWidget& widget, QEvent::Type type)
    {
        const QString name = widget.objectName();
        if (type == QEvent::HideToParent)
            Script::instance().step(name + QStringLiteral(".hide()"));
        else if (type == QEvent::ShowToParent)
            Script::instance().step(name + QStringLiteral(".show()"));
        else if (type == QEvent::EnabledChange)
            Script::instance().step(
                QStringLiteral("%1.setEnabled(%2)").arg(name, QVariant(widget.isEnabled()).toString()));
    }
};

FormWatcher& formWatcher()
{
    static FormWatcher watcher;
    return watcher;
}

} // namespace

QString readable(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return QLatin1Char('[') + readableList(value.toList()) + QLatin1Char(']');
    case QMetaType::QVariantMap:
        return readableMap(value.toMap());
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    default:
        break;
    }
    const QString text = value.toString();
    return text.isEmpty() ? QStringLiteral("\"\"") : text;
}

QString ScriptCall::text() const
{
    return operation + QLatin1Char('(') + readableList(arguments) + QLatin1Char(')');
}

Script& Script::instance()
{
    static Script script;
    return script;
}

void Script::reset()
{
    reset(World());
}

void Script::reset(const World& world)
{
    watch(false);
    *this = Script();
    static_cast<World&>(*this) = world;
}

void Script::watch(bool on)
{
    if (qApp == nullptr)
        return;
    qApp->removeEventFilter(&formWatcher());
    if (on)
        qApp->installEventFilter(&formWatcher());
}

void Script::forget()
{
    calls.clear();
    typedCalls.clear();
    steps.clear();
    boxes.clear();
}

QStringList Script::callsOf(const QString& operation) const
{
    QStringList found;
    for (const ScriptCall& call : typedCalls) {
        if (call.operation == operation)
            found.append(call.text());
    }
    return found;
}

int Script::countOf(const QString& operation) const
{
    return callsOf(operation).size();
}

void Script::record(const QString& operation, const QVariantList& arguments)
{
    const ScriptCall call{ operation, arguments };
    typedCalls.append(call);
    calls.append(call.text());
    steps.append(calls.last());
    if (onCall)
        onCall(call);
}

void Script::step(const QString& text)
{
    steps.append(text);
}
