// Grabs the workbench for the documents, with a record on each of its screens:
// jobwright_pictures CAMPAIGN.xml light|dark SCREEN OUT.png
#include "calendar/frmevcal.h"
#include "calendar/frmreminder.h"
#include "history/frmhistory.h"
#include "store/demo.h"
#include "views/calendar/calendarview.h"
#include "views/calendar/reminderview.h"
#include "views/history/historyview.h"
#include "views/palettes.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/bench.h"
#include "workbench/contactscreen.h"
#include "workbench/documentscreen.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

#include <QApplication>
#include <QSettings>
#include <QStyleFactory>

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

/// Grabs the history of the contact shown, with its latest entry in the fields.
bool grabHistory(Bench& bench, QSettings& layout, const QString& file)
{
    FrmHistory& history = bench.frm->history();
    bench.world.session->outlookAvailable = true;
    if (!history.load(bench.frm->selection().currentContactKey))
        return false;
    HistoryView view(history, layout);
    history.lvwHistoryClick(history.lvwHistory().rowCount() - 2);
    view.show();
    QCoreApplication::processEvents();
    return view.grab().save(file);
}

/// Opens a tab and shows one of the demo's records on it.
void openScreen(FrmData& frm, const QString& screen)
{
    if (screen == "Reminder"_L1)
        return;
    frm.tabStrip1Click(screen == "History"_L1 ? u"Contact"_s : screen);
    if (screen == "Position"_L1)
        frm.positionScreen().showPosition(u"Milk Network Planner"_s);
    if (screen == "Contact"_L1 || screen == "History"_L1)
        frm.contactScreen().showContact(
            frm.session().dataJW().getContactNames(frm.selection().selectedCompanyName()).value(0));
    if (screen == "Document"_L1)
        frm.documentScreen().showDocument(frm.session().dataJW().loadDox().front().docName);
    if (screen == "Pipeline"_L1)
        chooseNode(frm.pipelineScreen(), {}, u"Milk Network Planner"_s);
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

/// The calendar of the campaign with one interview in its frame.
bool grabCalendar(Bench& bench, QSettings& layout, const QString& file)
{
    addBusyWeeks(bench);
    FrmEvCal& calendar = bench.frm->calendar();
    calendar.load();
    calendar.setShowComplete(true);
    CalendarView view(calendar, layout);
    view.resize(1180, 760);
    view.show();
    calendar.selectDay(QDate(2026, 11, 24));
    for (const DayChip& chip :
         calendar.cells().at(static_cast<size_t>(calendar.cellOf({2026, 11, 24}))).chips) {
        if (chip.text == "10:00 Interview"_L1)
            calendar.openEntry(QString(chip.key));
    }
    QCoreApplication::processEvents();
    const bool written = view.grab().save(file);
    view.close();
    calendar.unload();
    return written;
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
    QApplication::setPalette(arguments.at(2) == "dark"_L1 ? palettes::dark() : palettes::light());
    QFont font = QApplication::font();
    font.setPointSize(10);
    QApplication::setFont(font);

    // The day the campaign was recorded, so that a picture taken next year shows the same figures.
    Bench bench(QDateTime(QDate(2026, 11, 22), QTime(9, 30)));
    bench.world.prompts.acceptAll(Answer::Ok);
    loadDemo(*bench.world.session, arguments.at(1));
    bench.navigator.hasAll = false;
    bench.frm->load();
    QSettings layout(bench.world.folder.filePath(u"layout.ini"_s), QSettings::IniFormat);
    if (arguments.at(3) == "Calendar"_L1)
        return grabCalendar(bench, layout, arguments.at(4)) ? 0 : 1;
    WorkbenchWindow window(*bench.frm, layout);
    window.resize(1180, 800);
    window.show();
    bench.choose(u"Brightwater Dairy Cooperative"_s);
    openScreen(*bench.frm, arguments.at(3));
    ReminderView reminder(bench.frm->reminder(), layout, &window);
    if (arguments.at(3) == "Reminder"_L1)
        bench.frm->reminder().checkEvents();
    QCoreApplication::processEvents();
    QWidget& shown = reminder.isVisible() ? static_cast<QWidget&>(reminder) : window;
    const bool written = arguments.at(3) == "History"_L1 ? grabHistory(bench, layout, arguments.at(4))
                                                         : shown.grab().save(arguments.at(4));
    if (!written)
        std::fputs("The picture could not be written.\n", stderr);
    window.close();
    return written ? 0 : 1;
}
