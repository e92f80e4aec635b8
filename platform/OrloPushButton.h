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
        static const QString Highlight; ///< the main button of a form
        static const QString Text;      ///< a clickable text
    };

    explicit OrloPushButton(QWidget* parent = nullptr); ///< constructs a button in the style `Normal`
    ~OrloPushButton() override;

    /// Sets the style. Style sheets select buttons by the property of the same name. An unknown style looks like
    /// `Normal`.
    void setStyleType(const QString& styleType);
    QString styleType() const; ///< returns the style that was set

private:
    class Private;
    std::unique_ptr<Private> d;
};
