// The list of what is due, as the reminder screen shows it.
#pragma once

#include <QIdentityProxyModel>
#include <QTreeView>

/// Shows the urgency of each row in a picture, a word and a colour, and the selected row in bold. The words
/// stand in the model, so that whoever reads the screen aloud says them too.
class UrgencyModel : public QIdentityProxyModel
{
    Q_OBJECT

public:
    using QIdentityProxyModel::QIdentityProxyModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

/// A list in which a row is chosen by mouse or keyboard, and never by the list itself when a row goes away.
class ReminderListView : public QTreeView
{
    Q_OBJECT

public:
    explicit ReminderListView(QWidget* parent = nullptr);

    /// Shows which row is the selected one; -1 for none.
    void showSelected(int row);
    /// Gives the columns the width of what stands in them. Where that is more than there is, the names of
    /// contact, position and company are shortened.
    void spreadColumns();

signals:
    void chosen(const QModelIndex& index);
    void opened(const QModelIndex& index); ///< double click or Enter

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};
