#include "views/common/windowstate.h"

#include <QScreen>
#include <QSplitter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString placeKey(const QWidget& window)
{
    return u"Windows/"_s + window.objectName() + u"/Geometry"_s;
}

QString splitterKey(const QWidget& window, const QSplitter& splitter)
{
    return u"Windows/"_s + window.objectName() + u'/' + splitter.objectName();
}

/// Brings the whole window, with the room its frame takes, onto the screen it is on.
void fitOntoScreen(QWidget& window)
{
    // The frame is the desktop's, and not known before the window is shown: a title's height and a border.
    const int title = 2 * window.fontMetrics().height();
    const QRect room = window.screen()->availableGeometry().adjusted(0, title, 0, 0);
    window.resize(window.size().boundedTo(room.size()));
    const QPoint last = room.bottomRight() - QPoint(window.width() - 1, window.height() - 1);
    const QPoint place(std::clamp(window.x(), room.left(), std::max(room.left(), last.x())),
                       std::clamp(window.y(), room.top(), std::max(room.top(), last.y())));
    // A window that has no place yet gets its place from the desktop. The place is that of the window without
    // its frame: taken for the frame's, it would be one title lower at each start.
    if (window.testAttribute(Qt::WA_Moved) && place != window.pos())
        window.setGeometry(QRect(place, window.size()));
}

} // namespace

namespace windowstate {

void restore(QWidget& window, const QSettings& file)
{
    window.restoreGeometry(file.value(placeKey(window)).toByteArray());
    // A window that nobody has given a size yet takes it from its layout when it is shown.
    if (window.testAttribute(Qt::WA_Resized) && !window.isMaximized() && !window.isFullScreen())
        fitOntoScreen(window);
    const auto splitters = window.findChildren<QSplitter*>();
    for (QSplitter* splitter : splitters)
        splitter->restoreState(file.value(splitterKey(window, *splitter)).toByteArray());
}

void save(const QWidget& window, QSettings& file)
{
    file.setValue(placeKey(window), window.saveGeometry());
    const auto splitters = window.findChildren<QSplitter*>();
    for (const QSplitter* splitter : splitters)
        file.setValue(splitterKey(window, *splitter), splitter->saveState());
}

} // namespace windowstate
