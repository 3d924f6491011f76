// Which value of a record goes into which column of the database.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A mapping of the values of a file's records to columns of Address, Contact and Company. A column takes
/// one value and a value goes into one column. Positions count from 1.
class FieldMap
{
public:
    struct Entry
    {
        QString column;
        int position = 0;
    };

    /// The name of a person in one value, which is divided at its last blank: the one field that is no
    /// column.
    static constexpr QStringView fullName = u"Contact.FullName";
    static const QStringList& tables();
    /// True when a field may be mapped: a column of these tables but for the key that the store gives, or
    /// fullName.
    [[nodiscard]] static bool isField(const QString& field);

    /// Maps a value to a field ("Contact.FirstName"); what stood in their way is unmapped.
    void map(const QString& field, int position);
    void unmap(int position);
    void clear();
    [[nodiscard]] bool isEmpty() const { return m_entries.empty(); }
    /// The field of a value, "" for none.
    [[nodiscard]] QString fieldAt(int position) const;
    /// The value of a field, 0 for none.
    [[nodiscard]] int positionOf(QStringView field) const;
    /// The entries of a table in the order in which they were mapped.
    [[nodiscard]] std::vector<Entry> entries(const QString& table) const;
    /// The highest position that is mapped.
    [[nodiscard]] int lastPosition() const;
    /// The map of a table as text: "FirstName:1,LastName:3".
    [[nodiscard]] QString text(const QString& table) const;
    /// All fields with their positions: "Contact.FirstName:1".
    [[nodiscard]] QStringList fields() const;
    static FieldMap fromFields(const QStringList& fields);

    bool operator==(const FieldMap& other) const { return fields() == other.fields(); }

private:
    std::vector<Entry> m_entries; ///< the columns with their tables
};
