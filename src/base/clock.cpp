#include "base/clock.h"

Clock systemClock()
{
    return [] { return QDateTime::currentDateTime(); };
}
