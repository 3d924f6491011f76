#include "app/display.h"

#include <QByteArray>
#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>

namespace {

bool answersX()
{
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

bool answersWayland()
{
    QByteArray path = qgetenv("WAYLAND_DISPLAY");
    if (!path.startsWith('/'))
        path = qgetenv("XDG_RUNTIME_DIR") + '/' + path;
    sockaddr_un address{};
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
        return false;
    address.sun_family = AF_UNIX;
    std::copy(path.cbegin(), path.cend(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return false;
    const bool answers = ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return answers;
}

} // namespace

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && answersWayland()) ||
           (qEnvironmentVariableIsSet("DISPLAY") && answersX());
}
