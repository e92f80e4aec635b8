#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

/// The plug-in: every widget of the client of which a form may be made. None of them asks a service before a user does
/// something with it, so that no session need be open.
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
