// The workbench: the main screen's shell around its five screens.
#pragma once

#include "base/form.h"
#include "store/storefollower.h"
#include "workbench/shell.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QTime>

#include <memory>
#include <vector>

class CompanyScreen;
class ContactScreen;
class DocumentScreen;
class FrmReminder;
class PipelineScreen;
class PositionScreen;

/// How the label beside the company selector looks.
enum class CompanyLabel {
    Company,           ///< the normal text colour, transparent
    CompanyOnGraphics, ///< the user wants graphics behind it: white, on a ground of its own
    Category,          ///< white on an opaque back
};

/// Switches the five screens, holds the company selector and the status bar, and opens every other tool.
class FrmData : public QObject, public Shell
{
    Q_OBJECT

public:
    /// All three must outlive the main screen.
    FrmData(Session& session, Navigator& navigator, FrmReminder& reminder);
    ~FrmData() override;

    // --- Parts of the window ------------------------------------------------------------------------------
    [[nodiscard]] CompanyScreen& companyScreen() { return *m_company; }
    [[nodiscard]] PositionScreen& positionScreen() { return *m_position; }
    [[nodiscard]] ContactScreen& contactScreen() { return *m_contact; }
    [[nodiscard]] DocumentScreen& documentScreen() { return *m_document; }
    [[nodiscard]] PipelineScreen& pipelineScreen() { return *m_pipeline; }
    /// The shell's own controls: cmbSelection, Label45, the frames frmeCompany ... frmePipeline; pbarLoad is
    /// visible while long work runs.
    [[nodiscard]] Form& form() { return m_form; }
    /// The items of cmbSelection: the company names in order, "<New>" last.
    [[nodiscard]] const QStringList& companyList() const { return m_companyList; }
    /// A category: its name in the store ("~ Banks ~"), and as people say it ("Banks").
    struct Category
    {
        QString name;
        QString caption;
    };
    /// The categories among the items.
    [[nodiscard]] std::vector<Category> categories() const;
    /// The items that belong to the category of this name, in their order; all of them for an empty one.
    [[nodiscard]] QStringList companiesOf(const QString& category) const;
    /// The window's title: the company, and the folder of a campaign that is not in the usual one.
    [[nodiscard]] QString caption() const;
    /// What the status bar says of the campaign: "Saved 14:02", or which of these fields are not.
    [[nodiscard]] QString savedText(const QStringList& unsavedFields) const;
    [[nodiscard]] QString versionPanel() const; ///< last panel of the status bar, at its right end
    [[nodiscard]] QString procText() const override { return m_procText; }
    [[nodiscard]] bool procVisible() const { return m_procVisible; }
    /// The status bar's panel for the state of the position shown ("Position EXPIRED"); empty: hidden.
    [[nodiscard]] QString positionPanel() const { return m_positionPanel; }
    [[nodiscard]] QString currentTab() const { return m_currentTab; } ///< tab key of TabStrip1
    [[nodiscard]] QString newToolTip() const
    {
        return m_newToolTip;
    }                                                             ///< tool tip of the toolbar's "new" button
    [[nodiscard]] QString newImage() const { return m_newImage; } ///< "newco", "newpos" or "newcon"
    /// "15 companies · 30 positions · 45 contacts" for the status bar.
    [[nodiscard]] QString countsPanel() const { return m_countsPanel; }
    [[nodiscard]] CompanyLabel companyLabel() const { return m_companyLabel; } ///< the look of Label45

    // --- Start and end ------------------------------------------------------------------------------------
    /// The main screen's load routine; false when it failed and the program has to end.
    bool load();
    /// The window got the focus: the selector is filled anew and keeps the selected company.
    void activated();
    /// The unload routine: usage rows, release of the gateway.
    void unload();

    // --- Screens ------------------------------------------------------------------------------------------
    /// False when the user stays where a text could not be saved.
    bool tabStrip1Click(const QString& tabKey);
    /// Before another screen, a restore or the end: whether nothing typed is lost, or the user agrees to it.
    bool mayLeave();
    void clearStrip();
    [[nodiscard]] bool isOpen(const QString& screen) const override;
    bool showOn(const QString& screen, const QString& name) override;
    bool showContact(Key key) override;
    void chooseCompany(const QString& name) override;
    void clearPipeBoxes() override;
    /// Runs the whole list of start steps that a restore or another outside change calls for.
    void refresh();

    // --- Status bar ---------------------------------------------------------------------------------------
    void setSbar(const QString& kind) override;
    /// Trims the position's title too, whichever field has changed.
    void sbarVis() override;
    void savedSbar() override;
    void showProc(const QString& text) override;
    void setPositionPanel(const QString& text) override;
    void setSimpleText(const QString& text) override;
    void progress(int done, int total, const QString& what) override;
    void updateCounts() override;
    void offerUndo(const QString& done) override;

    // --- Company selector ---------------------------------------------------------------------------------
    void setSelection(const QString& name) override;
    void selectCategory() override;
    void loadCompanyList() override;
    void cmbSelectionClick(const QString& chosen) override;

    // --- Tools --------------------------------------------------------------------------------------------
    /// A click on the toolbar button with this key, or on an entry of its drop-down ("company" ...
    /// "pipeline").
    void tbarButtonClick(const QString& key) override;
    /// The same for a menu entry by its name ("Uprofile", "Goals", "FileImport", ...).
    void menuClick(const QString& entry);
    /// The tool of this toolbar key or menu entry; null for what is no tool.
    [[nodiscard]] const ScreenRow* tool(const QString& key) const;
    /// True when what stands behind this toolbar key or menu entry exists; else its button is disabled.
    [[nodiscard]] bool toolAvailable(const QString& key) const;

public slots:
    /// Takes the latest action back, or does it again; the screens then show the records as they are.
    void undo();
    void redo();
    void fileExport();
    // The campaign's records for other programs.
    void writeCards();
    void writeContacts();
    void writeCompanies();
    void writePositions();
    void restoreData();
    void restoreACopy();
    void fileExit() { emit closeRequested(); }
    void filePrint() { emit printRequested(); }
    void setup() { emit printSetupRequested(); }
    void preview() { emit previewRequested(); }
    void documentation();
    void helpAbout();
    void ctrlS();
    void help(int contextId);

signals:
    /// Something beside the form's controls is new: panels, tab, caption, list of companies.
    void changed();
    void companyListChanged();
    void undoOffered(const QString& done);
    /// Long work stands at @p done of @p total; both 0 when it is over.
    void progressChanged(int done, int total);
    void closeRequested();
    void printRequested();
    void printSetupRequested();
    void previewRequested();
    /// A restore or import begins or ends: the progress screen comes or goes.
    void importProgress(bool running);

private:
    void loadPositionFrame();
    void loadContactFrame();
    void loadPipelineFrame();
    void loadDocumentFrame();
    void showCompanyScreen();
    void showPositionScreen();
    void showContactScreen();
    void showPipelineScreen();
    void showDocumentScreen();
    void setNewButton(const QString& toolTip, const QString& image);
    /// Behind a restore: the keys at hand name other rows now, or none.
    void forgetKeys();
    void readSettings();
    void startNewCompany();
    [[nodiscard]] bool mayLeaveCompany(); ///< as mayLeave(), with the document left as it is
    void newRecord();
    void openTool(const QString& key, bool fromMenu);
    void checkReminders();
    void positionStored();
    [[nodiscard]] QDateTime storeState() const;
    void followStore();
    void showAgain();
    void writeUsage();
    void release();
    void writeRestoreFile(const QString& name);

    FrmReminder& m_reminder;
    Form m_form;
    std::unique_ptr<CompanyScreen> m_company;
    std::unique_ptr<PositionScreen> m_position;
    std::unique_ptr<ContactScreen> m_contact;
    std::unique_ptr<DocumentScreen> m_document;
    std::unique_ptr<PipelineScreen> m_pipeline;
    QStringList m_companyList;
    QString m_caption;
    QString m_procText;
    bool m_procVisible = false;
    QString m_positionPanel;
    QString m_currentTab = QStringLiteral("Company");
    QString m_newToolTip;
    QString m_newImage;
    QString m_countsPanel;
    QDateTime m_unreadable; ///< the state of a store that could not be read; invalid once it could
    QTime m_savedAt;        ///< of this run's latest change to the campaign
    StoreFollower m_follower;
    CompanyLabel m_companyLabel = CompanyLabel::Company;
};
