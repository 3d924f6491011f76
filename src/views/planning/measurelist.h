// The places that a measure of the catalogue is dragged from.
#pragma once

#include <QLabel>
#include <QMimeData>
#include <QTreeView>

#include <optional>
#include <utility>

namespace measuredrag {

/// A measure on its way: its category and its row in that category's list.
struct Measure
{
    int category = 0;
    int row = 0;
};

/// Starts a drag from a widget, with a picture of the measure's name; comes back when it has been dropped.
void start(QWidget& source, const Measure& measure, const QString& name);
/// The measure that is dragged; nothing for anything else.
std::optional<Measure> read(const QMimeData& data);
std::unique_ptr<QMimeData> write(const Measure& measure);

} // namespace measuredrag

/// The list of a category: a row is dragged into a slot, or chosen by Enter or by its menu.
class MeasureList : public QTreeView
{
    Q_OBJECT

public:
    explicit MeasureList(QWidget* parent = nullptr);

    void setCategory(int category) { m_category = category; }

signals:
    /// Enter on the row: into the phase that was used last.
    void entered(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    int m_category = 0;
    QPoint m_pressedAt;
};

/// The picture of a category; dragging it takes the list's current row along.
class MeasureGrip : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    void setUp(int category, MeasureList& list, const QIcon& picture);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    int m_category = 0;
    MeasureList* m_list = nullptr;
};
