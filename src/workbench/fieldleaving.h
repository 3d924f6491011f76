// Before a form takes another record.
#pragma once

#include <QString>

#include <functional>

class Form;
class Session;

namespace fieldleaving {

/// Tries once more what could not be written when its field was left. @p leave is the screen's own leaving of
/// a field, by the control's name; @p isStored tells whether the form shows a record of the store, as the
/// fields of a new one wait for its save. False when the user would rather stay with a text that still cannot
/// be written; a text given up is not asked about again.
[[nodiscard]] bool mayLeave(Session& session, Form& form, const std::function<void(const QString&)>& leave,
                            bool isStored);

} // namespace fieldleaving
