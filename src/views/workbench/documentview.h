// How the Document screen looks.
#pragma once

#include "views/common/screenview.h"

class DocumentScreen;

/// frmeDocument.
class DocumentView : public ScreenView
{
    Q_OBJECT

public:
    explicit DocumentView(DocumentScreen& presenter, QWidget* parent = nullptr);
    ~DocumentView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;

private:
    DocumentScreen& m_presenter;
    FormBinder* m_binder = nullptr;
};
