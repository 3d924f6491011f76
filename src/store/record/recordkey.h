// The key of a record that a form is about to show.
#pragma once

#include "base/key.h"

#include <QString>

class RecordSet;
class Session;

/// The number in @p column of the record at which @p record stands; 0 without a record, and for a key that
/// the program cannot work with, which is shown and logged under @p place: nobody may save over such a
/// record.
[[nodiscard]] Key keyOrReport(Session& session, const RecordSet& record, QStringView column,
                              const QString& place);
