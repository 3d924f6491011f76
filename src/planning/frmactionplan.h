// The screen Action plan: phases with measures, and the catalogue to choose them from.
#pragma once

#include "base/form.h"
#include "base/rowmodel.h"
#include "planning/catalogue.h"
#include "planning/plan.h"

#include <algorithm>
#include <memory>

/// How one slot looks.
struct PlanSlot
{
    enum class Mark { None, Reached, Missed };

    int category = -1; ///< -1 for a free slot, and for a measure of a category that the program does not know
    QString name;      ///< "" for a free slot
    QString result;    ///< "3 of 5", after a click
    Mark mark = Mark::None;
    bool isChosen = false; ///< its figures stand in the phase's boxes
};

/// Lays measures of the catalogue into the slots of up to three phases and counts them. Phases are numbered
/// from 0, slots from 0 to 14, five a phase; the boxes of phase 0 end in 1 (txtSD1).
class FrmActionPlan : public QObject
{
    Q_OBJECT

public:
    static constexpr int slotCount = Plan::mostPhases * PlanPhase::slotCount;

    /// @p session must outlive the presenter.
    explicit FrmActionPlan(Session& session);

    Form& form() { return m_form; }
    /// The list of a category's measures: lvwResearch, lvwGeneration, lvwInteraction or lvwConversion.
    RowModel& list(int category) { return *m_lists[static_cast<size_t>(category)]; }
    /// Names of the lists and of the method boxes, by category.
    static QString listName(int category);
    static QString methodName(int category);

    /// Begins a new visit: one phase of today, no measures, the catalogue read anew.
    void load();
    /// Asks about measures that no file holds; false when the screen is to stay.
    bool mayClose();
    /// Reads a plan into the screen; false, with the reason shown, when it is none.
    bool loadFile(const QString& path);

    [[nodiscard]] PlanSlot imgTM(int index) const;
    [[nodiscard]] const PhaseBar& bar(int phase) const { return m_bars[static_cast<size_t>(phase)]; }
    [[nodiscard]] int phases() const { return m_plan.phases; }
    /// The phase that was last clicked or dropped into.
    [[nodiscard]] int lastPhase() const { return std::min(m_lastPhase, m_plan.phases - 1); }

    /// A row of a catalogue list has become the current one.
    void lvwClick(int category, int row);
    /// Puts a catalogue row into the next free slot of a phase; a full phase stays as it is.
    void addMeasure(int phase, int category, int row);
    void imgTMClick(int index);
    /// Asks, and takes a measure out of its phase.
    void imgTMDblClick(int index);
    void fieldChanged(const QString& control);

public slots:
    void cmdSavePlan1();
    void cmdBrowse();
    void cmdClear1();

signals:
    void changed();
    /// A list is to show this row.
    void highlightLVW(int category, int row);

private:
    [[nodiscard]] PlanPhase& phase(int number) { return m_plan.phase[static_cast<size_t>(number)]; }
    [[nodiscard]] const Objective* measure(int index) const;
    void loadObjectives();
    void showPhases();
    void pbarSet();
    void paintBlocks();
    void highlight(const Objective& measure);
    void showChosen(int phase);
    void setThreshold(int phase, const QString& text);
    void takePlan(Plan plan);
    void forget(int phase);
    void say(const QString& status) { m_form.setText(QStringLiteral("lblStatus"), status); }
    bool save();
    [[nodiscard]] bool confirmWhatIsLost();
    [[nodiscard]] QStringList contents() const;

    Session& m_session;
    Form m_form;
    Catalogue m_catalogue;
    std::array<std::unique_ptr<RowModel>, Catalogue::categoryCount> m_lists;
    Plan m_plan;
    std::array<PhaseBar, Plan::mostPhases> m_bars;
    std::array<QString, slotCount> m_results;     ///< of the slots that were clicked
    std::array<int, Plan::mostPhases> m_chosen{}; ///< slot of the phase whose figures are shown, or -1
    int m_lastPhase = 0;
    QString m_path;      ///< the file that was last read or written
    QStringList m_saved; ///< contents() as that file holds them
};
