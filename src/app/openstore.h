// The store of a folder at the start of the program.
#pragma once

#include "store/storefile.h"

#include <QString>

class Session;

/// Looks at the folder's store, and makes a new one with the first start's provisioning when the folder never had one.
/// Any state but Good is for the caller to tell the user; a store that has gone missing is not silently replaced.
FileReport openOrCreateStore(Session& session, const QString& version);

/// Makes an empty store in a folder whose store has gone missing, as the user asked.
FileReport createStore(Session& session);
