// The ways to a document's file: choosing it, and opening it in its viewer.
#include "base/fieldtext.h"
#include "base/text.h"
#include "store/gateway/datajw.h"
#include "workbench/documentscreen.h"
#include "workbench/shell.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// How files with an ending are opened: with the program that the Status row names, or in the browser.
struct Viewer
{
    QStringView ending;
    QStringView row; ///< empty: the browser
};

constexpr std::array<Viewer, 6> viewers{{{u".pdf", u"PDFViewer"},
                                         {u".txt", u"TextViewer"},
                                         {u".htm", {}},
                                         {u".html", {}},
                                         {u".doc", u"WordViewer"},
                                         {u".rtf", u"WordViewer"}}};

/// From the first dot on: the ending of "cv.v2.doc" is ".v2.doc", which no viewer is known for. "" without
/// one.
QString endingOf(const QString& fileName)
{
    const auto dot = fileName.indexOf(u'.');
    return dot < 0 ? QString() : fileName.mid(dot).toLower();
}

/// The file or folder that a stored path means. A relative one lies in the application folder; and where the
/// name on the disk has an apostrophe, the stored text holds a backquote.
QString onDisk(const Session& session, const QString& stored)
{
    const QDir folder(session.folder());
    const QString path = folder.absoluteFilePath(stored);
    const QString withApostrophes = folder.absoluteFilePath(QString(stored).replace(u'`', u'\''));
    return !QFileInfo::exists(path) && QFileInfo::exists(withApostrophes) ? withApostrophes : path;
}

/// The day a file was made. Not every disk keeps it; the last change is the next best then.
QDate creationDate(const QFileInfo& file)
{
    const QDateTime made = file.birthTime();
    return made.isValid() ? made.date() : file.lastModified().date();
}

} // namespace

void DocumentScreen::cmdLoadDocument()
{
    if (!mayLeave())
        return;
    clearDocumentForm();
    chooseFile();
}

void DocumentScreen::chooseFile()
{
    Session& session = m_shell.session();
    QString folder = session.dataJW().getStatusValue(u"DocumentDirectory"_s, true);
    if (folder.isEmpty())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const BusyScope busy(session);
    const QString path = session.prompts().openFile(tr("Jobwright - Select Document"),
                                                    onDisk(session, folder), {tr("All files (*)")});
    if (!path.isEmpty())
        takeFile(path);
}

void DocumentScreen::filesDropped(const QStringList& paths)
{
    if (paths.size() != 1 || !QFileInfo(paths.first()).isFile()) {
        m_shell.showMessage(tr("Please drop one file at a time, and no folder."));
        return;
    }
    if (!mayLeave())
        return;
    clearDocumentForm();
    takeFile(paths.first());
}

void DocumentScreen::takeFile(const QString& path)
{
    const QFileInfo file(path);
    DataJW& dataJW = m_shell.session().dataJW();
    {
        Action action(dataJW);
        dataJW.writeStatus(u"DocumentDirectory"_s, text::quoteFix(file.absolutePath()), true);
    }
    m_form.setText(u"txtFileName"_s, file.fileName());
    m_form.setText(u"txtPath"_s, file.absoluteFilePath());
    const QDate made = creationDate(file);
    if (made.isValid() && !m_form.isDirty(u"dtpEntry"_s))
        m_form.setDate(u"dtpEntry"_s, made);
    emit changed();
}

void DocumentScreen::cmdViewDoc1()
{
    Session& session = m_shell.session();
    session.trace(u"View Document"_s);
    const QString ending = endingOf(m_form.text(u"txtFileName"_s));
    const auto viewer = std::ranges::find(viewers, ending, &Viewer::ending);
    if (viewer == viewers.end()) {
        m_shell.showMessage(tr("Document format not recognized."), Buttons::Ok, tr("File Access Error"));
        return;
    }
    const QString stored = m_form.text(u"txtPath"_s);
    const QString path = onDisk(session, stored);
    if (stored.isEmpty() || !QFileInfo::exists(path))
        m_shell.showMessage(
            tr("The file \"%1\" was not found. It may have been moved, renamed or deleted.").arg(stored),
            Buttons::Ok, tr("View Document"));
    else
        openWith(viewer->row.toString(), path);
}

void DocumentScreen::openWith(const QString& viewerRow, const QString& path)
{
    Session& session = m_shell.session();
    const bool isWord = viewerRow == u"WordViewer";
    QString program = viewerRow.isEmpty() ? QString() : session.dataJW().getStatusValue(viewerRow, true);
    if (program.isEmpty() && viewerRow == u"PDFViewer")
        program = session.acrobatPath;
    bool opened = false;
    if (viewerRow.isEmpty()) // encoded, as a path may hold signs that mean something in an address
        opened = session.desktop().openUrl(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
    else if (!program.isEmpty())
        opened = session.desktop().startProgram(program, {path});
    else
        opened = (!isWord || session.wordAvailable) && session.desktop().openDocument(path);
    if (opened)
        return;
    m_shell.showMessage(
        isWord ? tr("ERROR - 2nd Format - Cannot Open Application, file may be corrupt or application may be "
                    "unavailable - see Manual/Troubleshooting")
               : tr("The file \"%1\" could not be opened: no program for it could be started.").arg(path),
        Buttons::Ok, tr("View Document"));
}
