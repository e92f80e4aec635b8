#pragma once

#include "ParamListWidget_single.h"
#include "ParameterForm.h"

class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

/// The client's algorithm parameter widget: the strategy, the inputs of its parameters, OK and Cancel. OK checks and
/// confirms, also by Ctrl+Enter; Cancel, Escape and closing keep what was confirmed before.
class AlgorithmPanel : public ParamListWidget_single {
    Q_OBJECT

public:
    /// What a panel offers: the bits of the factory's `flags`.
    enum Offer { StrategyChoice = 1, Parameters = 2 };

    AlgorithmPanel(int offers, QWidget* parent);
    ~AlgorithmPanel() override;

    /// A strategy without a name clears the panel. An unknown strategy, or one that is not offered, is an error and
    /// does not change the panel.
    QString LoadStrategy(const AesStrategy& strategy, const QMap<QString, QVariant>& defaults,
        const QMap<QString, QVariant>& parameters, const QString& symbol) override;
    QMap<QString, QVariant> GetParamMap() const override;
    QString GetStrategyName() const override;
    void RefreshAlgoList() override;
    void ReInit() override;
    bool HasParams() const override;
    void ClearParams() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildPanel();
    void buildChoice(QVBoxLayout* column);
    void buildButtons(QVBoxLayout* column);
    void connectPanel();

    Status checkChoice(const QString& name) const;
    void fillStrategies();
    void selectStrategy(const QString& name);
    void showStrategy(const QString& name, const QMap<QString, QString>& values);
    void resizeToContents();
    void fitScroll();
    QMap<QString, QString> orderFields() const;
    void replaceForm(ParameterForm* form);
    void showBaseData();
    void showMessage(const QString& message);
    void takeValues(const QMap<QString, QVariant>& handedOver);
    void updateSecurity();

    void slotStrategyChanged();
    void slotOk();
    void slotCancel();

    int m_offers;
    QString m_symbol;
    QVBoxLayout* m_formLayout = nullptr;
    QLabel* m_baseData = nullptr;
    QComboBox* m_strategies = nullptr;
    QLabel* m_description = nullptr;
    QLabel* m_message = nullptr;
    QPushButton* m_ok = nullptr;
    QPushButton* m_cancel = nullptr;
    QScrollArea* m_scroll = nullptr; ///< owns the form
    ParameterForm* m_form = nullptr;
};
