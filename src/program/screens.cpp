#include "program/screens.h"

#include "store/session.h"

#include <QApplication>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

QWidget* ScreenHost::parent() const
{
    QWidget* active = QApplication::activeWindow();
    return active ? active : window.data();
}

Screens::Screens(Session& session)
    : m_host{session, *this}
    , m_rows(screenTable(m_host))
{
}

void Screens::furnish(Presenters& presenters, QSettings& layout, QWidget& window)
{
    m_host.presenters = &presenters;
    m_host.layout = &layout;
    m_host.window = &window;
}

const ScreenRow* Screens::find(const QString& screen) const
{
    const auto found = std::ranges::find(m_rows, screen, &ScreenRow::screen);
    return found == m_rows.end() ? nullptr : &*found;
}

bool Screens::hasScreen(const QString& screen) const
{
    const ScreenRow* row = find(screen);
    return row && row->open;
}

QVariant Screens::open(const QString& screen, const QVariant& request)
{
    const ScreenRow* row = find(screen);
    if (!row || !row->open)
        return {};
    std::optional<BusyScope> busy;
    if (row->holdsReminders)
        busy.emplace(m_host.session);
    return row->open(request);
}

void Screens::openHelp(int contextId)
{
    open(u"FrmHelpBox"_s, contextId);
}
