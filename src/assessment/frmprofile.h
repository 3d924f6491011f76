// The questionnaires about a company (frmProfileComp) and about a position (frmProfileJob).
#pragma once

#include "assessment/frmquestionnaire.h"
#include "assessment/template.h"
#include "base/form.h"
#include "base/key.h"
#include "store/session.h"

#include <QObject>

#include <functional>
#include <vector>

class DataJW;

/// Shows what the user prefers and what was answered for one company or position, and how far both agree: the
/// rank. What the user prefers holds for all companies, or all positions, at once.
class FrmProfile : public QObject
{
    Q_OBJECT

public:
    enum Kind { Company, Position };
    /// The screens that this one opens.
    struct Doors
    {
        /// Asks one question; answers as FrmQuestionnaire::answer().
        std::function<QVariant(const FrmQuestionnaire::Request&)> ask;
        std::function<void()> edit; ///< the editor of templates
    };
    /// Questions that have a label; the others are asked for the preferences only.
    static constexpr int labels = 10;

    FrmProfile(Session& session, Kind kind, Doors doors);

    [[nodiscard]] Form& form() { return m_form; }
    [[nodiscard]] Kind kind() const { return m_kind; }
    /// The screen opens on this company or position. False when there is none; the user has been told.
    bool load(Key key);
    /// True for a label (lblCQ0, lblCQS0, ...) that says agreement by its colour.
    [[nodiscard]] bool isHighlighted(const QString& label) const { return m_highlighted.contains(label); }
    [[nodiscard]] int questionCount() const { return static_cast<int>(m_questions.size()); }
    /// Answers that agree with the preferred ones.
    [[nodiscard]] int rank() const;
    /// The pointer's place in display units, from 6000 to about 7440, and whether it is at its red end.
    [[nodiscard]] int pointer() const;
    [[nodiscard]] bool isPointerRed() const { return pointer() > 6950; }
    /// Heights of the two frames in display units.
    [[nodiscard]] int frameHeight() const { return 465 + 255 * questionCount(); }
    [[nodiscard]] bool hasUnsaved() const { return m_changed; }
    /// The screen is left without cmdClose: asks when answers were changed. False when the user stays.
    [[nodiscard]] bool mayLeave();
    /// A label of an answer was clicked, from 0: its question is asked.
    void lblCQSClick(int index);

public slots:
    void cmdAskQ();
    void cmdUpdateProfile();
    void cmdTempEdit();
    void cmdClose();

signals:
    /// Labels, colours or the pointer are new.
    void changed();
    /// cmdClose has stored the answers: the screen goes.
    void closed();

private:
    [[nodiscard]] DataJW& dataJW() const { return m_session.dataJW(); }
    [[nodiscard]] int type() const { return m_kind == Position ? 1 : 0; }
    [[nodiscard]] bool isPosition() const { return m_kind == Position; }
    void show();
    void showQuestions(const QStringList& preferred);
    void showAnswer(int index, const QString& answer);
    [[nodiscard]] bool agrees(int index) const;
    void highlight(const QString& label, bool on);
    [[nodiscard]] bool loadTemplate();
    [[nodiscard]] int ask(const TemplateQuestion& question, int former, const QString& place, bool& givenUp);
    [[nodiscard]] std::vector<int> formerPreferences();
    [[nodiscard]] bool storePreferences(const std::vector<int>& preferred);
    [[nodiscard]] bool save();
    [[nodiscard]] bool markSteps();
    [[nodiscard]] QString chosenAnswers() const;

    Session& m_session;
    Kind m_kind;
    Doors m_doors;
    Form m_form;
    Key m_key = 0;
    Key m_companyKey = 0;
    QStringList m_questions;
    std::vector<int> m_selected; ///< the number of the answer for each question; 0 for none
    QStringList m_highlighted;
    Template m_template;
    bool m_templateLoaded = false;
    bool m_changed = false;
};
