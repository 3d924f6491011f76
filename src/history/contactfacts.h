// The facts about a contact that stand above the histories.
#pragma once

#include "base/form.h"
#include "store/gateway/recordset.h"

#include <vector>

class DataJW;

namespace contactfacts {

/// The form's rows for the frames frmeContactInfo and frmeContactSummary: shown only.
std::vector<FieldRow> rows();
/// Fills them for a row of Contact. Lines that have nothing to say are hidden.
void show(DataJW& dataJW, const RecordSet& contact, Form& form);

} // namespace contactfacts
