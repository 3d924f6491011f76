// The screen that makes one contact of two, as it looks.
#pragma once

#include <QDialog>

#include <memory>

class FrmMerge;
class QSettings;

namespace Ui {
class MergeView;
}

/// The dialog frmMerge: the pair at the top, the fields of both side by side below it.
class MergeView : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    MergeView(FrmMerge& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~MergeView() override;

    void done(int result) override;

private:
    QSettings& m_layout;
    std::unique_ptr<Ui::MergeView> m_ui;
};
