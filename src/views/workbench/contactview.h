// How the Contact screen looks.
#pragma once

#include "views/common/screenview.h"

class ContactScreen;

/// frmeContact.
class ContactView : public ScreenView
{
    Q_OBJECT

public:
    explicit ContactView(ContactScreen& presenter, QWidget* parent = nullptr);
    ~ContactView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;

private:
    ContactScreen& m_presenter;
    FormBinder* m_binder = nullptr;
};
