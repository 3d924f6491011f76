#include "views/workbench/documentview.h"

#include "ui_documentview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "workbench/documentscreen.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// The files of this machine that a drag carries; empty when it carries anything else beside.
QStringList filesOf(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (!url.isLocalFile())
            return {};
        files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

DocumentView::DocumentView(DocumentScreen& presenter, QWidget* parent)
    : ScreenView(parent)
    , m_presenter(presenter)
    , m_ui(std::make_unique<Ui::DocumentView>())
{
    m_ui->setupUi(this);
    look::dress(*this);
    m_ui->splDocument->setSizes({600, 500});
    // In the smallest window too a document's name can be read.
    m_ui->pnlRepository->setMinimumWidth(look::fieldWidth(*m_ui->tvwDocs, 30));
    setIcons();
    connectLists();
    m_binder = new FormBinder(presenter.form(), presenter, *this);
    connect(&presenter, &DocumentScreen::changed, this, &DocumentView::render);
    render();
}

DocumentView::~DocumentView() = default;

Form& DocumentView::form()
{
    return m_presenter.form();
}

QWidget& DocumentView::firstField()
{
    // A list that gets the keyboard with no document chosen would choose its first.
    return m_ui->tvwDocs->currentIndex().isValid() ? static_cast<QWidget&>(*m_ui->tvwDocs)
                                                   : *m_ui->txtFileName;
}

void DocumentView::setIcons()
{
    m_ui->cmdLoadDocument->setIcon(icons::named(u"document-import"_s));
    m_ui->cmdAddDoc1->setIcon(icons::named(u"document-new"_s));
    m_ui->cmdUpdateDoc1->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdViewDoc1->setIcon(icons::named(u"document-print-preview"_s));
    m_ui->cmdRemoveDoc1->setIcon(icons::named(u"edit-delete"_s));
    m_ui->tvwDocs->setKindIcon(u"resume"_s, u"user-identity"_s);
    m_ui->tvwDocs->setKindIcon(u"cover"_s, u"document-edit"_s);
    m_ui->tvwDocs->setKindIcon(u"broadcast"_s, u"globe"_s);
    m_ui->tvwDocs->setKindIcon(u"sample"_s, u"office-chart-bar"_s);
    m_ui->tvwDocs->setKindIcon(u"other"_s, u"edit-copy"_s);
    m_ui->lstContactsSent->setKindIcon(u"contact"_s, u"user-identity"_s);
}

void DocumentView::connectLists()
{
    m_ui->tvwDocs->setModel(&m_presenter.tvwDocs());
    m_ui->tvwDocs->setHint(
        tr("No documents here yet. Load a file or drop one here, then add it to the list."));
    m_ui->tvwDocs->viewport()->setAcceptDrops(true);
    m_ui->tvwDocs->viewport()->installEventFilter(this);
    connect(m_ui->tvwDocs->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                m_presenter.tvwDocsClick(index);
                // The list marks what was clicked only after this, and the user may have stayed.
                QTimer::singleShot(0, this, &DocumentView::render);
            });
    connect(m_ui->tvwDocs, &KindTree::opened, &m_presenter, [this](const QModelIndex& index) {
        if (index.parent().isValid())
            m_presenter.cmdViewDoc1();
    });
    // A plain list: what its root would say stands above it already.
    m_ui->lstContactsSent->setModel(&m_presenter.lstContactsSent());
    m_ui->lstContactsSent->setRootIndex(m_presenter.lstContactsSent().index(0, 0));
    connect(m_ui->lstContactsSent, &KindTree::opened, &m_presenter, &DocumentScreen::lstContactsSentDblClick);
}

void DocumentView::render()
{
    const QModelIndex selected = m_presenter.selectedNode();
    if (m_ui->tvwDocs->currentIndex() != selected ||
        (selected.isValid() && !m_ui->tvwDocs->selectionModel()->isSelected(selected)))
        m_ui->tvwDocs->setCurrentIndex(selected);
    m_ui->lstContactsSent->setHint(selected.isValid()
                                       ? tr("Sent to nobody yet. The Contact tab gives documents to people.")
                                       : tr("Choose a document to see who has it."));
}

bool DocumentView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_ui->tvwDocs->viewport())
        return ScreenView::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        break;
    default:
        return false;
    }
    auto* drop = static_cast<QDropEvent*>(event);
    const QStringList files = filesOf(*drop->mimeData());
    if (files.isEmpty() || !(drop->possibleActions() & (Qt::CopyAction | Qt::LinkAction)))
        return false;
    // Never a move: the file manager would delete the file, which stays where it is.
    drop->setDropAction(drop->possibleActions() & Qt::LinkAction ? Qt::LinkAction : Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop)
        m_presenter.filesDropped(files);
    return true;
}
