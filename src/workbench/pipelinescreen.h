// The Pipeline screen: each position on its way through the eleven campaign steps.
#pragma once

#include "base/form.h"
#include "base/key.h"
#include "store/gateway/recordset.h"
#include "workbench/pipelinesteps.h"
#include "workbench/pipelinetree.h"

#include <QObject>

#include <array>

class PositionForm;
class Shell;

/// Builds the tree of companies and positions, shows and writes the steps of one position, and draws the bars
/// of all. Its numbered controls (chkP0 to chkP10, dtpProg0 ..., Image10 ...) are in the form: ticks, days,
/// and the tags of the mediums' pictures. Operations with an index expect 0 to 10 for a step, 0 to 9 for a
/// bar.
class PipelineScreen : public QObject
{
    Q_OBJECT

public:
    static constexpr int barsAPage = 10;

    /// One of the ten rows of bars.
    struct Bar
    {
        QString title;    ///< shpLbl
        QString company;  ///< "" for a position of no known company
        int progress = 0; ///< length of shp: 0 to 11 steps
        int position = 0; ///< the position's key as the store holds it, 0 for an empty row
    };

    PipelineScreen(Shell& shell, PositionForm& positionForm);
    ~PipelineScreen() override;

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] PipelineTree& tvwHire() { return m_tree; }
    [[nodiscard]] const std::array<Bar, barsAPage>& bars() const { return m_bars; }
    [[nodiscard]] QString visualCaption() const { return m_visualCaption; } ///< of frmeVisualStat
    [[nodiscard]] int page() const { return m_page; }                       ///< 0 is the first
    [[nodiscard]] int pageCount() const { return m_pageCount; }             ///< at least 1
    /// True while the fields show a position, so that ticking a step writes.
    [[nodiscard]] bool hasPosition() const { return !m_form.text(QStringLiteral("txtPosition")).isEmpty(); }
    /// True when this node is the one whose data the fields show.
    [[nodiscard]] bool isShown(const QModelIndex& index) const;

    void load(); ///< loadPipelineFrame, behind the shell's own refusals
    /// The bars of the page that is open.
    void displayVisual();
    /// The bars of the positions behind the first @p first, up to @p last, in the order of their titles.
    void displayVisual(int first, int last);
    void clearPipeBoxes();
    /// Shows the steps of one Position row, which becomes the current position.
    void fillProgForm(const RecordSet& record);
    /// Another screen has written steps of positions: what is shown is read again. Nothing typed can be lost,
    /// as this screen writes each change at once.
    void stepsChanged();
    /// The next-step text for the steps ticked at the moment.
    [[nodiscard]] QString getNextStep() const;
    /// The selector has taken another company while this screen is open.
    void companyChosen(const QString& company);

    // --- Events, called by the view -----------------------------------------------------------------------
    /// The user changed a tick, a date, an option or the search text, and the form holds what it is now.
    void fieldChanged(const QString& control);
    void dtpProgDropDown(int index);
    void image1Click(int index);
    void shpLblClick(int index);
    void shpLblDblClick(int index);

public slots:
    void tvwHireClick(const QModelIndex& index);
    void tvwHireDblClick(const QModelIndex& index);
    void cmdRefresh1();
    void cmdUpdateTrack1();
    void imgOpenContact1();
    void cmdVisualBack(); ///< the page of bars before
    void cmdVisualNext();

signals:
    void changed();
    /// The view makes this node the current one and visible, or none when it is invalid. @p alone: every
    /// other company's node is closed and this one opened.
    void nodeChosen(const QModelIndex& index, bool alone);
    /// A bar was chosen: the Company screen's title is that of its company ("" for none).
    void barChosen(const QString& company);

private:
    [[nodiscard]] bool hasGone();
    void buildTree();
    [[nodiscard]] std::vector<PipelineTree::Company> readCompanies();
    bool showCurrentPosition();
    /// The node of a position; a filter that hides it is taken away.
    QModelIndex reveal(const QString& company, const QString& title);
    void showNothing();
    bool showCompany(const QString& company); ///< false when it is no longer there
    void showPosition(const QString& company, const QString& title);
    void showRecord(const RecordSet& record, const QString& title);
    void openPosition(const QString& company, const QString& title);
    void setPosition(const QString& title);
    void drawBar(Bar& bar, qint64 key);
    [[nodiscard]] bool refuseWithoutPosition(const QString& message);
    void chkPClick(int index);
    void dtpProgChange(int index);
    void optProgClick(const QString& option);
    void writeStep(int index);
    void showProgress();
    [[nodiscard]] QString stepValues() const;
    [[nodiscard]] QDate dateOf(int index) const;
    [[nodiscard]] bool isTicked(int index) const;
    void setTick(int index, bool on);
    void setDate(int index, QDate date);
    void setMedium(int index, const QString& tag);

    Shell& m_shell;
    PositionForm& m_positionForm;
    Form m_form;
    PipelineTree m_tree;
    bool m_isStale = false;  ///< companies have changed since the tree was built
    int m_positionsRead = 0; ///< positions in the store when the tree was built
    std::array<Bar, barsAPage> m_bars;
    QString m_visualCaption;
    int m_page = 0;
    int m_pageCount = 1;
};
