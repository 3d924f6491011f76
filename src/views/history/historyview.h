// How the screen FrmHistory looks.
#pragma once

#include <QDialog>
#include <QSettings>

class FrmHistory;

/// The dialog of FrmHistory.
class HistoryView final : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    HistoryView(FrmHistory& presenter, QSettings& layout, QWidget* parent = nullptr);
};
