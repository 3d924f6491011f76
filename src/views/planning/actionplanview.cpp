#include "views/planning/actionplanview.h"

#include "planning/frmactionplan.h"
#include "ui_actionplanview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"
#include "views/planning/categoryicons.h"

#include <QMenu>

using namespace Qt::StringLiterals;

ActionPlanView::ActionPlanView(FrmActionPlan& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::ActionPlanView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->cmdSavePlan1->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdClear1->setIcon(icons::named(u"edit-delete"_s));
    resize(fontMetrics().averageCharWidth() * 160, fontMetrics().height() * 46);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    connectSlots();
    for (int category = 0; category < Catalogue::categoryCount; ++category)
        setUpList(category);
    connect(&presenter, &FrmActionPlan::changed, this, &ActionPlanView::render);
    connect(&presenter, &FrmActionPlan::highlightLVW, this, [this](int category, int row) {
        list(category).setCurrentIndex(list(category).model()->index(row, 0));
    });
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::reject);
    render();
    m_ui->lvwResearch->setFocus();
}

ActionPlanView::~ActionPlanView() = default;

MeasureList& ActionPlanView::list(int category) const
{
    return *findChild<MeasureList*>(FrmActionPlan::listName(category));
}

void ActionPlanView::connectSlots()
{
    for (int index = 0; index < FrmActionPlan::slotCount; ++index) {
        auto* slot = findChild<PlanSlotButton*>(u"imgTM"_s + QString::number(index));
        connect(slot, &PlanSlotButton::clicked, this, [this, index] { m_presenter.imgTMClick(index); });
        connect(slot, &PlanSlotButton::removalWanted, this,
                [this, index] { m_presenter.imgTMDblClick(index); });
        connect(slot, &PlanSlotButton::dropped, this, [this, index](int category, int row) {
            m_presenter.addMeasure(index / PlanPhase::slotCount, category, row);
        });
    }
}

void ActionPlanView::setUpList(int category)
{
    MeasureList& measures = list(category);
    measures.setCategory(category);
    measures.setModel(&m_presenter.list(category));
    const QString grip = QString(FrmActionPlan::listName(category)).replace("lvw"_L1, "img"_L1);
    findChild<MeasureGrip*>(grip)->setUp(category, measures, categoryicons::ofCategory(category));
    connect(measures.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, category](const QModelIndex& row) { m_presenter.lvwClick(category, row.row()); });
    connect(&measures, &MeasureList::entered, this,
            [this, category](int row) { m_presenter.addMeasure(m_presenter.lastPhase(), category, row); });
    connect(&measures, &QWidget::customContextMenuRequested, this,
            [this, category](QPoint place) { showMenu(category, place); });
}

void ActionPlanView::showMenu(int category, QPoint place)
{
    MeasureList& measures = list(category);
    const QModelIndex row = measures.currentIndex();
    if (!row.isValid())
        return;
    QMenu menu(this);
    for (int phase = 0; phase < m_presenter.phases(); ++phase)
        menu.addAction(tr("Add to phase &%1").arg(phase + 1), this,
                       [=, this] { m_presenter.addMeasure(phase, category, row.row()); });
    menu.exec(measures.viewport()->mapToGlobal(place));
}

void ActionPlanView::render()
{
    for (int index = 0; index < FrmActionPlan::slotCount; ++index)
        findChild<PlanSlotButton*>(u"imgTM"_s + QString::number(index))->setSlot(m_presenter.imgTM(index));
    for (int phase = 0; phase < m_presenter.phases(); ++phase) {
        auto* bar = findChild<QProgressBar*>(u"pbar"_s + QString::number(phase + 1));
        const PhaseBar& state = m_presenter.bar(phase);
        bar->setRange(1, state.max);
        bar->setValue(state.value);
        bar->setToolTip(tr("Day %1 of %2").arg(state.value).arg(state.max));
    }
}

void ActionPlanView::reject()
{
    if (m_presenter.mayClose())
        QDialog::reject();
}

void ActionPlanView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
