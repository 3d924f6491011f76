// A double click into a box of text as a command.
#pragma once

#include <QEvent>
#include <QMetaObject>
#include <QPlainTextEdit>

#include <functional>

/// Calls @p action for a double click into the box while it is enabled; belongs to the box.
class DoubleClick : public QObject
{
public:
    DoubleClick(QPlainTextEdit& box, std::function<void()> action)
        : QObject(&box)
        , m_box(box)
        , m_action(std::move(action))
    {
        box.viewport()->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::MouseButtonDblClick || !m_box.isEnabled())
            return QObject::eventFilter(watched, event);
        // Once the mouse is free again: the screen that comes takes all input until it is closed.
        QMetaObject::invokeMethod(this, m_action, Qt::QueuedConnection);
        return true;
    }

private:
    QPlainTextEdit& m_box;
    std::function<void()> m_action;
};
