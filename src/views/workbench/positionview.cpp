#include "views/workbench/positionview.h"

#include "ui_positionview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "workbench/positionscreen.h"

#include <QItemSelectionModel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

PositionView::PositionView(PositionScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::PositionView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->splPosition->setSizes({700, 400});
    // The selector stands in a line with the fields below it.
    m_ui->lblPosSelection->setMinimumWidth(m_ui->chkExpires->sizeHint().width());
    m_ui->shpProgress->setFixedHeight(fontMetrics().height() / 2);
    // Two digits of a year leave open which century is meant.
    const QString format = m_ui->dtpExpires->displayFormat();
    if (!format.contains("yyyy"_L1))
        m_ui->dtpExpires->setDisplayFormat(QString(format).replace("yy"_L1, "yyyy"_L1));
    m_ui->dtpExpires->installEventFilter(this);
    setIcons();
    // The two boxes that find what is typed keep their own way of showing and taking a text.
    m_binder =
        new FormBinder(presenter.form(), presenter, *this, {u"cmbPosSelection"_s, u"cmbAssignContact"_s});
    connectSelectors();
    connectContacts();
    connect(m_ui->chkExpires, &QAbstractButton::clicked, &presenter, &PositionScreen::tickExpires);
    connect(&presenter, &PositionScreen::changed, this, &PositionView::render);
    render();
}

PositionView::~PositionView() = default;

Form& PositionView::form()
{
    return m_presenter.form();
}

QWidget& PositionView::firstField()
{
    return *m_ui->cmbPosSelection;
}

void PositionView::connectSelectors()
{
    m_ui->cmbPosSelection->lineEdit()->setPlaceholderText(tr("Choose a position"));
    m_ui->cmbAssignContact->lineEdit()->setPlaceholderText(tr("Choose a contact"));
    for (CompanySelector* selector : {m_ui->cmbPosSelection, m_ui->cmbAssignContact}) {
        const auto showsThis = [selector](const QString& control) {
            return control == selector->objectName();
        };
        connect(&form(), &Form::itemsChanged, this, [this, selector, showsThis](const QString& control) {
            if (showsThis(control))
                selector->setCompanies(form().items(control));
        });
        connect(&form(), &Form::controlChanged, this, [this, selector, showsThis](const QString& control) {
            if (showsThis(control))
                selector->showChosen(form().text(control));
        });
        selector->setCompanies(form().items(selector->objectName()));
        selector->showChosen(form().text(selector->objectName()));
    }
    connect(m_ui->cmbPosSelection, &CompanySelector::chosen, this, [this](const QString& title) {
        m_presenter.cmbPosSelectionClick(title);
        m_ui->cmbPosSelection->showChosen(form().text(u"cmbPosSelection"_s));
    });
    connect(m_ui->cmbAssignContact, &CompanySelector::chosen, this,
            [this](const QString& name) { form().edit(u"cmbAssignContact"_s, name); });
    connect(m_ui->cmbPosSelection, &CompanySelector::nothingFound, this, [this](const QString& typed) {
        m_ui->lblNoPosition->setText(tr("No title contains “%1”.").arg(typed));
    });
    connect(m_ui->cmbPosSelection, &CompanySelector::typing, m_ui->lblNoPosition, &QLabel::clear);
}

void PositionView::connectContacts()
{
    KindTree* tree = m_ui->tvwContacts;
    tree->setKindIcon(u"contact"_s, u"user-identity"_s);
    tree->setHint(tr("Nobody is assigned yet. Choose a contact below."));
    tree->setModel(&m_presenter.tvwContacts());
    connect(tree, &KindTree::opened, &m_presenter, &PositionScreen::tvwContactsDblClick);
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, tree] {
        const QModelIndexList selected = tree->selectionModel()->selectedIndexes();
        m_presenter.selectContact(selected.isEmpty() ? QModelIndex() : selected.front());
    });
}

void PositionView::setIcons()
{
    m_ui->cmdUpdatePos1->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdRemovePos1->setIcon(icons::named(u"edit-delete"_s));
    m_ui->cmdJProfile1->setIcon(icons::named(u"document-edit"_s));
    m_ui->cmdAssign1->setIcon(icons::named(u"user-identity"_s));
}

void PositionView::render()
{
    const int step = m_presenter.progress();
    m_ui->shpProgress->setValue(step);
    const QString next = m_presenter.nextStep();
    m_ui->lblStep->setText(next.isEmpty() ? tr("Step %1 of 11").arg(step)
                                          : tr("Step %1 of 11. Next: %2").arg(QString::number(step), next));
    m_ui->shpJPtr->setPointer(m_presenter.companyPlace(), m_presenter.positionPlace());
    m_ui->chkExpires->setChecked(m_presenter.hasExpiry());
}

bool PositionView::eventFilter(QObject* watched, QEvent* event)
{
    // The wheel over the date scrolls the form; a date is stored at each change, so none may come by chance.
    if (event->type() == QEvent::Wheel && !m_ui->dtpExpires->hasFocus()) {
        event->ignore();
        return true;
    }
    return ScreenView::eventFilter(watched, event);
}
