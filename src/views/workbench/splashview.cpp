#include "views/workbench/splashview.h"

#include "ui_splashview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "workbench/frmsplash.h"

#include <QEventLoop>
#include <QScreen>
#include <QTimer>

SplashView::SplashView(FrmSplash& presenter, QWidget* parent)
    : QDialog(parent, Qt::SplashScreen)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::SplashView>())
    , m_timer(new QTimer(this))
{
    m_ui->setupUi(this);
    look::dress(*this);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 2.4);
    m_ui->Label1->setFont(large);
    const int side = fontMetrics().height() * 5;
    m_ui->Image1->setPixmap(icons::ofProgram().pixmap(QSize(side, side), devicePixelRatioF()));
    for (QLabel* label :
         {m_ui->Label1, m_ui->Label2, m_ui->Label3, m_ui->Label4, m_ui->Label5, m_ui->Label6, m_ui->Image1})
        label->installEventFilter(this);
    new FormBinder(presenter.form(), presenter, *this);
    connect(&presenter, &FrmSplash::closed, this, &QWidget::hide);
    connect(m_timer, &QTimer::timeout, &presenter, &FrmSplash::tick);
}

SplashView::~SplashView() = default;

void SplashView::run()
{
    m_presenter.load();
    m_presenter.activate();
    m_timer->start(FrmSplash::interval);
    // Not exec(): a key pressed while the window is still coming up would end it before exec() waits for its
    // end.
    QEventLoop loop;
    connect(&m_presenter, &FrmSplash::closed, &loop, &QEventLoop::quit);
    setModal(true);
    // Not every desktop finds a place for a window without a frame.
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
    show();
    if (m_presenter.timerEnabled())
        loop.exec();
    m_timer->stop();
}

bool SplashView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::MouseButtonPress)
        return QDialog::eventFilter(watched, event);
    if (watched == m_ui->Image1)
        m_presenter.image1Click();
    else
        m_presenter.labelClick();
    return true;
}

void SplashView::keyPressEvent(QKeyEvent*)
{
    m_presenter.keyDown();
}

void SplashView::mousePressEvent(QMouseEvent*)
{
    m_presenter.formClick();
}

void SplashView::closeEvent(QCloseEvent* event)
{
    m_presenter.unload();
    QDialog::closeEvent(event);
}
