// The Pipeline screen: each position on its way through the eleven campaign steps.
#pragma once

#include "base/form.h"

#include <QObject>

class FrmData;

/// Builds the tree of companies and positions, shows and writes the steps of one position, and draws the bars
/// of all.
class PipelineScreen : public QObject
{
    Q_OBJECT

public:
    explicit PipelineScreen(FrmData& workbench);
    ~PipelineScreen() override;

    [[nodiscard]] Form& form() { return m_form; }

    void load(); ///< loadPipelineFrame, behind the shell's own refusals
    void displayVisual();
    void clearPipeBoxes();
    /// The selector has taken another company while this screen is open.
    void companyChosen(const QString& company);

signals:
    void changed();

private:
    FrmData& m_workbench;
    Form m_form;
};
