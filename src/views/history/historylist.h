// The list of histories.
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QTreeView>

/// A list with columns that can be sorted, and that says what to do while it holds no entry.
class HistoryList : public QTreeView
{
    Q_OBJECT

public:
    explicit HistoryList(QWidget* parent = nullptr)
        : QTreeView(parent)
    {
        setRootIsDecorated(false);
        setUniformRowHeights(true);
        setAllColumnsShowFocus(true);
        setAlternatingRowColors(true);
        setEditTriggers(QAbstractItemView::NoEditTriggers);
    }

    /// What stands in the middle; empty when the rows speak for themselves.
    void setHint(const QString& hint)
    {
        m_hint = hint;
        viewport()->update();
    }
    [[nodiscard]] const QString& hint() const { return m_hint; }
    /// True when this was the current cell before the mouse button went down: the click moved nothing.
    [[nodiscard]] bool wasCurrent(const QModelIndex& index) const { return m_before == index; }

signals:
    /// The Enter key on a row. Other than activated(), never a single click, whatever the desktop's habit.
    void opened(const QModelIndex& index);

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        m_before = currentIndex();
        QTreeView::mousePressEvent(event);
    }
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (enter && currentIndex().isValid())
            emit opened(currentIndex());
        else
            QTreeView::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override
    {
        QTreeView::paintEvent(event);
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        const int margin = fontMetrics().height();
        painter.drawText(viewport()->rect().adjusted(margin, 2 * margin, -margin, -margin),
                         Qt::AlignCenter | Qt::TextWordWrap, m_hint);
    }

private:
    QString m_hint;
    QPersistentModelIndex m_before;
};
