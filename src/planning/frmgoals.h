// The screen Performance: up to nine goals and how far they are met.
#pragma once

#include "base/form.h"
#include "planning/goals.h"

class Navigator;

/// How the progress bar of one goal is drawn.
struct GoalBar
{
    double width = 0; ///< of a track of GoalResult::fullBar
    bool isMet = false;
    QString words; ///< "5 of 7.1 wanted by now"; "" for an unused row
    QString note;  ///< what is beside the count: a limit passed, or why there is no count
};

/// Holds the goals as the user sets them; counts them when asked, when the range changes and when a file is
/// read. Rows and controls are numbered from 1. Nothing is remembered from one visit to the next but what a
/// goals file holds, and the table of the last computation.
class FrmGoals : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the presenter.
    FrmGoals(Session& session, Navigator& navigator);

    Form& form() { return m_form; }
    /// Empties the screen for a new visit: the last seven days, today included, and no goals.
    void load();
    /// Asks about goals that no file holds; false when the screen is to stay.
    bool mayClose();
    /// Reads a goals file into the screen and counts; false, with the reason shown, when it is none.
    bool loadFile(const QString& path);

    [[nodiscard]] const QString& caption() const { return m_caption; }
    [[nodiscard]] const GoalBar& bar(int row) const { return m_bars[static_cast<size_t>(row - 1)]; }
    /// While the box of a row's count is held, it shows the percent of the pace.
    void holdPercent(int row, bool held);

    void fieldChanged(const QString& control);

public slots:
    void cmdRefresh1();
    void cmdLoadTemplate();
    void cmdBrowse();
    void cmdUpToNow();
    void imgSaveUp();
    void imgChart();

signals:
    void changed();
    /// Goals have been counted; not told where none is set.
    void computed(const GoalChart& chart);

private:
    [[nodiscard]] GoalSet goals() const;
    [[nodiscard]] QDate day(const QString& control) const;
    void setRange(QDate start, QDate end);
    void applyInterval(const QString& changed);
    void chooseGoal(int row);
    void showGoals(const GoalSet& set);
    void compute();
    void showInterval(int days);
    void showRow(int row);
    void say(const QString& status);
    bool save();

    Session& m_session;
    Navigator& m_navigator;
    Form m_form;
    QString m_caption;
    QString m_interval; ///< the option that the user clicked last; "" before the first click
    QString m_path;     ///< the file that was last read or written
    std::array<GoalRow, GoalSet::rowCount> m_saved; ///< what that file holds
    GoalResults m_results;
    std::array<GoalBar, GoalSet::rowCount> m_bars;
};
