// The state of one run of the program, handed to every presenter.
#pragma once

#include "base/clock.h"
#include "base/key.h"
#include "base/ports.h"
#include "base/progress.h"
#include "store/files/settings.h"

#include <QObject>
#include <QSet>
#include <QString>
#include <QTime>

#include <memory>

class DataJW;
class StoreError;
class UndoStack;

/// Folder, flags, logs and the gateway of one run. Created once by main (or a test) with its ports; there is
/// no other global state.
class Session : public QObject
{
    Q_OBJECT

public:
    /// The ports must outlive the session; the folder must exist and be writable.
    Session(QString folder, Clock clock, Prompts& prompts, Desktop& desktop);
    ~Session() override;

    /// The application folder: database, logs, data files, copies. No slash at its end.
    [[nodiscard]] const QString& folder() const { return m_folder; }
    /// A file of the application folder.
    [[nodiscard]] QString file(const QString& name) const;
    [[nodiscard]] QString databasePath() const; ///< "Postledger.db" in the folder

    [[nodiscard]] QDateTime now() const { return m_clock(); }
    [[nodiscard]] QDate today() const { return m_clock().date(); }
    /// Today as statements write it: the short date form "m/d/yyyy".
    [[nodiscard]] QString todayText() const;

    /// The gateway; created on first use.
    DataJW& dataJW();
    [[nodiscard]] bool hasDataJW() const { return m_dataJW != nullptr; }
    void releaseDataJW();
    /// What can be taken back of this run's changes; empty after releaseDataJW().
    [[nodiscard]] UndoStack& undoStack() { return *m_undoStack; }

    [[nodiscard]] Prompts& prompts() { return m_prompts; }
    [[nodiscard]] Desktop& desktop() { return m_desktop; }
    /// Where long work tells how far it is; see ProgressScope. Shows nothing until the run has set one.
    [[nodiscard]] Progress& progress() { return *m_progress; }
    /// @p progress must outlive the session.
    void setProgress(Progress& progress) { m_progress = &progress; }
    /// The settings store: what the program keeps outside the database.
    [[nodiscard]] RegAccess& settings() { return m_settings; }

    /// The title of a message that has none of its own.
    static constexpr QStringView messageTitle = u"Jobwright Message";
    /// The standard message box. An empty title becomes messageTitle; dialogBusy is up while it is
    /// open.
    Answer msgBox(const QString& text, Buttons buttons = Buttons::Ok, const QString& title = {});

    /// Writes one line into "OpLog.txt", always.
    void addLog(const QString& message);
    /// Writes one line into "OpLog.txt" while debugMode is on.
    void trace(const QString& message);
    /// Writes an entry into "ErrorLog.txt" and, at any level but 1, shows it. @p failure is what went wrong
    /// at the store; null when a caller reports a mere condition.
    void logError(const QString& text, int level = 0, const StoreError* failure = nullptr);

    /// How many entries at level 0 there have been, shown or not: statements after which it is the same have
    /// all succeeded.
    [[nodiscard]] int reports() const { return m_held; }

    /// While one lives, entries that would be shown go to the log only and are counted: a walk over thousands
    /// of records reports once at its end instead of a box for each.
    class QuietReports
    {
    public:
        explicit QuietReports(Session& session);
        ~QuietReports();
        QuietReports(const QuietReports&) = delete;
        QuietReports& operator=(const QuietReports&) = delete;
        /// Entries that were kept from the user so far.
        [[nodiscard]] int held() const;

    private:
        Session& m_session;
        int m_before;
    };

    /// Progress text of a restore or an import; changing it tells the progress screen.
    [[nodiscard]] const QString& statusLine() const { return m_statusLine; }
    void setStatusLine(const QString& line);

    // Plain flags and values of the run.
    bool debugMode = false;        ///< trace() writes; the splash screen's picture switches it on
    bool splashClosed = false;     ///< the splash screen has gone
    bool wordAvailable = false;    ///< the desktop has a program for ".doc" files
    bool outlookAvailable = false; ///< the folder has its "exchange" folder
    bool autosave = false;         ///< a record is saved with every assignment made on its screen
    bool dialogBusy = false;       ///< a box or a statement is at work: reminders and copies wait
    Key reminderInterval = 0;      ///< minutes between two looks for reminders
    /// When reminders were looked for last; begins so long ago that the first look is always due.
    QDateTime lastReminderCheck{QDate(1899, 12, 30), QTime(0, 0)};
    QTime sessionStart;   ///< time of day when the workbench came up; set by FrmData
    QTime sessionEnd;     ///< time of day when it closed
    QString helpDocument; ///< the documentation, below the folder, with backslashes and one at its beginning
    QString acrobatPath;  ///< program for PDF files where no viewer is set; "" for the desktop's own choice
    QString lastScreen;   ///< name of the screen that was closed last, of those that note it; "" for none

signals:
    /// What is in the store has changed: sent once behind each outermost Action, and behind each operation
    /// that writes outside of one, with the names of the tables, as the schema spells them, in which a row
    /// was added, changed or taken out. Not sent when no row was, or when all of it was taken back. The store
    /// may be read and written in a receiver; what it writes is told by a signal of its own.
    void changed(const QSet<QString>& tables);
    void statusLineChanged(const QString& line);
    /// A restore or import has stored a row; @p done of @p total records are behind it (0 of 0: unknown).
    void progressChanged(int done, int total);

private:
    friend class QuietReports;

    /// The sentence about an error log that cannot be written; "" when there is nothing new to say of it.
    [[nodiscard]] QString lostLogText();

    QString m_folder;
    Clock m_clock;
    Prompts& m_prompts;
    Desktop& m_desktop;
    SilentProgress m_noProgress;
    Progress* m_progress = &m_noProgress;
    RegAccess m_settings;
    std::unique_ptr<UndoStack> m_undoStack;
    std::unique_ptr<DataJW> m_dataJW;
    QString m_statusLine;
    bool m_logLost = false;
    bool m_logLossTold = false;
    int m_quiet = 0;
    int m_held = 0; ///< entries at level 0 so far, shown or not
};

/// Raises dialogBusy for a scope and puts the earlier value back.
class BusyScope
{
public:
    explicit BusyScope(Session& session)
        : m_session(session)
        , m_before(session.dialogBusy)
    {
        m_session.dialogBusy = true;
    }
    ~BusyScope() { m_session.dialogBusy = m_before; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    Session& m_session;
    bool m_before;
};

/// Long work on the user's thread. While it lives dialogBusy is up, so that reminders and copies wait, and
/// only its Cancel button answers.
class ProgressScope
{
public:
    /// @p total as in Progress::begin().
    ProgressScope(Session& session, const QString& title, int total)
        : m_busy(session)
        , m_progress(session.progress())
    {
        m_progress.begin(title, total);
    }
    ~ProgressScope() { m_progress.end(); }
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// As Progress::step(); cheap enough for each of thousands of records.
    [[nodiscard]] bool step(int done, const QString& line = {}) { return m_progress.step(done, line); }

private:
    BusyScope m_busy;
    Progress& m_progress;
};
