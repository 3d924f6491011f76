// The workbench's print entries.
#pragma once

#include <QObject>

class FrmData;
class Printing;
class WorkbenchWindow;

/// Answers the print entries with the page that the window makes of its form.
class PrintDesk : public QObject
{
public:
    /// All three must outlive the desk.
    PrintDesk(FrmData& workbench, WorkbenchWindow& window, Printing& printing);
};
