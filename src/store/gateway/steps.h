// Writing one step of a position's campaign, for everything that moves a position on.
#pragma once

#include "base/key.h"

#include <QString>

class DataJW;

namespace steps {

/// How a step was done, as a position's medium columns hold it.
enum Medium : Key {
    NoMedium = 0, ///< not done, or done in a way of no name
    Internet,
    Fax,
    Phone,
    Post,
    Research,
    Meeting,
    Other,
};

/// Writes the day of a step, then its medium, in one action. @p step is the date's column ("SentResume"), the
/// medium's has "Medium" behind that; @p day is in a form of the dialect. False when any of it failed: that
/// has been logged, and what did not fail is written.
bool write(DataJW& dataJW, Key position, const QString& step, const QString& day, int medium);

} // namespace steps
