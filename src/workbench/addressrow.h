// The Address row behind the address fields of a form.
#pragma once

#include "base/key.h"

#include <QString>

class Form;
class RecordSet;
class Session;

/// A form shows the columns Address1 and Address2 in one control, on two lines and more; its other fields
/// name their columns themselves.
namespace addressrow {

/// The two street columns as one text.
[[nodiscard]] QString street(const RecordSet& address);
/// What one column of the row is to hold, ready to stand in a statement; @p streetControl is the control that
/// shows the street.
[[nodiscard]] QString value(const Session& session, const Form& form, const QString& streetControl,
                            const QString& column);
/// Adds a row with what the form shows, and answers its key; 0 when that failed.
[[nodiscard]] Key insert(Session& session, const Form& form, const QString& streetControl);

} // namespace addressrow
