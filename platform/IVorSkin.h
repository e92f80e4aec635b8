#pragma once

#include <QVariant>

/// Interface of widgets that support the client's skins.
class IVorSkin {
public:
    IVorSkin() = default;

    /// Sets a skin, a style sheet as text. An invalid variant leaves the skin unchanged.
    virtual void loadSkin(const QVariant& skin) = 0;

protected:
    ~IVorSkin() = default;
};
