#include "views/common/look.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QStyleOptionFrame>

namespace {

void makeHeading(QWidget& widget)
{
    QFont font = widget.font();
    font.setBold(true);
    widget.setFont(font);
    if (widget.property("gap").toBool())
        widget.setContentsMargins(0, widget.fontMetrics().height() / 2, 0, 0);
}

/// Two columns of fields side by side: the labels of the second keep their distance from the fields of the
/// first.
void setApart(const QGridLayout& grid, int column)
{
    for (int item = 0; item < grid.count(); ++item) {
        int row = 0;
        int at = 0;
        int rows = 0;
        int columns = 0;
        grid.getItemPosition(item, &row, &at, &rows, &columns);
        auto* label = at == column ? qobject_cast<QLabel*>(grid.itemAt(item)->widget()) : nullptr;
        if (label)
            label->setContentsMargins(label->contentsMargins() +
                                      QMargins(label->fontMetrics().height() / 2, 0, 0, 0));
    }
}

/// A text box that fills what its neighbours leave, but never less than its lines; its own wish would be a
/// page.
void makeBox(QWidget& box, int lines)
{
    const auto* edit = qobject_cast<const QPlainTextEdit*>(&box);
    const int inside = edit ? qRound(2 * edit->document()->documentMargin()) + 2 * edit->frameWidth() : 0;
    box.setMinimumHeight(box.fontMetrics().lineSpacing() * lines + inside);
    box.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

} // namespace

namespace look {

int fieldWidth(const QWidget& field, int chars)
{
    const QFontMetrics metrics = field.fontMetrics();
    const QSize text(metrics.averageCharWidth() * chars + metrics.horizontalAdvance(u'M'), metrics.height());
    QStyleOptionFrame frame;
    frame.initFrom(&field);
    frame.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, &field);
    return field.style()->sizeFromContents(QStyle::CT_LineEdit, &frame, text, &field).width();
}

void dress(QWidget& view)
{
    const auto widgets = view.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->property("heading").toBool())
            makeHeading(*widget);
        if (widget->property("caption").toBool())
            widget->setForegroundRole(QPalette::PlaceholderText);
        if (const int chars = widget->property("chars").toInt(); chars > 0)
            widget->setFixedWidth(fieldWidth(*widget, chars));
        if (const int lines = widget->property("lines").toInt(); lines > 0)
            makeBox(*widget, lines);
    }
    const auto grids = view.findChildren<QGridLayout*>();
    for (const QGridLayout* grid : grids) {
        if (const QVariant column = grid->property("apart"); column.isValid())
            setApart(*grid, column.toInt());
    }
}

} // namespace look
