#pragma once

#include <QStringList>

/// The binary interface of the editor's library, one line per item: the size of the class and of its table of virtual
/// functions, its signals and slots in order, and every exported symbol. `nm` is the program that reads the symbols of
/// `library`. Empty if that fails.
QStringList interfaceOfLibrary(const QString& nm, const QString& library);
