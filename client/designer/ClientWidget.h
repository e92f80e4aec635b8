#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

/// Describes one of the client's widgets to Qt Designer.
class ClientWidget : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    /// Creates a widget for Designer; the parent may be null.
    using Maker = QWidget* (*)(QWidget* parent);

    /// `purpose` is the description that Designer shows. The header is named after the class.
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
