// What a contact costs on a full campaign: opening the Contact screen, choosing another company, a save with
// its clean-up of addresses. Milliseconds of the wall, the middle of several tries.
#include "base/silentports.h"
#include "generate.h"
#include "measure.h"
#include "program/presenters.h"

#include "base/clock.h"
#include "store/engine/database.h"
#include "store/gateway/datajw.h"
#include "store/session.h"
#include "workbench/contactscreen.h"

#include <QTemporaryDir>

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Ports of a run that nobody sits before.
class Silent : public SilentPrompts, public SilentDesktop, public SilentNavigator
{
public:
    Answer msgBox(const QString& text, Buttons, const QString&) override
    {
        if (!text.endsWith(u"is complete."))
            std::fprintf(stderr, "message: %s\n", qPrintable(text));
        return Answer::Yes;
    }
};

void report(const char* what, int limit, const std::function<void(int)>& work)
{
    measure::report(what, measure::milliseconds(9, work), limit);
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    Database::create(folder.path() + u"/Postledger.db");
    Silent ports;
    Session session(folder.path(), systemClock(), ports, ports);
    generate::campaign(session.dataJW().database(), generate::fullCampaign);
    Presenters presenters(session, ports);
    FrmData& workbench = presenters.workbench;
    workbench.load();
    const QStringList companies = workbench.companyList();
    ContactScreen& contact = workbench.contactScreen();
    workbench.cmbSelectionClick(companies.at(7000));
    report("open the Contact screen", 50, [&](int) { workbench.tabStrip1Click(u"Contact"_s); });
    report("choose another company", 50, [&](int i) { workbench.cmbSelectionClick(companies.at(7001 + i)); });
    contact.newRecord();
    contact.form().edit(u"txtFirst"_s, u"Ann"_s);
    contact.form().edit(u"txtLast"_s, u"Lee"_s);
    report("save a contact", 100, [&](int) { contact.cmdUpdateContact1(); });
    report("show a contact", 50, [&](int) { contact.showContact(u"Ann Lee"_s); });
    report("list the contacts of all companies", 0, [&](int) {
        contact.loadContactList();
        if (contact.otherContactNames().isEmpty())
            std::fputs("no contacts\n", stderr);
    });
    return 0;
}
