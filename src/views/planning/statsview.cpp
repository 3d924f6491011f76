#include "views/planning/statsview.h"

#include "planning/frmstats.h"
#include "ui_statsview.h"
#include "views/common/formbinder.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

StatsView::StatsView(FrmStats& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::StatsView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    constexpr int lines = 9; // eight, and room around them
    m_ui->txtStats->setFixedHeight(fontMetrics().lineSpacing() * lines +
                                   qRound(2 * m_ui->txtStats->document()->documentMargin()));
    resize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    m_ui->mscGoals->setChart(presenter.mscGoals());
    connect(m_ui->mscGoals, &BarChart::pointChosen, &presenter, &FrmStats::choosePoint);
    connect(m_ui->cmdPrint, &QAbstractButton::clicked, this, &StatsView::printRequested);
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::reject);
}

StatsView::~StatsView() = default;

std::unique_ptr<QTextDocument> StatsView::page() const
{
    constexpr QSize size(620, 360);
    constexpr int fineness = 3; // of the picture, for paper
    QImage chart(size * fineness, QImage::Format_RGB32);
    chart.setDevicePixelRatio(fineness);
    chart.fill(Qt::white);
    {
        QPainter painter(&chart);
        QPalette paper(Qt::white);
        paper.setColor(QPalette::WindowText, Qt::black);
        paper.setColor(QPalette::PlaceholderText, Qt::darkGray);
        m_ui->mscGoals->draw(painter, QRectF(QPointF(), size), paper);
    }
    auto document = std::make_unique<QTextDocument>();
    const QUrl name(u"chart"_s);
    document->addResource(QTextDocument::ImageResource, name, chart);
    QTextCursor cursor(document.get());
    cursor.insertText(windowTitle() + u"\n\n" + m_presenter.form().text(u"txtStats"_s) + u"\n\n");
    QTextImageFormat picture;
    picture.setName(name.toString());
    picture.setWidth(size.width());
    picture.setHeight(size.height());
    cursor.insertImage(picture);
    return document;
}

void StatsView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
