// Find anything, from every screen.
#pragma once

#include "output/findanything.h"

#include <QObject>

class QLineEdit;
class WorkbenchWindow;

/// Opens the box on Ctrl+K in any of the program's screens, and from its place at the right of the toolbar. A
/// record that was found leaves the screens that are open as Esc does, with their questions.
class FindDesk : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the desk.
    FindDesk(FindAnything& finder, WorkbenchWindow& window);

    /// Opens the box; false while a message or running work holds the input.
    bool open(const QString& text = {});

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildBox();
    /// Leaves the screens over the workbench one by one, then shows the record.
    void showFound(int row);

    FindAnything& m_finder;
    WorkbenchWindow& m_window;
    QLineEdit* m_box = nullptr;
    bool m_open = false;
};
