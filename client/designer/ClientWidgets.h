#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

/// The plug-in with the client's widgets for forms. None of them uses a service before user input, so no session has to
/// be open.
class ClientWidgets : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")

public:
    explicit ClientWidgets(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return m_widgets; }

private:
    enum class Holds { Nothing, Widgets };

    template <class Widget> void add(const QString& purpose, Holds holds = Holds::Nothing);

    QList<QDesignerCustomWidgetInterface*> m_widgets;
};
