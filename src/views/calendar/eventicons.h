// The calendar's own pictures: kinds and formats of events, alarms, priorities and states of tasks.
#pragma once

#include <QIcon>

namespace eventicons {

/// The picture of this name ("Meeting", "Nobell"; case does not matter) in the palette's text colour; null
/// for a name that has none.
[[nodiscard]] QIcon named(const QString& name);

} // namespace eventicons
