#pragma once

#include "Kelvo_Values.h"
#include "Orlo_Values.h"

#include <QMap>

/// Returns true if there is a security account in Shanghai or Shenzhen. The keys of `accounts` are exchange codes.
inline bool holdsShanghaiOrShenzhen(const QMap<QString, QString>& accounts)
{
    return accounts.contains(Kelvo_Values::Exchange::sh) || accounts.contains(Kelvo_Values::Exchange::sz);
}

/// Returns true if there is a security account in Shanghai, Shenzhen or Beijing.
inline bool holdsMainland(const QMap<QString, QString>& accounts)
{
    return holdsShanghaiOrShenzhen(accounts) || accounts.contains(Orlo_Values::Exchange::bj);
}
