#include "views/planning/statsview.h"

#include "planning/frmstats.h"
#include "ui_statsview.h"
#include "views/common/formbinder.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

using namespace Qt::StringLiterals;

namespace {

/// Of the chart on paper, whatever the window's are.
QPalette paperColours()
{
    QPalette colours(Qt::white, Qt::white);
    colours.setColor(QPalette::WindowText, Qt::black);
    colours.setColor(QPalette::PlaceholderText, Qt::darkGray);
    colours.setColor(QPalette::Highlight, QColor(70, 120, 180));
    return colours;
}

} // namespace

StatsView::StatsView(FrmStats& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
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
    connect(m_ui->cmdPrint, &QAbstractButton::clicked, this, [this, &presenter] {
        emit printRequested(presenter.page([this](QPainter& painter, const QRectF& area) {
            m_ui->mscGoals->draw(painter, area, paperColours());
        }));
    });
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::reject);
}

StatsView::~StatsView() = default;

void StatsView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
