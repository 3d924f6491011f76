#include "views/workbench/screenframe.h"

#include "views/common/screenview.h"

#include <QVBoxLayout>

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
    build();
    QWidget::showEvent(event);
}
