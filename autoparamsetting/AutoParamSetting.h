#pragma once

#include "AutoParamSettingExport.h"
#include "IVorSkin.h"
#include "tagUserAccountInfo.h"
#include <QList>
#include <QMap>
#include <QStringList>
#include <QVariant>
#include <QWidget>

class ParamListWidget_single;

namespace Ui {
class AutoParamSetting;
}

/// The plan editor: a form in which a trader creates an automatic trading plan, edits one, or creates one as a copy of
/// another. The host constructs it inside its own window, optionally calls `editPlan` or `copyPlan`, shows it, hands it
/// its skin and closes it on `signalBtnCancelClicked`. To be used on the user interface thread.
class AUTOPARAMSETTING_EXPORT AutoParamSetting : public QWidget, public IVorSkin {
    Q_OBJECT

public:
    /// Builds the form, fills it for a new plan and connects it to the client's services.
    explicit AutoParamSetting(QWidget* parent);
    ~AutoParamSetting() override;

    /// Opens a stored plan for editing: OK will modify it, and the fields that identify it are locked. An unknown id
    /// is logged, and the fields are locked all the same.
    void editPlan(const QString& planId);
    /// Fills the form from a stored plan for a new one: OK will create it. An unknown id, or a plan without its other
    /// parameters, is logged and leaves the form as it is.
    void copyPlan(const QString& planId);
    /// Goes back to creating: forgets the edited plan and enables every field again. The values stay.
    void resetEnable();
    /// Takes a style sheet as text; an invalid variant leaves the present one.
    void loadSkin(const QVariant& skin) override;

Q_SIGNALS:
    /// The host may close the editor: Cancel was pressed, or a plan was created or modified.
    void signalBtnCancelClicked();
    /// Kept in the method table for hosts that connect to it; never emitted.
    void signalBtnOkClicked(QList<QVariantMap> dataLst);
    /// Asks the plan service for the moving averages of a security; forwarded to it.
    void signalQuerySymbolMAInfo(QString tradingAccount, QString symbol);

private Q_SLOTS:
    void slotComboxAccountChanged();
    void slotComboxInstructionTypeChanged();
    void slotComboxInstructionTargetTypeChanged();
    void slotComboxPlanTypeChanged();
    void slotSymbolChange();
    void slotSymbolNameChange(QString);
    void slotComboxTradeSideChanged();
    void slotComboxPriceTypeChanged();
    void slotComboxEntrustTypeChanged();
    void slotComboxPriceModeChanged();
    void slotComboxInstructionModeChanged();
    void slotBtnAlgoParamSettingClicked();
    void slotBtnOkClicked();
    void slotUpdateAlgoWhiteList();
    void slotQuerySymbolMAResponse(QString symbol, QStringList priceList, QString failReason);

private:
    void initWidget();
    void InitHideWidget();
    void initGuiData();
    void initConnect();

    void InitComboxFundList();
    QStringList GetUnsignedClientNoList() const;
    void InitComboxAssignTo();
    void IsReduceHodingsMode(const QString& planType);

    void InitComboxInstructionType();
    void InitComboxInstructionTargetType();
    void InitComboxPlanType();
    void InitComboxTradeSide();
    void InitComboxEntrustType();
    void InitComboxInstructionMode();

    void InitComboxPriceMode(const QString& instructionMode);
    void InitComboxPriceType(const QString& instructionMode);
    void InitLineEditPrice1AndPrice2(bool clearTexts);

    void InitLeSymbol();
    void InitLeTargetTotalNumAndMaxNumAndPlanNum();
    void setDisplayUnit(const QString& symbol);
    void setQtyStepVisible(bool visible, const QString& step);

    void InitDateEffectivePeriod();

    bool checkParam();
    bool isContainsSpecialChar(const QString& text, QString& found);
    QMap<QString, QVariant> procUiDataByCreatePlan();
    void clearUiData();

    Ui::AutoParamSetting* ui;
    qint64 m_reserved; ///< part of the class's layout, on which linked programs rely; never read
    QMap<QString, tagUserAccountInfo> m_accountInfoMap; ///< trading account to its record, for every offered account
    ParamListWidget_single* m_algoParamWidget;          ///< null until first needed, then a child for good
    QStringList m_algoWhiteList;
    QStringList m_algoBlackList;
    int m_startDayOffset; ///< days from today to the first day on which a plan may take effect
    QStringList m_maPriceList;
    QString m_planId; ///< the plan being edited; empty while creating or copying
};
