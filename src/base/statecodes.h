// Two-letter codes of the states.
#pragma once

#include <QString>

/// The code that the table holds for a spelled-out state, in any case ("New York" gives "NY"); empty when
/// unknown.
QString stateCode(const QString& name);
