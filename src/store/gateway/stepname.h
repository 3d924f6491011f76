// What an action is called by the way back.
#pragma once

#include <QByteArray>
#include <QString>

class Database;

/// Names an action after its recorded change set: what was done to the record that it was about, for the
/// middle of a sentence in the user's language, "delete of position Buyer". @p database is where it was done.
[[nodiscard]] QString stepName(Database& database, const QByteArray& changes);
