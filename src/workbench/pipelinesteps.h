// The eleven steps of a position's campaign: their names, columns, mediums, and how far a position has come.
#pragma once

#include "base/dates.h"
#include "store/gateway/recordset.h"

#include <QString>

#include <array>

/// The steps of one position as its row holds them, and what the campaign knows of each step. Steps are
/// numbered 0 (research of the company) to 10 (the offer). An operation that is asked for another number
/// answers empty text, 0 or false.
class PipelineSteps
{
public:
    static constexpr int count = 11;

    /// One step: its day and how it was done (a steps::Medium).
    struct Step
    {
        QDate date;     ///< invalid when the row holds none; dates::sentinel for a step not done
        int medium = 0; ///< as stored: 0 to 7, or whatever else stands in the row
    };

    // --- What holds for every position --------------------------------------------------------------------
    [[nodiscard]] static QString caption(int index);
    /// The step's date column, as in "SentResume".
    [[nodiscard]] static QString getIndexTitle(int index);
    /// The step's medium column: the date column's name with "Medium" behind it.
    [[nodiscard]] static QString getIndexMediumTitle(int index);
    /// What to do next when the first @p furthest steps (0 to 11) are behind one; "" when nothing is left to
    /// do.
    [[nodiscard]] static QString nextStep(int furthest);
    /// The medium code that a step stores for the tag of its picture. The research steps 0 and 1 read some
    /// tags in their own way.
    [[nodiscard]] static int getIndexMedium(int index, const QString& tag);
    /// The tag of the picture with this code: "Internet" (1) to "Other" (7); "" for any other.
    [[nodiscard]] static QString mediumTag(int code);
    /// A day counts as done only when it is strictly later than the sentinel.
    [[nodiscard]] static bool isDone(QDate date) { return date.isValid() && date > dates::sentinel; }

    // --- One position -------------------------------------------------------------------------------------
    PipelineSteps() = default;
    /// The steps of the row at which @p position stands. A column that is missing, empty or no date is a step
    /// not done.
    explicit PipelineSteps(const RecordSet& position);

    [[nodiscard]] Step step(int index) const;
    /// The number, 1 to 11, of the furthest step that is done, gaps below it not counted; 0 when none is.
    [[nodiscard]] int progress() const;
    [[nodiscard]] QString getNextStep() const { return nextStep(progress()); }

private:
    std::array<Step, count> m_steps;
};
