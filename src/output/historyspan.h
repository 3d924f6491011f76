// What happened with all contacts between two days.
#pragma once

#include "base/key.h"

#include <QDate>
#include <QString>

#include <vector>

class DataJW;

/// One interaction with a contact.
struct Happened
{
    QDate date;
    Key contactKey = 0;
    QString contact; ///< "" for a contact that is gone
    QString company;
    QString medium;
    QString topic;
    QString details;
};

namespace historyspan {

/// The interactions from @p from to @p to, both days included, the oldest first; none for an invalid day.
[[nodiscard]] std::vector<Happened> read(DataJW& dataJW, QDate from, QDate to);

} // namespace historyspan
