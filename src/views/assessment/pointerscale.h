// The scale of a questionnaire's rank.
#pragma once

#include <QWidget>

/// A line from no agreement to full agreement with the rank's pointer above it. The same stands in words in
/// its tool tip and its accessible description.
class PointerScale : public QWidget
{
    Q_OBJECT

public:
    explicit PointerScale(QWidget* parent = nullptr);

    /// @p place runs from 0 to 1; @p red for a pointer past the mark.
    void setPointer(double place, bool red, const QString& words);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double m_place = 0;
    bool m_red = false;
};
