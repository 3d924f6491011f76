// One question of a questionnaire, asked.
#pragma once

#include "base/form.h"

#include <QObject>
#include <QStringList>
#include <QVariant>

/// Asks one question with at most seven answers. What comes back is the number of the answer, from 1.
class FrmQuestionnaire : public QObject
{
    Q_OBJECT

public:
    static constexpr int options = 7;

    struct Request
    {
        QString question;
        QStringList answers;
        int former = 0; ///< the number of the answer so far; 0 for none
        QString place;  ///< which question of how many; empty for a single one
    };

    FrmQuestionnaire();

    [[nodiscard]] Form& form() { return m_form; }
    /// The screen opens on a question; the former answer is chosen.
    void load(const Request& request);
    /// The number of the answer, the former one when nothing was chosen; invalid when the user gave up the
    /// whole.
    [[nodiscard]] QVariant answer() const { return m_answer; }
    /// The window's own close button.
    void giveUp() { m_answer = QVariant(); }
    void choose(int number); ///< from 1; nothing happens without such an answer

public slots:
    void cmdAnswer();

signals:
    void answered();

private:
    Form m_form;
    QVariant m_answer;
};
