// The frame in which one entry of the calendar is edited.
#pragma once

#include "calendar/framenotes.h"
#include "calendar/framepeople.h"
#include "calendar/frametimes.h"
#include "calendar/jwevent.h"
#include "store/record/recordreplacement.h"

#include <QHash>
#include <QObject>

#include <vector>

/// Holds one event or task while it is looked at or changed, and stores it. What is chosen or typed goes into
/// the frame only; the store changes by save().
///
/// Its controls in the form, beside those of FrameTimes, FramePeople and FrameNotes:
/// - frmeEventData: its caption, "mm/dd/yyyy" or "No Date"; dtEvTsk: the day as an ISO date, for those who do
///   not drag
/// - txtEvName, chkTask, chkNoDate, chkComplete
/// - txtFormat: the format, or the priority of a task; imgFormat or imgPriority is visible with it
/// - cmdAdd1, cmdRemove1: enabled when there is something to store or to remove
class EventFrame : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this.
    EventFrame(Session& session, Form& form);

    [[nodiscard]] bool isOpen() const { return m_open; }
    [[nodiscard]] bool isNewEntry() const { return m_rows.empty(); }
    [[nodiscard]] bool isDirty() const { return m_dirty; } ///< holds what is not in the store
    void setClean() { m_dirty = false; }
    /// The rows that the next save replaces: none for a new entry.
    [[nodiscard]] const std::vector<Key>& rows() const { return m_rows; }
    [[nodiscard]] bool holds(Key eventKey) const;
    /// The entry's day; invalid for "No Date" and while the frame is shut.
    [[nodiscard]] QDate date() const;
    [[nodiscard]] bool isNoDate() const;
    /// The frame's heading: the entry's day in the user's language, and whether the entry is a new one.
    [[nodiscard]] QString heading() const;
    /// What chkComplete says beside its box: "Complete" or "Incomplete".
    [[nodiscard]] QString completeCaption() const;

    void load(); ///< the screen opens: the companies may be others than before
    void close();
    /// Opens on a stored entry. One without a date has @p reserve for the day that it may be given.
    void open(const JWevent& entry, const EventOwners& owners, QDate reserve);
    /// Opens on a new entry; an invalid day: without a date, and as in open().
    void openNew(QDate day, bool task, QDate reserve);
    /// Gives a new task the values "H0" to "H6" of FrmEvCal::createHistoryEvent().
    void takeHistory(const QHash<QString, QString>& values);
    /// The store has changed. A frame with nothing unsaved shows what is stored now, or shuts when its entry
    /// is gone. What is unsaved stays, as an entry that is gone is then a new one, and one that has been
    /// closed stays closed. @p reserve as in open().
    void followStore(QDate reserve);
    void moveTo(QDate day); ///< its entry lies on this day now
    void showComplete(bool complete);

    void chooseEventType(const QString& text);
    void chooseFormat(const QString& text);            ///< the format, or the priority of a task
    void chooseOther(int button, const QString& text); ///< FrameNotes::choose()
    /// Somebody in lblCompany, lblContact or lblPosition; "" for none.
    void chooseOwner(const QString& control, const QString& name);
    /// FramePeople::mayList()
    bool mayListPeople() { return m_people.mayList(); }
    /// A text that names nobody was left in lblCompany, lblContact or lblPosition: it stays in the frame
    /// until it is mended or taken back, and a save refuses it.
    void holdUnknown(const QString& control, const QString& typed);
    /// FramePeople::tellUnknown() about what holdUnknown() has put there.
    void tellUnknown(const QString& control);
    void toggleBell();
    void fieldChanged(const QString& control);
    void fieldLeft(const QString& control) { m_times.normalise(control); }

    /// What became of a save.
    struct Saved
    {
        bool written = false; ///< the store is another one than before
        Key key = 0;          ///< of the new row; 0 when it is not known
        QString trouble;      ///< for the user: what was written is not the whole, and another save mends it
    };
    /// Stores the entry in place of its rows, after asking what has to be asked. What cannot be stored has
    /// been told, and stays in the frame.
    Saved save();

signals:
    /// The frame has been opened or shut, stands for another entry, or the user has changed something in it.
    void changed();
    void dayChosen(QDate day); ///< the user has given the entry this day

private:
    void touched();
    void openOn(std::vector<Key> rows, const JWevent& entry, const EventOwners& owners, QDate reserve);
    void fill(const JWevent& entry, const EventOwners& owners, QDate reserve);
    void showMedium(const QString& medium, bool task);
    void setDate(QDate day);
    void setTask(bool task);
    void showTask(bool task);
    void setNoDate(bool noDate);
    [[nodiscard]] bool mayBeSaved();
    [[nodiscard]] bool isStoredAsTask() const;
    [[nodiscard]] QString mediumStored() const;
    [[nodiscard]] JWevent entry() const;
    Saved settle(RecordReplacement::Outcome outcome, const RecordReplacement& replacement);

    Session& m_session;
    Form& m_form;
    FrameTimes m_times;
    FramePeople m_people;
    FrameNotes m_notes;
    bool m_open = false;
    bool m_dirty = false;
    QDate m_date;          ///< kept while the entry has none
    QString m_otherMedium; ///< the format while the entry is a task, the priority while it is an event
    std::vector<Key> m_rows;
};
