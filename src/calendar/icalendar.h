// Events and tasks for other calendar programs.
#pragma once

#include "calendar/jwevent.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>

#include <vector>

/// Writes the calendar's entries as iCalendar (RFC 5545).
namespace icalendar {

/// One VCALENDAR in UTF-8 with lines ending in CR LF: a VEVENT for each event and a VTODO for each task, in
/// their order. Times float: they are the user's wall clock wherever the file is read. An event whose time
/// cannot be read takes its whole day; one without a date has no place in a calendar and is left out. Tasks
/// without a date have no DUE. Of no entries comes a calendar with nothing but a time zone in it, as the
/// format has no empty one. @p now is the moment of writing, which the format asks for. An entry keeps its
/// UID as long as it keeps its key. @p with names by entry key whom it is with, which stands in the summary
/// behind the entry's own name.
[[nodiscard]] QByteArray write(const std::vector<JWevent>& entries, const QDateTime& now,
                               const QHash<Key, QString>& with = {});

} // namespace icalendar
