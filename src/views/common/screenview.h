// What the window knows of each of its screens.
#pragma once

#include <QWidget>

class Form;
class FormBinder;

/// A screen of the workbench as the window holds it: a frame with a form tied to it.
class ScreenView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    [[nodiscard]] virtual FormBinder& binder() = 0;
    [[nodiscard]] virtual Form& form() = 0;
    /// Where somebody who has just come to this screen wants to begin.
    [[nodiscard]] virtual QWidget& firstField() = 0;
};
