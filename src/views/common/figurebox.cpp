#include "views/common/figurebox.h"

FigureBox::FigureBox(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setPlaceholderText(QStringLiteral("–"));
    setFrame(false);
    // Without these two pixels less, a figure stands beside the edge of the caption below it.
    setTextMargins(-2, 0, -2, 0);
    // A stop of the Tab key on each figure would only be in the way of somebody filling in the form.
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QPalette colours = palette();
    colours.setBrush(QPalette::Base, Qt::transparent);
    setPalette(colours);
    connect(this, &QLineEdit::textChanged, this, [this] {
        setCursorPosition(0);
        updateGeometry();
    });
}

QSize FigureBox::sizeHint() const
{
    // The cursor stands behind the last character.
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(text().isEmpty() ? QStringLiteral("0") : text()) + 3,
            metrics.height() + 2};
}

void FigureBox::setScale(double factor)
{
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * factor);
    setFont(larger);
    updateGeometry();
}
