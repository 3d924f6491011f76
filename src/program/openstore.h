// The store of a folder at the start of the program.
#pragma once

#include "store/files/storefile.h"

#include <QString>

class Session;

/// Makes a new store, with the first start's provisioning, when the folder never had one. Any answer but Good
/// is for the caller to tell the user; a store that has gone missing is not silently replaced. A file that is
/// there is looked at by the gateway when it opens it.
FileReport openOrCreateStore(Session& session, const QString& version);

/// Makes an empty store in a folder whose store has gone missing, as the user asked.
FileReport createStore(Session& session);

/// Sees to the store before the workbench opens, and asks before one that has gone missing is made anew.
/// False when the user would rather leave.
bool readyStore(Session& session, const QString& version);
