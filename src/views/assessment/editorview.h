// How the screen FrmEditor looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmEditor;
class QModelIndex;

namespace Ui {
class EditorView;
}

/// The dialog frmEditor: the template's file on top, its questions as a tree, the chosen one in boxes.
class EditorView final : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; it and the presenter must outlive the
    /// view.
    EditorView(FrmEditor& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~EditorView() override;

    void done(int result) override;

private:
    void choose(const QModelIndex& node);
    void render();

    FrmEditor& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::EditorView> m_ui;
    bool m_rendering = false; ///< the program, not the user, moves the tree's current node
};
