// How the Company screen looks.
#pragma once

#include "views/common/screenview.h"

#include <memory>

class CompanyScreen;
class FormBinder;
class QTextDocument;

namespace Ui {
class CompanyView;
}

/// The frame frmeCompany: the form on the left, where the campaign stands on the right.
class CompanyView final : public ScreenView
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit CompanyView(CompanyScreen& presenter, QWidget* parent = nullptr);
    ~CompanyView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;
    [[nodiscard]] QWidget& firstField() override;

private:
    void setIcons();
    void render();

    CompanyScreen& m_presenter;
    std::unique_ptr<Ui::CompanyView> m_ui;
    FormBinder* m_binder;
};
