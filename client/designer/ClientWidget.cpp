#include "ClientWidget.h"

#include <QIcon>

ClientWidget::ClientWidget(
    const QString& className, const QString& purpose, bool isContainer, Maker maker, QObject* parent)
    : QObject(parent)
    , m_className(className)
    , m_purpose(purpose)
    , m_isContainer(isContainer)
    , m_maker(maker)
{
}

QString ClientWidget::group() const
{
    return tr("交易客户端");
}

QString ClientWidget::includeFile() const
{
    return m_className + QStringLiteral(".h");
}

QIcon ClientWidget::icon() const
{
    return {};
}

QString ClientWidget::domXml() const
{
    const QString object = m_className.at(0).toLower() + m_className.mid(1);
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\"/></ui>").arg(m_className, object);
}
