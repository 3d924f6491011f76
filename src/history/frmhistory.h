// The contact history: every interaction with one contact.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "base/ports.h"
#include "base/rowmodel.h"
#include "history/historyentries.h"
#include "store/session.h"

#include <QHash>
#include <QObject>
#include <QSet>

class DataJW;

/// Loads all entries of a contact, edits them in memory, and writes them back as a whole at its closing.
class FrmHistory : public QObject
{
    Q_OBJECT

public:
    /// Columns of lvwHistory, in order.
    enum Column {
        DateColumn,
        TopicColumn,
        MediumColumn,
        LengthColumn,
        LocationColumn,
        CallColumn,
        ReturnColumn
    };

    FrmHistory(Session& session, Navigator& navigator);
    ~FrmHistory() override;

    [[nodiscard]] Form& form() { return m_form; }
    /// A row for each entry in the order of the slots, with the slot's number and "Hist" as its key; its kind
    /// is "overdue" when the next call is. The last row is "<New>", of the kind "new".
    [[nodiscard]] RowModel& lvwHistory() { return m_list; }
    /// The slot being edited, from 1; 0 before any was chosen.
    [[nodiscard]] int selectedHistory() const { return m_selected; }
    [[nodiscard]] bool historyDirty() const { return m_dirty; }
    /// True when a row's texts, its details too, hold @p words in any case.
    [[nodiscard]] bool holds(int row, const QString& words) const;
    /// What the list says in its middle while it shows so many rows of a search for @p words; "" when the
    /// rows speak for themselves.
    [[nodiscard]] QString hint(int shownRows, const QString& words) const;

    /// The screen opens. False when there is no such contact; the user has been told.
    bool load(Key contactKey);
    /// The screen closes: what was changed is written. False when that failed, wholly or for single entries,
    /// and the user wants to stay and try again; all entries are then still in memory.
    bool unload();

    /// A row of the list was chosen: the controls take its entry, or are prepared for a new one.
    void lvwHistoryClick(int row);
    void clearHistoryEntry();
    /// What cmdAddEvent hands to the calendar: "H0" to "H6".
    [[nodiscard]] QHash<QString, QString> eventValues() const;

    void fieldChanged(const QString& control); ///< called by the binder

public slots:
    void cmdAddHistory();
    void cmdRemoveHistory();
    void cmdAddEvent();

signals:
    /// The list was drawn anew, or another slot is being edited.
    void changed();

private:
    [[nodiscard]] DataJW& dataJW() const { return m_session.dataJW(); }
    [[nodiscard]] bool isEntryChanged() const;
    [[nodiscard]] bool mayLeaveEntry();
    void choose(int row);
    void fillBoxes();
    void loadHistoryList(bool fresh);
    void readEntries();
    void lock(const QString& why);
    void showEntry(const History& entry);
    void showChoice(const QString& box, const QString& text);
    void noteDays();
    void enableButtons();
    void say(const QString& note);
    [[nodiscard]] History entryTyped() const;
    [[nodiscard]] QDate dayTyped(const QString& control, QDate stored) const;
    [[nodiscard]] bool mayBeStored(const History& entry);
    void hintAtBound();
    void refuseFurther(bool unstored);
    [[nodiscard]] bool close();
    [[nodiscard]] QString firstPosition() const;

    Session& m_session;
    Navigator& m_navigator;
    Form m_form;
    RowModel m_list;
    HistoryEntries m_entries;
    int m_selected = 0;
    bool m_dirty = false;
    bool m_locked = false; ///< not all of the entries are in memory, so nothing may be written back
    QSet<Key> m_hinted;    ///< contacts whose slots run out, as the user has been told
    QString m_company;
    QDate m_day;  ///< DTPContact as it stood when dtpNextCall was last set by itself
    QDate m_call; ///< dtpNextCall of that day
};
