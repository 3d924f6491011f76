// Writing the whole store into one XML file.
#pragma once

#include <QString>

class Session;

namespace xmlexport {

/// Writes all tables but Status and the shadow tables, as DataJW::createXML() promises: whole or not at all,
/// to
/// @p file in the application folder or to an absolute path. Characters that XML cannot hold are left out.
/// Tells its progress through Session::progressChanged. Answers the document's text; "" when the file could
/// not be written (logged and shown).
QString write(Session& session, const QString& file, bool restore);

} // namespace xmlexport
