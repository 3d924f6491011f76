// How the screen KeySearch looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmKeySearch;

namespace Ui {
class KeySearchView;
}

/// The window frmKeySearch, beside the workbench: what to search on top, the tree of hits below; on a page of
/// its own what happened between two days.
class KeySearchView : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; both must outlive the view.
    KeySearchView(FrmKeySearch& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~KeySearchView() override;

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void setUpTrees();
    void setUpSearch();

    FrmKeySearch& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::KeySearchView> m_ui;
};
