// How the screen FrmHistory looks.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FormBinder;
class FrmHistory;
class HistoryRows;

namespace Ui {
class HistoryView;
}

/// The dialog frmHistory: the contact's facts on top, the histories below them, and the entry being edited.
/// It unloads the presenter when it closes, and stays open when that did not succeed and the user wants to
/// try again.
class HistoryView final : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; it and the presenter must outlive the
    /// view.
    HistoryView(FrmHistory& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~HistoryView() override;

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpFields();
    void setUpList();
    void connectList();
    void connectKeys();
    void restoreLayout();
    bool searchKey(int key);
    void choose(const QModelIndex& index);
    void edit(const QModelIndex& index);
    void focusTopic();
    void startNew();
    void filter(const QString& words);
    void render();

    FrmHistory& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::HistoryView> m_ui;
    HistoryRows* m_rows = nullptr;
    bool m_rendering = false; ///< the program, not the user, moves the list's current row
};
