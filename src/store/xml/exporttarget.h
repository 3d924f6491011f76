// Where an export may be written.
#pragma once

#include <QString>

class Session;

namespace exporttarget {

/// The file that a path stands for, all links followed; "" when a link leads nowhere.
QString realPath(const QString& path);

/// Why nothing may be written to the file of realPath(); "" when it may. Its name is the user's (a setting,
/// an argument), and writing replaces what is there: never one of the program's own files, nor anything else
/// but XML.
QString refusal(const Session& session, const QString& real);

} // namespace exporttarget
