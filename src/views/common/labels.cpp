#include "views/common/labels.h"

#include <QLabel>

QString labelOf(const QWidget& view, const QWidget& field)
{
    const auto labels = view.findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (label->buddy() == &field)
            return QString(label->text()).remove(u'&');
    }
    return field.accessibleName();
}
