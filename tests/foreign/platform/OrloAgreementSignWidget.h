#pragma once

#include <QDialog>

class OrloAgreementSignWidget : public QDialog {
public:
    OrloAgreementSignWidget(bool, bool, QWidget* parent)
        : QDialog(parent)
    {
    }
    void SetAccountSelectable(bool) { }
    void SetAgreement(const QString&) { }
    void SetSignCountDown(int) { }
    void SetClientNoList(const QStringList&) { }
};
