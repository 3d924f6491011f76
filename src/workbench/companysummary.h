// The company summary: figures in, sentences out.
#pragma once

#include "base/key.h"

#include <QDateTime>
#include <QString>

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

/// The text of the summary box, with its line breaks and its own spacing.
QString companySummary(const CompanyFigures& figures, const QDate& today);
