#include "views/intake/importview.h"

#include "intake/frmimport.h"
#include "ui_importview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"

#include <QComboBox>
#include <QHeaderView>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

/// The box with the fields in the column "Goes into".
class FieldDelegate : public QStyledItemDelegate
{
public:
    FieldDelegate(QStringList fields, QObject* parent)
        : QStyledItemDelegate(parent)
        , m_fields(std::move(fields))
    {
    }
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        auto* box = new QComboBox(parent);
        box->addItems(m_fields);
        box->setAccessibleName(ImportView::tr("Goes into"));
        connect(box, &QComboBox::activated, this, [this, box] {
            emit const_cast<FieldDelegate*>(this)->commitData(box); // counts at once, and the box stays
        });
        return box;
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        static_cast<QComboBox*>(editor)->setCurrentText(index.data().toString());
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override
    {
        model->setData(index, static_cast<QComboBox*>(editor)->currentText());
    }

private:
    QStringList m_fields;
};

/// The picture before an entry is its mark.
class MarkDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.column() != 0)
            return;
        const bool marked = index.data(RowModel::KindRole) == u"select"_s;
        option->features |= QStyleOptionViewItem::HasCheckIndicator;
        option->checkState = marked ? Qt::Checked : Qt::Unchecked;
    }
};

} // namespace

ImportView::ImportView(FrmImport& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::ImportView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    setIcons();
    connectMapping();
    connectFolders();
    m_ui->lvwNotes->setModel(&presenter.lvwNotes());
    m_ui->lvwNotes->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_ui->lblResult->setTextFormat(Qt::PlainText);
    resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 42);
    windowstate::restore(*this, m_layout);
    new FormBinder(presenter.form(), presenter, *this);
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(&presenter, &FrmImport::fileChanged, this, &ImportView::showFile);
    connect(&presenter, &FrmImport::advanced, this, &ImportView::showProgress);
    m_ui->cmbInputSource->setFocus();
    showFile();
}

ImportView::~ImportView() = default;

void ImportView::setIcons()
{
    m_ui->cmdDialog->setIcon(icons::named(u"document-open"_s));
    m_ui->cmdFolder->setIcon(icons::named(u"document-open"_s));
    m_ui->cmdLoadImport->setIcon(icons::named(u"document-import"_s));
    m_ui->cmdMap->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdImportList->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdTakeBack->setIcon(icons::named(u"edit-undo"_s));
}

void ImportView::connectMapping()
{
    m_ui->tblColumns->setModel(&m_presenter.tblColumns());
    m_ui->tblColumns->setItemDelegateForColumn(ImportColumns::Field,
                                               new FieldDelegate(m_presenter.fieldChoices(), this));
    m_ui->tblColumns->setEditTriggers(QAbstractItemView::AllEditTriggers);
    QHeaderView& header = *m_ui->tblColumns->header();
    header.setDefaultSectionSize(fontMetrics().averageCharWidth() * 20);
    header.setStretchLastSection(true);
    m_ui->lstFld->setModel(&m_presenter.lstFld());
    m_ui->lstFld->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_ui->lstImport->setModel(&m_presenter.lstImport());
    m_ui->splMapping->setSizes({3000, 1400});
    connect(m_ui->lstFld->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) { m_presenter.lstFldClick(now.data().toString()); });
    connect(m_ui->lstImport->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) { m_presenter.lstImportClick(now.row()); });
    connect(m_ui->HScroll1, &QScrollBar::valueChanged, &m_presenter, &FrmImport::scrollTo);
}

void ImportView::connectFolders()
{
    tieList(*m_ui->lvwContacts, m_presenter.lvwContacts(), &FrmImport::lvwContactsClick);
    tieList(*m_ui->lvwCompanies, m_presenter.lvwCompanies(), &FrmImport::lvwCompaniesClick);
}

void ImportView::tieList(QTreeView& view, RowModel& model, void (FrmImport::*click)(const QString&))
{
    view.setModel(&model);
    view.setColumnHidden(2, true); // the candidate's number is the program's own
    view.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    view.header()->setStretchLastSection(false);
    view.setItemDelegateForColumn(0, new MarkDelegate(&view));
    const auto toggle = [this, click, &view, &model](const QModelIndex& index) {
        const int row = index.row();
        (m_presenter.*click)(model.key(index));
        view.setCurrentIndex(model.index(row, 0));
    };
    connect(&view, &QTreeView::clicked, this, toggle);
    connect(&view, &QTreeView::activated, this, toggle); // Enter does as a click does
}

/// The scroll bar and the values follow the file and the record that is reviewed.
void ImportView::showFile()
{
    const QSignalBlocker quiet(m_ui->HScroll1);
    m_ui->HScroll1->setRange(1, std::max(m_presenter.recordCount(), 1));
    m_ui->HScroll1->setValue(m_presenter.form().text(u"txtRec"_s).toInt());
    m_ui->HScroll1->setEnabled(m_presenter.recordCount() > 1);
    const int value = m_presenter.shownValue();
    if (value >= 0 && !m_ui->lstImport->hasFocus())
        m_ui->lstImport->scrollTo(m_presenter.lstImport().index(value), QAbstractItemView::PositionAtTop);
}

void ImportView::showProgress(int done, int total)
{
    m_ui->pbImport->setRange(0, std::max(total, 1));
    m_ui->pbImport->setValue(done);
    m_ui->pbImport->repaint();
}

void ImportView::done(int result)
{
    windowstate::save(*this, m_layout);
    QDialog::done(result);
}
