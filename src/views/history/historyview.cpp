#include "views/history/historyview.h"

#include "history/frmhistory.h"
#include "ui_historyview.h"
#include "views/common/formbinder.h"
#include "views/common/icons.h"
#include "views/common/look.h"
#include "views/common/windowstate.h"
#include "views/history/historyrows.h"

#include <QHeaderView>
#include <QShortcut>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr auto columnsKey = "Windows/frmHistory/lvwHistory";

} // namespace

HistoryView::HistoryView(FrmHistory& presenter, QSettings& layout, QWidget* parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_layout(layout)
    , m_ui(std::make_unique<Ui::HistoryView>())
    , m_rows(new HistoryRows(presenter, this))
{
    m_ui->setupUi(this);
    look::dress(*this);
    setWindowTitle(windowTitle() + u" – "_s + presenter.form().text(u"lblContactName"_s));
    setUpFields();
    setUpList();
    auto* binder = new FormBinder(presenter.form(), presenter, *this, {u"txtSearch"_s});
    binder->lock(u"cmdUpdateOutlook"_s, tr("The mail import is not part of this version."));
    connectList();
    connectKeys();
    restoreLayout();
    connect(&presenter, &FrmHistory::changed, this, &HistoryView::render);
    startNew();
}

HistoryView::~HistoryView() = default;

void HistoryView::setUpFields()
{
    QFont name = m_ui->lblContactName->font();
    name.setPointSizeF(name.pointSizeF() * 1.25);
    m_ui->lblContactName->setFont(name);
    m_ui->cmdAddHistory->setIcon(icons::named(u"document-save"_s));
    m_ui->cmdRemoveHistory->setIcon(icons::named(u"edit-delete"_s));
    m_ui->cmdUpdateOutlook->setIcon(icons::named(u"document-import"_s));
    m_ui->cmdAddEvent->setIcon(icons::named(u"view-calendar"_s));
    m_ui->cmdNewHistory->setIcon(icons::named(u"document-new"_s));
    for (QDateEdit* date : {m_ui->DTPContact, m_ui->dtpNextCall}) {
        // Two digits of a year leave open which century is meant.
        const QString format = date->displayFormat();
        if (!format.contains("yyyy"_L1))
            date->setDisplayFormat(QString(format).replace("yy"_L1, "yyyy"_L1));
    }
}

void HistoryView::setUpList()
{
    HistoryList& list = *m_ui->lvwHistory;
    list.setModel(m_rows);
    QHeaderView& header = *list.header();
    constexpr std::array widths{13, 28, 14, 12, 15, 30, 14};
    for (int column = 0; column < static_cast<int>(widths.size()); ++column)
        header.resizeSection(column, look::fieldWidth(list, widths[static_cast<size_t>(column)]));
    // Without a column chosen the list stands in the order of the slots.
    header.setSortIndicatorClearable(true);
    header.setSortIndicator(-1, Qt::AscendingOrder);
    list.setSortingEnabled(true);
}

void HistoryView::connectList()
{
    HistoryList& list = *m_ui->lvwHistory;
    connect(&list, &QAbstractItemView::clicked, this, [this, &list](const QModelIndex& index) {
        if (list.wasCurrent(index)) // any other cell has been chosen by becoming the current one
            choose(index);
    });
    connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, &list](const QModelIndex& current) {
                // Sorting and filtering move the current row too; only somebody at the list chooses.
                if (!m_rendering && list.hasFocus())
                    choose(current);
            });
    connect(&list, &QAbstractItemView::doubleClicked, this, &HistoryView::focusTopic);
    connect(&list, &HistoryList::opened, this, &HistoryView::edit);
    connect(m_ui->txtSearch, &QLineEdit::textChanged, this, &HistoryView::filter);
    connect(m_ui->cmdNewHistory, &QAbstractButton::clicked, this, &HistoryView::startNew);
    connect(m_ui->cmdClose, &QAbstractButton::clicked, this, &QDialog::close);
}

void HistoryView::connectKeys()
{
    const auto onKey = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    onKey(QKeySequence::New, [this] { startNew(); });
    onKey(QKeySequence::Save, [this] { m_ui->cmdAddHistory->click(); });
    onKey(QKeySequence::Find, [this] {
        m_ui->txtSearch->setFocus(Qt::ShortcutFocusReason);
        m_ui->txtSearch->selectAll();
    });
    m_ui->txtSearch->installEventFilter(this);
    for (QComboBox* box : {m_ui->cmbMedium, m_ui->cmbLength, m_ui->cmbReturn})
        box->installEventFilter(this);
}

void HistoryView::restoreLayout()
{
    resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 42);
    m_ui->splHistory->setSizes({300, 320});
    windowstate::restore(*this, m_layout);
    m_ui->lvwHistory->header()->restoreState(m_layout.value(columnsKey).toByteArray());
}

bool HistoryView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (auto* box = qobject_cast<QComboBox*>(watched)) {
        // Nothing is none of the entries, and yet a choice.
        if (key != Qt::Key_Delete && key != Qt::Key_Backspace)
            return false;
        box->setCurrentIndex(-1);
        return true;
    }
    return searchKey(key);
}

/// What a key does in the search box beside typing; true when it is done with.
bool HistoryView::searchKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        if (m_ui->txtSearch->text().isEmpty())
            return false; // closes the screen
        m_ui->txtSearch->clear();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        // On to what was found; Enter must not press Update here.
        m_ui->lvwHistory->setFocus(Qt::OtherFocusReason);
        return true;
    default:
        return false;
    }
}

// --- The list ---------------------------------------------------------------------------------------------

void HistoryView::choose(const QModelIndex& index)
{
    if (index.isValid())
        m_presenter.lvwHistoryClick(m_rows->mapToSource(index).row());
}

void HistoryView::edit(const QModelIndex& index)
{
    choose(index);
    focusTopic();
}

void HistoryView::focusTopic()
{
    m_ui->txtTopic->setFocus(Qt::OtherFocusReason);
}

void HistoryView::startNew()
{
    // A field that keeps the focus would give back the earlier entry's text at Esc.
    m_ui->lvwHistory->setFocus(Qt::OtherFocusReason);
    m_presenter.lvwHistoryClick(m_presenter.lvwHistory().rowCount() - 1);
    render();
    focusTopic();
}

void HistoryView::filter(const QString& words)
{
    m_rows->setWords(words);
    render();
}

void HistoryView::render()
{
    m_rendering = true;
    const QModelIndex row = m_presenter.lvwHistory().index(m_presenter.selectedHistory() - 1, 0);
    const QModelIndex shown = m_rows->mapFromSource(row);
    if (shown.isValid() && shown != m_ui->lvwHistory->currentIndex())
        m_ui->lvwHistory->setCurrentIndex(shown);
    m_rendering = false;
    m_ui->lvwHistory->setHint(m_presenter.hint(m_rows->rowCount(), m_ui->txtSearch->text()));
}

// --- The end ----------------------------------------------------------------------------------------------

void HistoryView::done(int result)
{
    if (!m_presenter.unload())
        return;
    windowstate::save(*this, m_layout);
    m_layout.setValue(columnsKey, m_ui->lvwHistory->header()->saveState());
    QDialog::done(result);
}
