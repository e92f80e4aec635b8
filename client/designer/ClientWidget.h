#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// One of the client's widgets as Qt Designer knows it.
class ClientWidget : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// How Designer gets a widget; the parent may be null.
    using Maker = QWidget* (*)(QWidget* parent);

    /// `purpose` is what Designer tells of the class. The header is named after the class.
    ClientWidget(const QString& className, const QString& purpose, bool isContainer, Maker maker, QObject* parent);

    QString name() const override { return m_className; }
    QString group() const override;
    QString toolTip() const override { return m_purpose; }
    QString whatsThis() const override { return m_purpose; }
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return m_isContainer; }
    QWidget* createWidget(QWidget* parent) override { return m_maker(parent); }
    QString domXml() const override;

private:
    QString m_className;
    QString m_purpose;
    bool m_isContainer;
    Maker m_maker;
};
