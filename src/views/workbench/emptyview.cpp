#include "views/workbench/emptyview.h"

#include "views/common/icons.h"

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

EmptyView::EmptyView(const QString& name, const QString& title, const QString& iconName, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(name);
    setAccessibleName(title);
    auto* layout = new QVBoxLayout(this);
    auto* picture = new QLabel(this);
    picture->setObjectName(name + u"Picture"_s);
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    picture->setPixmap(
        icons::named(iconName).pixmap(QSize(size, size), devicePixelRatioF(), QIcon::Disabled));
    auto* text = new QLabel(tr("Nothing to show here yet."), this);
    text->setObjectName(name + u"Text"_s);
    text->setForegroundRole(QPalette::PlaceholderText);
    layout->addStretch();
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addWidget(text, 0, Qt::AlignHCenter);
    layout->addStretch();
}
