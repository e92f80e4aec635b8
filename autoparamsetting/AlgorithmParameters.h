#pragma once

#include <QMap>
#include <QStringList>
#include <QVariant>

class ParamListWidget_single;
class QWidget;

/// What creating and loading a plan share about the algorithm parameter widget.
namespace AlgorithmParameters {

/// A new, hidden parameter widget, owned by the editor.
ParamListWidget_single* createWidget(QWidget* editor, const QStringList& whiteList);

/// Hands the lists over and lets the widget rebuild what it offers.
void refreshLists(ParamListWidget_single* widget, const QStringList& whiteList, const QStringList& blackList);

/// The algorithm's own code of a plan's side; empty for a side that is neither buy nor sell.
QString algorithmSide(const QString& side);

/// Puts a plan's side into base data in the algorithm's own code; a side that has none puts nothing.
void insertSide(QMap<QString, QVariant>& baseData, const QString& side);

/// The algorithm's order property of an entrust type; empty when it has none.
QString orderProperty(const QString& entrustType);

} // namespace AlgorithmParameters
