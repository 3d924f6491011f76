// How the screen Report looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmReport;

namespace Ui {
class ReportView;
}

/// The dialog frmReport: a picture for each report, its text, and the ways out of the program.
class ReportView : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; both must outlive the view.
    ReportView(FrmReport& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~ReportView() override;

    void done(int result) override;

private:
    QSettings& m_layout;
    std::unique_ptr<Ui::ReportView> m_ui;
};
