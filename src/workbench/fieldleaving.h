// Before a form takes another record.
#pragma once

#include <QString>

#include <functional>

class Form;
class Session;

/// The record in a form, as its screen knows it.
struct OpenRecord
{
    QString name;          ///< as a question calls it: the company "Acme"
    bool isStored = false; ///< else its fields wait for its first save
    bool hasMore = false;  ///< beside the fields something of it waits for its save: a list, a save cut short
    std::function<void(const QString&)> leave; ///< the screen's own leaving of a field, by the control's name
    std::function<bool()> save; ///< the screen's own save, true when all is stored; empty: it cannot be saved
};

namespace fieldleaving {

/// True while a field holds what is not in the store.
[[nodiscard]] bool hasUnsaved(const Form& form);

/// Nothing typed goes unasked. Fields that save themselves are written where they are not yet; for whatever
/// waits for the record's save, the user decides in one question. False when he stays, or a save he wanted
/// did not succeed. What he gives up is taken out of the form, so that nobody asks again or takes it for
/// stored.
[[nodiscard]] bool mayLeave(Session& session, Form& form, const OpenRecord& record);

} // namespace fieldleaving
