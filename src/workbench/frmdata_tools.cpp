// The doors from the workbench to the other tools: toolbar, menus, export and restore, help.
#include "base/text.h"
#include "calendar/frmreminder.h"
#include "intake/contactexport.h"
#include "store/files/copyrestore.h"
#include "store/gateway/datajw.h"
#include "store/gateway/undostack.h"
#include "workbench/contactscreen.h"
#include "workbench/frmdata.h"
#include "workbench/pipelinescreen.h"
#include "workbench/positionscreen.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The tab that an entry of the toolbar button's drop-down stands for; empty for any other key.
QString tabOf(const QString& key)
{
    static const QStringList tabs{u"Company"_s, u"Position"_s, u"Contact"_s, u"Document"_s, u"Pipeline"_s};
    const auto found = std::ranges::find_if(tabs, [&](const QString& tab) { return tab.toLower() == key; });
    return found == tabs.end() ? QString() : *found;
}

QString documentationPath(const Session& session)
{
    return session.folder() + QString(session.helpDocument).replace(u'\\', u'/');
}

} // namespace

const ScreenRow* FrmData::tool(const QString& key) const
{
    const auto found = std::ranges::find_if(m_navigator.screens(), [&](const ScreenRow& row) {
        return !key.isEmpty() && (row.tool == key || row.entry == key);
    });
    return found == m_navigator.screens().end() ? nullptr : &*found;
}

bool FrmData::toolAvailable(const QString& key) const
{
    if (const ScreenRow* row = tool(key))
        return m_navigator.hasScreen(row->screen);
    if (key == u"helpdox" || key == u"Documentation")
        return !m_session.helpDocument.isEmpty() && QFileInfo::exists(documentationPath(m_session));
    return true;
}

void FrmData::tbarButtonClick(const QString& key)
{
    if (key == u"new")
        newRecord();
    else if (key == u"helpdox")
        documentation();
    else if (const QString tab = tabOf(key); !tab.isEmpty()) {
        m_form.requestFocus(u"TabStrip1"_s);
        tabStrip1Click(tab);
    } else {
        openTool(key, false);
    }
}

void FrmData::menuClick(const QString& entry)
{
    openTool(entry, true);
}

void FrmData::openTool(const QString& key, bool fromMenu)
{
    const ScreenRow* row = tool(key);
    if (!row || !m_navigator.hasScreen(row->screen))
        return;
    if (const QString& line = fromMenu ? row->menuLine : row->toolLine; !line.isEmpty())
        m_session.trace(line);
    if (fromMenu && row->screen == u"FrmReminder")
        checkReminders();
    else if (m_navigator.open(row->screen) == QVariant(true))
        return; // left for a record, which stays in front
    if (row->then == Then::CompanyScreenFocused)
        m_form.requestFocus(u"TabStrip1"_s);
    if (row->then != Then::Stay)
        tabStrip1Click(u"Company"_s);
}

void FrmData::checkReminders()
{
    // The entry looks for itself, whatever the timer is at; the button shows the screen as it stands.
    m_session.lastReminderCheck = m_session.now();
    m_reminder.checkEvents();
    if (!m_reminder.isVisible())
        showProc(tr("Nothing is due."));
}

void FrmData::newRecord()
{
    // The button says what it makes. On the Document and Pipeline screens that is still what the screen
    // before made.
    if (m_newImage == u"newpos") {
        m_position->newRecord();
    } else if (m_newImage == u"newcon") {
        m_contact->newRecord();
    } else {
        cmbSelectionClick(text::newEntry.toString());
    }
}

// --- The way back -----------------------------------------------------------------------------------------

void FrmData::undo()
{
    if (mayLeave() && m_session.undoStack().undo())
        showAgain();
}

void FrmData::redo()
{
    if (mayLeave() && m_session.undoStack().redo())
        showAgain();
}

void FrmData::offerUndo(const QString& done)
{
    emit undoOffered(done);
}

/// Shows the same records by their names: another key is theirs now, or they have gone.
void FrmData::showAgain()
{
    const QString tab = m_currentTab;
    const QString position = m_position->form().cleanText(u"cmbPosSelection"_s);
    const QString contact = m_contact->form().cleanText(u"cmbContacts"_s);
    forgetKeys();
    clearPipeBoxes();
    refresh();
    if (tab != u"Company" &&
        (!m_selection.selectedCompanyName().isEmpty() || tab == u"Pipeline" || tab == u"Document"))
        tabStrip1Click(tab);
    if (tab == u"Position" && m_position->form().items(u"cmbPosSelection"_s).contains(position))
        m_position->showPosition(position);
    if (tab == u"Contact" && m_contact->form().items(u"cmbContacts"_s).contains(contact))
        m_contact->showContact(contact);
}

// --- Export and restore -----------------------------------------------------------------------------------

void FrmData::fileExport()
{
    QString name = m_session.dataJW().getStatusValue(u"ExportFile"_s);
    if (name.isEmpty())
        name = u"Export.xml"_s;
    // Nothing written has been reported already, and must not be followed by the good news.
    if (m_session.dataJW().createXML(name, false).isEmpty())
        return;
    // The setting may name a place of its own.
    const QString written = QFileInfo(name).isAbsolute() ? name : m_session.file(name);
    showMessage(tr("Data has been exported to ") + QDir::toNativeSeparators(written));
}

void FrmData::writeRestoreFile(const QString& name)
{
    // A failure has been told already.
    if (!m_session.dataJW().createXML(name, true).isEmpty())
        showProc(tr("The restore file was written."));
}

void FrmData::restoreACopy()
{
    if (!mayLeave())
        return;
    const std::vector<CopyInfo> copies = copiesIn(m_session.folder());
    QStringList lines;
    for (const CopyInfo& copy : copies)
        lines.append(copyLine(copy));
    if (lines.isEmpty()) {
        showMessage(tr("There are no copies of the database yet. One is made each day."));
        return;
    }
    const qsizetype chosen = lines.indexOf(m_session.prompts().pickCompany(tr("Restore a copy"), lines));
    if (chosen < 0 ||
        showMessage(
            tr("Your database becomes again what it was then:\n%1\n\nWhat it holds now is copied first.")
                .arg(lines[chosen]),
            Buttons::YesNoDefaultNo, tr("Restore a copy")) != Answer::Yes)
        return;
    const bool restored = restoreCopy(m_session, copies[static_cast<size_t>(chosen)].path);
    forgetKeys();
    if (restored)
        showMessage(tr("The database is again what it was then."));
    refresh();
}

void FrmData::writeCards()
{
    contactexport::save(m_session, contactexport::Kind::Cards);
}

void FrmData::writeContacts()
{
    contactexport::save(m_session, contactexport::Kind::Contacts);
}

void FrmData::writeCompanies()
{
    contactexport::save(m_session, contactexport::Kind::Companies);
}

void FrmData::writePositions()
{
    contactexport::save(m_session, contactexport::Kind::Positions);
}

void FrmData::restoreData()
{
    // What is typed belongs to the database that may go, and to the file that may be written.
    if (!mayLeave())
        return;
    const QString name = u"restore.xml"_s;
    const QString path = m_session.file(name);
    if (!QFileInfo::exists(path)) {
        showMessage(tr("Could not locate restore file in ") + QDir::toNativeSeparators(m_session.folder()) +
                    tr(" directory. Creating restore file."));
        writeRestoreFile(name);
    } else if (showMessage(
                   tr("A restore file was found.  Would you like to restore your database now? This will "
                      "DELETE your current database.") +
                       u"\n\n" + restoreNotes(m_session.folder(), path),
                   Buttons::YesNoDefaultNo, tr("Restore Database.")) == Answer::Yes) {
        emit importProgress(true);
        m_session.dataJW().importXML(path);
        emit importProgress(false);
        forgetKeys();
        if (m_session.statusLine() == u"Import Complete")
            showMessage(tr("The database was restored from the file."));
    } else if (showMessage(tr("Would you like to overwrite your restore file with an updated version?"),
                           Buttons::YesNoDefaultNo, tr("Overwrite Restore File?")) == Answer::Yes) {
        writeRestoreFile(name);
    }
    refresh();
}

// --- Help and keys ----------------------------------------------------------------------------------------

void FrmData::documentation()
{
    const QString path = documentationPath(m_session);
    if (!m_session.desktop().openDocument(path))
        showMessage(tr("The document \"%1\" could not be opened.").arg(QDir::toNativeSeparators(path)));
}

void FrmData::helpAbout()
{
    const QString user = m_session.dataJW().getStatusValue(u"UserName"_s, true);
    QString about = tr("Jobwright %1").arg(QCoreApplication::applicationVersion());
    if (!user.isEmpty())
        about += u'\n' + tr("This campaign belongs to %1.").arg(user);
    showMessage(about, Buttons::Ok, tr("About Jobwright"));
}

void FrmData::ctrlS()
{
    // Fields save themselves and records have their button; the key is taken, and says so.
    showMessage(u"CTRL-S"_s);
}

void FrmData::help(int contextId)
{
    if (contextId > 0)
        m_navigator.openHelp(contextId);
}
