// How the statistics look.
#pragma once

#include "base/reportpage.h"

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmStats;

namespace Ui {
class StatsView;
}

/// The dialog frmStats: the figures above, the chart of the goals below.
class StatsView : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    StatsView(FrmStats& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~StatsView() override;

    void done(int result) override;

signals:
    /// The user wants these pages on paper; they can be painted as long as the view lives.
    void printRequested(const ReportDocument& pages);

private:
    QSettings& m_layout;
    std::unique_ptr<Ui::StatsView> m_ui;
};
