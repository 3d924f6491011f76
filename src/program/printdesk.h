// The workbench's print entries.
#pragma once

#include "desktop/printing.h"

#include <QObject>

#include <optional>

class FrmData;
class WorkbenchWindow;

/// Answers the print entries with the page that the window makes of its form. The printer is looked for at
/// the first of them, as asking the system for printers takes longer than the whole start.
class PrintDesk : public QObject
{
public:
    /// Both must outlive the desk.
    PrintDesk(FrmData& workbench, WorkbenchWindow& window);

private:
    Printing& printing();

    std::optional<Printing> m_printing;
};
