#include "views/intake/mergeview.h"

#include "intake/frmmerge.h"
#include "ui_mergeview.h"
#include "views/common/formbinder.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QHeaderView>

MergeView::MergeView(FrmMerge& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::MergeView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->tblFields->setModel(&presenter.tblFields());
    m_ui->tblFields->header()->setSectionResizeMode(MergeFields::First, QHeaderView::Stretch);
    m_ui->tblFields->header()->setSectionResizeMode(MergeFields::Second, QHeaderView::Stretch);
    m_ui->tblFields->header()->setStretchLastSection(false);
    m_ui->lblMoves->setTextFormat(Qt::PlainText);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 30);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    connect(m_ui->cmdCloseMerge, &QAbstractButton::clicked, this, &QDialog::reject);
    m_ui->cmbPair->setFocus();
}

MergeView::~MergeView() = default;

void MergeView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
