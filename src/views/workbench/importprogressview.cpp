#include "views/workbench/importprogressview.h"

#include "store/session.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Rows come in by the thousand; painting each would cost more than storing it.
constexpr qint64 millisecondsBetweenPaints = 40;

} // namespace

ImportProgressView::ImportProgressView(Session& session, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , m_line(new QLabel(this))
    , m_bar(new QProgressBar(this))
{
    setObjectName(u"frmImportProg"_s);
    setWindowTitle(tr("Importing ..."));
    setWindowModality(Qt::ApplicationModal);
    m_line->setObjectName(u"lblSet"_s);
    m_line->setAccessibleName(tr("Progress"));
    m_line->setTextFormat(Qt::PlainText);
    m_line->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
    m_bar->setObjectName(u"pbar"_s);
    m_bar->setAccessibleName(tr("Progress bar"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_line);
    layout->addWidget(m_bar);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(&session, &Session::statusLineChanged, this, &ImportProgressView::showLine);
    connect(&session, &Session::progressChanged, this, &ImportProgressView::showProgress);
}

void ImportProgressView::setRunning(bool running)
{
    if (running == m_running)
        return;
    if (!running) {
        // What the user clicked and typed meanwhile is let through while this window still keeps it from the
        // workbench.
        QCoreApplication::processEvents();
        m_running = false;
        hide();
        return;
    }
    m_running = true;
    m_line->clear();
    m_bar->setRange(0, 0);
    show();
    m_sincePaint.start();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ImportProgressView::showLine(const QString& line)
{
    m_line->setText(line);
    paintNow();
}

void ImportProgressView::showProgress(int done, int total)
{
    m_bar->setRange(0, total);
    m_bar->setValue(done);
    paintNow();
}

void ImportProgressView::paintNow()
{
    if (!m_running || m_sincePaint.elapsed() < millisecondsBetweenPaints)
        return;
    m_sincePaint.restart();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ImportProgressView::reject()
{
    if (!m_running)
        QDialog::reject();
}

void ImportProgressView::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_running);
}
