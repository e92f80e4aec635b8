#pragma once

class QWidget;

/// What the window adds to the date fields of a form, which it knows by their object names.
namespace FormDates {

/// Puts them behind the executing user in the order of Tab, as they are on the screen.
void tabThrough(const QWidget& form);

/// Keeps what was entered when another security is chosen.
void keepEntered(const QWidget& form);

/// Lets the dates of the next plan begin with the form's own.
void forgetEntered(const QWidget& form);

} // namespace FormDates
