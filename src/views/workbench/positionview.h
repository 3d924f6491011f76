// How the Position screen looks.
#pragma once

#include "views/common/screenview.h"

#include <memory>

class CompanySelector;
class FormBinder;
class PositionScreen;

namespace Ui {
class PositionView;
}

/// The frame frmePosition: what the position is on the left; steps, ranks and people on the right.
class PositionView final : public ScreenView
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit PositionView(PositionScreen& presenter, QWidget* parent = nullptr);
    ~PositionView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;
    [[nodiscard]] QWidget& firstField() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void connectSelectors();
    void connectContacts();
    void setIcons();
    void render();
    void showSelector(CompanySelector& selector);

    PositionScreen& m_presenter;
    std::unique_ptr<Ui::PositionView> m_ui;
    FormBinder* m_binder = nullptr;
};
