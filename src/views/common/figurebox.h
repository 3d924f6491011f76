// A figure shown large, to be read and copied.
#pragma once

#include <QLineEdit>

/// A read-only box without a frame that is exactly as wide as its text.
class FigureBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit FigureBox(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    /// Grows the font by this factor; 1 leaves it as it is.
    void setScale(double factor);
};
