// How the statistics look.
#pragma once

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
    void printRequested();

private:
    QSettings& m_layout;
    std::unique_ptr<Ui::StatsView> m_ui;
};
