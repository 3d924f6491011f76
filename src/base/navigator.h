// The program's screens as one table, and the way to open one from another.
#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <vector>

/// What happens in the workbench when a tool's screen has been closed again.
enum class Then { Stay, CompanyScreen, CompanyScreenFocused };

/// One screen of the program. Texts are in the user's language.
struct ScreenRow
{
    QString screen = {};      ///< the presenter's name, by which other screens open it ("FrmHistory")
    QString tool = {};        ///< key of its toolbar button; empty: it has none
    QString entry = {};       ///< name of its menu entry; empty: it has none
    QString caption = {};     ///< on the toolbar button
    QString menuText = {};    ///< in the menu, with its mnemonic
    QString tip = {};         ///< what it is for, for tooltips
    QString icon = {};        ///< as icons::named() knows it
    QString shortcut = {};    ///< "Ctrl+Shift+F"; of the menu entry
    QString toolLine = {};    ///< line in the trace log when opened by the toolbar
    QString menuLine = {};    ///< line in the trace log when opened by the menu
    Then then = Then::Stay;   ///< what follows its closing
    bool holdsReminders = {}; ///< no reminder comes up while it is open
    int helpId = 0;           ///< help topic of its fields without one of their own; 0: none
    /// Makes and shows the screen; a modal one has been closed again when this returns. What goes in and
    /// comes out is said at the screen's row. Empty: the program does not have this screen yet.
    std::function<QVariant(const QVariant& request)> open = {};
};

/// The ways from one screen to another. A screen is named by its presenter's name ("FrmHistory").
class Navigator
{
public:
    virtual ~Navigator() = default;
    /// The table; tools in the order of their buttons.
    [[nodiscard]] virtual const std::vector<ScreenRow>& screens() const = 0;
    /// True when the program has this screen; the doors to those that it has not are disabled.
    [[nodiscard]] virtual bool hasScreen(const QString& screen) const = 0;
    /// Opens a screen with a small value (a key, a set of texts) and answers what it brings back; an invalid
    /// value when it brings back nothing, or the program has no such screen.
    virtual QVariant open(const QString& screen, const QVariant& request = {}) = 0;
    /// The help page of a control, shown beside the workbench.
    virtual void openHelp(int contextId) = 0;
};
