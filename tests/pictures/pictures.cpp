// Grabs the program's screens for the documents, each with a record of the demo on it:
// jobwright_pictures CAMPAIGN.xml light|dark SCREEN OUT.png
#include "assessment/frmeditor.h"
#include "assessment/frmprofile.h"
#include "assessment/frmuprofile.h"
#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "desktop/printing.h"
#include "formats/sharedfolders.h"
#include "history/frmhistory.h"
#include "intake/frmautoparse.h"
#include "intake/frmimport.h"
#include "output/frmreport.h"
#include "planning/frmactionplan.h"
#include "planning/frmgoals.h"
#include "planning/frmstats.h"
#include "program/screens.h"
#include "store/files/demo.h"
#include "views/assessment/editorview.h"
#include "views/assessment/profileview.h"
#include "views/assessment/uprofileview.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/reminderview.h"
#include "views/common/housestyle.h"
#include "views/history/historyview.h"
#include "views/intake/autoparseview.h"
#include "views/intake/importview.h"
#include "views/output/findview.h"
#include "views/output/keysearchview.h"
#include "views/output/reportview.h"
#include "views/palettes.h"
#include "views/planning/actionplanview.h"
#include "views/planning/goalsview.h"
#include "views/planning/statsview.h"
#include "views/workbench/addressentryview.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/addressentry.h"
#include "workbench/bench.h"
#include "workbench/contactscreen.h"
#include "workbench/documentscreen.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStyleFactory>
#include <QTabWidget>
#include <QThread>

#include <cstdio>

namespace {

/// Clicks the first node of this text in the pipeline's tree.
bool chooseNode(PipelineScreen& pipeline, const QModelIndex& parent, const QString& text)
{
    const QAbstractItemModel& tree = pipeline.tvwHire();
    for (int row = 0; row < tree.rowCount(parent); ++row) {
        const QModelIndex node = tree.index(row, 0, parent);
        if (node.data().toString() == text) {
            pipeline.tvwHireClick(node);
            return true;
        }
        if (chooseNode(pipeline, node, text))
            return true;
    }
    return false;
}

bool grab(QWidget& view, const QString& file)
{
    QCoreApplication::processEvents();
    return view.grab().save(file);
}

/// A screen's view on its own, grabbed when it has been laid out.
bool show(QWidget& view, const QString& file)
{
    view.show();
    const bool written = grab(view, file);
    view.close();
    return written;
}

/// A month in which a search is in full swing.
void addBusyWeeks(Bench& bench)
{
    const QStringList events{
        u"'Networking Event','11/4/2026','6:00','2','PM','24','Meeting','Event','Planners evening'"_s,
        u"'Interview Follow-Up','11/6/2026','9:00','.5','AM','0','Internet','Event','Thank you to Desmond'"_s,
        u"'Contact Inquiry','11/10/2026','8:30','.5','AM','2','Phone','Event','Ask about the night shift'"_s,
        u"'Referral','11/12/2026','4:00','1','PM','0','Meal','Event','Lunch with Octavia'"_s,
        u"'Interview','11/17/2026','11:00','1','AM','24','Conference','Event','Two buyers at once'"_s,
        u"'Interview Follow-Up','11/18/2026','9:00','.5','AM','2','Internet','Event','Thank you'"_s,
        u"'Interview','11/24/2026','10:00','1','AM','48','Meeting','Event','Panel with the plant manager; "
        "bring the route study.'"_s,
        u"'Contact Inquiry','11/24/2026','1:00','.5','PM','2','Phone','Event','Ask for the parking space'"_s,
        u"'Networking Event','11/24/2026','5:30','2','PM','0','Meeting','Event','Alumni evening'"_s,
        u"'Referral','11/24/2026','8:00','.5','PM','0','Phone','Event','Call Ingrid'"_s,
        u"'Send thank-you note','11/20/2026','','0','AM','0','High Priority','Task',''"_s,
        u"'Update portfolio','12/31/1999','','0','AM','0','Low Priority','Task',''"_s,
    };
    for (const QString& event : events)
        bench.run(u"Insert into Event(Event,EventDate,EventTime,EventDuration,AMPM,Reminder1,Medium,"
                  "EventType,Description) Values("_s +
                  event + u')');
    bench.run(u"Update Event set CompanyKey=2,ContactKey=4,PositionKey=3 where EventDate='11/24/2026'"_s);
}

/// The campaign with the workbench's window around it.
struct Scene
{
    Bench& bench;
    QSettings& layout;
    WorkbenchWindow& window;
    QString file;

    FrmData& frm() { return *bench.frm; }
};

bool grabTab(Scene& scene, const QString& tab)
{
    FrmData& frm = scene.frm();
    frm.tabStrip1Click(tab);
    if (tab == "Position"_L1)
        frm.positionScreen().showPosition(u"Milk Network Planner"_s);
    if (tab == "Contact"_L1)
        frm.contactScreen().showContact(u"Desmond Okafor"_s);
    if (tab == "Document"_L1)
        frm.documentScreen().showDocument(frm.session().dataJW().loadDox().front().docName);
    if (tab == "Pipeline"_L1)
        chooseNode(frm.pipelineScreen(), {}, u"Milk Network Planner"_s);
    return grab(scene.window, scene.file);
}

bool grabCalendar(Scene& scene)
{
    addBusyWeeks(scene.bench);
    FrmEvCal& calendar = scene.bench.presenters->calendar;
    calendar.load();
    calendar.setShowComplete(true);
    CalendarView view(calendar, scene.layout);
    view.resize(1180, 760);
    view.show();
    const QDate day(2026, 11, 24);
    calendar.selectDay(day);
    for (const DayChip& chip : calendar.cells().at(static_cast<size_t>(calendar.cellOf(day))).chips) {
        if (chip.text == "10:00 Interview"_L1)
            calendar.openEntry(QString(chip.key));
    }
    return show(view, scene.file);
}

bool grabHistory(Scene& scene)
{
    scene.frm().tabStrip1Click(u"Contact"_s);
    scene.frm().contactScreen().showContact(u"Desmond Okafor"_s);
    FrmHistory& history = scene.bench.presenters->history;
    scene.bench.world.session->outlookAvailable = true;
    history.load(scene.frm().selection().currentContactKey);
    HistoryView view(history, scene.layout);
    view.resize(1050, 640);
    history.lvwHistoryClick(history.lvwHistory().rowCount() - 2);
    return show(view, scene.file);
}

/// An item with its evaluation; the dictionaries lie where the program is delivered from.
bool grabProfile(Scene& scene)
{
    Session& session = *scene.bench.world.session;
    const QDir delivered(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data"));
    for (const QString& file : delivered.entryList({u"*.jwd"_s}))
        QFile::copy(delivered.filePath(file), session.file(file));
    FrmUProfile profile(session);
    profile.load();
    UProfileView view(profile, scene.layout);
    view.resize(1500, 900);
    const QModelIndex experience = profile.tvwUProfile().find(u"Experience"_s);
    QModelIndex leaf = experience;
    while (profile.tvwUProfile().rowCount(leaf) > 0)
        leaf = profile.tvwUProfile().index(0, 0, leaf);
    profile.tvwUProfileNodeClick(leaf);
    profile.cmdEvaluate();
    return show(view, scene.file);
}

bool grabQuestions(Scene& scene)
{
    Session& session = *scene.bench.world.session;
    QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/CompanyTemplate.jwt"),
                session.file(u"CompanyTemplate.jwt"_s));
    FrmProfile profile(session, FrmProfile::Company, FrmProfile::Doors());
    profile.load(session.dataJW().getCompanyKey(u"Brightwater Dairy Cooperative"_s));
    ProfileView view(profile, scene.layout);
    return show(view, scene.file);
}

bool grabEditor(Scene& scene)
{
    Session& session = *scene.bench.world.session;
    QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/CompanyTemplate.jwt"),
                session.file(u"CompanyTemplate.jwt"_s));
    FrmEditor editor(session);
    editor.load();
    EditorView view(editor, scene.layout);
    editor.cmdLoad();
    editor.tvwQuestionsNodeClick(editor.tvwQuestions().find(u"Q4"_s));
    editor.form().setText(u"txtFileName"_s,
                          u"CompanyTemplate.jwt"_s); // the folder has another name each time
    return show(view, scene.file);
}

bool grabReminder(Scene& scene)
{
    ReminderView view(scene.bench.presenters->reminder, scene.layout, &scene.window);
    view.resize(1040, 270);
    scene.bench.presenters->reminder.checkEvents();
    return grab(view, scene.file);
}

bool grabCard(Scene& scene)
{
    FrmAutoParse parser(*scene.bench.world.session);
    parser.load({u"88 Creamery Lane\nWooster, OH 44691"_s, u"Brightwater Dairy Cooperative"_s});
    parser.form().edit(u"txtBizCard"_s,
                       u"Desmond Okafor\nVice President Supply Chain\n88 Creamery Lane\n"
                       "Wooster, OH 44691\n(330) 555-0107\nFax (330) 555-0109\n"
                       "desmond.okafor@brightwaterdairy.example\nwww.brightwaterdairy.example"_s);
    parser.cmdVerify();
    AutoParseView view(parser, scene.layout);
    return show(view, scene.file);
}

bool grabAddress(Scene& scene)
{
    bool written = false;
    scene.bench.navigator.whileOpen = [&] {
        FrmAddressEntry entry(scene.frm());
        entry.load(scene.bench.navigator.request.value<FrmAddressEntry::Request>());
        AddressEntryView view(entry, scene.layout);
        written = show(view, scene.file);
    };
    scene.frm().tabStrip1Click(u"Contact"_s);
    scene.frm().contactScreen().showContact(u"Desmond Okafor"_s);
    scene.frm().contactScreen().cmdAddress1();
    return written;
}

/// The demo's own goals, which are counted on the way.
GoalChart loadGoals(Scene& scene, FrmGoals& goals)
{
    GoalChart chart;
    QObject::connect(&goals, &FrmGoals::computed, &goals, [&](const GoalChart& counted) { chart = counted; });
    goals.load();
    goals.loadFile(scene.bench.world.session->file(u"goals-demo.jwg"_s));
    goals.form().setText(u"txtTemplateName"_s, u"goals-demo.jwg"_s);
    return chart;
}

bool grabGoals(Scene& scene)
{
    FrmGoals goals(*scene.bench.world.session, scene.bench.navigator);
    loadGoals(scene, goals);
    GoalsView view(goals, scene.layout);
    view.resize(1050, 560);
    return show(view, scene.file);
}

bool grabStats(Scene& scene)
{
    FrmGoals goals(*scene.bench.world.session, scene.bench.navigator);
    FrmStats stats(*scene.bench.world.session);
    stats.setGoals(loadGoals(scene, goals));
    stats.load();
    stats.choosePoint(2);
    StatsView view(stats, scene.layout);
    view.resize(900, 760);
    return show(view, scene.file);
}

bool grabPlan(Scene& scene)
{
    FrmActionPlan plan(*scene.bench.world.session);
    plan.load();
    plan.loadFile(scene.bench.world.session->file(u"objplan-demo.jwg"_s));
    plan.form().setText(u"txtObjcvg"_s, u"objplan-demo.jwg"_s);
    ActionPlanView view(plan, scene.layout);
    view.resize(1240, 820);
    for (int slot = 0; slot < FrmActionPlan::slotCount; ++slot)
        plan.imgTMClick(slot);
    return show(view, scene.file);
}

bool grabSearch(Scene& scene)
{
    FrmKeySearch& search = scene.bench.presenters->keySearch;
    search.load();
    KeySearchView view(search, scene.layout);
    search.form().setText(u"txtSearch"_s, u"plan"_s);
    search.cmdSearchByPosition1();
    return show(view, scene.file);
}

bool grabHappened(Scene& scene)
{
    FrmKeySearch& search = scene.bench.presenters->keySearch;
    search.load();
    KeySearchView view(search, scene.layout);
    search.form().setText(u"dtpFrom"_s, u"2026-01-01"_s);
    search.cmdHappened();
    view.findChild<QTabWidget*>()->setCurrentIndex(1);
    return show(view, scene.file);
}

bool grabReport(Scene& scene)
{
    Printing printing;
    FrmReport report(*scene.bench.world.session, printing);
    report.load();
    ReportView view(report, scene.layout);
    report.imgPosition1();
    return show(view, scene.file);
}

/// The columns of another program's export, chosen for the fields that they go into.
bool grabImport(Scene& scene)
{
    Session& session = *scene.bench.world.session;
    QFile file(session.file(u"people.csv"_s));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(
        "First Name,Last Name,Company,Job Title,Business Phone,E-mail Address,Notes\n"
        "Rosamund,Tierney,Harrow Mills,Buyer,(216) 555-0101,r.tierney@harrow.example,Met at the fair\n"
        "Anselm,Brandvold,Juniper Foods,Planner,(216) 555-0102,a.brandvold@juniper.example,\n"
        "Philippa,Okonjo,Cobalt Freight,Manager,(216) 555-0103,p.okonjo@cobalt.example,Knows Rosamund\n");
    file.close();
    SharedFolders folders;
    FrmImport import(session, folders, scene.bench.navigator);
    ImportView view(import, scene.layout);
    import.form().setText(u"cmbInputSource"_s, u"Text-CSV"_s);
    import.fieldChanged(u"cmbInputSource"_s);
    import.form().setText(u"txtFile"_s, file.fileName());
    import.cmdLoadImport();
    import.cmdMapAll();
    return show(view, scene.file);
}

bool grabFind(Scene& scene)
{
    FindAnything& finder = scene.bench.presenters->find;
    FindView view(finder, &scene.window);
    view.placeOver(scene.window);
    view.setText(u"plan"_s);
    for (int i = 0; finder.isSearching() && i < 1000; ++i) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return show(view, scene.file);
}

/// False for a screen of no such name, too.
bool grabScreen(Scene& scene, const QString& screen)
{
    static const QHash<QString, bool (*)(Scene&)> dialogs{
        {u"Calendar"_s, grabCalendar}, {u"History"_s, grabHistory},     {u"Reminder"_s, grabReminder},
        {u"Card"_s, grabCard},         {u"Goals"_s, grabGoals},         {u"Plan"_s, grabPlan},
        {u"Statistics"_s, grabStats},  {u"Address"_s, grabAddress},     {u"Search"_s, grabSearch},
        {u"Happened"_s, grabHappened}, {u"Report"_s, grabReport},       {u"Find"_s, grabFind},
        {u"Profile"_s, grabProfile},   {u"Questions"_s, grabQuestions}, {u"Editor"_s, grabEditor},
        {u"Import"_s, grabImport}};
    if (const auto dialog = dialogs.value(screen))
        return dialog(scene);
    return grabTab(scene, screen);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(u"1.0.0"_s);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        std::fputs("usage: jobwright_pictures CAMPAIGN.xml light|dark SCREEN OUT.png\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    HouseStyle::install();
    QApplication::setPalette(arguments.at(2) == "dark"_L1 ? palettes::dark() : palettes::light());
    QFont font = QApplication::font();
    font.setPointSize(10);
    QApplication::setFont(font);

    // The day the campaign was recorded, so that a picture taken next year shows the same figures.
    Bench bench(QDateTime(QDate(2026, 11, 22), QTime(9, 30)));
    bench.world.prompts.acceptAll(Answer::Ok);
    loadDemo(*bench.world.session, arguments.at(1));
    for (const QString& delivered : {u"areacodes.jwd"_s, u"objectives.jwd"_s})
        QFile::copy(QStringLiteral(JOBWRIGHT_SOURCE_DIR "/data/") + delivered,
                    bench.world.session->file(delivered));
    Screens screens(*bench.world.session);
    bench.navigator.hasAll = false;
    bench.navigator.program = &screens;
    bench.restart();
    bench.frm->load();
    QSettings layout(bench.world.folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
    WorkbenchWindow window(*bench.frm, layout);
    window.resize(1180, 800);
    window.show();
    bench.choose(u"Brightwater Dairy Cooperative"_s);
    Scene scene{bench, layout, window, arguments.at(4)};
    const bool written = grabScreen(scene, arguments.at(3));
    if (!written)
        std::fputs("The picture could not be written.\n", stderr);
    window.close();
    return written ? 0 : 1;
}
