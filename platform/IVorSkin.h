#pragma once

#include <QVariant>

/// A widget that takes the client's skin.
class IVorSkin {
public:
    IVorSkin() = default;

    /// Takes a skin, a style sheet as text; an invalid variant leaves the skin as it is.
    virtual void loadSkin(const QVariant& skin) = 0;

protected:
    ~IVorSkin() = default;
};
