// The navigator of the program with a screen.
#pragma once

#include "base/navigator.h"
#include "desktop/printing.h"

#include <QPointer>
#include <QSettings>
#include <QWidget>

class Session;
struct Presenters;

/// What the screens of the table are made from. Filled by the start of the program; no screen is opened
/// before.
struct ScreenHost
{
    Session& session;
    Navigator& navigator;
    Presenters* presenters = nullptr;
    QSettings* layout = nullptr; ///< remembers sizes
    QPointer<QWidget> window{};  ///< the workbench's
    Printing printing{};

    /// The window that a dialog opened now belongs to: the one the user works in.
    [[nodiscard]] QWidget* parent() const;
};

/// Every screen of the program, a row each; a new screen is a row in this function.
[[nodiscard]] std::vector<ScreenRow> screenTable(ScreenHost& host);

/// Opens the screens of the table by their names.
class Screens : public Navigator
{
public:
    explicit Screens(Session& session);

    /// The main screen's window stands from now on; all three must outlive the last opening of a screen.
    void furnish(Presenters& presenters, QSettings& layout, QWidget& window);

    /// The one printer, with the page that was set up last.
    [[nodiscard]] Printing& printing() { return m_host.printing; }
    [[nodiscard]] const std::vector<ScreenRow>& screens() const override { return m_rows; }
    [[nodiscard]] bool hasScreen(const QString& screen) const override;
    QVariant open(const QString& screen, const QVariant& request = {}) override;
    void openHelp(int contextId) override;

private:
    [[nodiscard]] const ScreenRow* find(const QString& screen) const;

    ScreenHost m_host;
    std::vector<ScreenRow> m_rows;
};
