#pragma once

#include "AesStrategy.h"
#include <QMap>
#include <QVariant>
#include <QWidget>

/// This client trades without algorithms.
class ParamListWidget_single : public QWidget {
public:
    using QWidget::QWidget;

    QString LoadStrategy(
        const AesStrategy&, const QMap<QString, QVariant>&, const QMap<QString, QVariant>&, const QString&)
    {
        return QStringLiteral("no algorithms here");
    }
    QMap<QString, QVariant> GetParamMap() const { return {}; }
    QString GetStrategyName() const { return {}; }
    void RefreshAlgoList() { }
    void ReInit() { }
    bool HasParams() const { return false; }
    void ClearParams() { }
    void setAlgoWhiteList(const QStringList&) { }
    void setAlgoBlackList(const QStringList&) { }
    QStringList getAuthorityAlgoList() const { return {}; }
    void setBaseInfoData(const QMap<QString, QVariant>&, bool) { }
};
