// The screens that the workbench can open beside its own.
#pragma once

#include "base/ports.h"

#include <QHash>
#include <QPointer>
#include <QSettings>
#include <QWidget>

#include <functional>

struct Presenters;

/// Knows each screen by its presenter's name, with the way to open it.
class Screens : public Navigator
{
public:
    /// Takes in a screen for each of the presenters. @p layout remembers their sizes; both must outlive this
    /// object. What the workbench's window offers depends on what can be opened, so this comes before the
    /// window.
    void furnish(Presenters& presenters, QSettings& layout);
    /// The window that dialogs belong to.
    void setWindow(QWidget& window) { m_window = &window; }

    [[nodiscard]] bool hasScreen(const QString& screen) const override { return m_screens.contains(screen); }
    void openScreen(const QString& screen) override;
    void openHelp(int) override {}

private:
    QHash<QString, std::function<void()>> m_screens;
    QPointer<QWidget> m_window;
};
