// A form over one row of a table.
#pragma once

#include "base/form.h"
#include "base/key.h"

#include <functional>

class RecordSet;
class Session;

/// The record in a form, as its screen knows it when it is about to be left.
struct OpenRecord
{
    QString name;          ///< as a question calls it: the company "Acme"
    bool isStored = false; ///< else its fields wait for its first save
    bool hasMore = false;  ///< beside the fields something of it waits for its save: a list, a save cut short
    std::function<void(const QString&)> leave; ///< the screen's own leaving of a field, by the control's name
    std::function<bool()> save; ///< the screen's own save, true when all is stored; empty: it cannot be saved
};

/// Shows a record, saves its fields one by one, and asks before what is typed goes. It knows whether all of
/// the record could be read: a form that could not be filled completely is never saved as a whole, or the
/// empty fields would take the place of what the store holds.
class RecordForm : public Form
{
    Q_OBJECT

public:
    /// @p table and @p keyColumn as the statement that saves a field writes them ("Company", "companykey").
    /// @p session must outlive the form.
    RecordForm(Session& session, QString table, QString keyColumn, std::vector<FieldRow> rows);

    // --- Filling ------------------------------------------------------------------------------------------
    /// Shows the row at which @p record stands in place of the record before; fields whose columns it does
    /// not have are empty.
    void fill(const RecordSet& record);
    /// Shows further columns of the same record, out of another table.
    void fillMore(const RecordSet& record);
    /// A part of the record could not be read.
    void noteUnread() { m_isWhole = false; }
    void clear() override;

    // --- Saving -------------------------------------------------------------------------------------------
    /// Writes the column of a control into the row of @p key. What was not written stays dirty, and the next
    /// leaving of the field tries again.
    bool saveField(const QString& control, Key key);
    /// True when all of the record was read, the texts fit into one statement and each of @p tables has a key
    /// left; else the user has been told why nothing was saved. The store takes statements of a million
    /// characters; one that it refused in the middle of a save would leave the record without its row.
    bool mayBeStored(const QStringList& tables);
    /// Nothing typed goes unasked. Fields that save themselves are written where they are not yet; for
    /// whatever waits for the record's save, the user decides in one question. False when he stays, or a save
    /// he wanted did not succeed. What he gives up is taken out of the form, so that nobody asks again or
    /// takes it for stored.
    [[nodiscard]] bool mayLeave(const OpenRecord& record);

private:
    Session& m_session;
    QString m_table;
    QString m_keyColumn;
    bool m_isWhole = true;
};
