// The table of screens: what each is called, where it is opened, how it is made.
#include "assessment/frmeditor.h"
#include "assessment/frmprofile.h"
#include "assessment/frmquestionnaire.h"
#include "assessment/frmuprofile.h"
#include "formats/sharedfolders.h"
#include "intake/frmautoparse.h"
#include "intake/frmimport.h"
#include "intake/frmmerge.h"
#include "output/frmreport.h"
#include "planning/frmactionplan.h"
#include "planning/frmgoals.h"
#include "planning/frmstats.h"
#include "program/presenters.h"
#include "program/screens.h"
#include "views/assessment/editorview.h"
#include "views/assessment/profileview.h"
#include "views/assessment/questionnaireview.h"
#include "views/assessment/uprofileview.h"
#include "views/calendar/calendarview.h"
#include "views/history/historyview.h"
#include "views/intake/autoparseview.h"
#include "views/intake/importview.h"
#include "views/intake/mergeview.h"
#include "views/output/keysearchview.h"
#include "views/output/reportview.h"
#include "views/planning/actionplanview.h"
#include "views/planning/goalsview.h"
#include "views/planning/statsview.h"
#include "views/workbench/addressentryview.h"
#include "workbench/addressentry.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("Screens", text);
}

/// Request: nothing, or what FrmEvCal::show() takes. A calendar that is open already shows it.
QVariant openCalendar(ScreenHost& host, const QVariant& request)
{
    FrmEvCal& calendar = host.presenters->calendar;
    if (calendar.isLoaded()) {
        calendar.show(request);
        return {};
    }
    calendar.load();
    calendar.show(request);
    CalendarView(calendar, *host.layout, host.parent()).exec();
    calendar.unload();
    return {};
}

/// Request: the contact's Key.
QVariant openHistory(ScreenHost& host, const QVariant& request)
{
    FrmHistory& history = host.presenters->history;
    if (!history.load(request.value<Key>()))
        return {};
    HistoryView(history, *host.layout, host.parent()).exec();
    // The dialog has written what was changed, unless the program is ending under it.
    history.unload();
    return {};
}

/// Request: FrmAutoParse::Request; answer: FrmAutoParse::Answer.
QVariant openCardParser(ScreenHost& host, const QVariant& request)
{
    FrmAutoParse parser(host.session);
    parser.load(request.value<FrmAutoParse::Request>());
    AutoParseView(parser, *host.layout, host.parent()).exec();
    return QVariant::fromValue(parser.answer());
}

/// Request: FrmAddressEntry::Request; answer: the address row's Key when it was saved.
QVariant openAddressEntry(ScreenHost& host, const QVariant& request)
{
    FrmAddressEntry entry(host.presenters->workbench);
    entry.load(request.value<FrmAddressEntry::Request>());
    AddressEntryView(entry, *host.layout, host.parent()).exec();
    return entry.saved() ? QVariant(entry.addressKey()) : QVariant();
}

/// Request: nothing. The window is made once and comes forward from then on.
QVariant openKeySearch(ScreenHost& host, const QVariant&)
{
    auto* view = host.window ? host.window->findChild<KeySearchView*>() : nullptr;
    if (!view) {
        host.presenters->keySearch.load();
        view = new KeySearchView(host.presenters->keySearch, *host.layout, host.window);
        view->setAttribute(Qt::WA_DeleteOnClose);
    }
    view->show();
    view->raise();
    view->activateWindow();
    return {};
}

/// Request: nothing.
QVariant openReport(ScreenHost& host, const QVariant&)
{
    FrmReport report(host.session, host.printing);
    report.load();
    ReportView(report, *host.layout, host.parent()).exec();
    return {};
}

/// Answer: true when the screen was left for a position, which the workbench shows then.
QVariant openUProfile(ScreenHost& host, const QVariant&)
{
    FrmUProfile profile(host.session);
    profile.load();
    UProfileView view(profile, *host.layout, host.parent());
    QString wantedCompany;
    QString wantedTitle;
    QObject::connect(&profile, &FrmUProfile::positionWanted, &view,
                     [&](Key, const QString& company, const QString& title) {
                         wantedCompany = company;
                         wantedTitle = title;
                     });
    view.exec();
    if (wantedTitle.isEmpty())
        return {};
    host.presenters->workbench.cmbSelectionClick(wantedCompany);
    host.presenters->workbench.showOn(u"Position"_s, wantedTitle);
    return true;
}

/// As FrmQuestionnaire::answer().
QVariant ask(ScreenHost& host, const FrmQuestionnaire::Request& request)
{
    FrmQuestionnaire question;
    question.load(request);
    QuestionnaireView(question, host.parent()).exec();
    return question.answer();
}

QVariant openQuestions(ScreenHost& host, FrmProfile::Kind kind, const QVariant& request)
{
    FrmProfile profile(host.session, kind,
                       {[&host](const FrmQuestionnaire::Request& question) { return ask(host, question); },
                        [&host] { host.navigator.open(u"FrmEditor"_s); }});
    if (!profile.load(request.value<Key>()))
        return {};
    ProfileView(profile, *host.layout, host.parent()).exec();
    return {};
}

/// Request: the company's Key.
QVariant openCompanyQuestions(ScreenHost& host, const QVariant& request)
{
    return openQuestions(host, FrmProfile::Company, request);
}

/// Request: the position's Key.
QVariant openPositionQuestions(ScreenHost& host, const QVariant& request)
{
    return openQuestions(host, FrmProfile::Position, request);
}

QVariant openEditor(ScreenHost& host, const QVariant&)
{
    FrmEditor editor(host.session);
    editor.load();
    EditorView(editor, *host.layout, host.parent()).exec();
    return {};
}

QVariant openGoals(ScreenHost& host, const QVariant&)
{
    FrmGoals goals(host.session, host.navigator);
    QObject::connect(&goals, &FrmGoals::computed, &goals,
                     [&host](const GoalChart& chart) { host.presenters->goals = chart; });
    goals.load();
    GoalsView(goals, *host.layout, host.parent()).exec();
    return {};
}

QVariant openActionPlan(ScreenHost& host, const QVariant&)
{
    FrmActionPlan plan(host.session);
    plan.load();
    ActionPlanView(plan, *host.layout, host.parent()).exec();
    return {};
}

/// Request: nothing, or the GoalChart to show in place of the one that was counted last.
QVariant openStats(ScreenHost& host, const QVariant& request)
{
    FrmStats stats(host.session);
    stats.setGoals(request.isValid() ? request.value<GoalChart>() : host.presenters->goals);
    stats.load();
    StatsView view(stats, *host.layout, host.parent());
    QObject::connect(&view, &StatsView::printRequested, &view,
                     [&host](const ReportDocument& pages) { host.printing.print(pages); });
    view.exec();
    return {};
}

/// What came in or went is read again.
QVariant openImport(ScreenHost& host, const QVariant&)
{
    FrmData& workbench = host.presenters->workbench;
    SharedFolders folders;
    FrmImport import(host.session, folders, host.navigator);
    QObject::connect(&import, &FrmImport::importProgress, &workbench, &FrmData::importProgress);
    QObject::connect(&import, &FrmImport::imported, &workbench, [&workbench] {
        workbench.tabStrip1Click(u"Company"_s);
        workbench.refresh();
    });
    ImportView(import, *host.layout, host.parent()).exec();
    return {};
}

/// All pairs of contacts that may be one person; what was merged is read again.
QVariant openMerge(ScreenHost& host, const QVariant&)
{
    FrmMerge merge(host.session);
    merge.load();
    QObject::connect(&merge, &FrmMerge::merged, &host.presenters->workbench, &FrmData::refresh);
    MergeView(merge, *host.layout, host.parent()).exec();
    return {};
}

/// The row's way to make its screen, tied to what it is made from.
auto with(ScreenHost& host, QVariant (*open)(ScreenHost&, const QVariant&))
{
    return [&host, open](const QVariant& request) { return open(host, request); };
}

} // namespace

std::vector<ScreenRow> screenTable(ScreenHost& host)
{
    // The tools first, in the order of their buttons; then the screens that only others open. A row without
    // "open" is a screen that the program does not have yet.
    return {
        {.screen = u"FrmTargets"_s,
         .tool = u"target"_s,
         .entry = u"targets"_s,
         .caption = tr("Targets"),
         .menuText = tr("&Targets"),
         .tip = tr("Target companies"),
         .icon = u"flag"_s},
        {.screen = u"FrmImport"_s,
         .tool = u"import"_s,
         .entry = u"FileImport"_s,
         .caption = tr("Import"),
         .menuText = tr("&Import"),
         .tip = tr("Import contacts and companies"),
         .icon = u"document-import"_s,
         .then = Then::CompanyScreen,
         .open = with(host, openImport)},
        {.screen = u"FrmUProfile"_s,
         .tool = u"uprofile"_s,
         .entry = u"Uprofile"_s,
         .caption = tr("Profile"),
         .menuText = tr("&User Profile"),
         .tip = tr("User profile"),
         .icon = u"user-identity"_s,
         .toolLine = u"Open Profile Screen - from Toolbar"_s,
         .menuLine = u"Open Profile Screen - from Menu"_s,
         .then = Then::CompanyScreenFocused,
         .open = with(host, openUProfile)},
        // What the user prefers in a company or position is what the template asks for: hence the entry's
        // name.
        {.screen = u"FrmEditor"_s,
         .tool = u"editor"_s,
         .entry = u"ToolsPreferences"_s,
         .caption = tr("Questions"),
         .menuText = tr("&Preferences"),
         .tip = tr("Edit the questionnaires"),
         .icon = u"document-edit"_s,
         .menuLine = u"Open Profile Editor from Menu"_s,
         .holdsReminders = true,
         .open = with(host, openEditor)},
        {.screen = u"FrmEvCal"_s,
         .tool = u"events"_s,
         .entry = u"Events"_s,
         .caption = tr("Calendar"),
         .menuText = tr("&Events Calendar"),
         .tip = tr("Events calendar"),
         .icon = u"view-calendar"_s,
         .shortcut = u"Ctrl+E"_s,
         .toolLine = u"Open Calendar Screen"_s,
         .menuLine = u"Open Calendar Screen"_s,
         .open = with(host, openCalendar)},
        {.screen = u"FrmReminder"_s,
         .tool = u"reminder"_s,
         .entry = u"Reminder"_s,
         .caption = tr("Reminder"),
         .menuText = tr("&Reminder"),
         .tip = tr("What is due"),
         .icon = u"appointment-reminder"_s,
         .shortcut = u"Ctrl+R"_s,
         .open = with(host,
                      [](ScreenHost& program, const QVariant&) {
                          program.presenters->reminder.showScreen();
                          return QVariant();
                      })},
        {.screen = u"FrmGoals"_s,
         .tool = u"goals"_s,
         .entry = u"Goals"_s,
         .caption = tr("Goals"),
         .menuText = tr("Per&formance"),
         .tip = tr("Goals and performance"),
         .icon = u"office-chart-bar"_s,
         .toolLine = u"Open Goals Screen"_s,
         .menuLine = u"Open Goals Screen from Menu"_s,
         .then = Then::CompanyScreen,
         .open = with(host, openGoals)},
        {.screen = u"FrmActionPlan"_s,
         .tool = u"plan"_s,
         .entry = u"ActionPlan"_s,
         .caption = tr("Plan"),
         .menuText = tr("&Action Plan"),
         .tip = tr("Action plan"),
         .icon = u"view-task"_s,
         .open = with(host, openActionPlan)},
        {.screen = u"FrmStats"_s,
         .tool = u"stats"_s,
         .caption = tr("Statistics"),
         .tip = tr("Usage statistics"),
         .icon = u"office-chart-pie"_s,
         .open = with(host, openStats)},
        {.screen = u"FrmKeySearch"_s,
         .tool = u"keysearch"_s,
         .entry = u"Keysearch"_s,
         .caption = tr("Search"),
         .menuText = tr("&Keysearch"),
         .tip = tr("Search the whole database"),
         .icon = u"edit-find"_s,
         .shortcut = u"Ctrl+Shift+F"_s,
         .toolLine = u"Open/Set Focus on KeySearch Screen"_s,
         .menuLine = u"Open/Set Focus on KeySearch Screen from Menu"_s,
         .then = Then::CompanyScreen,
         .open = with(host, openKeySearch)},
        {.screen = u"FrmReport"_s,
         .tool = u"report"_s,
         .entry = u"PrintReport"_s,
         .caption = tr("Reports"),
         .menuText = tr("Print &Report"),
         .tip = tr("Printed reports"),
         .icon = u"document-print"_s,
         .shortcut = u"Ctrl+Shift+P"_s,
         .open = with(host, openReport)},
        {.screen = u"FrmOptions"_s,
         .tool = u"options"_s,
         .entry = u"ToolsOptions"_s,
         .caption = tr("Options"),
         .menuText = tr("&Options"),
         .tip = tr("Options"),
         .icon = u"configure"_s},
        {.screen = u"FrmLaunchGuide"_s,
         .tool = u"launch"_s,
         .caption = tr("Guide"),
         .tip = tr("Launch guide"),
         .icon = u"help-about"_s},
        {.screen = u"FrmHelpBox"_s,
         .tool = u"help"_s,
         .entry = u"HelpAll"_s,
         .caption = tr("Help"),
         .menuText = tr("&Help"),
         .tip = tr("Help"),
         .icon = u"help-contents"_s},

        {.screen = u"FrmHistory"_s, .open = with(host, openHistory)},
        {.screen = u"FrmAddressEntry"_s, .open = with(host, openAddressEntry)},
        {.screen = u"FrmAutoParse"_s, .holdsReminders = true, .open = with(host, openCardParser)},
        {.screen = u"FrmMerge"_s, .open = with(host, openMerge)},
        {.screen = u"FrmProfileComp"_s, .open = with(host, openCompanyQuestions)},
        {.screen = u"FrmProfileJob"_s, .open = with(host, openPositionQuestions)},
    };
}
