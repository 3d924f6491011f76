// Storing the records of a text file or a sheet through a mapping.
#pragma once

#include "base/key.h"
#include "formats/recordtable.h"
#include "intake/fieldmap.h"
#include "intake/importreport.h"
#include "store/engine/schema.h"
#include "store/session.h"

#include <QHash>
#include <QSet>

#include <functional>

class DataJW;

/// Told after each record how many of all are done; false stops.
using ImportTick = std::function<bool(int done, int total)>;

/// Looks first what each record would bring, then stores all of them in one action. A record whose person is
/// in the database may be left out; a company that is known, or came earlier in the file, gives its key; a
/// person without a company becomes one, as a contact of no company would be on no list.
class RecordImport
{
public:
    /// The first @p count records are taken. All three must outlive the import.
    RecordImport(Session& session, const RecordTable& table, const FieldMap& map, int count);

    /// Decides about each record; call it before anything else. False when the store could not be read.
    bool plan(bool leaveOutKnown);
    [[nodiscard]] int size() const { return m_count; } ///< the records taken
    /// Records whose person is in the database.
    [[nodiscard]] int knownPeople() const { return m_known; }
    /// The records that bring something, with their numbers in the table.
    [[nodiscard]] int newRecords() const;
    /// Why the new records do not fit the keys that are left, with the number that would; "" when they do.
    [[nodiscard]] QString lackOfKeys() const;
    /// True when a table's count and its highest key differ: counts would tie people to other records.
    [[nodiscard]] bool countsMislead() const;
    /// Stores what was planned. New keys are the tables' counts, or their last keys. False when nothing was
    /// stored; the user has been told why.
    bool store(bool byLastKey, const ImportTick& tick);
    /// What was planned, and after store() what became of it.
    [[nodiscard]] const ImportReport& report() const { return m_report; }
    /// First and last name of a record's person, as they would be stored.
    [[nodiscard]] std::pair<QString, QString> person(int record) const;
    /// The people of the new records, "Ann Lee, Acme".
    [[nodiscard]] QStringList newPeople() const;

private:
    struct Field
    {
        QString column;
        int position;
        schema::ColumnType type;
    };
    struct Company
    {
        QString name;
        Key key = 0; ///< 0: new
        bool isNew = true;
    };
    struct Decision
    {
        int company = -1; ///< among m_companies, -1: the record is passed over
        bool contact = false;
    };
    struct Target ///< a table of the store while records go into it
    {
        QString front; ///< "INSERT INTO Address (Address1,City"
        std::vector<Field> fields;
        Key count = 0;
        int added = 0;
    };

    [[nodiscard]] QString value(int record, int position) const;
    [[nodiscard]] QString values(int record, const std::vector<Field>& fields, bool& dropped) const;
    [[nodiscard]] QString place(int record) const;
    bool readStore();
    void decide(int record, bool leaveOutKnown);
    int companyIndex(const QString& name);
    void prepare(const QString& table, const QStringList& ownColumns);
    void storeRecord(int record, const Decision& decision);
    Key insert(const QString& table, const QString& values);
    Key storeCompany(int record, Company& company, Key addressKey);

    Session& m_session;
    const RecordTable& m_table;
    const FieldMap& m_map;
    int m_count;
    bool m_hasPerson;
    std::vector<Decision> m_decisions;
    std::vector<Company> m_companies;
    QHash<QString, int> m_companyIndex;
    QSet<QString> m_people;
    int m_known = 0;
    QHash<QString, Target> m_targets;
    bool m_byLastKey = false;
    ImportReport m_report;
};
