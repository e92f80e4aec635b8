#pragma once

#include <QString>

/// The first letters of the syllables of Chinese names, as traders type them: "GSYH" for 工商银行.
namespace PinyinInitials {

/// The initials of a name, separated by blanks if a character has several readings. Latin letters and digits stay;
/// other characters are left out. Upper case.
QString of(const QString& name);

} // namespace PinyinInitials
