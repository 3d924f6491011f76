// How the screen FrmQuestionnaire looks.
#pragma once

#include <QDialog>

#include <memory>

class FrmQuestionnaire;

namespace Ui {
class QuestionnaireView;
}

/// The dialog frmQuestionnaire: one question, its answers as options, chosen by click or by their number's
/// key. Esc keeps the answer so far; the window's own close button gives the whole questionnaire up.
class QuestionnaireView final : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded, and must outlive the view.
    explicit QuestionnaireView(FrmQuestionnaire& presenter, QWidget* parent = nullptr);
    ~QuestionnaireView() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool takeNumber(int key);

    FrmQuestionnaire& m_presenter;
    std::unique_ptr<Ui::QuestionnaireView> m_ui;
};
