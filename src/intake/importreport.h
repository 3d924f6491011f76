// What became of an import: how much came in, and what was passed over and why.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

struct ImportReport
{
    struct Note
    {
        QString place; ///< "line 12" or "card 3"; "" when there is none
        QString who;
        QString what;
    };

    int contacts = 0;
    int companies = 0;
    int addresses = 0;
    int passedOver = 0;
    std::vector<Note> notes;

    void passOver(const QString& place, const QString& who, const QString& why);
    /// Something that came in otherwise than it stood in the file.
    void remark(const QString& place, const QString& who, const QString& what);
    /// "12 contacts, 5 companies and 12 addresses came in; 3 records were passed over."
    [[nodiscard]] QString summary() const;
    /// The notes as CSV, with a line of names.
    [[nodiscard]] QByteArray csv() const;
};
