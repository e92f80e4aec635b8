#pragma once

#include <QComboBox>

#include <memory>

/// A combo box that is never editable. Its popup can have a search field. The box ignores the wheel unless it has the
/// focus.
class OrloComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit OrloComboBox(QWidget* parent = nullptr); ///< constructs an empty box without a search field
    ~OrloComboBox() override;

    /// Sets whether the popup has a search field. Typing there filters the list; the box itself stays uneditable.
    void setSearchEnabled(bool enabled = true);
    bool isSearchEnabled() const; ///< whether the popup has a search field

    /// Enables the box after it was locked.
    void ResetEnable();

    void showPopup() override; ///< opens the list, with the search field if enabled
    void hidePopup() override; ///< closes the list

protected:
    void wheelEvent(QWheelEvent* event) override; ///< handles the wheel only with the focus

private:
    class Private;
    std::unique_ptr<Private> d;
};
