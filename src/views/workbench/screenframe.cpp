#include "views/workbench/screenframe.h"

#include "views/common/screenview.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace {

/// Lays out everything from the window down to the widget now instead of at the next turn of the events: a
/// click or a key that comes before it must already find the screen in its place.
void settle(QWidget& widget)
{
    if (widget.parentWidget() && !widget.isWindow())
        settle(*widget.parentWidget());
    if (widget.layout())
        widget.layout()->activate();
    QCoreApplication::sendPostedEvents(&widget, QEvent::LayoutRequest);
}

} // namespace

ScreenFrame::ScreenFrame(const QString& name, Builder builder, QWidget* parent)
    : QWidget(parent)
    , m_builder(std::move(builder))
{
    setObjectName(name);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
}

ScreenView& ScreenFrame::build()
{
    if (!m_screen) {
        m_screen = m_builder();
        // The frame has the screen's name; two of one name could not be told apart.
        m_screen->setObjectName(objectName() + QStringLiteral("View"));
        layout()->addWidget(m_screen);
        m_screen->show();
    }
    return *m_screen;
}

void ScreenFrame::showEvent(QShowEvent* event)
{
    const bool isNew = m_screen == nullptr;
    build();
    QWidget::showEvent(event);
    if (!isNew)
        return;
    settle(*m_screen);
    for (QWidget* part : m_screen->findChildren<QWidget*>())
        settle(*part);
}
