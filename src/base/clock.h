// Time as the program asks for it.
#pragma once

#include <QDateTime>

#include <functional>

/// The one source of "now". No code asks the system directly, so that a test can set the day.
using Clock = std::function<QDateTime()>;

/// The machine's own clock, local time.
Clock systemClock();
