// The parts of the Pipeline screen that no other screen has: a step's date, a bar's label, a medium's
// picture.
#pragma once

#include <QDateEdit>
#include <QIcon>
#include <QToolButton>
#include <QWheelEvent>

/// The day on which a step was done; blank while it stands at its first day, which means not done.
class StepDateEdit : public QDateEdit
{
    Q_OBJECT

public:
    explicit StepDateEdit(QWidget* parent = nullptr);

signals:
    /// The calendar is about to open, or the first key goes into a blank field: both begin with today.
    void dropDown();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// The Tab key leaves the field at once: month, day and year are one date (and a blank one has none to
    /// walk).
    bool focusNextPrevChild(bool next) override
    {
        // The parent's own would walk through the date.
        return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
    }
    /// Scrolling past a date must not change it.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

/// A position's title above its bar: as much of it as there is room for, to click or to double click.
class BarLabel : public QToolButton
{
    Q_OBJECT

public:
    explicit BarLabel(QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        return {0, QToolButton::minimumSizeHint().height()};
    }

signals:
    void doubleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent*) override { emit doubleClicked(); }
};

namespace mediums {

/// The picture of a medium by its tag ("Phone"), in the palette's text colour; an empty circle for no medium,
/// null for an unknown tag.
[[nodiscard]] QIcon picture(const QString& tag);

} // namespace mediums
