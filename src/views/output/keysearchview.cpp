#include "views/output/keysearchview.h"

#include "output/frmkeysearch.h"
#include "ui_keysearchview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

KeySearchView::KeySearchView(FrmKeySearch& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::KeySearchView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 40);
    m_ui->splFound->setStretchFactor(0, 4);
    m_ui->splFound->setStretchFactor(1, 1);
    setUpTrees();
    setUpSearch();
    windowstate::restore(*this, m_layout);
    m_ui->txtSearch->setFocus();
}

KeySearchView::~KeySearchView() = default;

void KeySearchView::setUpTrees()
{
    KindTree& found = *m_ui->tvwFound;
    found.setHint(tr("Type a text and press Enter. A double click on a record opens it."));
    const std::initializer_list<std::pair<QString, QString>> icons = {{u"Contact"_s, u"user-identity"_s},
                                                                      {u"History"_s, u"user-identity"_s},
                                                                      {u"Company"_s, u"view-bank"_s},
                                                                      {u"Position"_s, u"view-task"_s},
                                                                      {u"Event"_s, u"view-calendar"_s},
                                                                      {u"UProfile"_s, u"document-edit"_s},
                                                                      {u"Target"_s, u"flag"_s}};
    for (const auto& [kind, icon] : icons)
        found.setKindIcon(kind, icon);
    found.setModel(&m_presenter.tvwFound());
    connect(&found, &KindTree::opened, this,
            [this](const QModelIndex& index) { m_presenter.openNode(index); });
    KindTree& happened = *m_ui->lvwHappened;
    happened.setHeaderHidden(false);
    happened.setRootIsDecorated(false);
    happened.setModel(&m_presenter.lvwHappened());
    const int unit = fontMetrics().averageCharWidth();
    constexpr int widths[] = {13, 24, 24, 14, 28};
    for (int column = 0; column < 5; ++column)
        happened.header()->resizeSection(column, unit * widths[column]);
    connect(&happened, &KindTree::opened, this,
            [this](const QModelIndex& index) { m_presenter.openHappened(index); });
}

void KeySearchView::setUpSearch()
{
    m_ui->Image1->setIcon(icons::named(u"edit-find"_s));
    m_ui->pbarLoad->setMaximumWidth(look::fieldWidth(*this, 24));
    new FormBinder(m_presenter.form(), m_presenter, *this);
    connect(m_ui->Image1, &QAbstractButton::clicked, &m_presenter, &FrmKeySearch::Image1);
    connect(&m_presenter, &FrmKeySearch::progressChanged, m_ui->pbarLoad, [this](int done, int total) {
        m_ui->pbarLoad->setRange(0, total);
        m_ui->pbarLoad->setValue(done);
    });
    connect(&m_presenter, &FrmKeySearch::searched, this, [this] {
        KindTree& found = *m_ui->tvwFound;
        found.setHint(tr("Nothing found."));
        found.expandToDepth(1);
        // On to the first hit, so that the arrow keys and Enter go on from here.
        const QModelIndex group = found.model()->index(0, 0, found.model()->index(0, 0));
        if (!group.isValid())
            return;
        found.setCurrentIndex(found.model()->index(0, 0, group));
        found.setFocus();
    });
    // A record on the workbench is to be seen.
    connect(&m_presenter, &FrmKeySearch::opened, this, [this] {
        if (parentWidget())
            parentWidget()->activateWindow();
    });
}

void KeySearchView::hideEvent(QHideEvent* event)
{
    windowstate::save(*this, m_layout);
    QDialog::hideEvent(event);
}
