// The screen that brings contacts and companies in, as it looks.
#pragma once

#include <QDialog>

#include <memory>

class FrmImport;
class FormBinder;
class QSettings;
class QTreeView;
class RowModel;

namespace Ui {
class ImportView;
}

/// The dialog frmImport: the source at the top, the mapping of a file or the lists of a contact folder below
/// it, and at the bottom what came of it.
class ImportView : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    ImportView(FrmImport& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~ImportView() override;

    void done(int result) override;

private:
    void setIcons();
    void connectMapping();
    void connectFolders();
    void tieList(QTreeView& view, RowModel& model, void (FrmImport::*click)(const QString&));
    void showFile();
    void showProgress(int done, int total);

    FrmImport& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::ImportView> m_ui;
};
