// The place of one screen in the window.
#pragma once

#include <QWidget>

#include <functional>

class ScreenView;

/// A frame that builds its screen when it is first shown, so that the start pays for the first screen only.
class ScreenFrame : public QWidget
{
    Q_OBJECT

public:
    using Builder = std::function<ScreenView*()>;

    /// @p name is the frame's name ("frmePosition"); @p builder makes the screen, which the frame then owns.
    ScreenFrame(const QString& name, Builder builder, QWidget* parent = nullptr);

    /// The screen; null until it was first shown or asked for with build().
    [[nodiscard]] ScreenView* screen() const { return m_screen; }
    ScreenView& build();

protected:
    void showEvent(QShowEvent* event) override;

private:
    Builder m_builder;
    ScreenView* m_screen = nullptr;
};
