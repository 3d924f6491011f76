// How the Document screen looks.
#pragma once

#include "views/common/screenview.h"

#include <memory>

class DocumentScreen;

namespace Ui {
class DocumentView;
}

/// The frame frmeDocument: what is known of a document on the left, the list and the people who got it on the
/// right. Takes files that are dropped on the list.
class DocumentView final : public ScreenView
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit DocumentView(DocumentScreen& presenter, QWidget* parent = nullptr);
    ~DocumentView() override;

    [[nodiscard]] FormBinder& binder() override { return *m_binder; }
    [[nodiscard]] Form& form() override;
    [[nodiscard]] QWidget& firstField() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setIcons();
    void connectLists();
    void render();

    DocumentScreen& m_presenter;
    std::unique_ptr<Ui::DocumentView> m_ui;
    FormBinder* m_binder = nullptr;
};
