// How the screens FrmProfileComp and FrmProfileJob look.
#pragma once

#include <QDialog>
#include <QSettings>

#include <memory>

class FrmProfile;

namespace Ui {
class ProfileView;
}

/// The dialogs frmProfileComp and frmProfileJob: each question with the preferred answer, beside it the
/// answer for this company or position, and the rank on its scale.
class ProfileView final : public QDialog
{
    Q_OBJECT

public:
    /// The presenter has been loaded. @p layout remembers the size; it and the presenter must outlive the
    /// view.
    ProfileView(FrmProfile& presenter, QSettings& layout, QWidget* parent = nullptr);
    ~ProfileView() override;

    void done(int result) override;

private:
    void render();
    void renderLabel(const QString& name);

    FrmProfile& m_presenter;
    QSettings& m_layout;
    std::unique_ptr<Ui::ProfileView> m_ui;
};
