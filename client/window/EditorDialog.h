#pragma once

#include <QDialog>
#include <QStringList>

class AutoParamSetting;
class QScrollArea;

/// The window's dialog around the plan editor. It keeps one editor and uses it again as long as the editor can be
/// brought back to its first state: a stored plan leaves a cleared form, which `AutoParamSetting::resetEnable` makes a
/// new one. A form that was left with values in it is replaced.
class EditorDialog : public QDialog {
    Q_OBJECT

public:
    explicit EditorDialog(QWidget* parent);
    ~EditorDialog() override;

    /// Open the editor for a new plan, for a stored one, and for a new one like a stored one. Must not be called while
    /// the dialog is open.
    void openNew();
    void openEdit(const QString& planId);
    void openCopy(const QString& planId);

    /// The skin for this editor and later ones, a style sheet.
    void setSkin(const QString& sheet);
    /// True when the dialog may be closed: it is closed already, nothing was changed, or the trader agrees to lose it.
    bool mayClose();
    /// Closes without asking.
    void leave();
    /// The editor; null before the first opening.
    AutoParamSetting* editor() const { return m_editor; }

public Q_SLOTS:
    /// Closing from outside: asks first.
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void prepare(const QString& title);
    void makeEditor();
    void tabThroughDates();
    void present();
    void fit();
    void planStored(const QString& planId);
    QStringList contents() const;

    QScrollArea* m_area;
    AutoParamSetting* m_editor = nullptr;
    QString m_skin;
    QStringList m_openedWith;   ///< what the form showed when it was opened
    bool m_stored = false;      ///< a plan was stored since the form was opened
    bool m_holdsValues = false; ///< the form holds what `resetEnable` does not take away
};
