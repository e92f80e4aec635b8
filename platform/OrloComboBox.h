#pragma once

#include <QComboBox>
#include <memory>

/// A combo box that never becomes editable; its popup can carry a search field. The wheel does nothing unless the
/// box has the focus.
class OrloComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit OrloComboBox(QWidget* parent = nullptr);
    ~OrloComboBox() override;

    /// Puts a search field into the popup: typing narrows the list, the box itself stays uneditable.
    void setSearchEnabled(bool enabled = true);
    bool isSearchEnabled() const;

    /// Makes the box usable again after it was locked.
    void ResetEnable();

    void showPopup() override;
    void hidePopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};
