#pragma once

#include "PlanVocabulary.h"

#include <QStringList>

class ParamListWidget_single;
class QWidget;

/// Functions for the algorithm parameter widget, used when a plan is created and when one is loaded.
namespace AlgorithmParameters {

/// Creates a hidden parameter widget, owned by the editor.
ParamListWidget_single* createWidget(QWidget* editor, const QStringList& whiteList);

/// Sets both lists and makes the widget rebuild the algorithms it offers.
void refreshLists(ParamListWidget_single* widget, const QStringList& whiteList, const QStringList& blackList);

/// Returns the algorithm's code for a plan's side; empty for a side that is neither buy nor sell.
QString algorithmSide(const QString& side);

/// Inserts a plan's side into base data as the algorithm's code. Inserts nothing if the side has no such code.
void insertSide(FieldMap& baseData, const QString& side);

/// Returns the algorithm's order property for an entrust type; empty if there is none.
QString orderProperty(const QString& entrustType);

} // namespace AlgorithmParameters
