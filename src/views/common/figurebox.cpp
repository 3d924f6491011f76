#include "views/common/figurebox.h"

FigureBox::FigureBox(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setTextMargins(0, 0, 0, 0);
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
    // The line edit keeps two pixels free on each side of its text, and one for the cursor.
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(text().isEmpty() ? QStringLiteral("0") : text()) + 6,
            metrics.height() + 2};
}

void FigureBox::setScale(double factor)
{
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * factor);
    setFont(larger);
    updateGeometry();
}
