// What the calendar writes into the store.
#pragma once

#include "calendar/jwevent.h"

#include <vector>

class Session;

/// The statements behind the calendar's changes. Those of one change belong into one Action of the caller; a
/// statement that fails has been reported by the gateway.
namespace eventstore {

/// False for an invalid day, and for one that a statement cannot hold or would read as another.
[[nodiscard]] bool isStorable(QDate day);

/// The Insert of an entry, whose texts are as a screen holds them, with LF.
[[nodiscard]] QString insertStatement(const JWevent& entry, const EventOwners& owners);
/// Those of @p rows that could not be deleted.
std::vector<Key> deleteRows(DataJW& dataJW, const std::vector<Key>& rows);
bool moveTo(DataJW& dataJW, Key eventKey, QDate day);
/// Finishes a task or opens it again.
bool setComplete(DataJW& dataJW, Key eventKey, bool complete);
/// What a position that is made up at this moment is called.
[[nodiscard]] QString placeholderTitle(const Session& session);
/// Adds a position without a name of its own for these owners, and makes it theirs. Answers its title, ""
/// when it could not be added.
QString addPlaceholder(Session& session, const QString& company, EventOwners& owners);

} // namespace eventstore
