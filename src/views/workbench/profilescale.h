// The scale that shows how high the user has ranked a company.
#pragma once

#include <QWidget>

/// A line from low to high with the profile pointer on it; red where there is a rank, an empty outline where
/// there is none. The same stands in words in its tool tip and its accessible description.
class ProfileScale : public QWidget
{
    Q_OBJECT

public:
    explicit ProfileScale(QWidget* parent = nullptr);

    /// @p place runs from 0 (low end) to 1 (high end); a pointer beyond is drawn at the end. Not @p lit: no
    /// rank.
    void setPointer(double place, bool lit);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QString words() const;

    double m_place = 0;
    bool m_lit = false;
};
