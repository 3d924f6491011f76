// How the Position screen looks.
#pragma once

#include "views/common/screenview.h"

class PositionScreen;

/// frmePosition.
class PositionView : public ScreenView
{
    Q_OBJECT

public:
    explicit PositionView(PositionScreen& presenter, QWidget* parent = nullptr);
    ~PositionView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;

private:
    PositionScreen& m_presenter;
    FormBinder* m_binder = nullptr;
};
