#include "views/planning/measurelist.h"

#include <QApplication>
#include <QDrag>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

const QString mimeType = u"application/x-jobwright-measure"_s;

QPixmap pictureOf(const QWidget& source, const QString& name)
{
    const QFontMetrics metrics = source.fontMetrics();
    const QSize size = metrics.size(Qt::TextSingleLine, name) + QSize(metrics.height(), metrics.height() / 2);
    QPixmap picture(size * source.devicePixelRatioF());
    picture.setDevicePixelRatio(source.devicePixelRatioF());
    picture.fill(source.palette().color(QPalette::Highlight));
    QPainter painter(&picture);
    painter.setFont(source.font());
    painter.setPen(source.palette().color(QPalette::HighlightedText));
    painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, name);
    return picture;
}

} // namespace

namespace measuredrag {

std::unique_ptr<QMimeData> write(const Measure& measure)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(mimeType, QByteArray::number(measure.category) + ' ' + QByteArray::number(measure.row));
    return data;
}

std::optional<Measure> read(const QMimeData& data)
{
    const QList<QByteArray> parts = data.data(mimeType).split(' ');
    if (parts.size() != 2)
        return std::nullopt;
    return Measure{parts[0].toInt(), parts[1].toInt()};
}

void start(QWidget& source, const Measure& measure, const QString& name)
{
    auto* drag = new QDrag(&source);
    drag->setMimeData(write(measure).release());
    drag->setPixmap(pictureOf(source, name));
    drag->exec(Qt::CopyAction);
}

} // namespace measuredrag

MeasureList::MeasureList(QWidget* parent)
    : QTreeView(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setHeaderHidden(true);
    setTextElideMode(Qt::ElideRight);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

void MeasureList::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && currentIndex().isValid())
        emit entered(currentIndex().row());
    else
        QTreeView::keyPressEvent(event);
}

void MeasureList::mousePressEvent(QMouseEvent* event)
{
    m_pressedAt = event->pos();
    QTreeView::mousePressEvent(event);
}

void MeasureList::mouseMoveEvent(QMouseEvent* event)
{
    const bool isFar = (event->pos() - m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    const QModelIndex row = indexAt(m_pressedAt);
    if (event->buttons() == Qt::LeftButton && isFar && row.isValid())
        measuredrag::start(*this, {m_category, row.row()}, row.data().toString());
}

void MeasureGrip::setUp(int category, MeasureList& list, const QIcon& picture)
{
    m_category = category;
    m_list = &list;
    const int size = fontMetrics().height() * 2;
    setPixmap(picture.pixmap(QSize(size, size), devicePixelRatioF()));
    setCursor(Qt::OpenHandCursor);
}

void MeasureGrip::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::LeftButton && m_list)
        measuredrag::start(*this, {m_category, m_list->currentIndex().row()},
                           m_list->currentIndex().data().toString());
}
