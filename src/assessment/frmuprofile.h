// The user's own profile: items of education, experience, interests and skills, and their evaluation.
#pragma once

#include "assessment/evaluation.h"
#include "assessment/profiletree.h"
#include "assessment/profilewords.h"
#include "base/form.h"
#include "base/key.h"
#include "base/rowmodel.h"
#include "store/session.h"

#include <QObject>

class DataJW;
struct UserProfile;

/// Shows all items as a tree and edits one of them; each field is stored when it is left. An item is
/// evaluated by its words on demand, and nothing of that is stored.
class FrmUProfile : public QObject
{
    Q_OBJECT

public:
    explicit FrmUProfile(Session& session);
    ~FrmUProfile() override;

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] TreeModel& tvwUProfile() { return m_tree.model(); }
    /// Positions that the item correlates with; keys "P" and the position's key.
    [[nodiscard]] RowModel& lvwPositions() { return m_positions; }
    /// Occupations that it correlates with; keys "O" and the occupation's number.
    [[nodiscard]] RowModel& lvwOccupations() { return m_occupations; }
    /// The item that is loaded; 0 for none.
    [[nodiscard]] Key currentUProfileKey() const { return m_key; }
    /// The node of the item in the form; invalid without one.
    [[nodiscard]] QModelIndex currentNode() const;
    /// The words of this control's text that matched; empty while chkMark is off.
    [[nodiscard]] std::vector<WordMark> marks(const QString& control) const;
    /// True while an evaluation runs.
    [[nodiscard]] bool isEvaluating() const { return m_evaluating; }

    /// The screen opens.
    void load();
    /// What was typed is stored where it can be; asks before a new item that was never saved is lost. False
    /// when the user stays.
    [[nodiscard]] bool mayLeave();

    /// A node of the tree was clicked. False when the user stays with the item that is loaded.
    bool tvwUProfileNodeClick(const QModelIndex& node);
    /// A position of the list was opened by a double click. False when it is gone.
    bool lvwPositionsDblClick(int row);
    void lvwOccupationsClick(int row);

    void fieldChanged(const QString& control); ///< called by the binder
    void fieldLeft(const QString& control);    ///< called by the binder

public slots:
    void cmdEvaluate();
    void cmdSave();
    void cmdRemove();
    void cmdClear();

signals:
    /// The tree, the lists, the marks or the item in the form are new.
    void changed();
    /// The workbench is to show this position.
    void positionWanted(Key positionKey, const QString& company, const QString& title);

private:
    [[nodiscard]] DataJW& dataJW() const { return m_session.dataJW(); }
    [[nodiscard]] QString text(const QString& control) const { return m_form.text(control); }
    void fill(const UserProfile& item);
    void empty();
    void showCategory(const QString& category);
    void rebuildTree();
    bool write(const QString& statement);
    bool writeColumn(const QString& column, const QString& value);
    void categoryChosen();
    void subcategoryChosen();
    [[nodiscard]] bool mayBeInserted();
    [[nodiscard]] QString insertStatement();
    [[nodiscard]] ProfilePlace place() const;
    void showResults(const QString& status);
    void showHints();

    Session& m_session;
    Form m_form;
    ProfileTree m_tree;
    RowModel m_positions;
    RowModel m_occupations;
    Evaluation m_evaluation;
    Key m_key = 0;
    ProfilePlace m_place; ///< where the loaded item stands in the tree
    bool m_evaluating = false;
    QStringList m_verbs; ///< the action words, for the hints
    bool m_verbsRead = false;
};
