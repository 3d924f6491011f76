// The box in which one company is chosen.
#pragma once

#include <QDialog>
#include <QSortFilterProxyModel>
#include <QStringListModel>

class QDialogButtonBox;
class QLineEdit;
class QListView;

/// Lists companies and narrows the list to those that hold what is typed; Enter or a double click takes the
/// one marked.
class CompanyPicker : public QDialog
{
    Q_OBJECT

public:
    CompanyPicker(const QString& title, const QStringList& companies, QWidget* parent = nullptr);
    /// The company marked, empty when the typed text left none.
    [[nodiscard]] QString picked() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void narrow(const QString& typed);

    QStringListModel m_companies;
    QSortFilterProxyModel m_shown;
    QLineEdit* m_typed;
    QListView* m_list;
    QDialogButtonBox* m_buttons;
};
