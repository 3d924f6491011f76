// What the calendar costs with as many events as it holds: painting a full month, stepping through a year.
// Wall milliseconds, the middle of several tries, beside the bound that keeps it from being felt.
#include "measure.h"

#include "base/clock.h"
#include "base/silentports.h"
#include "calendar/frmevcal.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/daylist.h"
#include "views/calendar/monthgrid.h"

#include <QApplication>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Ports of a run that nobody sits before.
class Silent : public SilentPrompts, public SilentDesktop, public SilentNavigator
{
public:
    Answer msgBox(const QString&, Buttons, const QString&) override { return Answer::Yes; }
};

/// A thousand events, a hundred of them in November 2026 and the others around it.
void fill(DataJW& data)
{
    const QStringList kinds{u"Interview"_s, u"Referral"_s, u"Networking Event"_s, u"Status Inquiry"_s,
                            u"Other Event"_s};
    const Action atOnce(data);
    for (int number = 0; number < EventBounds::eventBound; ++number) {
        const bool november = number < EventBounds::monthBound;
        const QDate day =
            november ? QDate(2026, 11, 1 + number % 30) : QDate(2026, 12, 1).addDays(number * 7 / 10);
        data.execQuery(
            u"Insert into Event(Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Medium,EventType,"
            "Description,Complete) Values('"_s +
            kinds.at(number % kinds.size()) + u"','" + day.toString(u"M/d/yyyy"_s) + u"','" +
            QString::number(1 + number % 12) + u":30','1','AM','" + QString::number(number % 3) +
            u"','Phone','Event','Bring the route study and ask about the night shift','')");
    }
}

void report(const char* what, double limit, const std::function<void(int)>& work)
{
    measure::report(what, measure::milliseconds(15, work), limit);
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    const QTemporaryDir folder;
    Database::create(folder.path() + u"/Postledger.db");
    Silent ports;
    Session session(
        folder.path(), [] { return QDateTime(QDate(2026, 11, 22), QTime(9, 30)); }, ports, ports);
    fill(session.dataJW());
    FrmEvCal calendar(session);
    QSettings layout(folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
    calendar.load();
    CalendarView view(calendar, layout);
    view.resize(1280, 720);
    view.show();
    QCoreApplication::processEvents();

    auto* grid = view.findChild<MonthGrid*>();
    QPixmap picture(grid->size());
    report("repaint a month with 100 of 1000 events", 16, [&](int) { grid->render(&picture); });
    report("repaint the whole window", 33, [&](int) { view.grab(); });
    report("step twelve months, each seen", 250, [&](int i) {
        for (int month = 0; month < 12; ++month) {
            i % 2 == 0 ? calendar.cmdNext() : calendar.cmdLast();
            QCoreApplication::processEvents();
            grid->render(&picture);
        }
    });
    report("open the calendar", 100, [&](int) { calendar.load(); });
    return 0;
}
