// The parts of a person's name.
#pragma once

#include <QString>

/// A person's name in the three parts that a contact has.
struct ContactName
{
    QString first;
    QString middle;
    QString last;

    bool operator==(const ContactName&) const = default;
    /// True with a first and a last name, which is what a person is found by.
    [[nodiscard]] bool isComplete() const { return !first.isEmpty() && !last.isEmpty(); }
};

/// A whole name typed in one go: its first word is the first name, its last word the last name, all between
/// them the middle name. A single word is a first name.
ContactName getFname(const QString& typed);

/// What was typed into the three boxes, a whole name in the first or last one taken apart when the other is
/// empty.
ContactName completedName(const ContactName& typed);

/// The name as it is stored: no blanks around it, one word as first name, capitals at the front of first and
/// last name. Words that are moved into a filled middle name are appended to it without a blank.
ContactName normalisedName(const ContactName& typed);
