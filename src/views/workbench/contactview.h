// How the Contact screen looks.
#pragma once

#include "views/common/screenview.h"

#include <memory>

class CompanySelector;
class ContactScreen;
class KindTree;

namespace Ui {
class ContactView;
}

/// The frame frmeContact: the person on the left, the contacts and documents tied to the person on the right.
class ContactView final : public ScreenView
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit ContactView(ContactScreen& presenter, QWidget* parent = nullptr);
    ~ContactView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;
    [[nodiscard]] QWidget& firstField() override;

private:
    void setIcons();
    void setTrees();
    void connectSelectors();
    void showSelector(const QString& control);

    ContactScreen& m_presenter;
    std::unique_ptr<Ui::ContactView> m_ui;
    FormBinder* m_binder = nullptr;
};
