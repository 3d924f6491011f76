// What the contact history costs with all its slots taken, on a full campaign: opening it, and closing it
// after an edit. Milliseconds of the wall, the middle of several tries.
#include "base/silentports.h"
#include "generate.h"
#include "measure.h"

#include "base/clock.h"
#include "base/dates.h"
#include "calendar/frmevcal.h"
#include "history/frmhistory.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr Key contactKey = 7000;
constexpr int histories = HistoryEntries::bound;

/// Ports of a run that nobody sits before.
class Silent : public SilentPrompts, public SilentDesktop, public SilentNavigator
{
public:
    Answer msgBox(const QString& text, Buttons, const QString&) override
    {
        std::fprintf(stderr, "message: %s\n", qPrintable(text));
        return Answer::No;
    }
};

/// @p followUps of the contact's histories promise another call: each later one moves the positions on.
void fill(Session& session, int followUps)
{
    const Action atOnce(session.dataJW());
    const QString key = QString::number(contactKey);
    session.dataJW().execQuery(u"Delete * from History where ContactKey="_s + key);
    for (int i = 1; i <= histories; ++i) {
        const QString number = QString::number(i);
        session.dataJW().execQuery(
            u"INSERT INTO "
            u"History(HistoryKey,ContactKey,ContactCount,Medium,Length,Topic,Details,Location,Return,"
            "NextCall,ContactDate,DocumentXfer) VALUES('"_s +
            QStringList{key + u'-' + number, key, number, u"Phone"_s, u"15 min"_s, u"Talk "_s + number,
                        QString(200, u'x'), u"Troy"_s, i > histories - followUps ? u"Follow-up"_s : QString(),
                        u"12/31/1999"_s, dates::mdyyyy(QDate(2024, 1, 1).addDays(i)),
                        i % 10 == 0 ? u"1"_s : u"0"_s}
                .join(u"','"_s) +
            u"')");
    }
}

void report(const char* what, const std::function<double()>& work)
{
    constexpr double bound = 60;
    std::vector<double> tries(9);
    std::ranges::generate(tries, work);
    measure::report(what, tries, bound);
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    Database::create(folder.path() + u"/Postledger.db");
    Silent ports;
    Session session(folder.path(), systemClock(), ports, ports);
    generate::campaign(session.dataJW().database(), generate::fullCampaign);
    FrmHistory history(session, ports);
    for (const int followUps : {10, histories}) {
        fill(session, followUps);
        const auto open = [&] { history.load(contactKey); };
        const auto close = [&] {
            open();
            history.lvwHistoryClick(histories / 2);
            history.cmdAddHistory();
            return measure::milliseconds([&] { history.unload(); });
        };
        std::printf("%d histories, %d of them promise a follow-up, two positions\n", histories, followUps);
        report("  open", [&] { return measure::milliseconds(open); });
        report("  close after an edit", close);
    }
    return 0;
}
