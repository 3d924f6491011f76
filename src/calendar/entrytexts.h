// What the month and the task list say about one entry.
#pragma once

#include "calendar/jwevent.h"

#include <QString>

namespace entrytexts {

/// "10:30 Interview", "2:00p Referral"; the name alone when it has no time.
QString chip(const JWevent& event);
/// All that an entry's place, picture and colour tell, in words, and whom it is @p with ("" for nobody). The
/// description stands on lines of its own.
QString tip(const JWevent& entry, const QString& with);
/// A task's name, and what there is to do: tasks of one kind are told apart by it.
QString task(const JWevent& task);

} // namespace entrytexts
