// What a screen reader finds in a day of the month's grid.
#pragma once

/// Makes each DayList known as a list whose items are its events, those behind "+n more" too. Further calls
/// do nothing.
void installDayListAccess();
