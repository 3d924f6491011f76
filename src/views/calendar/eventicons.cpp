#include "views/calendar/eventicons.h"

#include "views/common/icons.h"

#include <QFile>

using namespace Qt::StringLiterals;

// Outside of any namespace, as the resource compiler's symbol is.
static void loadEventPictures()
{
    Q_INIT_RESOURCE(eventicons);
}

namespace eventicons {

QIcon named(const QString& name)
{
    loadEventPictures();
    const QString file = u":/jobwright/eventicons/%1.svg"_s.arg(name.toLower());
    return !name.isEmpty() && QFile::exists(file) ? icons::inPaletteInk(QIcon(file)) : QIcon();
}

} // namespace eventicons
