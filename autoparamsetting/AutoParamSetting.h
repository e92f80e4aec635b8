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

/// The plan editor: a form in which a trader creates, edits or copies an automatic trading plan. The host constructs
/// the editor inside its own window, shows it, optionally calls `editPlan` or `copyPlan`, sets the skin and closes the
/// editor on `signalBtnCancelClicked`. The class must be used on the user interface thread.
class AUTOPARAMSETTING_EXPORT AutoParamSetting : public QWidget, public IVorSkin {
    Q_OBJECT

public:
    /// Builds the form, initializes it for a new plan and connects it to the client's services.
    explicit AutoParamSetting(QWidget* parent);
    ~AutoParamSetting() override;

    /// Opens a stored plan for editing. OK then modifies the plan; the fields that identify it are locked. An unknown
    /// id is logged, and the fields are locked nevertheless.
    void editPlan(const QString& planId);
    /// Fills the form from a stored plan. OK then creates a new plan. An unknown id, or a plan without other
    /// parameters, is logged and leaves the form unchanged.
    void copyPlan(const QString& planId);
    /// Returns to creating plans: clears the id of the edited plan and enables every field. The values are kept.
    void resetEnable();
    /// Sets a style sheet, passed as text. An invalid variant leaves the current one unchanged.
    void loadSkin(const QVariant& skin) override;

Q_SIGNALS:
    /// Emitted when Cancel was pressed or a plan was created or modified. The host may close the editor.
    void signalBtnCancelClicked();
    /// Never emitted. Kept in the method table for hosts that connect to it.
    void signalBtnOkClicked(QList<QVariantMap> dataLst);
    /// Requests the moving averages of a security. The editor forwards the signal to the plan service.
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
    qint64 m_reserved; ///< never read; kept because linked programs rely on the class's size
    QMap<QString, tagUserAccountInfo> m_accountInfoMap; ///< records of the offered accounts by trading account
    ParamListWidget_single* m_algoParamWidget;          ///< null until first needed, then kept as a child
    QStringList m_algoWhiteList;
    QStringList m_algoBlackList;
    int m_startDayOffset; ///< days from today to the first day on which a plan may take effect
    QStringList m_maPriceList;
    QString m_planId; ///< the plan being edited; empty while creating or copying
};
