// The ways from the program out into the web.
#pragma once

#include <QString>

class Session;

namespace webpages {

/// The page of the program itself: what an empty web address opens.
QString homePage();
/// The street map service: the one that the settings name, else the delivered one.
QString mapHost(Session& session);
/// Opens an address in the user's own browser; when none can be started, a message says so.
void openURL(Session& session, const QString& address);

} // namespace webpages
