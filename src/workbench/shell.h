// What stands around the five screens of the workbench.
#pragma once

#include "base/ports.h"
#include "store/session.h"
#include "workbench/selection.h"

#include <QStringList>

/// What a screen of the workbench may ask of the window around it: the selection, the status bar, and the
/// ways to other screens. The main screen is the one shell; no screen knows it, or another screen. A screen
/// is named by its tab: "Company", "Position", "Contact", "Document" or "Pipeline".
class Shell
{
public:
    virtual ~Shell() = default;
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;

    [[nodiscard]] Session& session() { return m_session; }
    [[nodiscard]] Navigator& navigator() { return m_navigator; }
    [[nodiscard]] Selection& selection() { return m_selection; }
    /// The standard message box.
    Answer showMessage(const QString& prompt, Buttons buttons = Buttons::Ok, const QString& title = {});
    /// The items of a key list, with a line in the log.
    QStringList csvParse(const QString& keyList);

    // --- The company selector -----------------------------------------------------------------------------
    /// Makes @p name the selection and the selector's text, without showing the company.
    virtual void setSelection(const QString& name) = 0;
    /// Makes the label and the fields those of a category or of a company, as the selection is one.
    virtual void selectCategory() = 0;
    virtual void loadCompanyList() = 0;
    /// As when the user chooses a company: the open screen shows it, unless a text that could not be saved
    /// keeps the user where he is.
    virtual void cmbSelectionClick(const QString& name) = 0;

    // --- The status bar -----------------------------------------------------------------------------------
    /// Puts "Update" and @p kind into the "proc" panel.
    virtual void setSbar(const QString& kind) = 0;
    /// Shows the "proc" panel: something is not saved yet.
    virtual void sbarVis() = 0;
    /// Hides it again.
    virtual void savedSbar() = 0;
    /// Puts a text into the "proc" panel and shows it.
    virtual void showProc(const QString& text) = 0;
    [[nodiscard]] virtual QString procText() const = 0;
    /// The third panel: the state of the position shown; empty: hidden.
    virtual void setPositionPanel(const QString& text) = 0;
    /// The bar's simple text, which lies over the panels until the next one.
    virtual void setSimpleText(const QString& text) = 0;
    /// Long work stands at @p done of @p total (both 0: it is over), and what is at hand is called @p what.
    virtual void progress(int done, int total, const QString& what) = 0;
    /// Counts the records for the status bar; to be called where their number has changed.
    virtual void updateCounts() = 0;
    /// Offers for a while, at the foot of the window, to take back what @p done says: "Deleted position
    /// Buyer."
    virtual void offerUndo(const QString& done) = 0;

    // --- The screens --------------------------------------------------------------------------------------
    [[nodiscard]] virtual bool isOpen(const QString& screen) const = 0;
    /// Opens a screen and shows there what is called @p name: a position or contact of the selected company,
    /// a document. Without a name the screen shows what it opens with. False when the user stays where a text
    /// could not be saved.
    virtual bool showOn(const QString& screen, const QString& name = {}) = 0;
    /// Opens the Contact screen on the contact of this key, with its company selected. False when there is
    /// none, which has been told, or the user stays.
    virtual bool showContact(Key key) = 0;
    /// Makes the company of this name the one that all screens speak about. Nothing is selected when it is
    /// not in the store.
    virtual void chooseCompany(const QString& name) = 0;
    /// As a click on the toolbar button with this key.
    virtual void tbarButtonClick(const QString& key) = 0;
    /// The Pipeline screen lets go of the position that it shows.
    virtual void clearPipeBoxes() = 0;

protected:
    /// Both must outlive the shell.
    Shell(Session& session, Navigator& navigator)
        : m_session(session)
        , m_navigator(navigator)
    {
    }

    Session& m_session;
    Navigator& m_navigator;
    Selection m_selection;
};
