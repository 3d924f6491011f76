// The figures behind the company summary.
#pragma once

#include "base/key.h"

#include <QDateTime>
#include <QString>

class DataJW;

/// What the summary of one company is written from.
struct CompanyFigures
{
    Key positionCount = 0;
    Key contactCount = 0;
    double historyRatio = 0; ///< histories per unit of time; shown in its own box only
    double rankRatio = 0;    ///< rank per unit of time; shown in its own box only
    Key rank = 0;            ///< 0 when the company has no questionnaire
    QDate entryDate{};
    QDate lastContact{};      ///< the sentinel date when nobody was reached yet
    Key interactionCount = 0; ///< histories of all contacts
    Key maxPerContact = 0;
    Key expiredCount = 0;
    Key contactedCount = 0; ///< contacts with at least one history
    bool isTarget = false;
    Key targetCount = 0;
};

/// The figures of a company as they stand in the store on the day @p today. For an unknown name all are 0 and
/// the entry date is the one that stands for a missing date.
[[nodiscard]] CompanyFigures gatherFigures(DataJW& dataJW, const QString& name, QDate today);
