// Numbers as texts: how the program reads them, rounds them and shows them.
#pragma once

#include <QString>

namespace numbers {

/// The number that a user's text stands for, with a decimal point or the sign of the user's region; 0 for any
/// other text and for a number beyond the range of a double.
double read(const QString& text);

/// @p value rounded to so many decimal places, a half upward. A value that a decimal fraction stands for
/// (201 of 200) counts as that fraction and not as the nearest binary one.
double halfUp(double value, int places);

/// Rounded by halfUp, with exactly so many places and a decimal point: "0.50".
QString fixed(double value, int places);

/// Rounded by halfUp, as the user's region writes it and without zeros at its end: "0.5".
QString shown(double value, int places);

} // namespace numbers
