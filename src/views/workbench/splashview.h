// How the first seconds of the program look.
#pragma once

#include <QDialog>

#include <memory>

class FrmSplash;
class QTimer;

namespace Ui {
class SplashView;
}

/// frmSplash: name, picture and version. A key or a click ends it; a click on the picture does not.
class SplashView : public QDialog
{
    Q_OBJECT

public:
    /// The presenter must outlive the view.
    explicit SplashView(FrmSplash& presenter, QWidget* parent = nullptr);
    ~SplashView() override;

    /// Shows the splash and comes back when it has closed.
    void run();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    FrmSplash& m_presenter;
    std::unique_ptr<Ui::SplashView> m_ui;
    QTimer* m_timer;
};
