// The editor of questionnaire templates.
#pragma once

#include "assessment/template.h"
#include "base/form.h"
#include "base/treemodel.h"
#include "store/session.h"

#include <QObject>

/// Loads, edits and saves one template file. The questions in the database are another matter: they change
/// when preferences are set.
class FrmEditor : public QObject
{
    Q_OBJECT

public:
    static constexpr int boxes = 6; ///< answers that can be typed for one question

    explicit FrmEditor(Session& session);

    [[nodiscard]] Form& form() { return m_form; }
    /// Root "Questions"; keys "Root", "Q" and the question's number, and behind it "A" and the answer's from
    /// 0.
    [[nodiscard]] TreeModel& tvwQuestions() { return m_tree; }
    /// The chosen question, from 1; 0 for none.
    [[nodiscard]] int selected() const { return m_selected; }
    [[nodiscard]] const Template& content() const { return m_template; }

    /// The screen opens.
    void load();
    /// Asks when changes were not saved. False when the user stays.
    [[nodiscard]] bool mayLeave();
    void tvwQuestionsNodeClick(const QModelIndex& node);
    void fieldChanged(const QString& control); ///< called by the binder

public slots:
    void cmdBrowse();
    void cmdLoad();
    void cmdSave();
    void cmdAdd();
    void cmdUpdate();
    void cmdRemove();
    void cmdClear();

signals:
    /// The tree was built anew, or another question is chosen.
    void changed();

private:
    [[nodiscard]] QString filePath() const;
    [[nodiscard]] bool questionTyped(TemplateQuestion& question, const QStringList& beyond);
    [[nodiscard]] bool isTyped() const;
    void rebuildTree();
    void select(int question);
    void enableButtons();
    void write();

    Session& m_session;
    Form m_form;
    TreeModel m_tree;
    Template m_template;
    QString m_path;      ///< the file; empty or relative: in the application folder
    QString m_shownPath; ///< what txtFileName showed last
    int m_selected = 0;
    bool m_changed = false;
};
