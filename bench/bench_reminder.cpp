// What one look at the events costs on a full campaign, with nearly all of them closed, as they are after
// years, and with every one of them open. Milliseconds of the processor, which other work on the machine does
// not stretch; the middle of several tries.
#include "generate.h"
#include "measure.h"

#include "base/clock.h"
#include "base/silentports.h"
#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QTemporaryDir>

#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;

namespace {

void report(const char* what, FrmReminder& reminder)
{
    std::vector<double> tries;
    for (int i = 0; i < 9; ++i) {
        const std::clock_t begin = std::clock();
        reminder.checkEvents();
        tries.push_back(1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
    }
    measure::printTime(what, tries, 30);
    std::printf("   %5d listed\n", reminder.lvwRemind().rowCount());
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    Database::create(folder.path() + u"/Postledger.db");
    SilentPrompts prompts;
    SilentDesktop desktop;
    Session session(folder.path(), systemClock(), prompts, desktop);
    generate::campaign(session.dataJW().database(), generate::fullCampaign);
    SilentNavigator screens;
    FrmReminder reminder(session, screens);
    reminder.load();
    report("5000 events, all open", reminder);
    session.dataJW().execQuery(u"Update Event set Complete='OkEvent' where EventKey>60"_s);
    report("5000 events, 60 open", reminder);
    return 0;
}
