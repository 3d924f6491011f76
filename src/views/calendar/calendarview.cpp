#include "views/calendar/calendarview.h"

#include "calendar/frmevcal.h"

CalendarView::CalendarView(FrmEvCal&, QSettings&, QWidget* parent)
    : QDialog(parent)
{
}
