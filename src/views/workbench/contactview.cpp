#include "views/workbench/contactview.h"

#include "ui_contactview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "workbench/contactscreen.h"

#include <QItemSelectionModel>
#include <QLineEdit>
#include <QToolTip>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// The selector's own wish is the width of the head line; here it takes what its column gives.
void fitIntoColumn(CompanySelector& selector)
{
    selector.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    selector.setMinimumWidth(look::fieldWidth(selector, 14));
}

} // namespace

ContactView::ContactView(ContactScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::ContactView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->splContact->setSizes({600, 500});
    for (CompanySelector* selector :
         {m_ui->cmbContacts, static_cast<CompanySelector*>(m_ui->cmbOtherContact)})
        fitIntoColumn(*selector);
    setIcons();
    setTrees();
    // The selectors keep their own way of showing and taking a text.
    m_binder = new FormBinder(presenter.form(), presenter, *this, {u"cmbContacts"_s, u"cmbOtherContact"_s});
    if (!presenter.historyAvailable())
        m_binder->lock(u"cmdHistory1"_s, tr("The contact history is not part of this version."));
    connectSelectors();
}

ContactView::~ContactView() = default;

Form& ContactView::form()
{
    return m_presenter.form();
}

QWidget& ContactView::firstField()
{
    return *m_ui->cmbContacts;
}

void ContactView::setIcons()
{
    m_ui->cmdUpdateContact1->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdRemoveContact1->setIcon(icons::named(u"edit-delete"_s));
    m_ui->cmdAddress1->setIcon(icons::named(u"document-edit"_s));
    m_ui->cmdHistory1->setIcon(icons::named(u"view-list-details"_s));
    m_ui->lblOtherContacts->setIcon(icons::named(u"edit-find"_s));
    m_ui->tvwOtherContact->setKindIcon(u"contact"_s, u"user-identity"_s);
    m_ui->tvwDocument->setKindIcon(u"document"_s, u"edit-copy"_s);
}

void ContactView::setTrees()
{
    const auto tie = [this](KindTree& tree, TreeModel& model, auto select, auto open) {
        tree.setModel(&model);
        // The heading above the tree says what its root would.
        tree.setRootIndex(model.index(0, 0));
        tree.setRootIsDecorated(false);
        connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this, select](const QModelIndex& current) { std::invoke(select, m_presenter, current); });
        connect(&tree, &KindTree::opened, &m_presenter, open);
    };
    tie(*m_ui->tvwOtherContact, m_presenter.tvwOtherContact(), &ContactScreen::selectOther,
        &ContactScreen::tvwOtherContactDblClick);
    tie(*m_ui->tvwDocument, m_presenter.tvwDocument(), &ContactScreen::selectDocument,
        &ContactScreen::tvwDocumentDblClick);
    m_ui->tvwOtherContact->setHint(tr("Nobody here yet. Choose somebody below who is tied to this contact."));
    m_ui->tvwDocument->setHint(tr("No documents here yet. Choose below what this contact got."));
}

void ContactView::connectSelectors()
{
    m_ui->cmbContacts->lineEdit()->setPlaceholderText(tr("Choose a contact"));
    m_ui->cmbOtherContact->lineEdit()->setPlaceholderText(tr("Choose a contact"));
    m_ui->cmbDocsAvailable->setPlaceholderText(tr("Choose a document"));
    const auto nothingFound = [](CompanySelector* selector) {
        return [selector](const QString& typed) {
            QToolTip::showText(selector->mapToGlobal(selector->rect().bottomLeft()),
                               tr("No contact's name contains “%1”.").arg(typed), selector);
        };
    };
    connect(m_ui->cmbContacts, &CompanySelector::nothingFound, this, nothingFound(m_ui->cmbContacts));
    connect(m_ui->cmbOtherContact, &CompanySelector::nothingFound, this, nothingFound(m_ui->cmbOtherContact));
    connect(m_ui->cmbContacts, &CompanySelector::chosen, this, [this](const QString& name) {
        m_presenter.cmbContactsClick(name);
        showSelector(u"cmbContacts"_s);
    });
    connect(m_ui->cmbOtherContact, &CompanySelector::chosen, this,
            [this](const QString& name) { form().edit(u"cmbOtherContact"_s, name); });
    connect(m_ui->cmbOtherContact, &LazySelector::namesWanted, this,
            [this] { m_ui->cmbOtherContact->setCompanies(m_presenter.otherContactNames()); });
    connect(&m_presenter, &ContactScreen::otherContactsChanged, m_ui->cmbOtherContact, [this] {
        m_ui->cmbOtherContact->forget();
        showSelector(u"cmbOtherContact"_s);
    });
    connect(&form(), &Form::itemsChanged, this, &ContactView::showSelector);
    connect(&form(), &Form::controlChanged, this, &ContactView::showSelector);
    connect(&form(), &Form::focusRequested, this, [this](const QString& control) {
        if (control == "cmbOtherContact"_L1)
            m_ui->cmbOtherContact->setFocus();
    });
    showSelector(u"cmbContacts"_s);
}

void ContactView::showSelector(const QString& control)
{
    if (control == "cmbContacts"_L1) {
        m_ui->cmbContacts->setCompanies(form().items(control));
        m_ui->cmbContacts->showChosen(form().text(control));
    } else if (control == "cmbOtherContact"_L1) {
        m_ui->cmbOtherContact->showChosen(form().text(control));
    }
}
