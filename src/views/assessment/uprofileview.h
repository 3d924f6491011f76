// How the screen FrmUProfile looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmUProfile;
class QModelIndex;
class QPlainTextEdit;

namespace Ui {
class UProfileView;
}

/// The dialog frmUProfile: the tree of items, the item in its fields, and the evaluation beside it. Words
/// that matched are marked over the text, which stays as it is.
class UProfileView final : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; it and the presenter must outlive the
    /// view.
    UProfileView(FrmUProfile& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~UProfileView() override;

    void done(int result) override;

private:
    void setUpLists();
    void setUpKeys();
    void chooseNode(const QModelIndex& node);
    void render();
    void renderMarks();
    void mark(QPlainTextEdit& box);
    [[nodiscard]] QString legend() const;

    FrmUProfile& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::UProfileView> m_ui;
    bool m_rendering = false; ///< the program, not the user, moves the tree's current node
};
