#include "views/workbench/companyview.h"

#include "ui_companyview.h"
#include "views/common/doubleclick.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "workbench/companyscreen.h"

#include <QEvent>

using namespace Qt::StringLiterals;

CompanyView::CompanyView(CompanyScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::CompanyView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    for (FigureBox* figure :
         {m_ui->txtPosCount, m_ui->txtContCount, m_ui->txtDaysSince, m_ui->txtHTRatio, m_ui->txtRTRatio})
        figure->setScale(1.5);
    // State, zip and map stand in one row; the field above keeps their column wide enough for all three.
    m_ui->layPlace->invalidate();
    m_ui->txtCity->setMinimumWidth(m_ui->layPlace->minimumSize().width());
    // A little more for the form than for the figures and texts beside it.
    m_ui->splCompany->setSizes({600, 500});
    m_ui->txtSummary->setPlaceholderText(tr("Choose a company above to read how things stand there."));
    setIcons();
    m_ui->tvwPosContact->setModel(&presenter.tvwPosContact());
    m_binder = new FormBinder(presenter.form(), presenter, *this);

    connect(&presenter, &CompanyScreen::changed, this, &CompanyView::render);
    connect(&presenter.tvwPosContact(), &QAbstractItemModel::rowsInserted, this, &CompanyView::render);
    new DoubleClick(*m_ui->txtAddress, [&presenter] { presenter.cmdFastParser(); });
    connect(m_ui->tvwPosContact, &KindTree::opened, &presenter, &CompanyScreen::tvwPosContactDblClick);
    render();
}

CompanyView::~CompanyView() = default;

Form& CompanyView::form()
{
    return m_presenter.form();
}

QWidget& CompanyView::firstField()
{
    return *m_ui->txtTitle;
}

void CompanyView::setIcons()
{
    m_ui->cmdUpdate1->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdRemove1->setIcon(icons::named(u"edit-delete"_s));
    m_ui->cmdProfile1->setIcon(icons::named(u"document-edit"_s));
    m_ui->imgContact->setIcon(icons::named(u"user-identity"_s));
    m_ui->imgPosition->setIcon(icons::named(u"view-task"_s));
    m_ui->imgTgt->setIcon(icons::named(u"flag"_s));
    connect(m_ui->imgTgt, &QAbstractButton::pressed, this,
            [this] { m_ui->imgTgt->setIcon(icons::pressed(u"flag"_s)); });
    connect(m_ui->imgTgt, &QAbstractButton::released, this,
            [this] { m_ui->imgTgt->setIcon(icons::named(u"flag"_s)); });
    m_ui->lblURL1->setIcon(icons::named(u"globe"_s));
    m_ui->lblURL2->setIcon(icons::named(u"globe"_s));
    m_ui->lblLocation->setIcon(icons::named(u"find-location"_s));
    m_ui->cmdFastParser->setIcon(icons::named(u"edit-paste"_s));
    m_ui->tvwPosContact->setKindIcon(u"contact"_s, u"user-identity"_s);
    m_ui->tvwPosContact->setKindIcon(u"position"_s, u"view-task"_s);
}

void CompanyView::render()
{
    const int days = m_presenter.daysSinceContact();
    m_ui->txtDaysSince->setText(days < 0 ? QString() : locale().toString(days));
    m_ui->shpPtr->setPointer(m_presenter.pointerPlace(), m_presenter.pointerLit());

    const TreeModel& tree = m_presenter.tvwPosContact();
    const bool positions = tree.data(tree.index(0, 0), TreeModel::KindRole).toString() == "position"_L1;
    (positions ? m_ui->imgPosition : m_ui->imgContact)->setChecked(true);
    QString hint = tr("Choose a company above to see its people and positions.");
    if (!form().text(u"txtSummary"_s).isEmpty())
        hint = positions ? tr("No positions here yet. The Position tab takes the first one.")
                         : tr("No contacts here yet. The Contact tab takes the first one.");
    m_ui->tvwPosContact->setHint(hint);
}
