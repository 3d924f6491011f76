// How the screen FrmEvCal looks.
#pragma once

#include <QDialog>
#include <QSettings>

class FrmEvCal;

/// The dialog of FrmEvCal.
class CalendarView final : public QDialog
{
    Q_OBJECT

public:
    /// @p layout remembers the size; it and the presenter must outlive the view.
    CalendarView(FrmEvCal& presenter, QSettings& layout, QWidget* parent = nullptr);
};
