#include "desktop/companypicker.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CompanyPicker::CompanyPicker(const QString& title, const QStringList& companies, QWidget* parent)
    : QDialog(parent)
    , m_typed(new QLineEdit(this))
    , m_list(new QListView(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName(u"companyPicker"_s);
    setWindowTitle(title);
    auto* label = new QLabel(tr("&Find a company"), this);
    label->setObjectName(u"lblFindCompany"_s);
    label->setBuddy(m_typed);
    m_typed->setObjectName(u"txtFindCompany"_s);
    m_typed->setAccessibleName(tr("Find a company"));
    m_typed->setPlaceholderText(tr("Any part of its name"));
    m_typed->setClearButtonEnabled(true);
    m_typed->installEventFilter(this);

    m_companies.setStringList(companies);
    m_shown.setSourceModel(&m_companies);
    m_shown.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setObjectName(u"lstCompanies"_s);
    m_list->setAccessibleName(tr("Companies"));
    // Measuring each of thousands of names would be felt.
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setModel(&m_shown);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_typed);
    layout->addWidget(m_list);
    layout->addWidget(m_buttons);
    connect(m_typed, &QLineEdit::textChanged, this, &CompanyPicker::narrow);
    connect(m_list, &QAbstractItemView::doubleClicked, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    narrow({});
    resize(fontMetrics().averageCharWidth() * 56, fontMetrics().height() * 26);
}

QString CompanyPicker::picked() const
{
    return m_list->currentIndex().data().toString();
}

void CompanyPicker::narrow(const QString& typed)
{
    m_shown.setFilterFixedString(typed.trimmed());
    m_list->setCurrentIndex(m_shown.index(0, 0));
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(m_shown.rowCount() > 0);
}

bool CompanyPicker::eventFilter(QObject* watched, QEvent* event)
{
    // The arrow keys walk the list while the typing goes on.
    if (watched == m_typed && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
            return QCoreApplication::sendEvent(m_list, event);
    }
    return QDialog::eventFilter(watched, event);
}
