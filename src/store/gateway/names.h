// Names by keys, out of rows that were read for them.
#pragma once

#include "base/key.h"
#include "store/gateway/recordset.h"

#include <QHash>
#include <QString>

namespace names {

/// What each row's further columns hold, as stored and joined with a blank, by the key in its first column.
/// Of rows of one key the first counts; a key that does not fit is left out.
QHash<Key, QString> byKey(RecordSet rows);

} // namespace names
