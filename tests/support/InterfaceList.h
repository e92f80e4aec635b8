#pragma once

#include <QStringList>

/// What a program that was linked with the editor's library relies on, a line each: the size of the class and of its
/// table of virtual functions, its signals and slots in their order, and every exported symbol. `nm` is the program
/// that reads the symbols of `library`; empty when it cannot.
QStringList interfaceOfLibrary(const QString& nm, const QString& library);
