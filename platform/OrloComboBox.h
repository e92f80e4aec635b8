#pragma once

#include <QComboBox>
#include <memory>

/// A combo box that never becomes editable; its popup can carry a search field. The wheel does nothing unless the
/// box has the focus.
class OrloComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit OrloComboBox(QWidget* parent = nullptr); ///< an empty box without a search field
    ~OrloComboBox() override;

    /// Puts a search field into the popup: typing narrows the list, the box itself stays uneditable.
    void setSearchEnabled(bool enabled = true);
    bool isSearchEnabled() const; ///< whether the popup has a search field

    /// Makes the box usable again after it was locked.
    void ResetEnable();

    void showPopup() override; ///< opens the list, with its search field where it has one
    void hidePopup() override; ///< closes it

protected:
    void wheelEvent(QWheelEvent* event) override; ///< takes the wheel with the focus only

private:
    class Private;
    std::unique_ptr<Private> d;
};
