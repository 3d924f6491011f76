// A failure inside the store, with the three parts that the error log shows.
#pragma once

#include <QString>

#include <exception>

/// Thrown and caught inside the gateway only; no caller of DataJW ever sees one.
class StoreError : public std::exception
{
public:
    /// @p number is the engine's extended result code, or one of Code for the program's own refusals.
    StoreError(QString description, int number, QString source)
        : m_description(std::move(description))
        , m_number(number)
        , m_source(std::move(source))
    {
    }

    /// The program's own failure numbers, clear of the engine's codes.
    enum Code {
        NotConnected = 91,   ///< the database could not be opened
        Overflow = 6,        ///< a key or count above 32767
        TypeMismatch = 13,   ///< a text that is no number or date where one is needed
        BadStatement = 3075, ///< not a statement of the program's dialect
        UnknownName = 3061,  ///< a table or column that does not exist
        NoRow = 3021,        ///< a first row was asked for where there is none
        Conflict = 3197,     ///< rows are not what a recorded change set expects
        ActionLost = 3022,   ///< the engine gave up the whole action (a full disk, an input/output error)
    };

    [[nodiscard]] const QString& description() const { return m_description; }
    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] const QString& source() const { return m_source; }
    [[nodiscard]] const char* what() const noexcept override { return "store failure"; }

private:
    QString m_description;
    int m_number;
    QString m_source;
};
