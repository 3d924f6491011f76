#include "views/common/windowstate.h"

#include <QSplitter>

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

} // namespace

namespace windowstate {

void restore(QWidget& window, const QSettings& file)
{
    window.restoreGeometry(file.value(placeKey(window)).toByteArray());
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
