// How much the user has stored, and how much the program has been used.
#pragma once

#include <QDate>
#include <QStringList>

#include <optional>

class Session;

struct UsageStatistics
{
    int addresses = 0;
    int contacts = 0;
    int companies = 0;
    int histories = 0;
    int events = 0;
    int positions = 0;
    int profiles = 0;
    int documents = 0;
    QDate firstEntry; ///< of the companies; invalid when none has a date
    int daysInUse = 0;
    int hours = 0;
    std::optional<double> historyRatio;    ///< histories a contact; nothing without contacts
    std::optional<double> positionAverage; ///< positions a company
    std::optional<double> frequency;       ///< hours a day

    static UsageStatistics gather(Session& session);
    /// The lines of the statistics screen; numbers that do not exist are empty.
    [[nodiscard]] QStringList lines() const;
};
