// One record of a campaign file on its way into a statement.
#pragma once

#include <QString>

#include <pugixml.hpp>

#include <exception>
#include <span>
#include <string_view>

/// Ends an import in its middle: a record cannot be read, or the store gave up. Never leaves the import.
class ImportStopped : public std::exception
{
public:
    /// @p reason is in words for the user.
    explicit ImportStopped(QString reason)
        : m_reason(std::move(reason))
    {
    }
    [[nodiscard]] const QString& reason() const { return m_reason; }
    [[nodiscard]] const char* what() const noexcept override { return "import stopped"; }

private:
    QString m_reason;
};

/// Reads a record's attributes; quick when they are asked for in the file's own order.
class RecordReader
{
public:
    /// A null record reads as one whose attributes are all empty.
    explicit RecordReader(pugi::xml_node record)
        : m_record(record)
    {
    }
    /// The attribute's value in the file itself. Throws ImportStopped when the record has no attribute of
    /// that name.
    std::string_view raw(const char* column);
    /// The attribute's text as it stands; stops as raw() does.
    QString text(const char* column);
    /// As text(), with @p instead when it is empty.
    QString textOr(const char* column, const QString& instead);

private:
    [[noreturn]] void stop(const char* column) const;

    pugi::xml_node m_record;
    pugi::xml_attribute m_hint;
};

/// Builds "INSERT INTO T(a,b) VALUES('1','2')". Values go in as they stand, numbers too between quotes: they
/// were cleaned when they were first stored.
class InsertText
{
public:
    /// @p opening is all before the first column: "Insert into Address(".
    explicit InsertText(QStringView opening);
    InsertText& add(const char* column, QStringView value);
    /// The record's own values, one for each of @p columns.
    InsertText& add(RecordReader& record, std::span<const char* const> columns);
    [[nodiscard]] QString statement() const;

private:
    QString m_columns;
    QString m_values;
    bool m_first = true;
};
