// The workbench's window on a store of its own, driven as a user drives it.
#pragma once

#include "program/screens.h"
#include "support/windowdriver.h"
#include "views/workbench/workbenchwindow.h"
#include "workbench/bench.h"

#include <QSettings>

/// Bench and window. Companies are put in before open().
class WindowBench : public Bench, public WindowDriver
{
public:
    using WindowDriver::type;

    WindowBench()
    {
        layoutPath = world.folder.filePath(u"layout.ini"_s);
        restart();
    }
    /// As Bench::restart, among the program's own screens.
    void restart()
    {
        screens = std::make_unique<Screens>(*world.session);
        navigator.program = screens.get();
        Bench::restart();
    }

    void open()
    {
        frm->load();
        layout = std::make_unique<QSettings>(layoutPath, QSettings::IniFormat);
        window = std::make_unique<WorkbenchWindow>(*frm, *layout);
        screens->furnish(*presenters, *layout, *window);
        window->show();
        use(*window);
    }

    std::unique_ptr<Screens> screens;
    QString layoutPath;
    std::unique_ptr<QSettings> layout;
    std::unique_ptr<WorkbenchWindow> window;
};
