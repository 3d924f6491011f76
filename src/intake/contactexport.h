// The campaign's people, companies and positions for other programs.
#pragma once

#include <QByteArray>

class DataJW;
class Session;

namespace contactexport {

/// All contacts as vCard 4.0, each with its company, the company's address as that of work, and its own as
/// that of the home where it differs. Apostrophes stay the backquotes that they are stored as.
QByteArray vcards(DataJW& data);
/// All contacts with their addresses as CSV, under the names that the import knows.
QByteArray contacts(DataJW& data);
/// All companies with their addresses, categories left out.
QByteArray companies(DataJW& data);
/// All positions with their companies and step dates; a step that was not done is empty.
QByteArray positions(DataJW& data);

enum class Kind { Cards, Contacts, Companies, Positions };
/// Asks for a file and writes one of these into it, whole or not at all; a message says where it went.
void save(Session& session, Kind kind);

} // namespace contactexport
