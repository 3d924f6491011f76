#include "views/history/historyview.h"

#include "history/frmhistory.h"

HistoryView::HistoryView(FrmHistory&, QSettings&, QWidget* parent)
    : QDialog(parent)
{
}
