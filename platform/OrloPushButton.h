#pragma once

#include <QPushButton>
#include <memory>

/// A push button in one of the client's styles.
class OrloPushButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString styleType READ styleType WRITE setStyleType)

public:
    /// Values of `setStyleType`.
    struct BtnStyleType {
        static const QString Normal;    ///< an ordinary button
        static const QString Highlight; ///< the button that the form is about
        static const QString Text;      ///< a text that can be clicked
    };

    explicit OrloPushButton(QWidget* parent = nullptr); ///< in the style `Normal`
    ~OrloPushButton() override;

    /// Sets the style; style sheets select by the property of the same name. An unknown style looks like `Normal`.
    void setStyleType(const QString& styleType);
    QString styleType() const; ///< the style as it was set

private:
    class Private;
    std::unique_ptr<Private> d;
};
