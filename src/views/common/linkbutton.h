// A flat button that stands for a label one can click.
#pragma once

#include <QToolButton>

/// Acts once on a click and once on a double click, so that both habits open one page and not two.
class LinkButton : public QToolButton
{
    Q_OBJECT

public:
    explicit LinkButton(QWidget* parent = nullptr)
        : QToolButton(parent)
    {
        setAutoRaise(true);
        setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    /// The first press of a double click has acted already.
    void mouseDoubleClickEvent(QMouseEvent*) override {}
};
